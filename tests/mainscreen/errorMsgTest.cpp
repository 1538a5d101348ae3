#include "mainscreen/errorMsg.h"

#include "model/session.h"
#include "platform/hostFormat.h"
#include "platform/userName.h"
#include "support/fakeHost.h"
#include "support/temporaryFolder.h"
#include "support/windows.h"

#include <gtest/gtest.h>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>

namespace {

using mainscreen::ErrorMsg;
using namespace windows;

constexpr const char* head = "Report created on 15/05/2002-09:07:05\r\nProcessed by OPERATOR\r\n";

class Messages : public testing::Test
{
protected:
    Messages()
    {
        platform::setClock(platform::LocalTime{2002, 5, 15, 9, 7, 5});
        platform::setHostLocale("fr_FR.UTF-8");
        platform::setHostUserName("OPERATOR");
        session::workingDbPath = folder.file("load.mdb");
    }
    ~Messages() override
    {
        platform::setClock(std::nullopt);
        platform::setHostLocale("");
        platform::setHostUserName(std::nullopt);
        session::workingDbPath.clear();
    }

    QListWidget& list() { return control<QListWidget>(dialog, "ListErrors"); }
    bool reportExists() const { return std::filesystem::exists(folder.file("load.rpt")); }

    FakeHost host;
    TemporaryFolder folder;
    ErrorMsg dialog;
};

TEST_F(Messages, comeUpWithTheirTexts)
{
    open(dialog);
    EXPECT_EQ(badNames(dialog), "");
    EXPECT_EQ(dialog.windowTitle(), "Messages");
    EXPECT_EQ(control<QPushButton>(dialog, "ButtonSave").text(), "Save");
    EXPECT_EQ(control<QPushButton>(dialog, "ButtonClose").text(), "Close");
    EXPECT_EQ(control<QLineEdit>(dialog, "TxtNbNtcs").text(), "");
    EXPECT_TRUE(control<QLineEdit>(dialog, "TxtNbNtcs").isReadOnly());
    EXPECT_EQ(dialog.lineCount(), 0);
    EXPECT_EQ(focusName(dialog), "ListErrors");
}

TEST_F(Messages, areHeldLineByLine)
{
    dialog.addLine("first");
    dialog.addLine("<b>café</b>");
    EXPECT_EQ(dialog.lineCount(), 2);
    EXPECT_EQ(dialog.line(0), "first");
    EXPECT_EQ(dialog.line(1), "<b>café</b>");
    EXPECT_EQ(dialog.line(2), "");
    EXPECT_EQ(list().item(1)->text(), "<b>café</b>");
    dialog.clear();
    EXPECT_EQ(dialog.lineCount(), 0);
}

TEST_F(Messages, showTheCountOfTheCheck)
{
    dialog.setCountLine("3 notice(s) to be checked. ");
    EXPECT_EQ(control<QLineEdit>(dialog, "TxtNbNtcs").text(), "3 notice(s) to be checked. ");
}

TEST_F(Messages, takeTheTitleAndTheCountOfACheckAndHideItsButtons)
{
    dialog.beginCheck({"A check in a file", "2 notice(s) to be checked. ", true});
    dialog.appendCountText("Please wait....");
    open(dialog);
    EXPECT_EQ(dialog.windowTitle(), "A check in a file");
    EXPECT_EQ(control<QLineEdit>(dialog, "TxtNbNtcs").text(), "2 notice(s) to be checked. Please wait....");
    const int place = control<QLineEdit>(dialog, "TxtNbNtcs").y();
    EXPECT_FALSE(control<QPushButton>(dialog, "ButtonSave").isVisible());
    EXPECT_FALSE(control<QPushButton>(dialog, "ButtonClose").isVisible());
    dialog.endCheck();
    QCoreApplication::processEvents();
    EXPECT_TRUE(control<QPushButton>(dialog, "ButtonSave").isVisible());
    EXPECT_TRUE(control<QPushButton>(dialog, "ButtonClose").isVisible());
    EXPECT_EQ(control<QLineEdit>(dialog, "TxtNbNtcs").y(), place) << "nothing jumps";
}

TEST_F(Messages, hideNoButtonToSaveByWhereTheCheckSaysSo)
{
    dialog.beginCheck({"", "", false});
    open(dialog);
    EXPECT_TRUE(control<QPushButton>(dialog, "ButtonSave").isVisible());
    EXPECT_FALSE(control<QPushButton>(dialog, "ButtonClose").isVisible());
}

TEST_F(Messages, keepTheSelectedLineInSight)
{
    open(dialog);
    for (int number = 0; number < 200; ++number) {
        dialog.addLine("Notice No: " + std::to_string(number) + " target found");
        dialog.selectLine(number);
        const auto place = list().visualItemRect(list().item(number));
        EXPECT_TRUE(list().viewport()->rect().contains(place)) << number;
        EXPECT_EQ(list().selectedItems(), QList{list().item(number)}) << number;
    }
}

TEST_F(Messages, areSavedAsAReportBesideTheWorkingDatabase)
{
    dialog.addLine("Notice No: 2 is a potential target to the notice no : 1");
    dialog.addLine("café €");
    open(dialog);
    click(dialog, "ButtonSave");
    EXPECT_EQ(folder.read("load.rpt"),
              std::string(head) +
                  "Notice No: 2 is a potential target to the notice no : 1\r\ncaf\xE9 \x80\r\n\r\n");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(Messages, giveAReportOfOneEmptyLineWhenThereAreNone)
{
    open(dialog);
    click(dialog, "ButtonSave");
    EXPECT_EQ(folder.read("load.rpt"), std::string(head) + "\r\n");
}

TEST_F(Messages, overwriteTheReportOfAnEarlierSaveUnasked)
{
    dialog.addLine("a line that the second report has not");
    open(dialog);
    click(dialog, "ButtonSave");
    dialog.clear();
    dialog.addLine("b");
    open(dialog);
    click(dialog, "ButtonSave");
    EXPECT_EQ(folder.read("load.rpt"), std::string(head) + "b\r\n\r\n");
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(Messages, leaveNoReportWhenClosed)
{
    dialog.addLine("a");
    open(dialog);
    click(dialog, "ButtonClose");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(reportExists());
    EXPECT_EQ(dialog.line(0), "a");
}

TEST_F(Messages, areClosedByEscapeAndByTheFrame)
{
    open(dialog);
    press(dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    open(dialog);
    dialog.close();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(reportExists());
}

TEST_F(Messages, areNotClosedByEnterUnlessAButtonHasTheFocus)
{
    dialog.addLine("a");
    open(dialog);
    press(dialog, Qt::Key_Return);
    control<QLineEdit>(dialog, "TxtNbNtcs").setFocus();
    press(dialog, Qt::Key_Enter);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(reportExists());
    control<QPushButton>(dialog, "ButtonSave").setFocus();
    press(dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(reportExists());
}

TEST_F(Messages, areCopiedInTheirOrder)
{
    for (const char* line : {"a", "b", "c"})
        dialog.addLine(line);
    open(dialog);
    const auto clickLine = [&](int row, Qt::KeyboardModifiers modifiers) {
        const auto where = list().visualItemRect(list().item(row)).center();
        QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers, where);
    };
    clickLine(2, Qt::NoModifier);
    clickLine(0, Qt::ControlModifier);
    press(dialog, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "a\nc");
    press(dialog, Qt::Key_A, Qt::ControlModifier);
    press(dialog, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "a\nb\nc");
}

TEST_F(Messages, canBeReadToTheEndOfTheLongestLine)
{
    dialog.addLine(std::string(400, 'M'));
    dialog.addLine("short");
    open(dialog);
    const int width = list().fontMetrics().horizontalAdvance(QString(400, 'M'));
    EXPECT_TRUE(list().horizontalScrollBar()->isVisible());
    EXPECT_GE(list().horizontalScrollBar()->maximum() + list().viewport()->width(), width);
}

TEST_F(Messages, areAsManyAsALoadCanHaveNotices)
{
    constexpr int most = 32767;
    for (int number = 1; number <= most; ++number)
        dialog.addLine("Notice No: " + std::to_string(number));
    open(dialog);
    press(dialog, Qt::Key_End);
    EXPECT_EQ(list().currentRow(), most - 1);
    click(dialog, "ButtonSave");
    const auto report = folder.read("load.rpt");
    EXPECT_TRUE(report.ends_with("Notice No: 32766\r\nNotice No: 32767\r\n\r\n"));
    EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), most + 3);
}

class MessagesDeathTest : public Messages
{
protected:
    MessagesDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    void expectSavingEndsTheProgram(const char* report)
    {
        EXPECT_EXIT(control<QPushButton>(dialog, "ButtonSave").click(), testing::ExitedWithCode(3), report);
    }
};

TEST_F(MessagesDeathTest, endTheProgramWhenTheReportCannotBeWritten)
{
    session::workingDbPath = folder.file("missing/load.mdb");
    expectSavingEndsTheProgram("run-time error 76: Path not found");
    session::workingDbPath = "db"; // too short to cut three letters off
    expectSavingEndsTheProgram("run-time error 5: ");
}

} // namespace
