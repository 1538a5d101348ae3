#include "recordMappingNotices.h"

using namespace mapping;
using namespace screens;

namespace {

class RecordMappingAreas : public testing::Test
{
protected:
    FakeHost host;
};

const char* circleOption(ScreenType type)
{
    return type == ScreenType::T12 ? "Rcircle" : "Tcircle";
}

NtcGeoPt rowPoint(std::size_t number)
{
    auto point = aPoint(number);
    point.site_alt.clear();
    return point;
}

NtcAntenna bareSection()
{
    NtcAntenna section;
    section.present = true;
    section.pwr_ant = "12";
    return section;
}

NtcRx areaOf(const char* geoType)
{
    NtcRx station;
    station.present = true;
    station.geo.present = true;
    station.geo.geo_type = geoType;
    return station;
}

NtcAntenna withCircle()
{
    auto section = bareSection();
    section.rx[0] = areaOf("CIRCLE");
    section.rx[0].geo.radius = "250";
    section.rx[0].geo.pt[0] = rowPoint(3);
    return section;
}

NtcAntenna withZones(const std::vector<std::size_t>& filled)
{
    auto section = bareSection();
    for (const auto slot : filled) {
        section.rx[slot] = areaOf("ZONE");
        section.rx[slot].geo.zone_id = "Z" + std::to_string(slot + 1);
        section.rx[slot].geo.pt[0].present = true;
    }
    return section;
}

NtcAntenna withPoints(const std::vector<std::size_t>& filled)
{
    auto section = bareSection();
    section.rx[0] = areaOf("MULTIPOINT");
    for (const auto slot : filled)
        section.rx[0].geo.pt[slot] = rowPoint(slot);
    return section;
}

void expectKept(ScreenType type, const NtcAntenna& section, const char* option)
{
    NoticeForm form(type);
    showSection(form, section);
    EXPECT_TRUE(form.isSelected(option)) << option;
    EXPECT_TRUE(readSection(form) == section) << option << " on " << nameOf(type);
}

bool areBlank(const NoticeForm& form, const std::vector<std::string>& controls)
{
    return std::all_of(controls.begin(), controls.end(),
                       [&](const auto& name) { return isBlank(form, name); });
}

bool areFilled(const NoticeForm& form, const std::vector<std::string>& controls)
{
    return std::none_of(controls.begin(), controls.end(),
                        [&](const auto& name) { return isBlank(form, name); });
}

constexpr std::array areaScreens{ScreenType::T12, ScreenType::T13};

} // namespace

TEST_F(RecordMappingAreas, ACircleComesBack)
{
    for (const auto type : areaScreens)
        expectKept(type, withCircle(), circleOption(type));
}

TEST_F(RecordMappingAreas, ZonesComeBackWithTheirGaps)
{
    for (const auto type : areaScreens) {
        expectKept(type, withZones({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}), "zone");
        expectKept(type, withZones({0}), "zone");
        expectKept(type, withZones({2, 14}), "zone");
    }
}

TEST_F(RecordMappingAreas, PointsOfT12ComeBackWithTheirGaps)
{
    expectKept(ScreenType::T12, withPoints({0, 1, 2, 3, 4, 5}), "multipt");
    expectKept(ScreenType::T12, withPoints({1, 5}), "multipt");
    expectKept(ScreenType::T12, withPoints({}), "multipt");
}

TEST_F(RecordMappingAreas, OnlyTheThirdZoneFilledIsOneStationInTheThirdSlot)
{
    for (const auto type : areaScreens) {
        NoticeForm form(type);
        InitalizeAntenna(form);
        form.setSelected("zone", true);
        form.setText("Rzone3", "EURA");
        const auto section = readSection(form);
        EXPECT_FALSE(section.present);
        EXPECT_FALSE(section.rx[0].present);
        EXPECT_TRUE(section.rx[2].present && section.rx[2].geo.present && section.rx[2].geo.pt[0].present);
        EXPECT_EQ(section.rx[2].geo.zone_id, "EURA");
        EXPECT_FALSE(section.rx[3].present);
    }
}

TEST_F(RecordMappingAreas, TheLastNineZoneBoxesAreNeitherShownNorStored)
{
    for (const auto type : areaScreens) {
        NoticeForm form(type);
        showSection(form, withZones({0, 14}));
        EXPECT_EQ(form.text("Rzone15"), "Z15");
        for (int number = 16; number <= 24; ++number) {
            EXPECT_EQ(form.text(fields::zoneControl(number)), "");
            form.setText(fields::zoneControl(number), "EURA");
        }
        EXPECT_TRUE(readSection(form) == withZones({0, 14}));
    }
}

TEST_F(RecordMappingAreas, ACircleWithABlankCentreIsStoredAsACircle)
{
    for (const auto type : areaScreens) {
        NoticeForm form(type);
        InitalizeAntenna(form);
        form.setSelected(circleOption(type), true);
        const auto station = readSection(form).rx[0];
        auto expected = areaOf("CIRCLE");
        expected.geo.pt[0].present = true;
        EXPECT_TRUE(station == expected);
    }
}

TEST_F(RecordMappingAreas, StoringASectionBlanksTheBoxesOfTheOtherAreas)
{
    NoticeForm form(ScreenType::T12);
    const auto readWith = [&](const char* option) {
        putSomething(form, fields::antennaControls(ScreenType::T12));
        form.setSelected(option, true);
        (void)readSection(form);
    };
    readWith("multipt");
    EXPECT_TRUE(areFilled(form, fields::pointRowControls()));
    EXPECT_TRUE(areBlank(form, fields::zoneControls()));
    EXPECT_TRUE(areBlank(form, fields::circleControls()));
    readWith("zone");
    EXPECT_TRUE(areBlank(form, fields::pointRowControls()));
    EXPECT_TRUE(areFilled(form, fields::zoneControls()));
    EXPECT_TRUE(areBlank(form, fields::circleControls()));
    readWith("Rcircle");
    EXPECT_TRUE(areBlank(form, fields::pointRowControls()));
    EXPECT_TRUE(areBlank(form, fields::zoneControls()));
    EXPECT_TRUE(areFilled(form, fields::circleControls()));
}

TEST_F(RecordMappingAreas, OnT13TheZonesAndTheCircleBlankEachOther)
{
    NoticeForm form(ScreenType::T13);
    putSomething(form, fields::antennaControls(ScreenType::T13));
    form.setSelected("zone", true);
    (void)readSection(form);
    EXPECT_TRUE(areBlank(form, fields::circleControls()));
    EXPECT_TRUE(areFilled(form, fields::zoneControls()));
    putSomething(form, fields::circleControls());
    form.setSelected("Tcircle", true);
    (void)readSection(form);
    EXPECT_TRUE(areFilled(form, fields::circleControls()));
    EXPECT_TRUE(areBlank(form, fields::zoneControls()));
}

TEST_F(RecordMappingAreas, WithoutAnAreaNothingIsStoredAndNothingBlanked)
{
    for (const auto type : areaScreens) {
        NoticeForm form(type);
        InitalizeAntenna(form);
        form.setText("Rzone1", "EURA");
        form.setText("Rradius", "250");
        EXPECT_TRUE(readSection(form) == NtcAntenna{});
        EXPECT_EQ(form.text("Rzone1"), "EURA");
        EXPECT_EQ(form.text("Rradius"), "250");
    }
}

TEST_F(RecordMappingAreas, StationsThatAreNotPresentOrOfAnotherKindAreNotShown)
{
    for (const auto type : areaScreens) {
        NoticeForm form(type);
        auto section = withCircle();
        section.rx[0].present = false;
        showSection(form, section);
        EXPECT_FALSE(form.isSelected(circleOption(type)));
        EXPECT_EQ(form.text("Rradius"), "");
        section.rx[0].present = true;
        section.rx[0].geo.geo_type = "POINT";
        showSection(form, section);
        for (const auto& control : fields::antennaControls(type))
            EXPECT_TRUE(isBlank(form, control) || control == "pwrant") << control;
    }
}

TEST_F(RecordMappingAreas, SeveralPointsShowNothingOnT13)
{
    NoticeForm form(ScreenType::T13);
    showSection(form, withPoints({0}));
    EXPECT_FALSE(form.isSelected("zone"));
    EXPECT_FALSE(form.isSelected("Tcircle"));
}

TEST_F(RecordMappingAreas, ACircleOfALaterStationIsShownAndStoredAsTheFirst)
{
    for (const auto type : areaScreens) {
        NoticeForm form(type);
        auto section = bareSection();
        section.rx[4] = withCircle().rx[0];
        showSection(form, section);
        EXPECT_EQ(form.text("Rradius"), "250");
        EXPECT_TRUE(readSection(form) == withCircle());
    }
}

TEST_F(RecordMappingAreas, OneZoneAmongTheStationsShowsTheZonesOfAll)
{
    for (const auto type : areaScreens) {
        NoticeForm form(type);
        auto section = withZones({3});
        section.rx[1].geo.zone_id = "LEFT OVER";
        showSection(form, section);
        EXPECT_EQ(form.text("Rzone2"), "LEFT OVER");
        EXPECT_EQ(form.text("Rzone4"), "Z4");
    }
}
