// The main screen with what a transcript of a session can't show: places, widths, focus, pointer, locks.
#include "mainscreen/openScreen.h"

#include "db/writeNtcToDB.h"
#include "mainscreen/noticeListView.h"
#include "mainscreen/qtHost.h"
#include "model/session.h"
#include "support/noticeBuilder.h"
#include "support/windows.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>
#include <QAction>
#include <QHeaderView>
#include <QScrollBar>

#include <functional>

namespace {

// The operator's answers to file dialogs and boxes, given at once.
class AnsweringHost : public mainscreen::QtHost
{
public:
    platform::Answer msgBox(const std::string& text, platform::Buttons, platform::Icon,
                            const std::string&) override
    {
        boxes.push_back(text);
        pointerInBox = pointer();
        whileBoxIsUp();
        return answer;
    }
    std::optional<std::string> openFile(const platform::FileChoice&) override { return chosen; }

    std::vector<std::string> boxes;
    std::optional<std::string> chosen;
    platform::Answer answer = platform::Answer::Ok;
    std::function<void()> whileBoxIsUp = [] {};
    int pointerInBox = -1;
};

class MainScreen : public testing::Test
{
protected:
    MainScreen()
    {
        session::dbStatus.clear();
        session::keyArray.clear();
        session::keyCount = 0;
        host.chosen = work.path();
        windows::open(screen);
    }

    void fill(int notices, const std::string& type = "T12")
    {
        const auto database = work.open();
        auto workspace = dao::DBEngine::Workspaces(0);
        for (int number = 0; number < notices; ++number)
            writeNtcToDB::insertNtc(aNotice(type).build(), workspace, database);
        database->Close();
    }

    void trigger(const char* item) { screen.findChild<QAction*>(item)->trigger(); }
    mainscreen::NoticeListView& list()
    {
        return windows::control<mainscreen::NoticeListView>(screen, "DBGridView");
    }

    WorkingDatabase work;
    AnsweringHost host;
    mainscreen::OpenScreen screen{host};
};

} // namespace

TEST_F(MainScreen, HasANameToReadOutForEachControlAndNoDisplayNameInTitles)
{
    EXPECT_EQ(list().accessibleName(), "Notices");
    EXPECT_EQ(windows::control<QLineEdit>(screen, "txtFileName").accessibleName(), "File");
    EXPECT_EQ(screen.windowTitle(), "ZEPH_Rvis");
}

TEST_F(MainScreen, ShowsWhatToDoFirstAgainWhenNothingCouldBeOpened)
{
    const auto isShown = [this](const char* text) {
        const auto labels = screen.findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [text](const QLabel* label) {
            return label->isVisible() && label->text().startsWith(text);
        });
    };
    EXPECT_TRUE(isShown("Ctrl+T opens"));
    host.chosen = work.folder().write("text.mdb", "no database");
    trigger("mnuOpenMDB");
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_TRUE(isShown("Ctrl+T opens"));
    EXPECT_FALSE(isShown("Loading database"));
    EXPECT_EQ(host.pointer(), platform::pointerDefault);
    host.chosen = work.path();
    trigger("mnuOpenMDB");
    EXPECT_TRUE(list().isVisible());
    EXPECT_FALSE(isShown("Ctrl+T opens"));
}

TEST_F(MainScreen, KeepsPlaceWidthsAndRowWhileANoticeIsOpened)
{
    fill(300, "T15");
    trigger("mnuOpenMDB");
    auto& view = list();
    view.horizontalHeader()->resizeSection(3, 333);
    view.setCurrentRow(200);
    view.horizontalScrollBar()->setValue(40);
    const int place = view.verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(view.currentRow(), 200);
    EXPECT_EQ(view.verticalScrollBar()->value(), place);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 40);
    EXPECT_EQ(view.columnWidth(3), 333);
    EXPECT_EQ(screen.focusWidget(), &view);
    EXPECT_EQ(session::currentIndex, 200);
}

TEST_F(MainScreen, MakesTheRowOfTheLastNoticeCurrentAndBringsItInSight)
{
    fill(300, "T15");
    trigger("mnuOpenMDB");
    // The operator walked on from the notice that he had opened.
    host.whileBoxIsUp = [] { session::currentVeldaKey = 250; };
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(list().currentRow(), 249);
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(list().currentIndex()).center()));
}

TEST_F(MainScreen, StaysAtTheFirstRowWhenTheLastNoticeIsNotInTheList)
{
    fill(3, "T15");
    trigger("mnuOpenMDB");
    host.whileBoxIsUp = [] { session::currentVeldaKey = 250; };
    list().setCurrentRow(2);
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(list().currentRow(), 0);
}

TEST_F(MainScreen, StartsANewSortOrderAtItsFirstRow)
{
    fill(300);
    trigger("mnuOpenMDB");
    list().setCurrentRow(200);
    trigger("mnuSortAdmFreq");
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_EQ(list().verticalScrollBar()->value(), 0);
    EXPECT_EQ(screen.focusWidget(), &list());
}

TEST_F(MainScreen, HoldsNoLockOnTheFileWhileTheListIsShown)
{
    fill(3);
    trigger("mnuOpenMDB");
    work.execute("BEGIN EXCLUSIVE; DELETE FROM kvr_velda WHERE veldakey = 1; COMMIT");
    EXPECT_EQ(list().model()->rowCount(), 3);
}

TEST_F(MainScreen, PaintsAlikeWhenItsSourceHasBeenClosed)
{
    fill(3);
    trigger("mnuOpenMDB");
    list().clearFocus();
    const auto before = list().grab().toImage();
    host.chosen.reset();
    trigger("mnuOpenTxt");
    list().clearFocus();
    EXPECT_TRUE(list().isVisible());
    EXPECT_EQ(list().grab().toImage(), before);
}

TEST_F(MainScreen, AShortcutDoesNothingUnderADisabledMenu)
{
    QTest::keyClick(screen.windowHandle(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_FALSE(list().isVisible());
    QTest::keyClick(screen.windowHandle(), Qt::Key_M, Qt::ControlModifier);
    EXPECT_TRUE(list().isVisible());
}

TEST_F(MainScreen, ThePointerIsTheDefaultAfterAFailureAndInItsBox)
{
    host.chosen = work.folder().write("no database.mdb", "text");
    trigger("mnuOpenMDB");
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0].substr(0, 13), "Error 3343 : ");
    EXPECT_EQ(host.pointerInBox, 0);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MainScreen, TwoHourglassesNeedNoTwoDefaults)
{
    host.setPointer(platform::pointerHourglass);
    host.setPointer(platform::pointerHourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    host.setPointer(platform::pointerDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    host.setPointer(platform::pointerDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MainScreen, AFailedSaveOnTheWayOutKeepsTheScreenAndTheChanges)
{
    fill(1);
    trigger("mnuOpenMDB");
    std::filesystem::create_directory(work.folder().path() / "work.upd");
    session::ntcChanged = true;
    host.answer = platform::Answer::Yes;
    trigger("mnuFileExit");
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(session::ntcChanged);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    host.answer = platform::Answer::No;
    trigger("mnuFileExit");
    EXPECT_FALSE(screen.isVisible());
    EXPECT_FALSE(session::ntcChanged);
}

TEST_F(MainScreen, TheMessagesGoWithTheMainScreen)
{
    host.addErrorLine("one");
    EXPECT_TRUE(host.isErrorMsgLoaded());
    screen.close();
    EXPECT_FALSE(host.isErrorMsgLoaded());
}
