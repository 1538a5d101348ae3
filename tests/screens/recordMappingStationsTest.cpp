#include "recordMappingNotices.h"

#include "screens/positions.h"
#include "screens/receivingStations.h"

using namespace mapping;
using namespace screens;

namespace {

constexpr std::array listBoxes{"noisTmp6", "Rsite6", "Rctry6", "RDeg6",  "RMin6", "Rsec6",
                               "REW6",     "RLdeg6", "RLMin6", "RLsec6", "RNS6"};

class RecordMappingStations : public testing::Test
{
protected:
    FakeHost host;
    NoticeForm form{ScreenType::T11};
};

using Names = std::vector<std::string>;

// Sees where the focus goes after each box.
class FocusingHost : public FakeHost
{
public:
    explicit FocusingHost(const NoticeForm& form) : m_form(form) {}

    platform::Answer msgBox(const std::string& text, platform::Buttons buttons, platform::Icon icon,
                            const std::string& title) override
    {
        m_before.push_back(focusOf(m_form));
        return FakeHost::msgBox(text, buttons, icon, title);
    }

    // To be asked after the last box.
    [[nodiscard]] Names focused() const
    {
        auto names = m_before;
        names.push_back(focusOf(m_form));
        names.erase(names.begin());
        return names;
    }

private:
    const NoticeForm& m_form;
    Names m_before;
};

NtcGeoPt rowPoint(std::size_t number)
{
    auto point = aPoint(number);
    point.site_alt.clear();
    return point;
}

NtcRx aStation(std::size_t number)
{
    NtcRx station;
    station.present = true;
    station.noise_temp = std::to_string(290 + number);
    station.geo.present = true;
    station.geo.geo_type = "POINT";
    station.geo.site_name = "SITE " + std::to_string(number);
    station.geo.ctry = "C" + std::to_string(number);
    station.geo.pt[0] = rowPoint(number);
    return station;
}

// What the box of this place among listBoxes is for.
std::string& memberOf(NtcRx& station, std::size_t box)
{
    const std::array stationMembers{&station.noise_temp, &station.geo.site_name, &station.geo.ctry};
    return box < stationMembers.size()
               ? *stationMembers.at(box)
               : station.geo.pt[0].*fields::positions.at(box - stationMembers.size()).member;
}

NtcAntenna withStations(std::size_t count)
{
    NtcAntenna section;
    section.present = true;
    section.pwr_ant = "12";
    for (std::size_t slot = 0; slot < count; ++slot)
        section.rx[slot] = aStation(slot);
    return section;
}

NtcAntenna withPoints(std::size_t count)
{
    NtcAntenna section;
    section.present = true;
    section.pwr_ant = "12";
    auto& station = section.rx[0];
    station.present = true;
    station.noise_temp = "290";
    station.geo.present = true;
    station.geo.geo_type = "MULTIPOINT";
    for (std::size_t slot = 0; slot < count; ++slot)
        station.geo.pt[slot] = rowPoint(slot);
    return section;
}

bool isShownAt(const NoticeForm& form, const std::string& row, const NtcRx& station)
{
    return form.text("noisTmp" + row) == station.noise_temp &&
           form.text("Rsite" + row) == station.geo.site_name &&
           form.text("Rctry" + row) == station.geo.ctry &&
           form.text("RDeg" + row) == station.geo.pt[0].long_deg &&
           form.text("RMin" + row) == station.geo.pt[0].long_min &&
           form.text("Rsec" + row) == station.geo.pt[0].long_sec &&
           form.text("REW" + row) == station.geo.pt[0].long_ew &&
           form.text("RLdeg" + row) == station.geo.pt[0].lat_deg &&
           form.text("RLMin" + row) == station.geo.pt[0].lat_min &&
           form.text("RLsec" + row) == station.geo.pt[0].lat_sec &&
           form.text("RNS" + row) == station.geo.pt[0].lat_ns;
}

} // namespace

TEST_F(RecordMappingStations, UpToElevenStationsComeBack)
{
    for (std::size_t count = 0; count <= 11; ++count) {
        const auto section = withStations(count);
        showSection(form, section);
        EXPECT_TRUE(readSection(form) == section) << count;
        EXPECT_EQ(form.isSelected("Rpoint"), count > 0);
        EXPECT_FALSE(form.isSelected("multipt"));
    }
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(RecordMappingStations, FiveStationsStandInRowsAndFurtherOnesInLists)
{
    showSection(form, withStations(8));
    for (std::size_t slot = 0; slot < 6; ++slot)
        EXPECT_TRUE(isShownAt(form, std::to_string(slot + 1), aStation(slot))) << slot;
    EXPECT_EQ(entries(form, "Rsite6"), (std::vector<std::string>{"SITE 5", "SITE 6", "SITE 7"}));
    EXPECT_EQ(entries(form, "noisTmp6"), (std::vector<std::string>{"295", "296", "297"}));
    EXPECT_EQ(entries(form, "RNS6"), (std::vector<std::string>{"S", "N", "S"}));
}

TEST_F(RecordMappingStations, AllFifteenAreShownAndTheirListsAreTooLongToBeStored)
{
    FocusingHost watched(form);
    showSection(form, withStations(15));
    EXPECT_EQ(entries(form, "Rctry6").size(), 10U);

    const auto section = readSection(form);

    EXPECT_EQ(watched.boxes, std::vector(listBoxes.size(), tooManyBox));
    EXPECT_EQ(watched.beeps, 11);
    EXPECT_EQ(watched.focused(), Names(listBoxes.begin(), listBoxes.end())) << "a box and the focus for each";
    EXPECT_TRUE(section == withStations(5));
    EXPECT_EQ(entries(form, "Rctry6").size(), 10U);
}

TEST_F(RecordMappingStations, AListThatIsTooLongIsLeftOutAndTheOthersAreStored)
{
    for (std::size_t box = 0; box < listBoxes.size(); ++box) {
        FocusingHost watched(form);
        showSection(form, withStations(7));
        auto expected = withStations(7);
        Names tooLong;
        for (std::size_t later = box; later < listBoxes.size(); later += 3) {
            setEntries(form, listBoxes[later], numbered("1", 7));
            tooLong.emplace_back(listBoxes[later]);
            for (const std::size_t slot : {5U, 6U})
                memberOf(expected.rx[slot], later).clear();
        }
        EXPECT_TRUE(readSection(form) == expected) << listBoxes[box];
        EXPECT_EQ(watched.boxes, std::vector(tooLong.size(), tooManyBox));
        EXPECT_EQ(watched.focused(), tooLong);
    }
}

TEST_F(RecordMappingStations, SevenSitesCostNoCountryAndNoDegrees)
{
    InitalizeAntenna(form);
    setEntries(form, "Rsite6", numbered("SITE ", 7));
    setEntries(form, "Rctry6", {"F", "D"});
    setEntries(form, "RDeg6", {"007", "008"});

    const auto section = readSection(form);

    EXPECT_EQ(host.boxes, std::vector{tooManyBox});
    EXPECT_EQ(host.beeps, 1);
    EXPECT_EQ(focusOf(form), "Rsite6");
    EXPECT_EQ(section.rx[5].geo.ctry, "F");
    EXPECT_EQ(section.rx[5].geo.pt[0].long_deg, "007");
    EXPECT_EQ(section.rx[6].geo.ctry, "D");
    EXPECT_EQ(section.rx[6].geo.pt[0].long_deg, "008");
    EXPECT_EQ(section.rx[5].geo.site_name + section.rx[6].geo.site_name, "");
    EXPECT_FALSE(section.rx[7].present);
    EXPECT_EQ(entries(form, "Rsite6").size(), 7U);
}

TEST_F(RecordMappingStations, ListsOfDifferentLengthsGiveAsManyStationsAsTheLongest)
{
    InitalizeAntenna(form);
    setEntries(form, "RDeg6", {"007", "008"});
    setEntries(form, "noisTmp6", {"300", "301", "302"});
    const auto section = readSection(form);
    EXPECT_EQ(section.rx[5].geo.pt[0].long_deg, "007");
    EXPECT_EQ(section.rx[6].noise_temp, "301");
    EXPECT_EQ(section.rx[7].noise_temp, "302");
    EXPECT_EQ(section.rx[7].geo.pt[0].long_deg, "");
    EXPECT_TRUE(section.rx[7].present && section.rx[7].geo.present && section.rx[7].geo.pt[0].present);
    EXPECT_EQ(section.rx[7].geo.geo_type, "POINT");
    EXPECT_FALSE(section.rx[8].present);
    EXPECT_FALSE(section.present);
}

TEST_F(RecordMappingStations, AListedStationWithoutSecondsKeepsThoseOfTheOthersApart)
{
    auto section = withStations(8);
    section.rx[5].geo.pt[0].long_sec.clear();
    section.rx[6].noise_temp.clear();
    showSection(form, section);
    EXPECT_TRUE(readSection(form) == section);
}

TEST_F(RecordMappingStations, AStationOfARowCountsByAnyOfItsTenKeysAndNotByItsNoise)
{
    const std::vector<std::string> keys{"Rsite", "Rctry", "RDeg",  "RMin",  "Rsec",
                                        "REW",   "RLdeg", "RLMin", "RLsec", "RNS"};
    for (int row = 1; row <= 5; ++row) {
        const auto slot = static_cast<std::size_t>(row - 1);
        for (const auto& key : keys) {
            InitalizeAntenna(form);
            form.setText(key + std::to_string(row), "1");
            const auto station = readSection(form).rx[slot];
            EXPECT_TRUE(station.present) << key << row;
            EXPECT_EQ(station.geo.geo_type, "POINT");
            EXPECT_TRUE(anyRxKeyGiven(station));
        }
        InitalizeAntenna(form);
        form.setText("noisTmp" + std::to_string(row), "1");
        EXPECT_TRUE(readSection(form) == NtcAntenna{});
    }
    EXPECT_FALSE(anyRxKeyGiven(NtcRx{}));
}

TEST_F(RecordMappingStations, ARowLeftOutLeavesItsSlotEmpty)
{
    auto section = withStations(5);
    section.rx[1] = {};
    section.rx[3] = {};
    showSection(form, section);
    EXPECT_EQ(form.text("Rsite2"), "");
    EXPECT_TRUE(isShownAt(form, "5", aStation(4)));
    EXPECT_TRUE(readSection(form) == section);
}

TEST_F(RecordMappingStations, WithoutAnOptionTheRowsAreStationsToo)
{
    InitalizeAntenna(form);
    form.setText("Rsite3", "BERN");
    EXPECT_EQ(readSection(form).rx[2].geo.geo_type, "POINT");
}

TEST_F(RecordMappingStations, UpToSixPointsComeBack)
{
    for (std::size_t count = 0; count <= 6; ++count) {
        const auto section = withPoints(count);
        showSection(form, section);
        EXPECT_TRUE(form.isSelected("multipt"));
        EXPECT_EQ(form.text("noisTmp1"), "290");
        EXPECT_TRUE(readSection(form) == section) << count;
    }
}

TEST_F(RecordMappingStations, TheSixthPointIsTheFirstEntryOfTheLists)
{
    showSection(form, withPoints(6));
    EXPECT_EQ(form.text("RDeg5"), "014");
    EXPECT_EQ(entries(form, "RDeg6"), std::vector<std::string>{"015"});
    EXPECT_EQ(form.text("RDeg6"), "015");
    EXPECT_TRUE(entries(form, "Rsite6").empty());
    form.multiValueBox("RDeg6")->addEntry("016");
    EXPECT_EQ(readSection(form).rx[0].geo.pt[5].long_deg, "015");
}

TEST_F(RecordMappingStations, AMissingSixthPointLeavesRoomForATypedOne)
{
    showSection(form, withPoints(5));
    EXPECT_TRUE(entries(form, "RDeg6").empty());
    form.multiValueBox("RDeg6")->addEntry("016");
    const auto section = readSection(form);
    EXPECT_EQ(section.rx[0].geo.pt[5].long_deg, "016");
    EXPECT_TRUE(section.rx[0].geo.pt[5].present);
}

TEST_F(RecordMappingStations, APointCountsByAnyOfItsEightCoordinates)
{
    for (int row = 1; row <= 5; ++row) {
        for (const auto& position : fields::positions) {
            InitalizeAntenna(form);
            form.setSelected("multipt", true);
            form.setText(fields::pointControl(position, row), "1");
            const auto station = readSection(form).rx[0];
            EXPECT_TRUE(station.geo.pt[static_cast<std::size_t>(row - 1)].present);
            EXPECT_EQ(station.geo.pt[static_cast<std::size_t>(row - 1)].*position.member, "1");
        }
    }
    EXPECT_FALSE(anyPointKeyGiven(NtcGeoPt{}));
}

TEST_F(RecordMappingStations, SeveralPointsAreAStationWithoutAnyPointToo)
{
    InitalizeAntenna(form);
    form.setSelected("multipt", true);
    const auto section = readSection(form);
    EXPECT_FALSE(section.present);
    EXPECT_TRUE(section.rx[0].present && section.rx[0].geo.present);
    EXPECT_EQ(section.rx[0].geo.geo_type, "MULTIPOINT");
    EXPECT_FALSE(section.rx[0].geo.pt[0].present);
}

TEST_F(RecordMappingStations, WithSeveralPointsNamesAndNoiseOfTheRowsAreLost)
{
    showSection(form, withStations(8));
    form.setSelected("multipt", true);
    const auto section = readSection(form);
    EXPECT_EQ(section.rx[0].geo.site_name, "");
    EXPECT_EQ(section.rx[0].geo.ctry, "");
    EXPECT_EQ(section.rx[0].noise_temp, "290");
    EXPECT_TRUE(section.rx[0].geo.pt[4] == rowPoint(4));
    EXPECT_FALSE(section.rx[1].present);
    for (int row = 1; row <= 6; ++row) {
        EXPECT_TRUE(isBlank(form, fields::siteControl(row)));
        EXPECT_TRUE(isBlank(form, fields::countryControl(row)));
        EXPECT_EQ(isBlank(form, fields::noiseControl(row)), row > 1);
        EXPECT_FALSE(form.text("RDeg" + std::to_string(row)).empty());
    }
}

TEST_F(RecordMappingStations, WithSeveralPointsALongListCostsTheSixthPointItsValueAlone)
{
    showSection(form, withPoints(6));
    setEntries(form, "RLsec6", numbered("1", 7));
    const auto section = readSection(form);
    EXPECT_EQ(host.boxes, std::vector{tooManyBox});
    EXPECT_EQ(focusOf(form), "RLsec6");
    auto expected = withPoints(6);
    expected.rx[0].geo.pt[5].lat_sec.clear();
    EXPECT_TRUE(section == expected);
}

TEST_F(RecordMappingStations, WithSeveralPointsThereIsNoSixthPointWithoutAListThatFits)
{
    showSection(form, withPoints(6));
    for (const auto& position : fields::positions)
        setEntries(form, fields::pointControl(position, 6), numbered("1", 7));
    const auto section = readSection(form);
    EXPECT_EQ(host.boxes, std::vector(fields::positions.size(), tooManyBox));
    EXPECT_TRUE(section == withPoints(5));
}

TEST_F(RecordMappingStations, AnyGeoTypeButPointSelectsSeveralPoints)
{
    for (const char* geoType : {"MULTIPOINT", "CIRCLE", "ZONE", ""}) {
        auto section = withPoints(2);
        section.rx[0].geo.geo_type = geoType;
        showSection(form, section);
        EXPECT_TRUE(form.isSelected("multipt")) << geoType;
        EXPECT_EQ(form.text("RDeg2"), "011");
    }
}

TEST_F(RecordMappingStations, AFurtherStationThatIsAPointTurnsSeveralPointsOff)
{
    for (std::size_t slot = 1; slot < 15; ++slot) {
        auto section = withPoints(1);
        section.rx[slot] = aStation(slot);
        showSection(form, section);
        EXPECT_FALSE(form.isSelected("multipt")) << slot;
        EXPECT_FALSE(form.isSelected("Rpoint")) << slot;
        section.rx[slot].present = false;
        showSection(form, section);
        EXPECT_TRUE(form.isSelected("multipt")) << slot;
        section.rx[slot].present = true;
        section.rx[slot].geo.geo_type = "ZONE";
        showSection(form, section);
        EXPECT_TRUE(form.isSelected("multipt")) << slot;
    }
}

TEST_F(RecordMappingStations, AFirstStationThatIsNotPresentIsNotShown)
{
    auto section = withStations(1);
    section.rx[0].present = false;
    showSection(form, section);
    EXPECT_FALSE(form.isSelected("Rpoint"));
    EXPECT_EQ(form.text("Rsite1"), "");
    section.rx[0].present = true;
    section.rx[0].geo.present = false;
    showSection(form, section);
    EXPECT_FALSE(form.isSelected("Rpoint"));
    EXPECT_EQ(form.text("Rsite1"), "");
}
