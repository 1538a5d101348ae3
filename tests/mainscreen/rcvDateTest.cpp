#include "mainscreen/rcvDate.h"

#include "model/session.h"
#include "platform/hostFormat.h"
#include "support/fakeHost.h"
#include "support/windows.h"

#include <gtest/gtest.h>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

using mainscreen::RcvDate;
using namespace windows;
using platform::Buttons;
using platform::Icon;

class ReceivedDate : public testing::Test
{
protected:
    ReceivedDate() { platform::setClock(platform::LocalTime{2002, 5, 15, 12, 0, 0}); }
    ~ReceivedDate() override
    {
        platform::setClock(std::nullopt);
        session::language.clear();
    }

    void SetUp() override { open(dialog); }

    QLineEdit& field(const char* name) { return control<QLineEdit>(dialog, name); }
    bool okEnabled() { return control<QPushButton>(dialog, "ButtonOK").isEnabled(); }
    void fill(const char* name, const QString& text)
    {
        field(name).setFocus();
        field(name).selectAll();
        press(dialog, Qt::Key_Delete);
        type(dialog, text);
    }
    void fillDate(const char* day, const char* month, const char* year)
    {
        fill("TxtDay", day);
        fill("TxtMonth", month);
        fill("TxtYear", year);
    }
    // What the dialog showed and how often it beeped since the last call.
    std::vector<FakeHost::Box> told()
    {
        EXPECT_EQ(host.beeps, static_cast<int>(host.boxes.size()));
        host.beeps = 0;
        return std::exchange(host.boxes, {});
    }

    FakeHost host;
    RcvDate dialog;
};

using Boxes = std::vector<FakeHost::Box>;
const Boxes nothing;

TEST_F(ReceivedDate, comesUpWithItsTextsAndTheDayInHand)
{
    EXPECT_EQ(badNames(dialog), "");
    EXPECT_EQ(dialog.windowTitle(), "Received Date");
    EXPECT_EQ(control<QLabel>(dialog, "LabelDateRcv").text(), "Date of Receipt");
    EXPECT_EQ(control<QLabel>(dialog, "LabeDay").text(), "dd");
    EXPECT_EQ(control<QLabel>(dialog, "LabelMonth").text(), "mm");
    EXPECT_EQ(control<QLabel>(dialog, "LabelYY").text(), "yyyy");
    EXPECT_EQ(control<QPushButton>(dialog, "ButtonOK").text(), "&OK");
    EXPECT_EQ(control<QPushButton>(dialog, "ButtonCancel").text(), "Cancel");
    EXPECT_TRUE(control<QPushButton>(dialog, "ButtonOK").isDefault());
    EXPECT_TRUE(okEnabled());
    EXPECT_EQ(focusName(dialog), "TxtDay");
    EXPECT_EQ(dialog.dateRcv(), "");
}

TEST_F(ReceivedDate, runsByTabFromDayToCancel)
{
    fillDate("1", "1", "2000");
    field("TxtDay").setFocus();
    for (const char* next : {"TxtMonth", "TxtYear", "ButtonOK", "ButtonCancel", "TxtDay"}) {
        press(dialog, Qt::Key_Tab);
        EXPECT_EQ(focusName(dialog), next);
    }
}

TEST_F(ReceivedDate, takesTwoAndFourCharacters)
{
    fill("TxtDay", "123");
    EXPECT_EQ(field("TxtDay").text(), "12");
    fill("TxtMonth", "123");
    EXPECT_EQ(field("TxtMonth").text(), "12");
    fill("TxtYear", "20021");
    EXPECT_EQ(field("TxtYear").text(), "2002");
}

TEST_F(ReceivedDate, takesAPastedNumberWithoutWhatStandsAroundIt)
{
    for (const auto& [name, text] : {std::pair("TxtDay", " 15\n"), std::pair("TxtYear", "\t2002\r\n1")}) {
        QGuiApplication::clipboard()->setText(text);
        field(name).setFocus();
        press(dialog, Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(field("TxtDay").text(), "15");
    EXPECT_EQ(field("TxtYear").text(), "2002");
}

TEST_F(ReceivedDate, letsAFieldGoThatIsEmptyOrGood)
{
    const struct
    {
        const char* name;
        std::vector<const char*> texts;
    } rows[] = {
        {"TxtDay", {"", "1", "01", "31", "9x", "1.", ".9"}},
        {"TxtMonth", {"", "1", "12", "3x"}},
        {"TxtYear", {"", "1950", "2002", "2007", "2e3 "}},
    };
    for (const auto& row : rows)
        for (const char* text : row.texts) {
            fill(row.name, text);
            press(dialog, Qt::Key_Tab);
            EXPECT_NE(focusName(dialog), row.name) << text;
            EXPECT_EQ(told(), nothing) << row.name << " " << text;
        }
}

TEST_F(ReceivedDate, holdsABadFieldAndTellsOnceWhy)
{
    const char* day = "Value should be between [1,31]";
    const char* month = "Value should be between [1,12]";
    const char* length = "The year must be entered as YYYY";
    const char* range = "Invalid year in date of bringing to use (2c)";
    const struct
    {
        const char* name;
        const char* text;
        const char* message;
    } rows[] = {
        {"TxtDay", "0", day},       {"TxtDay", "32", day},      {"TxtDay", "a", day},
        {"TxtDay", "-1", day},      {"TxtMonth", "0", month},   {"TxtMonth", "13", month},
        {"TxtMonth", "x", month},   {"TxtYear", "02", length},  {"TxtYear", "200", length},
        {"TxtYear", "1e9", length}, {"TxtYear", "1949", range}, {"TxtYear", "2008", range},
        {"TxtYear", "abcd", range},
    };
    for (const auto& row : rows) {
        fill(row.name, row.text);
        press(dialog, Qt::Key_Tab);
        EXPECT_EQ(focusName(dialog), row.name) << row.text;
        EXPECT_EQ(told(), (Boxes{{"Error", row.message, Icon::Exclamation, Buttons::Ok}})) << row.text;
        EXPECT_TRUE(okEnabled()) << row.text;
        fill(row.name, "");
    }
}

TEST_F(ReceivedDate, tellsEachFaultInEachLanguage)
{
    const char* range = "Invalid year in date of bringing to use (2c)";
    const struct
    {
        const char* name;
        const char* text;
        const char* language;
        const char* title;
        const char* message;
    } rows[] = {
        {"TxtDay", "32", "F", "Erreur", "La valeur doit être entre [1,31]"},
        {"TxtDay", "32", "S", "Error", ""},
        {"TxtDay", "32", "E", "Error", "Value should be between [1,31]"},
        {"TxtMonth", "13", "F", "Erreur", "La valeur doit être entre [1,12]"},
        {"TxtMonth", "13", "S", "Error", ""},
        {"TxtMonth", "13", "E", "Error", "Value should be between [1,12]"},
        {"TxtYear", "02", "F", "Erreur", "L'année doit avoir ce format YYYY"},
        {"TxtYear", "02", "S", "Error", ""},
        {"TxtYear", "02", "E", "Error", "The year must be entered as YYYY"},
        {"TxtYear", "1949", "F", "Erreur", range},
        {"TxtYear", "1949", "S", "Error", range},
        {"TxtYear", "1949", "E", "Error", range},
    };
    for (const auto& row : rows) {
        session::language = row.language;
        fill(row.name, row.text);
        press(dialog, Qt::Key_Tab);
        EXPECT_EQ(told(), (Boxes{{row.title, row.message, Icon::Exclamation, Buttons::Ok}}))
            << row.name << " " << row.language;
        fill(row.name, "");
    }
}

TEST_F(ReceivedDate, holdsABadFieldAgainstEveryWayOut)
{
    fillDate("32", "5", "2002"); // the day is held before the month can be filled
    told();
    fill("TxtDay", "32");
    const auto expectHeld = [&](const char* way) {
        EXPECT_EQ(told().size(), 1U) << way;
        EXPECT_EQ(focusName(dialog), "TxtDay") << way;
        EXPECT_EQ(field("TxtDay").text(), "32") << way;
        EXPECT_TRUE(dialog.isVisible()) << way;
        EXPECT_EQ(dialog.dateRcv(), "") << way;
    };
    for (const char* target : {"TxtMonth", "TxtYear", "ButtonOK"}) {
        click(dialog, target);
        expectHeld(target);
    }
    press(dialog, Qt::Key_Tab);
    expectHeld("Tab");
    press(dialog, Qt::Key_Backtab, Qt::ShiftModifier);
    expectHeld("Shift+Tab");
    press(dialog, Qt::Key_Return);
    expectHeld("Enter");
    press(dialog, Qt::Key_O, Qt::AltModifier);
    expectHeld("Alt+O");
}

TEST_F(ReceivedDate, opensTheWayAgainOnceTheFieldIsCorrectedOrEmptied)
{
    for (const char* good : {"31", ""}) {
        fill("TxtDay", "32");
        click(dialog, "TxtMonth");
        EXPECT_EQ(told().size(), 1U);
        fill("TxtDay", good);
        click(dialog, "TxtMonth");
        EXPECT_EQ(focusName(dialog), "TxtMonth") << good;
        EXPECT_EQ(told(), nothing) << good;
    }
}

TEST_F(ReceivedDate, enablesOkByTheFieldLeftLast)
{
    press(dialog, Qt::Key_Tab);
    EXPECT_FALSE(okEnabled()) << "the day is empty";
    type(dialog, "5");
    EXPECT_FALSE(okEnabled()) << "the month is not left yet";
    press(dialog, Qt::Key_Tab);
    EXPECT_TRUE(okEnabled()) << "the day is still empty";
    press(dialog, Qt::Key_Tab);
    EXPECT_FALSE(okEnabled()) << "the year is empty";
}

TEST_F(ReceivedDate, doesNotPressAButtonThatTheCheckDisables)
{
    click(dialog, "ButtonOK");
    EXPECT_FALSE(okEnabled());
    EXPECT_TRUE(dialog.isVisible());
    control<QPushButton>(dialog, "ButtonOK").setEnabled(true);
    field("TxtDay").setFocus();
    press(dialog, Qt::Key_Return);
    EXPECT_FALSE(okEnabled());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(ReceivedDate, givesTheDateAsTyped)
{
    fillDate("15", "5", "2002");
    click(dialog, "ButtonOK");
    EXPECT_EQ(dialog.dateRcv(), "2002-5-15");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(told(), nothing);
}

TEST_F(ReceivedDate, takesEnterInAFieldForOk)
{
    fillDate("05", "05", "2e3 ");
    press(dialog, Qt::Key_Return);
    EXPECT_EQ(dialog.dateRcv(), "2e3 -05-05");
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ReceivedDate, takesItsAccessKeyForOk)
{
    fillDate("5", "6", "2000");
    press(dialog, Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }))
        << "the button is seen to go down first";
    EXPECT_EQ(dialog.dateRcv(), "2000-6-5");
}

TEST_F(ReceivedDate, givesTwoDashesForEmptyFields)
{
    control<QPushButton>(dialog, "ButtonOK").click();
    EXPECT_EQ(dialog.dateRcv(), "--");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(told(), nothing);
}

TEST_F(ReceivedDate, givesNothingWhenCancelled)
{
    fillDate("5", "6", "2000");
    click(dialog, "ButtonCancel");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.dateRcv(), "");
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST_F(ReceivedDate, isCancelledByAClickWhateverWasTyped)
{
    const std::pair<const char*, const char*> rows[] = {
        {"TxtDay", "32"}, {"TxtMonth", "x"}, {"TxtYear", "02"}, {"TxtYear", "1949"}};
    for (const auto& [name, text] : rows) {
        open(dialog);
        fill(name, text);
        click(dialog, "ButtonCancel");
        EXPECT_FALSE(dialog.isVisible()) << text;
        EXPECT_EQ(dialog.dateRcv(), "") << text;
        EXPECT_EQ(told(), nothing) << text;
        fill(name, "");
    }
}

TEST_F(ReceivedDate, isCancelledByTheKeysThatPressItsButton)
{
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        open(dialog);
        fillDate("5", "6", "2000");
        press(dialog, Qt::Key_Tab);
        press(dialog, Qt::Key_Tab);
        ASSERT_EQ(focusName(dialog), "ButtonCancel") << key;
        field("TxtMonth").setText("13"); // a field that is not in hand
        press(dialog, key);
        EXPECT_FALSE(dialog.isVisible()) << key;
        EXPECT_EQ(dialog.dateRcv(), "") << key;
        EXPECT_EQ(told(), nothing) << key;
        field("TxtMonth").clear();
        field("TxtDay").setFocus();
    }
}

TEST_F(ReceivedDate, keepsABadFieldInHandWhenThePressOnCancelIsDraggedOff)
{
    auto& cancel = control<QPushButton>(dialog, "ButtonCancel");
    fill("TxtDay", "32");
    QTest::mousePress(&cancel, Qt::LeftButton);
    QTest::mouseMove(&cancel, QPoint(-5, -5));
    QTest::mouseRelease(&cancel, Qt::LeftButton, {}, QPoint(-5, -5));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(focusName(dialog), "TxtDay");
    EXPECT_EQ(told(), nothing);
    press(dialog, Qt::Key_Tab);
    EXPECT_EQ(focusName(dialog), "TxtDay");
    EXPECT_EQ(told().size(), 1U);
}

TEST_F(ReceivedDate, forgetsTheDateOfAnEarlierShowingWhenCancelled)
{
    fillDate("5", "6", "2000");
    click(dialog, "ButtonOK");
    EXPECT_EQ(dialog.dateRcv(), "2000-6-5");
    open(dialog);
    click(dialog, "ButtonCancel");
    EXPECT_EQ(dialog.dateRcv(), "");
}

TEST_F(ReceivedDate, isCancelledByEscapeWithoutACheck)
{
    fill("TxtDay", "32");
    press(dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.dateRcv(), "");
    EXPECT_EQ(told(), nothing);
}

TEST_F(ReceivedDate, isCancelledByItsFrameWithoutACheck)
{
    fill("TxtYear", "02");
    dialog.close();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.dateRcv(), "");
    EXPECT_EQ(told(), nothing);
}

TEST_F(ReceivedDate, takesAYearThatSpellsTooMuchForOutOfRange)
{
    for (const char* year : {"1e99", "40e3"}) {
        host.boxes.clear();
        fill("TxtYear", year);
        press(dialog, Qt::Key_Tab);
        EXPECT_EQ(host.boxes.size(), 1U) << year;
        EXPECT_EQ(focusName(dialog), "TxtYear");
    }
}

} // namespace
