#include "recordMappingNotices.h"

#include "screens/fieldRules.h"

using namespace mapping;
using namespace screens;

namespace {

constexpr ScreenSet notT11 = onT12 | onT13 | onT14;
constexpr ScreenSet notT14 = onT11 | onT12 | onT13;

// A notice with a value in every member.
Ntc fullNotice(ScreenType type, const std::string& intent)
{
    auto notice = aNotice(nameOf(type), intent).withPoints(6).build();
    notice.freq_carr = "151.35";
    notice.d_adm_ntc = "2024-5-3";
    notice.d_inuse = "2023-12-1";
    notice.d_rcv = "2024-06-07";
    notice.fragment = "NTFD_RR";
    notice.prov = "S11.2";
    notice.is_resub = "TRUE";
    notice.target.trg_freq_assgn = "7.5";
    if (type == ScreenType::T13)
        notice.prov = "S11.9";
    if (type == ScreenType::T14)
        notice.prov = "S11.17";
    return notice;
}

// What no control of a screen carries: storing the notice empties it.
struct EmptiedMember
{
    const char* name;
    std::string& (*member)(Ntc&);
    ScreenSet screens;
};

// clang-format off
constexpr std::array<EmptiedMember, 23> emptied = {{
    {"band_pref",    [](Ntc& n) -> std::string& { return n.band_pref; },            onAll},
    {"src_update",   [](Ntc& n) -> std::string& { return n.src_update; },           onAll},
    {"d_updated",    [](Ntc& n) -> std::string& { return n.d_updated; },            onAll},
    {"coord adm 11", [](Ntc& n) -> std::string& { return n.coord.adm[10]; },        onAll},
    {"op_cls",       [](Ntc& n) -> std::string& { return n.op_cls; },               notT11},
    {"freq_dev",     [](Ntc& n) -> std::string& { return n.freq_dev; },             notT11},
    {"energy_dsp",   [](Ntc& n) -> std::string& { return n.energy_dsp; },           notT11},
    {"trg_op_cls",   [](Ntc& n) -> std::string& { return n.target.trg_op_cls; },    notT11},
    {"trg_geo_type", [](Ntc& n) -> std::string& { return n.target.trg_geo_type; },  notT14},
    {"trg_zone_id",  [](Ntc& n) -> std::string& { return n.target.trg_zone_id; },   notT14},
    {"geo_type",     [](Ntc& n) -> std::string& { return n.geo.geo_type; },         notT14},
    {"zone_id",      [](Ntc& n) -> std::string& { return n.geo.zone_id; },          notT14},
    {"radius",       [](Ntc& n) -> std::string& { return n.geo.radius; },           notT14},
    {"site_name",    [](Ntc& n) -> std::string& { return n.geo.site_name; },        onT14},
    {"ctry",         [](Ntc& n) -> std::string& { return n.geo.ctry; },             onT14},
    {"site_alt",     [](Ntc& n) -> std::string& { return n.geo.pt[0].site_alt; },   onT13 | onT14},
    {"stn_id",       [](Ntc& n) -> std::string& { return n.stn_id; },               onT13 | onT14},
    {"call sign 1",  [](Ntc& n) -> std::string& { return n.call_sign[0]; },         onT13 | onT14},
    {"call sign 2",  [](Ntc& n) -> std::string& { return n.call_sign[1]; },         onT13 | onT14},
    {"call sign 3",  [](Ntc& n) -> std::string& { return n.call_sign[2]; },         onT13 | onT14},
    {"call sign 4",  [](Ntc& n) -> std::string& { return n.call_sign[3]; },         onT13 | onT14},
    {"call sign 5",  [](Ntc& n) -> std::string& { return n.call_sign[4]; },         onT13 | onT14},
    {"call sign 6",  [](Ntc& n) -> std::string& { return n.call_sign[5]; },         onT13 | onT14},
}};
// clang-format on

// The full notice as the screen stores it.
Ntc expectedAfterUpdate(Ntc notice, ScreenType type)
{
    for (const auto& row : emptied) {
        if (!contains(row.screens, type))
            continue;
        EXPECT_FALSE(row.member(notice).empty()) << row.name;
        row.member(notice).clear();
    }
    for (std::size_t slot = 1; slot < notice.geo.pt.size(); ++slot) {
        EXPECT_TRUE(notice.geo.pt.at(slot).present);
        notice.geo.pt[slot] = {};
    }
    notice.prov = type == ScreenType::T13 ? "RR11.9" : type == ScreenType::T14 ? "RR11.17" : "RR11.2";
    if (type == ScreenType::T14) {
        notice.geo.geo_type = "CIRCLE";
        notice.target.trg_geo_type = "CIRCLE";
    }
    return notice;
}

// What no control of a section carries: storing the section empties it.
struct EmptiedAntennaMember
{
    const char* name;
    std::string NtcAntenna::*member;
    ScreenSet screens;
};

// clang-format off
constexpr std::array<EmptiedAntennaMember, 11> emptiedOfAntennas = {{
    {"pwr_dens",  &NtcAntenna::pwr_dens,  notT11},
    {"polar",     &NtcAntenna::polar,     notT11},
    {"ant_dir",   &NtcAntenna::ant_dir,   onT13 | onT14},
    {"azm_max_e", &NtcAntenna::azm_max_e, onT13 | onT14},
    {"bmwdth",    &NtcAntenna::bmwdth,    onT13 | onT14},
    {"ant_ref",   &NtcAntenna::ant_ref,   onT13 | onT14},
    {"elev",      &NtcAntenna::elev,      onT13 | onT14},
    {"hgt_agl",   &NtcAntenna::hgt_agl,   onT13 | onT14},
    {"dist_max",  &NtcAntenna::dist_max,  onT13 | onT14},
    {"gain_type", &NtcAntenna::gain_type, onT13},
    {"gain_max",  &NtcAntenna::gain_max,  onT13},
}};
// clang-format on

// A section with a value in every member and as many stations as the screen stores.
NtcAntenna fullSection(ScreenType type, std::size_t slot)
{
    const std::size_t stations = type == ScreenType::T11 ? 11 : 15;
    auto section = aNotice(nameOf(type)).withAntennas(15, 6, stations).build().antenna.at(slot);
    for (std::size_t station = 0; station < stations; ++station)
        section.rx[station].geo.geo_type = type == ScreenType::T11 ? "POINT" : "ZONE";
    return section;
}

// A station of T11 loses what belongs to areas, a zone of T12 and T13 all but its name.
NtcRx expectedStation(const NtcRx& station, ScreenType type)
{
    auto expected = station;
    auto& geo = expected.geo;
    geo.pt[0].site_alt.clear();
    geo.radius.clear();
    if (type == ScreenType::T11) {
        geo.zone_id.clear();
        return expected;
    }
    geo.site_name.clear();
    geo.ctry.clear();
    geo.pt[0] = {};
    geo.pt[0].present = true;
    expected.noise_temp.clear();
    return expected;
}

NtcAntenna expectedSection(NtcAntenna section, ScreenType type)
{
    for (const auto& row : emptiedOfAntennas) {
        EXPECT_FALSE((section.*row.member).empty()) << row.name;
        if (contains(row.screens, type))
            (section.*row.member).clear();
    }
    if (!contains(fields::withRotation, type)) {
        section.is_rot = "FALSE";
        section.rot = {};
    }
    for (std::size_t slot = 0; slot < section.rx.size(); ++slot) {
        if (type == ScreenType::T14)
            section.rx[slot] = {};
        else if (section.rx.at(slot).present)
            section.rx[slot] = expectedStation(section.rx.at(slot), type);
    }
    return section;
}

const std::string longText(40, 'W');
const std::string longFrequency = "123456789.123456";

// A record with one value alone, shown and stored again.
template <class Record, class Locate>
void expectKept(NoticeForm& form, const char* control, std::string Record::*member, Locate locate,
                const std::string& value)
{
    auto notice = bareNotice(form.type(), "MODIFY");
    notice.geo.present = true;
    notice.coord.present = true;
    Record& record = locate(notice);
    record.*member = value;
    fillScreen(form, notice);
    EXPECT_EQ(form.text(control), value) << control;

    auto after = notice;
    fillNtcFromScreen(form, after);
    EXPECT_EQ(locate(after).*member, value) << control;
}

template <class Rows, class Locate>
void expectEachKept(NoticeForm& form, const Rows& rows, Locate locate)
{
    for (const auto& row : rows) {
        if (contains(row.screens, form.type()))
            expectKept(form, row.control, row.member, locate, longText);
    }
}

template <class Rows, class Locate>
void expectEachPairKept(NoticeForm& form, const Rows& rows, Locate locate)
{
    for (const auto& row : rows) {
        if (!contains(row.screens, form.type()))
            continue;
        const auto& value = row.unit ? longFrequency : longText;
        expectKept(form, row.control, row.member, locate, value);
        expectKept(
            form, row.target, row.targetMember, [](Ntc& n) -> NtcTarget& { return n.target; }, value);
    }
}

} // namespace

TEST(RecordMappingSweep, AFullNoticeComesBackButForWhatTheScreenDoesNotCarry)
{
    const FakeHost host;
    for (const auto type : allScreens) {
        SCOPED_TRACE(nameOf(type));
        NoticeForm form(type);
        const auto notice = fullNotice(type, "MODIFY");
        EXPECT_SAME_NOTICE(stored(form, notice), expectedAfterUpdate(notice, type));
        EXPECT_TRUE(host.boxes.empty());
    }
}

TEST(RecordMappingSweep, EachMemberThatTheScreenDoesNotCarryIsEmptied)
{
    const FakeHost host;
    for (const auto type : allScreens) {
        NoticeForm form(type);
        auto after = stored(form, fullNotice(type, "MODIFY"));
        for (const auto& row : emptied)
            EXPECT_EQ(row.member(after).empty(), contains(row.screens, type))
                << row.name << " on " << nameOf(type);
        for (std::size_t slot = 1; slot < after.geo.pt.size(); ++slot)
            EXPECT_TRUE(after.geo.pt.at(slot) == NtcGeoPt{}) << "point " << slot + 1;
    }
}

TEST(RecordMappingSweep, StoringTheNoticeLeavesItsAntennasAlone)
{
    const FakeHost host;
    for (const auto type : allScreens) {
        NoticeForm form(type);
        const auto notice = aNotice(nameOf(type)).withAntennas(15, 6, 15).build();
        auto after = notice;
        fillNtcFromScreen(form, after);
        EXPECT_TRUE(after.antenna == notice.antenna);
        EXPECT_EQ(after.notice_typ, notice.notice_typ);
        EXPECT_EQ(after.stn_type, type == ScreenType::T13 ? "RX" : "TX");
        EXPECT_EQ(after.d_rcv, notice.d_rcv);
    }
}

TEST(RecordMappingSweep, EachFieldAloneIsShownAndStoredWholeBeyondWhatMayBeTyped)
{
    const FakeHost host;
    for (const auto type : allScreens) {
        SCOPED_TRACE(nameOf(type));
        NoticeForm form(type);
        const auto notice = [](Ntc& n) -> Ntc& { return n; };
        const auto site = [](Ntc& n) -> NtcGeo& { return n.geo; };
        const auto point = [](Ntc& n) -> NtcGeoPt& { return n.geo.pt[0]; };
        expectEachKept(form, fields::noticeTexts, notice);
        expectEachKept(form, fields::siteTexts, site);
        expectEachKept(form, fields::sitePointTexts, point);
        expectEachPairKept(form, fields::assignmentPairs, notice);
        expectEachPairKept(form, fields::positionPairs, point);
        expectEachPairKept(form, fields::zonePairs, site);
        expectKept(form, "freqCarr", &Ntc::freq_carr, notice, longFrequency);
        expectKept(
            form, "coordProv", &NtcCoord::coord_prov, [](Ntc& n) -> NtcCoord& { return n.coord; }, longText);
    }
}

TEST(RecordMappingSweep, EachCoordinationBoxCarriesItsOwnAdministration)
{
    const FakeHost host;
    for (const auto type : allScreens) {
        NoticeForm form(type);
        for (std::size_t slot = 0; slot < 10; ++slot) {
            auto notice = bareNotice(type, "ADD");
            notice.coord.present = true;
            notice.coord.adm[slot] = longText;
            fillScreen(form, notice);
            EXPECT_EQ(form.text("cAdm" + std::to_string(slot + 1)), longText);
            EXPECT_EQ(read(form).coord, notice.coord);
        }
    }
}

TEST(RecordMappingSweep, EachAntennaFieldAloneIsShownAndStoredAndMakesTheSectionPresent)
{
    const FakeHost host;
    for (const auto type : allScreens) {
        SCOPED_TRACE(nameOf(type));
        NoticeForm form(type);
        for (const auto& row : fields::antennaTexts) {
            NtcAntenna section;
            section.present = true;
            section.*row.member = longText;
            showSection(form, section);
            const bool carried = contains(row.screens, type);
            EXPECT_EQ(form.text(row.control), carried ? longText : "") << row.control;
            EXPECT_TRUE(readSection(form) == (carried ? section : NtcAntenna{})) << row.control;
        }
    }
}

TEST(RecordMappingSweep, FifteenFullSectionsComeBackButForWhatTheScreenDoesNotCarry)
{
    const FakeHost host;
    for (const auto type : allScreens) {
        SCOPED_TRACE(nameOf(type));
        NoticeForm form(type);
        auto notice = bareNotice(type, "ADD");
        auto expected = notice;
        for (std::size_t slot = 0; slot < notice.antenna.size(); ++slot) {
            notice.antenna[slot] = fullSection(type, slot);
            expected.antenna[slot] = expectedSection(notice.antenna.at(slot), type);
        }
        fillScreen(form, notice);
        for (int number = 1; number <= 15; ++number) {
            setAntennaNumber(form, number);
            EXPECT_TRUE(fillScreenFromAntenna(form, notice));
            fillAntennaFromScreen(form, notice);
        }
        EXPECT_SAME_NOTICE(notice, expected);
        EXPECT_TRUE(host.boxes.empty());
    }
}

TEST(RecordMappingSweep, ValuesThatNoOperatorCouldLeaveAreShownWithoutABox)
{
    const FakeHost host;
    for (const auto type : allScreens) {
        NoticeForm form(type);
        attachFieldRules(form);
        auto notice = fullNotice(type, "MODIFY");
        notice.antenna[0] = fullSection(type, 0);
        notice.antenna[0].rx[0].geo.pt[0].lat_sec = "99";
        fillScreen(form, notice);
        fillNtcFromScreen(form, notice);
        fillAntennaFromScreen(form, notice);
        EXPECT_TRUE(host.boxes.empty()) << nameOf(type);
        EXPECT_EQ(host.beeps, 0) << nameOf(type);
    }
}

TEST(RecordMappingSweep, ANoticeThatTakesThePlaceOfAnotherLeavesNothingOfIt)
{
    const FakeHost host;
    for (const auto type : allScreens) {
        SCOPED_TRACE(nameOf(type));
        NoticeForm form(type);
        fillScreen(form, fullNotice(type, "MODIFY"));
        const Ntc nothing;
        fillScreen(form, nothing);
        for (const auto& control : fields::noticeControls(type))
            EXPECT_TRUE(isBlank(form, control)) << control;
        for (const auto& control : fields::antennaControls(type))
            EXPECT_TRUE(isBlank(form, control)) << control;
    }
}
