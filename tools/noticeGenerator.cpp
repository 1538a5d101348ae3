#include "tools/noticeGenerator.h"

#include "tools/invention.h"

#include <array>
#include <cstddef>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace noticeGenerator {

using namespace invention;

namespace {

// Independent rows of numbers for one notice: what makes it an assignment must not depend on how much else
// was drawn for it, or a repeated assignment would not be the same.
constexpr std::uint64_t forFile = 1;
constexpr std::uint64_t forAssignment = 2;
constexpr std::uint64_t forContent = 3;

constexpr std::array<Text, 10> remarkPhrases = {
    "operates in the dry season only",
    "replaces the mast that fell in the storm",
    "antenna shared with the harbour station",
    "power reduced by half at night",
    "pylône déplacé de 300 m vers le nord",
    "Betrieb nur während der Messe für Fischer",
    "reserve for the main link",
    "trials until the end of the year",
    "reçoit aussi les stations voisines",
    "see the letter of the administration",
};
constexpr std::array<Text, 4> natures = {"CP", "CO", "CV", "OT"};
constexpr std::array<Text, 6> agencies = {"7", "12", "013", "104", "3", "055"};
constexpr std::array<Text, 4> addressCodes = {"A", "B", "C", "QA"};

// What the load compares: two notices with the same one describe the same assignment.
struct Assignment
{
    int first = 0; // number of the notice that it was drawn for; a repeated one keeps it
    Text type;
    Emission emission{};
    int frequency = 0; // in units of 100 Hz
    Text opCls;        // empty: none
    Text hourFrom, hourTo;
    Text geoType;
    Text zone; // empty: a position
    Position position;
};

std::string coordinate(int arcSeconds, std::size_t degreeDigits, bool withSeconds)
{
    const int size = std::abs(arcSeconds);
    std::string text = arcSeconds < 0 ? "-" : "+";
    text += digits(size / degree, degreeDigits) + digits(size / 60 % 60, 2);
    return withSeconds ? text + digits(size % 60, 2) : text;
}

// The lines of a file as they grow. Administrations write keys with blanks around the "=" or without.
class Lines
{
public:
    explicit Lines(Text equals) : m_equals(equals) {}

    void tag(Text name)
    {
        m_text += name;
        m_text += "\r\n";
    }
    // Leaves out a key whose value is empty.
    void key(Text name, const std::string& value)
    {
        if (value.empty())
            return;
        m_text += name;
        m_text += m_equals;
        m_text += toAnsi(value);
        m_text += "\r\n";
    }
    void key(Text name, Text value) { key(name, std::string(value)); }
    void key(Text name, const char* value) { key(name, std::string(value)); }
    [[nodiscard]] std::string take() { return std::move(m_text); }

private:
    Text m_equals;
    std::string m_text;
};

template <std::size_t N>
void drawEmission(Assignment& assignment, Random& random, const std::array<Emission, N>& emissions)
{
    assignment.emission = random.oneOf(emissions);
    const Emission& emission = assignment.emission;
    assignment.frequency =
        emission.low + random.below((emission.high - emission.low) / emission.raster + 1) * emission.raster;
}

void drawTypeAndEmission(Assignment& assignment, Random& random)
{
    const int draw = random.below(100);
    if (draw < 35) {
        assignment.type = "T11";
        drawEmission(assignment, random, t11Emissions);
    } else if (draw < 70) {
        assignment.type = "T12";
        drawEmission(assignment, random, t12Emissions);
    } else if (draw < 85) {
        assignment.type = "T13";
        drawEmission(assignment, random, t13Emissions);
    } else {
        assignment.type = "T14";
        drawEmission(assignment, random, t14Emissions);
    }
}

void drawHours(Assignment& assignment, Random& random)
{
    static constexpr std::array<Text, 5> from = {"00:00", "05:30", "06:00", "07:45", "18:00"};
    static constexpr std::array<Text, 5> to = {"24:00", "16:30", "20:00", "21:15", "23:59"};
    const bool dayAndNight = random.chance(700);
    assignment.hourFrom = dayAndNight ? from[0] : random.oneOf(from);
    assignment.hourTo = dayAndNight ? to[0] : random.oneOf(to);
}

void drawArea(Assignment& assignment, Random& random)
{
    assignment.geoType = "POINT";
    if (assignment.type == "T14") {
        const int draw = random.below(3);
        if (draw == 0) {
            assignment.geoType = "ZONE";
            assignment.zone = random.oneOf(zones);
        } else if (draw == 1) {
            assignment.geoType = "CIRCLE";
        }
    } else if (assignment.type == "T13" && random.chance(300)) {
        assignment.geoType = "CIRCLE";
    }
    assignment.position = anywhere(random);
}

Assignment drawAssignment(Random& random)
{
    static constexpr std::array<Text, 3> opClasses = {"A", "B", "C"};
    Assignment assignment;
    drawTypeAndEmission(assignment, random);
    if (assignment.emission.hasOpCls || random.chance(150))
        assignment.opCls = random.oneOf(opClasses);
    drawHours(assignment, random);
    drawArea(assignment, random);
    return assignment;
}

Assignment assignmentOf(std::uint64_t seed, int number)
{
    constexpr int repeatsPerThousand = 22;
    constexpr int reachBack = 2000;
    Random random(seed, static_cast<std::uint64_t>(number), forAssignment);
    if (number > 1 && random.chance(repeatsPerThousand)) {
        const int oldest = number > reachBack ? number - reachBack : 1;
        return assignmentOf(seed, random.between(oldest, number - 1));
    }
    Assignment assignment = drawAssignment(random);
    assignment.first = number;
    return assignment;
}

void shapeAssignment(Assignment& assignment, Shape shape, std::uint64_t seed)
{
    if (shape != Shape::OneFrequency && shape != Shape::OnePosition)
        return;
    if (!assignment.zone.empty()) {
        assignment.zone = {};
        assignment.geoType = "POINT";
    }
    Random random(seed, 0, forAssignment);
    if (shape == Shape::OneFrequency) {
        assignment.frequency = 1'460'000 + random.below(2000) * 125;
    } else {
        assignment.position = anywhere(random);
        assignment.position.withSeconds = true;
        // A raster of its own, as there are too few broadcasting channels for all to differ by chance.
        assignment.frequency = 300'000 + assignment.first % 1'000'000 * 5;
    }
}

// One notice being written.
class NoticeText
{
public:
    NoticeText(const Assignment& assignment, Random random, int number)
        : m_assignment(assignment),
          m_random(random),
          m_number(number),
          m_lines(m_random.chance(250) ? " = " : "=")
    {}

    std::string of(Text action);

private:
    void target(bool mayDiffer);
    void ownSite();
    void classes();
    void dates();
    void identification();
    void remarks();
    void coordination();
    void antennas();
    void antenna();
    void antennaPower();
    void antennaPattern();
    void rotationalSectors();
    void station();
    void multipoint();
    void place(const Position& position);

    [[nodiscard]] bool is(Text type) const { return m_assignment.type == type; }
    [[nodiscard]] std::string referenceId() const { return "QREF-" + digits(m_number, 6); }

    const Assignment& m_assignment;
    Random m_random;
    int m_number;
    Lines m_lines;
};

std::string NoticeText::of(Text action)
{
    m_lines.tag("<NOTICE>");
    m_lines.key("t_notice_type", m_assignment.type);
    m_lines.key("t_action", action);
    m_lines.key("t_fragment", m_random.chance(850) ? "NTFD_RR" : "Req_agrt");
    const bool full = action == "ADD" || action == "MODIFY";
    if (action != "ADD")
        target(full);
    if (full) {
        m_lines.key("t_addr_code", m_random.oneOf(addressCodes));
        m_lines.key("t_freq_assgn", frequencyText(m_assignment.frequency));
        ownSite();
        classes();
        dates();
        identification();
        remarks();
        coordination();
        antennas();
    } else {
        m_lines.key("t_d_adm_ntc", date(m_random, 2024, 2025));
        m_lines.key("t_prov", "RR11.2");
        remarks();
    }
    m_lines.tag("</NOTICE>");
    return m_lines.take();
}

void NoticeText::place(const Position& position)
{
    m_lines.key("t_long", coordinate(position.longitude, 3, position.withSeconds));
    m_lines.key("t_lat", coordinate(position.latitude, 2, position.withSeconds));
}

// What a notice other than ADD acts on: the assignment itself, or for a change of the frequency or of the
// place the assignment as it was before.
void NoticeText::target(bool mayDiffer)
{
    const Emission& emission = m_assignment.emission;
    const bool moved = mayDiffer && m_random.chance(300);
    const bool retuned = mayDiffer && !moved && m_random.chance(400);
    const int before = m_assignment.frequency - emission.raster * m_random.between(1, 8);
    m_lines.key("t_trg_freq_assgn", frequencyText(retuned ? before : m_assignment.frequency));
    m_lines.key("t_trg_stn_cls", emission.stnCls);
    m_lines.key("t_trg_bdwdth_cde", emission.bdwdth);
    m_lines.key("t_trg_emi_cls", emission.emiCls);
    m_lines.key("t_trg_op_hh_fr", m_assignment.hourFrom);
    m_lines.key("t_trg_op_hh_to", m_assignment.hourTo);
    m_lines.key("t_trg_op_cls", m_assignment.opCls);
    m_lines.key("t_trg_zone_id", m_assignment.zone);
    m_lines.key("t_trg_geo_type", m_assignment.geoType);
    if (m_assignment.zone.empty()) {
        const Position old = within(m_random, m_assignment.position, 900);
        const Position& position = moved ? old : m_assignment.position;
        m_lines.key("t_trg_long", coordinate(position.longitude, 3, position.withSeconds));
        m_lines.key("t_trg_lat", coordinate(position.latitude, 2, position.withSeconds));
    }
    m_lines.key("t_trg_adm_ref_id", "QOLD-" + digits(m_random.below(100'000), 6));
}

void NoticeText::ownSite()
{
    m_lines.key("t_geo_type", m_assignment.geoType);
    if (m_assignment.geoType == "POINT")
        m_lines.key("t_site_name", siteName(m_random));
    m_lines.key("t_ctry", m_random.oneOf(administrations));
    if (m_assignment.geoType == "CIRCLE")
        m_lines.key("t_radius", std::to_string(m_random.between(2, 60) * 5));
    m_lines.key("t_zone_id", m_assignment.zone);
    if (m_assignment.zone.empty()) {
        place(m_assignment.position);
        m_lines.key("t_site_alt", std::to_string(m_random.below(1800)));
    }
}

void NoticeText::classes()
{
    const Emission& emission = m_assignment.emission;
    m_lines.key("t_op_hh_fr", m_assignment.hourFrom);
    m_lines.key("t_op_hh_to", m_assignment.hourTo);
    m_lines.key("t_stn_cls", emission.stnCls);
    m_lines.key("t_op_cls", m_assignment.opCls);
    m_lines.key("t_emi_cls", emission.emiCls);
    m_lines.key("t_bdwdth_cde", emission.bdwdth);
    for (int count = m_random.between(1, 2); count > 0; --count)
        m_lines.key("t_nat_srv", m_random.oneOf(natures));
    if (emission.emiCls == "J3E--")
        m_lines.key("t_freq_carr", frequencyText(m_assignment.frequency - 14));
    if (emission.emiCls == "F3E--" && m_random.chance(400))
        m_lines.key("t_freq_dev", emission.bdwdth == "8K00" ? "2.5" : "5");
    if (emission.stnCls == "FX" && emission.high > 10'000'000 && m_random.chance(300))
        m_lines.key("t_energy_dsp", std::to_string(m_random.between(2, 9) * 100));
    if (emission.stnCls == "BC")
        m_lines.key("t_band_pref", std::to_string(m_random.between(1, 9)));
}

void NoticeText::dates()
{
    m_lines.key("t_d_inuse", date(m_random, 2019, 2025));
    m_lines.key("t_d_adm_ntc", date(m_random, 2024, 2025));
}

void NoticeText::identification()
{
    const int signs = is("T14") ? 0 : m_random.between(1, m_assignment.emission.hasOpCls ? 3 : 1);
    for (int count = 0; count < signs; ++count)
        m_lines.key("t_call_sign", callSign(m_random));
    if (m_random.chance(300))
        m_lines.key("t_station_id", "STN " + std::to_string(m_random.between(1, 9999)));
    m_lines.key("t_adm_ref_id", referenceId());
    m_lines.key("t_is_resub", m_random.chance(60) ? "TRUE" : "FALSE");
    for (int count = m_random.between(1, 2); count > 0; --count)
        m_lines.key("t_op_agcy", m_random.oneOf(agencies));
    m_lines.key("t_prov", m_random.chance(850) ? "RR11.2" : "RR9.21");
}

void NoticeText::remarks()
{
    if (!m_random.chance(700))
        return;
    for (int count = m_random.chance(700) ? 1 : m_random.between(2, 3); count > 0; --count)
        m_lines.key("t_remarks", m_random.oneOf(remarkPhrases));
}

void NoticeText::coordination()
{
    if (!m_random.chance(550))
        return;
    const bool shortTag = m_random.chance(500);
    m_lines.tag(shortTag ? "<COORD>" : "<COORDINATION>");
    m_lines.key("t_coord_prov", "RR9.21");
    for (int count = m_random.between(1, 4); count > 0; --count)
        m_lines.key("t_adm", m_random.oneOf(administrations));
    m_lines.tag(shortTag ? "</COORD>" : "</COORDINATION>");
}

void NoticeText::antennas()
{
    for (int count = m_random.chance(600) ? 2 : 3; count > 0; --count)
        antenna();
}

void NoticeText::antenna()
{
    m_lines.tag("<ANTENNA>");
    antennaPower();
    antennaPattern();
    rotationalSectors();
    for (int count = m_random.chance(470) ? 1 : m_random.between(2, 4); count > 0; --count)
        station();
    m_lines.tag("</ANTENNA>");
}

void NoticeText::antennaPower()
{
    static constexpr std::array<Text, 3> powerTypes = {"X", "Y", "Z"};
    static constexpr std::array<Text, 3> radiatedKinds = {"E", "I", "V"};
    static constexpr std::array<Text, 8> powers = {"0.01", "0.025", "0.1", "0.5", "1", "5", "10", "50"};
    m_lines.key("t_pwr_xyz", m_random.oneOf(powerTypes));
    m_lines.key("t_pwr_ant", m_random.oneOf(powers));
    m_lines.key("t_pwr_dbw", decimal(m_random.between(-50, 480), 1));
    m_lines.key("t_pwr_eiv", m_random.oneOf(radiatedKinds));
    if (is("T11") && m_random.chance(300))
        m_lines.key("t_pwr_dens", decimal(m_random.between(-600, -200), 1));
}

void NoticeText::antennaPattern()
{
    static constexpr std::array<Text, 3> gainTypes = {"I", "V", "D"};
    static constexpr std::array<Text, 4> polarizations = {"V", "H", "M", "CR"};
    const bool directive = m_random.chance(600);
    if (!is("T14")) {
        m_lines.key("t_ant_dir", directive ? "D" : "ND");
        if (directive) {
            m_lines.key("t_azm_max_e", decimal(m_random.below(3600), 1));
            m_lines.key("t_bmwdth", std::to_string(m_random.between(2, 120)));
        }
    }
    m_lines.key("t_gain_type", m_random.oneOf(gainTypes));
    m_lines.key("t_gain_max", decimal(m_random.between(0, 420), 1));
    if (m_random.chance(100))
        m_lines.key("t_ant_ref", "QANT" + std::to_string(m_random.between(1, 40)));
    if (directive && !is("T14") && m_random.chance(500))
        m_lines.key("t_elev", decimal(m_random.between(-20, 300), 1));
    m_lines.key("t_polar", m_random.oneOf(polarizations));
    m_lines.key("t_hgt_agl", std::to_string(m_random.between(4, 220)));
    if (m_random.chance(300))
        m_lines.key("t_dist_max", std::to_string(m_random.between(5, 2500)));
}

void NoticeText::rotationalSectors()
{
    if (is("T13") || is("T14") || !m_random.chance(180))
        return;
    for (int count = m_random.between(1, 3); count > 0; --count) {
        m_lines.tag("<ROTATIONAL>");
        const int from = m_random.below(300);
        m_lines.key("t_azm_fr", std::to_string(from));
        m_lines.key("t_azm_to", std::to_string(from + m_random.between(10, 59)));
        m_lines.tag("</ROTATIONAL>");
    }
}

void NoticeText::station()
{
    const bool transmits = is("T13");
    m_lines.tag(transmits ? "<TX_STATION>" : "<RX_STATION>");
    if (!transmits && m_random.chance(400))
        m_lines.key("t_nois_tmp", std::to_string(m_random.between(100, 2900)));
    const int draw = m_random.below(100);
    if (is("T11") && draw < 8) {
        multipoint();
    } else if (draw >= 92 && !is("T11")) {
        m_lines.key("t_geo_type", "ZONE");
        m_lines.key("t_zone_id", m_random.oneOf(zones));
    } else {
        const bool circle = !is("T11") && draw >= 50;
        m_lines.key("t_geo_type", circle ? "CIRCLE" : "POINT");
        if (!circle)
            m_lines.key("t_site_name", siteName(m_random));
        m_lines.key("t_ctry", m_random.oneOf(administrations));
        if (circle)
            m_lines.key("t_radius", std::to_string(m_random.between(2, 60) * 5));
        place(within(m_random, m_assignment.position, 2 * degree));
    }
    m_lines.tag(transmits ? "</TX_STATION>" : "</RX_STATION>");
}

void NoticeText::multipoint()
{
    m_lines.key("t_geo_type", "MULTIPOINT");
    for (int count = m_random.between(3, 6); count > 0; --count) {
        m_lines.tag("<POINT>");
        place(within(m_random, m_assignment.position, 2 * degree));
        m_lines.tag("</POINT>");
    }
}

Text drawAction(Random& random)
{
    const int draw = random.below(100);
    if (draw < 74)
        return "ADD";
    if (draw < 88)
        return "MODIFY";
    return draw < 95 ? "SUPPRESS" : "WITHDRAW";
}

} // namespace

std::string toAnsi(const std::string& utf8)
{
    std::string ansi;
    ansi.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        const auto byte = static_cast<unsigned char>(utf8[at]);
        if ((byte == 0xC2 || byte == 0xC3) && at + 1 < utf8.size()) {
            const auto second = static_cast<unsigned char>(utf8[++at]);
            ansi += static_cast<char>(((byte & 0x03U) << 6U) | (second & 0x3FU));
        } else {
            ansi += static_cast<char>(byte);
        }
    }
    return ansi;
}

NoticeGenerator::NoticeGenerator(std::uint64_t seed, Shape shape) : m_seed(seed), m_shape(shape) {}

std::string NoticeGenerator::head() const
{
    Random random(m_seed, 0, forFile);
    Lines lines("=");
    lines.tag("Electronic notices for trial use; every name in them is invented");
    lines.tag("<HEAD>");
    lines.key("t_adm", random.oneOf(administrations));
    lines.tag("</HEAD>");
    return lines.take();
}

std::string NoticeGenerator::notice(int number) const
{
    const int source = m_shape == Shape::Identical ? 1 : number;
    Assignment assignment = assignmentOf(m_seed, source);
    shapeAssignment(assignment, m_shape, m_seed);
    Random random(m_seed, static_cast<std::uint64_t>(source), forContent);
    const Text drawn = drawAction(random);
    // One notice over and over is to weigh as much as one can, and a notice to suppress has no antennas.
    return NoticeText(assignment, random, source).of(m_shape == Shape::Identical ? "ADD" : drawn);
}

std::string NoticeGenerator::tail(int count)
{
    Lines lines("=");
    lines.tag("<TAIL>");
    lines.key("t_num_notices", std::to_string(count));
    lines.tag("</TAIL>");
    return lines.take();
}

void writeNoticeFile(const std::string& path, const FileOptions& options)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    const NoticeGenerator generator(options.seed, options.shape);
    file << generator.head();
    for (int done = 0; file && done < options.count; ++done)
        file << generator.notice(options.start + done);
    file << NoticeGenerator::tail(options.count);
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path);
}

} // namespace noticeGenerator
