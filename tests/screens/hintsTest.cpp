// The line of hints: what the field in hand, or the section, will come to when that is not what it looks
// like.
#include "ruledForm.h"

#include "model/Ntc.h"
#include "screens/fieldEdit.h"
#include "screens/hints.h"
#include "screens/recordMapping.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QLabel>
#include <QRadioButton>

#include <set>

namespace {

using screens::hiddenOf;
using screens::Hint;
using screens::ScreenType;

class Hints : public testing::Test
{
protected:
    [[nodiscard]] QLabel& line() const
    {
        QCoreApplication::processEvents();
        return *work.form.findChild<QLabel*>("LblHint");
    }
    [[nodiscard]] std::string shown() const { return line().text().toStdString(); }
    static std::string words(Hint hint, const char* detail = "")
    {
        return screens::hintText(hint, session::language, detail).toStdString();
    }
    // Types into an empty field, and stays there.
    void write(const std::string& name, const std::string& text)
    {
        work.form.setText(name, "");
        work.enter(name);
        work.type(text);
    }

    RuledForm work{ScreenType::T11};
};

NtcRx station(const char* geoType)
{
    NtcRx made;
    made.present = made.geo.present = made.geo.pt[0].present = true;
    made.geo.geo_type = geoType;
    made.geo.site_name = "SITE";
    return made;
}

Ntc withStations(const std::vector<const char*>& geoTypes)
{
    Ntc notice;
    notice.intent = "ADD";
    notice.antenna[0].present = true;
    notice.antenna[0].pwr_ant = "1";
    for (std::size_t slot = 0; slot < geoTypes.size(); ++slot)
        notice.antenna[0].rx[slot] = station(geoTypes[slot]);
    return notice;
}

int hiddenStations(ScreenType screen, const std::vector<const char*>& geoTypes)
{
    return hiddenOf(screen, withStations(geoTypes)).stations[0];
}

} // namespace

TEST_F(Hints, SayNothingOfWhatIsAsItLooks)
{
    write("freq", "7.4125");
    work.form.setText("Units1", "M");
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(line().autoFillBackground());
    EXPECT_EQ(line().focusPolicy(), Qt::NoFocus);
}

TEST_F(Hints, TellOfADateThatNoCalendarHas)
{
    work.form.setText("dUseDD", "31");
    work.form.setText("dUseMM", "2");
    write("dUseYY", "2001");
    EXPECT_EQ(shown(), words(Hint::NoCalendarDay, "2001-2-31"));
    work.form.setText("dUseDD", "28");
    EXPECT_EQ(shown(), "");
    work.form.setText("dUseMM", "");
    EXPECT_EQ(shown(), words(Hint::DateIncomplete));
}

TEST_F(Hints, TellOfAFrequencyWithoutItsUnit)
{
    for (const auto& [frequency, unit] :
         {std::pair("freq", "Units1"), std::pair("freqCarr", "Units2"), std::pair("trgFreq", "Unit")}) {
        work.form.setSelected("Int_Mod", true);
        work.form.setText(unit, "");
        write(frequency, "1500");
        EXPECT_EQ(shown(), words(Hint::NoUnit)) << frequency;
        work.enter(unit);
        EXPECT_EQ(shown(), words(Hint::NoUnit)) << unit;
        work.type("k");
        EXPECT_EQ(shown(), "") << unit;
    }
}

TEST_F(Hints, TellOfANumberThatNothingHolds)
{
    work.form.setText("Units1", "G");
    write("freq", "1E306");
    EXPECT_EQ(shown(), words(Hint::TooLarge));
    write("freq", "9E999");
    EXPECT_EQ(shown(), words(Hint::TooLarge));
    write("freq", "1E3");
    EXPECT_EQ(shown(), "");
}

TEST_F(Hints, TellOfANumberThatIsRounded)
{
    write("min", "7.");
    EXPECT_EQ(shown(), "");
    write("ophhFr", "12.6");
    EXPECT_EQ(shown(), words(Hint::Rounded, "13"));
    write("elev", "12.6");
    EXPECT_EQ(shown(), "");
}

TEST_F(Hints, TellOfTextThatEnterHasNotTakenIntoTheList)
{
    write("natsrv", "OT");
    EXPECT_EQ(shown(), words(Hint::NotEntered));
    work.key(Qt::Key_Return);
    EXPECT_EQ(shown(), "");
}

TEST_F(Hints, TellOfAListWithMoreEntriesThanAreKept)
{
    work.enter("natsrv");
    for (const char* entry : {"A", "B", "C", "D", "E", "F"}) {
        work.type(entry);
        work.key(Qt::Key_Return);
    }
    EXPECT_EQ(shown(), "");
    work.type("G");
    work.key(Qt::Key_Return);
    EXPECT_EQ(shown(), words(Hint::TooManyEntries));
}

TEST_F(Hints, TellOfSectorsThatAreNotKept)
{
    write("max_fr", "90");
    work.key(Qt::Key_Return);
    EXPECT_EQ(shown(), words(Hint::NoRotation));
    work.form.setText("rot", "R");
    EXPECT_EQ(shown(), words(Hint::SectorsUnpaired));
    work.form.multiValueBox("max_to")->addEntry("120");
    EXPECT_EQ(shown(), "");
}

TEST_F(Hints, TellOfFieldsThatNoNoticeKeeps)
{
    for (const char* field : {"cAdm11", "cAdm12", "cAdm13", "pwrMax"}) {
        work.enter(field);
        EXPECT_EQ(shown(), words(Hint::NotStored)) << field;
        EXPECT_TRUE(work.control(field).accessibleName().contains("not stored")) << field;
    }
    work.enter("cAdm10");
    EXPECT_EQ(shown(), "");
}

TEST_F(Hints, TellOfAValueThatTheTargetReplaces)
{
    for (const char* intent : {"Int_Sup", "Int_Wdraw"}) {
        work.form.setSelected(intent, true);
        work.form.setText("trgFreq", "8.5");
        work.form.setText("Unit", "M");
        work.form.setText("Units1", "M");
        write("freq", "7.5");
        EXPECT_EQ(shown(), words(Hint::TakenFromTarget, "8.5 M"));
        work.form.setText("trgFreq", "");
        EXPECT_EQ(shown(), "");
        work.form.setText("trgadmRefID", "");
        write("admRefID", "QREF");
        EXPECT_EQ(shown(), words(Hint::TakenFromTarget, "\u2013"));
        work.form.setText("trgLdeg", "45");
        write("Ldeg", "44");
        EXPECT_EQ(shown(), words(Hint::TakenFromTarget, "45"));
    }
    work.form.setSelected("Int_Mod", true);
    EXPECT_EQ(shown(), "");
}

TEST_F(Hints, TellOfRemarksThatAreNotKeptWhole)
{
    work.enter("TxtRemarks");
    work.type("one;two");
    EXPECT_EQ(shown(), "");
    work.type(";");
    EXPECT_EQ(shown(), words(Hint::RemarkParts));
    work.key(Qt::Key_Return);
    EXPECT_EQ(shown(), words(Hint::RemarkLines));
}

TEST_F(Hints, TellWhichCharactersWereRefused)
{
    write("siteName", "A");
    QKeyEvent press(QEvent::KeyPress, 0x141, Qt::NoModifier, "\u0141");
    QApplication::sendEvent(&work.control("siteName"), &press);
    EXPECT_EQ(shown(), words(Hint::RefusedCharacters, "\u0141"));
    work.type("B");
    EXPECT_EQ(shown(), "");
}

TEST_F(Hints, TellOfStationsThatAnUpdateDrops)
{
    screens::fillScreen(work.form, withStations({"POINT", "CIRCLE", "ZONE"}));
    EXPECT_EQ(shown(), words(Hint::StationsNotShown, "2"));
    screens::fillScreen(work.form, withStations({"POINT"}));
    EXPECT_EQ(shown(), "");
}

TEST_F(Hints, TellOfMoreStationsThanTheLastRowKeeps)
{
    screens::fillScreen(work.form, withStations(std::vector<const char*>(11, "POINT")));
    EXPECT_EQ(shown(), "");
    screens::fillScreen(work.form, withStations(std::vector<const char*>(12, "POINT")));
    EXPECT_EQ(shown(), words(Hint::TooManyStations));
}

TEST_F(Hints, TellOfASectionThatIsNotStoredForWantOfAnAntenna)
{
    auto notice = withStations({"POINT"});
    notice.antenna[0].rx[0].geo.site_name = "SITE";
    screens::fillScreen(work.form, notice);
    EXPECT_EQ(shown(), "");
    write("pwrant", "1");
    work.key(Qt::Key_Backspace);
    EXPECT_EQ(shown(), words(Hint::SectionNotStored));
}

TEST_F(Hints, TellOfAnEleventhAdministration)
{
    Ntc notice;
    notice.intent = "SUPPRESS";
    notice.coord.present = true;
    for (auto& administration : notice.coord.adm)
        administration = "QVA";
    screens::fillScreen(work.form, notice);
    EXPECT_EQ(shown(), words(Hint::CoordinationNotShown));
}

TEST_F(Hints, OfTheFieldComeBeforeThoseOfTheSection)
{
    screens::fillScreen(work.form, withStations({"POINT", "CIRCLE"}));
    work.enter("pwrMax");
    EXPECT_EQ(shown(), words(Hint::NotStored));
    work.enter("nAdm");
    EXPECT_EQ(shown(), words(Hint::StationsNotShown, "1"));
}

TEST_F(Hints, AreReadOutAsTheDescriptionOfTheFieldInHand)
{
    const auto description = [this](const char* name) {
        return QAccessible::queryAccessibleInterface(&work.control(name))->text(QAccessible::Description);
    };
    const auto before = description("freq");
    write("freq", "1500");
    EXPECT_TRUE(description("freq").startsWith(line().text()));
    EXPECT_FALSE(line().text().isEmpty());
    EXPECT_EQ(line().accessibleName(), line().text());
    work.enter("nAdm");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(description("freq"), before);
    EXPECT_FALSE(line().accessibleName().isEmpty());
}

TEST_F(Hints, MoveNothingAndLeaveTheFocus)
{
    write("freq", "1500");
    const auto place = work.control("ButtonUpdate").mapTo(&work.form, QPoint());
    EXPECT_NE(shown(), "");
    EXPECT_EQ(work.focus(), "freq");
    work.form.setText("Units1", "M");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(work.control("ButtonUpdate").mapTo(&work.form, QPoint()), place);
    EXPECT_EQ(work.host.boxes.size(), 0U);
}

TEST(HintTable, HasItsOwnWordsInEachLanguage)
{
    for (int number = 0; number < screens::hints; ++number) {
        std::set<QString> texts;
        for (const char* language : {"", "F", "S"}) {
            const auto text = hintText(static_cast<Hint>(number), language, "#");
            EXPECT_FALSE(text.isEmpty()) << number;
            texts.insert(text);
        }
        EXPECT_EQ(texts.size(), 3U) << number;
    }
    EXPECT_EQ(hintText(Hint::Rounded, "E", "13"), "Stored as the whole number 13.");
    EXPECT_EQ(hintText(Hint::NotStored, "F"), "Le contenu de ce champ n'est pas enregistr\u00e9.");
    EXPECT_EQ(hintText(Hint::NotStored, "S"), "El contenido de este campo no se guarda.");
}

TEST(HiddenStations, OfPointsAreThoseThatAreNone)
{
    EXPECT_EQ(hiddenStations(ScreenType::T11, {}), 0);
    EXPECT_EQ(hiddenStations(ScreenType::T11, {"POINT", "POINT"}), 0);
    EXPECT_EQ(hiddenStations(ScreenType::T11, {"MULTIPOINT"}), 0);
    EXPECT_EQ(hiddenStations(ScreenType::T11, {"MULTIPOINT", "ZONE"}), 1);
    EXPECT_EQ(hiddenStations(ScreenType::T11, {"MULTIPOINT", "POINT"}), 1);
    EXPECT_EQ(hiddenStations(ScreenType::T11, {"POINT", "CIRCLE", "POINT", "ZONE"}), 2);
}

TEST(HiddenStations, OfAreasAreThoseOfAnotherKind)
{
    for (const auto screen : {ScreenType::T12, ScreenType::T13}) {
        EXPECT_EQ(hiddenStations(screen, {"CIRCLE"}), 0);
        EXPECT_EQ(hiddenStations(screen, {"CIRCLE", "CIRCLE"}), 1);
        EXPECT_EQ(hiddenStations(screen, {"POINT"}), 1);
        EXPECT_EQ(hiddenStations(screen, {"CIRCLE", "POINT"}), 1);
    }
    EXPECT_EQ(hiddenStations(ScreenType::T12, {"MULTIPOINT"}), 0);
    EXPECT_EQ(hiddenStations(ScreenType::T12, {"MULTIPOINT", "MULTIPOINT"}), 1);
    EXPECT_EQ(hiddenStations(ScreenType::T13, {"MULTIPOINT"}), 1);
    EXPECT_EQ(hiddenStations(ScreenType::T14, {"CIRCLE", "ZONE"}), 2);
}

TEST(HiddenStations, OfZonesAreThoseWithoutAName)
{
    auto notice = withStations({"ZONE", "ZONE", "ZONE"});
    notice.antenna[0].rx[0].geo.zone_id = "AA";
    notice.antenna[0].rx[2].geo.zone_id = "BB";
    EXPECT_EQ(hiddenOf(ScreenType::T12, notice).stations[0], 1);
}

TEST(HiddenStations, AreNoneWhereNoSectionIsRead)
{
    auto notice = withStations({"CIRCLE", "ZONE"});
    notice.intent = "SUPPRESS";
    EXPECT_EQ(hiddenOf(ScreenType::T11, notice).stations[0], 0);
    notice.intent = "ADD";
    notice.antenna[0].present = false;
    EXPECT_EQ(hiddenOf(ScreenType::T11, notice).stations[0], 0);
}
