#include "tools/referenceRows.h"

#include "tools/invention.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace referenceRows {

using namespace invention;

namespace {

// Independent rows of numbers, so that the plan doesn't change with the size of the set.
constexpr std::uint64_t forPlan = 11;
constexpr std::uint64_t forRow = 12;

// --- What answers a notice ---

char lowerLetter(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// Null is never equal, and capitals are no matter.
bool equal(const std::string& column, const std::string& value)
{
    return !column.empty() &&
           std::equal(column.begin(), column.end(), value.begin(), value.end(),
                      [](char left, char right) { return lowerLetter(left) == lowerLetter(right); });
}

// A recorded class of emission has five characters.
std::string asRecorded(std::string emi_cls)
{
    while (emi_cls.size() < 5)
        emi_cls += '-';
    return emi_cls;
}

bool liesAt(const Point& point, const actingNotices::Position& position)
{
    return point.longDeg == position.longDeg && point.longMin == position.longMin &&
           point.longSec == position.longSec && equal(point.long_ew, position.long_ew) &&
           point.latDeg == position.latDeg && point.latMin == position.latMin &&
           point.latSec == position.latSec && equal(point.lat_ns, position.lat_ns);
}

bool isAtPlaceOf(const Assignment& assignment, const ActingNotice& notice)
{
    if (!notice.zone_id.empty())
        return equal(assignment.zone_id, notice.zone_id);
    if (!notice.op_cls.empty() && !equal(assignment.op_cls, notice.op_cls))
        return false;
    return std::any_of(assignment.points.begin(), assignment.points.end(),
                       [&](const Point& point) { return liesAt(point, notice.position); });
}

// --- What is drawn ---

std::string codeOfAdministration(Random& random)
{
    static constexpr std::array<char, 8> lasts = {'A', 'B', 'D', 'F', 'L', 'M', 'R', 'Y'};
    const auto middle = static_cast<char>('A' + random.below(26));
    return {'Q', middle, random.oneOf(lasts)};
}

Point pointAt(const Position& position, Random& random)
{
    const int longitude = std::abs(position.longitude);
    const int latitude = std::abs(position.latitude);
    Point point;
    point.longDeg = longitude / degree;
    point.longMin = longitude / 60 % 60;
    point.long_ew = position.longitude < 0 ? "W" : "E";
    point.latDeg = latitude / degree;
    point.latMin = latitude / 60 % 60;
    point.lat_ns = position.latitude < 0 ? "S" : "N";
    if (position.withSeconds) {
        point.longSec = longitude % 60;
        point.latSec = latitude % 60;
    }
    if (random.chance(600))
        point.site_alt = std::to_string(random.below(1800));
    return point;
}

template <std::size_t N>
int drawEmission(Assignment& assignment, Random& random, const std::array<Emission, N>& emissions)
{
    const Emission& emission = random.oneOf(emissions);
    assignment.stn_cls = emission.stnCls;
    assignment.emi_cls = emission.emiCls;
    assignment.bdwdth_cde = emission.bdwdth;
    if (emission.hasOpCls || random.chance(150)) {
        static constexpr std::array<Text, 3> opClasses = {"A", "B", "C"};
        assignment.op_cls = random.oneOf(opClasses);
    }
    // Some of the channels of today, some of the many that were in use before there were any.
    const int raster = random.chance(100) ? emission.raster : 5;
    return emission.low + random.below((emission.high - emission.low) / raster + 1) * raster;
}

int drawTypeAndEmission(Assignment& assignment, Random& random)
{
    const int draw = random.below(100);
    const auto of = [&](const char* type, const auto& emissions) {
        assignment.notice_typ = type;
        return drawEmission(assignment, random, emissions);
    };
    if (draw < 35)
        return of("T11", t11Emissions);
    if (draw < 70)
        return of("T12", t12Emissions);
    return draw < 85 ? of("T13", t13Emissions) : of("T14", t14Emissions);
}

void drawHours(Assignment& assignment, Random& random)
{
    static constexpr std::array<int, 5> from = {0, 530, 600, 745, 1800};
    static constexpr std::array<int, 5> to = {2400, 1630, 2000, 2115, 2359};
    if (random.chance(15))
        return;
    const bool dayAndNight = random.chance(700);
    assignment.hourFrom = dayAndNight ? 0 : random.oneOf(from);
    assignment.hourTo = dayAndNight ? 2400 : random.oneOf(to);
}

void drawName(Assignment& assignment, Random& random)
{
    if (random.chance(970))
        assignment.site_name = siteName(random);
    if (random.chance(980))
        assignment.ctry = codeOfAdministration(random);
}

void drawSite(Assignment& assignment, Random& random)
{
    const int draw = random.below(100);
    if (assignment.notice_typ == "T14" && draw < 33) {
        assignment.geo_type = "ZONE";
        assignment.zone_id = random.oneOf(zones);
        return;
    }
    const bool multipoint = assignment.notice_typ == "T11" && draw < 12;
    const bool circle = !multipoint && assignment.notice_typ != "T11" && draw < 50;
    assignment.geo_type = multipoint ? "MULTIPOINT" : circle ? "CIRCLE" : "POINT";
    if (circle)
        assignment.radius = std::to_string(random.between(2, 60) * 5);
    const auto centre = anywhere(random);
    assignment.points.push_back(pointAt(centre, random));
    for (int more = multipoint ? random.between(2, 5) : 0; more > 0; --more)
        assignment.points.push_back(pointAt(within(random, centre, 2 * degree), random));
}

// Columns that no look-up compares.
void drawRest(Assignment& assignment, Random& random)
{
    static constexpr std::array<Text, 4> addresses = {"A", "B", "C", "QA"};
    assignment.fragment = random.chance(850) ? "NTFD_RR" : "Req_agrt";
    assignment.addr_code = random.oneOf(addresses);
    assignment.d_inuse = date(random, 1965, 2025);
    assignment.d_adm_ntc = date(random, 1970, 2025);
    assignment.stn_type = assignment.notice_typ == "T13" ? "RX" : "TX";
    assignment.intent = "ADD";
    assignment.prov = random.chance(850) ? "RR11.2" : "RR9.21";
    assignment.adm_ref_id = "QOLD-" + digits(random.below(1'000'000), 6);
    assignment.d_rcv = date(random, 1970, 2025);
    if (random.chance(300))
        assignment.stn_id = "STN " + std::to_string(random.between(1, 9999));
    if (random.chance(400))
        assignment.is_resub = random.chance(60) ? "TRUE" : "FALSE";
    if (assignment.stn_cls == "BC")
        assignment.band_pref = std::to_string(random.between(1, 9));
    if (assignment.emi_cls == "F3E--" && random.chance(400))
        assignment.freq_dev = "5";
    if (assignment.stn_cls == "FX" && random.chance(100))
        assignment.energy_dsp = std::to_string(random.between(2, 9) * 100);
    if (random.chance(700)) {
        assignment.src_update = "register";
        assignment.d_updated = date(random, 1998, 2025);
    }
}

double megahertz(int units)
{
    return units / 10'000.0;
}

Assignment drawAssignment(Random random)
{
    Assignment assignment;
    const int frequency = drawTypeAndEmission(assignment, random);
    if (random.chance(990))
        assignment.frequency = megahertz(frequency);
    if (assignment.emi_cls == "J3E--")
        assignment.freq_carr = frequencyText(frequency - 14);
    drawHours(assignment, random);
    assignment.adm = codeOfAdministration(random);
    assignment.is_notice = random.chance(60) ? "TRUE" : "FALSE";
    drawName(assignment, random);
    drawSite(assignment, random);
    drawRest(assignment, random);
    return assignment;
}

// --- What is planned for a notice ---

Point pointOf(const actingNotices::Position& at)
{
    return {at.longDeg, at.longMin, at.longSec, at.long_ew, at.latDeg,
            at.latMin,  at.latSec,  at.lat_ns,  "120"};
}

void placeAsAsked(Assignment& assignment, const ActingNotice& notice)
{
    assignment.points.clear();
    assignment.zone_id = notice.zone_id;
    assignment.geo_type = notice.zone_id.empty() ? "POINT" : "ZONE";
    if (notice.zone_id.empty())
        assignment.points.push_back(pointOf(notice.position));
}

// The assignment that a notice describes; the rest of it is drawn.
Assignment asAsked(const ActingNotice& notice, Random& random)
{
    const auto any = static_cast<std::uint64_t>(random.below(1'000'000'000));
    auto assignment = drawAssignment(Random(any, 0, forPlan));
    assignment.notice_typ = notice.type;
    assignment.adm = notice.adm;
    assignment.frequency = notice.frequency;
    assignment.hourFrom = notice.hourFrom;
    assignment.hourTo = notice.hourTo;
    assignment.stn_cls = notice.stn_cls;
    if (!notice.op_cls.empty())
        assignment.op_cls = notice.op_cls;
    assignment.emi_cls = asRecorded(notice.emi_cls);
    assignment.bdwdth_cde = notice.bdwdth_cde;
    assignment.is_notice = notice.withdraws ? "TRUE" : "FALSE";
    assignment.site_name = siteName(random);
    assignment.ctry = codeOfAdministration(random);
    placeAsAsked(assignment, notice);
    return assignment;
}

using Alter = void (*)(Assignment&);

void asItIs(Assignment& /*assignment*/) {}

void withoutName(Assignment& assignment)
{
    assignment.site_name.clear();
}

void withoutCountry(Assignment& assignment)
{
    assignment.ctry.clear();
}

// The point asked for becomes the last of three.
void onOneOfItsPoints(Assignment& assignment)
{
    if (assignment.points.empty())
        return;
    assignment.geo_type = "MULTIPOINT";
    for (int more = 1; more <= 2; ++more) {
        auto other = assignment.points.back();
        other.latMin = (other.latMin.value_or(0) + more) % 60;
        assignment.points.insert(assignment.points.begin(), other);
    }
}

void inSmallLetters(Assignment& assignment)
{
    for (auto* text : {&assignment.adm, &assignment.stn_cls, &assignment.emi_cls, &assignment.zone_id})
        std::transform(text->begin(), text->end(), text->begin(), lowerLetter);
}

// The assignments that answer a notice, each altered in its way; a null ends them.
using Fate = std::array<Alter, 3>;

constexpr std::array<Fate, 9> fates = {{
    {asItIs},
    {asItIs, withoutName},
    {},
    {withoutName},
    {onOneOfItsPoints},
    {withoutCountry},
    {inSmallLetters},
    {asItIs, onOneOfItsPoints, inSmallLetters},
    {},
}};

const Fate& fateOf(const Options& options, std::size_t place)
{
    return options.eachOnce ? fates.front() : fates[place % fates.size()];
}

char another(char letter)
{
    return letter == 'Q' ? 'X' : 'Q';
}

using Spoil = void (*)(Assignment&);

// Each makes an assignment that a notice doesn't act on, though all but one thing agree.
constexpr std::array<Spoil, 10> spoils = {
    [](Assignment& row) { row.emi_cls = row.emi_cls.substr(0, row.emi_cls.find('-')); },
    [](Assignment& row) { row.is_notice = row.is_notice == "TRUE" ? "FALSE" : "TRUE"; },
    [](Assignment& row) {
        if (!row.adm.empty())
            row.adm.front() = another(row.adm.front());
    },
    [](Assignment& row) { row.emi_cls.clear(); },
    [](Assignment& row) { row.hourTo.reset(); },
    [](Assignment& row) { row.op_cls.clear(); },
    [](Assignment& row) {
        for (auto& point : row.points)
            point.latSec.reset();
        row.zone_id.clear();
    },
    [](Assignment& row) {
        for (auto& point : row.points)
            point.longSec = (point.longSec.value_or(0) + 1) % 60;
        if (!row.zone_id.empty())
            row.zone_id.front() = another(row.zone_id.front());
    },
    [](Assignment& row) { row.frequency = row.frequency.value_or(0) + 0.0005; },
    [](Assignment& row) { row.is_notice.clear(); },
};

} // namespace

bool answers(const Assignment& assignment, const ActingNotice& notice)
{
    return assignment.frequency == notice.frequency && assignment.hourFrom == notice.hourFrom &&
           assignment.hourTo == notice.hourTo && equal(assignment.adm, notice.adm) &&
           equal(assignment.stn_cls, notice.stn_cls) &&
           equal(assignment.emi_cls, asRecorded(notice.emi_cls)) &&
           equal(assignment.bdwdth_cde, notice.bdwdth_cde) &&
           equal(assignment.is_notice, notice.withdraws ? "TRUE" : "FALSE") &&
           isAtPlaceOf(assignment, notice);
}

Rows::Rows(const Options& options)
    : m_options(options), m_isAnswered(options.notices.size()), m_expected(options.notices.size())
{
    for (std::size_t place = 0; place < m_options.notices.size(); ++place)
        m_byFrequency.emplace(m_options.notices[place].frequency, place);
    for (std::size_t place = 0; place < m_options.notices.size(); ++place) {
        Random random(m_options.seed, place, forPlan);
        planAnswers(place, random);
        planNearMisses(place, random);
    }
    if (m_planned.size() > static_cast<std::size_t>(m_options.assignments))
        throw std::runtime_error("the notices need " + std::to_string(m_planned.size()) +
                                 " assignments or more");
}

void Rows::planAnswers(std::size_t place, Random& random)
{
    // Two notices may end one assignment; what was planned for the first then holds for both.
    if (m_isAnswered[place])
        return;
    for (const auto alter : fateOf(m_options, place)) {
        if (alter == nullptr)
            return;
        m_planned.push_back(asAsked(m_options.notices[place], random));
        alter(m_planned.back());
        for (const auto answeredToo : answered(m_planned.back()))
            m_isAnswered[answeredToo] = true;
    }
}

// All of them where nothing answers, else one by turns.
void Rows::planNearMisses(std::size_t place, Random& random)
{
    const bool all = fateOf(m_options, place).front() == nullptr;
    for (std::size_t spoil = 0; spoil < spoils.size(); ++spoil) {
        if (!all && spoil != place % spoils.size())
            continue;
        auto assignment = asAsked(m_options.notices[place], random);
        spoils[spoil](assignment);
        if (answered(assignment).empty()) // not every notice has what is spoiled
            m_planned.push_back(assignment);
    }
}

std::vector<std::size_t> Rows::answered(const Assignment& assignment) const
{
    std::vector<std::size_t> places;
    if (!assignment.frequency)
        return places;
    const auto [first, last] = m_byFrequency.equal_range(*assignment.frequency);
    for (auto found = first; found != last; ++found) {
        if (answers(assignment, m_options.notices[found->second]))
            places.push_back(found->second);
    }
    return places;
}

// What is planned is spread evenly among the rest.
bool Rows::isPlanned(int key) const
{
    if (m_plannedGiven == m_planned.size())
        return false;
    const auto turn = static_cast<std::uint64_t>(m_plannedGiven) *
                      static_cast<std::uint64_t>(m_options.assignments) / m_planned.size();
    return static_cast<std::uint64_t>(key) == turn + 1;
}

void Rows::drawCurrent(int key)
{
    if (isPlanned(key)) {
        m_current = m_planned[m_plannedGiven++];
        return;
    }
    m_current = drawAssignment(Random(m_options.seed, static_cast<std::uint64_t>(key), forRow));
    if (!answered(m_current).empty()) // by chance
        m_current.adm.clear();
}

bool Rows::next()
{
    if (m_given == m_options.assignments)
        return false;
    const int key = ++m_given;
    drawCurrent(key);
    m_current.veldakey = key;
    m_current.geoKey = 3 * key + 100; // unlike the other key, so that no join on the wrong one goes unseen
    for (const auto place : answered(m_current)) {
        auto& answer = m_expected[place];
        ++answer.count;
        answer.site_name = m_current.site_name;
        answer.ctry = m_current.ctry;
    }
    return true;
}

} // namespace referenceRows
