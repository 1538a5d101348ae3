#include "recordMappingNotices.h"

#include "model/session.h"

using namespace mapping;
using namespace screens;

namespace {

class RecordMappingAntenna : public testing::Test
{
protected:
    FakeHost host;
};

// A notice with sections of their own value each; the numbers count from 1.
Ntc withSections(ScreenType type, const std::vector<int>& numbers)
{
    auto notice = bareNotice(type, "ADD");
    for (const int number : numbers) {
        auto& section = notice.antenna[static_cast<std::size_t>(number - 1)];
        section.present = true;
        section.pwr_ant = std::to_string(number);
    }
    return notice;
}

std::vector<int> upTo(int last)
{
    std::vector<int> numbers;
    for (int number = 1; number <= last; ++number)
        numbers.push_back(number);
    return numbers;
}

// Whether the section was shown.
bool show(NoticeForm& form, const Ntc& notice, int number)
{
    setAntennaNumber(form, number);
    return fillScreenFromAntenna(form, notice);
}

void setRotation(const NoticeForm& form, int starts, int ends)
{
    form.setText("rot", "R");
    setEntries(form, "max_fr", numbered("1", starts));
    setEntries(form, "max_to", numbered("2", ends));
}

} // namespace

TEST_F(RecordMappingAntenna, AFilledScreenShowsTheFirstSection)
{
    for (const auto type : allScreens) {
        for (const char* intent : {"ADD", "MODIFY", "WITHDRAW", ""}) {
            NoticeForm form(type);
            auto notice = withSections(type, {1, 2});
            notice.intent = intent;
            fillScreen(form, notice);
            EXPECT_EQ(form.text("TxtAntennaCnt"), "1");
            EXPECT_EQ(form.text("pwrant"), "1");
            EXPECT_TRUE(isEnabled(form, "ButtonNextAnt"));
            EXPECT_FALSE(isEnabled(form, "ButtonPrevAnt"));
        }
    }
}

TEST_F(RecordMappingAntenna, WithoutAFirstSectionThereIsABeepAndTheWayOnStaysOpen)
{
    for (const auto type : allScreens) {
        host.beeps = 0;
        NoticeForm form(type);
        fillScreen(form, withSections(type, {2}));
        EXPECT_EQ(host.beeps, 1);
        EXPECT_EQ(form.text("TxtAntennaCnt"), "1");
        EXPECT_TRUE(isEnabled(form, "ButtonNextAnt"));
        EXPECT_FALSE(isEnabled(form, "ButtonPrevAnt"));
    }
}

TEST_F(RecordMappingAntenna, AllFifteenSectionsAreShownAndTheButtonsFollowTheirNeighbours)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        const auto notice = withSections(type, upTo(15));
        fillScreen(form, notice);
        for (int number = 1; number <= 15; ++number) {
            EXPECT_TRUE(show(form, notice, number));
            EXPECT_EQ(form.text("pwrant"), std::to_string(number));
            EXPECT_EQ(isEnabled(form, "ButtonPrevAnt"), number > 1) << number;
            EXPECT_TRUE(isEnabled(form, "ButtonNextAnt")) << number;
        }
        EXPECT_EQ(host.beeps, 0);
    }
}

TEST_F(RecordMappingAntenna, AMissingSectionBeepsAndLeavesWhatIsShown)
{
    NoticeForm form(ScreenType::T11);
    const auto notice = withSections(ScreenType::T11, {1, 3});
    fillScreen(form, notice);
    EXPECT_FALSE(isEnabled(form, "ButtonNextAnt"));
    for (const int number : {0, 2, 4, 15, 16, 17}) {
        host.beeps = 0;
        EXPECT_FALSE(show(form, notice, number)) << number;
        EXPECT_EQ(host.beeps, 1) << number;
        EXPECT_EQ(form.text("pwrant"), "1");
    }
}

TEST_F(RecordMappingAntenna, TheWayBackIsClosedBehindAGapAndTheWayOnBeforeOne)
{
    NoticeForm form(ScreenType::T12);
    const auto notice = withSections(ScreenType::T12, {1, 3, 4});
    form.control("ButtonPrevAnt")->setEnabled(true);
    form.control("ButtonNextAnt")->setEnabled(true);
    EXPECT_TRUE(show(form, notice, 3));
    EXPECT_FALSE(isEnabled(form, "ButtonPrevAnt"));
    EXPECT_TRUE(isEnabled(form, "ButtonNextAnt"));
    EXPECT_TRUE(show(form, notice, 4));
    EXPECT_TRUE(isEnabled(form, "ButtonPrevAnt"));
    EXPECT_FALSE(isEnabled(form, "ButtonNextAnt"));
    EXPECT_TRUE(show(form, notice, 3)); // showing a section never opens the way on
    EXPECT_FALSE(isEnabled(form, "ButtonNextAnt"));
}

TEST_F(RecordMappingAntenna, TheNumberBehindTheLastSectionCannotBeRead)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        auto notice = withSections(type, upTo(15));
        setAntennaNumber(form, 16);
        EXPECT_FAILURE(9, fillAntennaFromScreen(form, notice));
        setAntennaNumber(form, 0);
        EXPECT_FAILURE(9, fillAntennaFromScreen(form, notice));
        setAntennaNumber(form, 15);
        fillAntennaFromScreen(form, notice);
        EXPECT_TRUE(notice.antenna.at(14) == NtcAntenna{});
        EXPECT_EQ(notice.antenna.at(13).pwr_ant, "14");
    }
}

TEST_F(RecordMappingAntenna, AStoredSectionHoldsNothingOfWhatItWas)
{
    for (const auto type : allScreens) {
        NoticeForm form(type);
        auto notice = aNotice(nameOf(type)).withAntennas(2, 6, 15).build();
        const auto second = notice.antenna[1];
        InitalizeNotice(form);
        InitalizeAntenna(form);
        form.setText("radiated", "12");
        fillAntennaFromScreen(form, notice);
        NtcAntenna expected;
        expected.present = true;
        expected.pwr_dbw = "12";
        EXPECT_TRUE(notice.antenna.at(0) == expected);
        EXPECT_TRUE(notice.antenna.at(1) == second);
    }
}

TEST_F(RecordMappingAntenna, RotationAndMaximumPowerDoNotMakeASectionPresent)
{
    for (const auto type : {ScreenType::T11, ScreenType::T12}) {
        NoticeForm form(type);
        form.setText("pwrMax", "12");
        setRotation(form, 1, 1);
        const auto section = readSection(form);
        EXPECT_FALSE(section.present);
        EXPECT_EQ(section.is_rot, "TRUE");
        EXPECT_EQ(section.rot[0], (NtcRot{"11", "21", true}));
    }
}

TEST_F(RecordMappingAntenna, SectorsAreShownInPairsAndStoredAgain)
{
    for (const auto type : {ScreenType::T11, ScreenType::T12}) {
        NoticeForm form(type);
        NtcAntenna section;
        section.present = true;
        section.pwr_xyz = "X";
        section.is_rot = "TRUE";
        section.rot[0] = {"10", "20", true};
        section.rot[1] = {"", "40", true};
        section.rot[2] = {"50", "60", true};
        showSection(form, section);
        EXPECT_EQ(form.text("rot"), "R");
        EXPECT_EQ(entries(form, "max_fr"), (std::vector<std::string>{"10", "", "50"}));
        EXPECT_EQ(entries(form, "max_to"), (std::vector<std::string>{"20", "40", "60"}));
        EXPECT_EQ(form.text("max_fr"), "10");
        EXPECT_EQ(form.text("max_to"), "20");
        EXPECT_TRUE(readSection(form) == section);
    }
}

TEST_F(RecordMappingAntenna, ASectorThatIsNotPresentIsPassedOver)
{
    NoticeForm form(ScreenType::T11);
    NtcAntenna section;
    section.is_rot = "TRUE";
    section.rot[0] = {"10", "20", false};
    section.rot[5] = {"30", "40", true};
    showSection(form, section);
    EXPECT_EQ(entries(form, "max_fr"), std::vector<std::string>{"30"});
    EXPECT_EQ(entries(form, "max_to"), std::vector<std::string>{"40"});
}

TEST_F(RecordMappingAntenna, WithoutRotationSectorsAreNeitherShownNorStored)
{
    NoticeForm form(ScreenType::T12);
    NtcAntenna section;
    section.rot[0] = {"10", "20", true};
    showSection(form, section);
    EXPECT_EQ(form.text("rot"), "");
    EXPECT_TRUE(entries(form, "max_fr").empty());

    setRotation(form, 2, 1);
    form.setText("rot", "");
    EXPECT_TRUE(readSection(form) == NtcAntenna{});
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(RecordMappingAntenna, UnpairedSectorsAreToldAndNoneIsStored)
{
    for (const auto type : {ScreenType::T11, ScreenType::T12}) {
        for (const auto& [starts, ends] : {std::pair{3, 2}, {0, 1}, {7, 6}, {6, 7}}) {
            host.boxes.clear();
            NoticeForm form(type);
            setRotation(form, starts, ends);
            form.setText("pwrant", "12");
            const auto section = readSection(form);
            EXPECT_EQ(host.boxes, std::vector{unpairedBox});
            EXPECT_EQ(focusOf(form), "max_fr");
            EXPECT_EQ(section.is_rot, "TRUE");
            EXPECT_FALSE(section.rot[0].present);
            EXPECT_EQ(section.pwr_ant, "12");
        }
    }
}

TEST_F(RecordMappingAntenna, SixPairsAreStoredAndSevenAreNot)
{
    for (const auto type : {ScreenType::T11, ScreenType::T12}) {
        host.boxes.clear();
        NoticeForm form(type);
        setRotation(form, 6, 6);
        EXPECT_EQ(readSection(form).rot[5], (NtcRot{"16", "26", true}));
        EXPECT_TRUE(host.boxes.empty());
        setRotation(form, 7, 7);
        EXPECT_FALSE(readSection(form).rot[0].present);
        EXPECT_EQ(host.boxes, std::vector{tooManyBox});
        EXPECT_EQ(focusOf(form), "max_fr");
        EXPECT_EQ(entries(form, "max_fr").size(), 7U);
        EXPECT_EQ(host.beeps, 0);
    }
}

TEST_F(RecordMappingAntenna, NoSectorsAtAllArePaired)
{
    NoticeForm form(ScreenType::T11);
    setRotation(form, 0, 0);
    EXPECT_EQ(readSection(form).is_rot, "TRUE");
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(RecordMappingAntenna, TheBoxAboutSectorsHasAFrenchTitle)
{
    NoticeForm form(ScreenType::T11);
    setRotation(form, 3, 2);
    session::language = "F";
    (void)readSection(form);
    session::language = {};
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0].title, "Erreur");
}

TEST_F(RecordMappingAntenna, StationsOfAT14SectionAreNotShownAndAreEmptiedWhenItIsStored)
{
    NoticeForm form(ScreenType::T14);
    auto notice = aNotice("T14").withAntennas(1, 6, 15).build();
    setAntennaNumber(form, 1);
    EXPECT_TRUE(fillScreenFromAntenna(form, notice));
    auto expected = NtcAntenna{};
    expected.present = true;
    for (const auto member : {&NtcAntenna::pwr_xyz, &NtcAntenna::pwr_ant, &NtcAntenna::pwr_dbw,
                              &NtcAntenna::pwr_eiv, &NtcAntenna::gain_type, &NtcAntenna::gain_max})
        expected.*member = notice.antenna[0].*member;
    fillAntennaFromScreen(form, notice);
    EXPECT_TRUE(notice.antenna.at(0) == expected);
}
