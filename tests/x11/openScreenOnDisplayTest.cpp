#include "db/writeNtcToDB.h"
#include "mainscreen/noticeListView.h"
#include "mainscreen/openScreen.h"
#include "mainscreen/rvisAbout.h"
#include "mainscreen/selectDlg.h"
#include "model/session.h"
#include "support/noticeBuilder.h"
#include "support/windows.h"
#include "support/workingDatabase.h"
#include "x11/watchedHost.h"

#include <gtest/gtest.h>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>

// The main window under a window manager: mouse, keys, menus, and who has the focus after what.
namespace {

using windows::control;
using namespace mainscreen;
using namespace x11;
using Told = std::vector<std::string>;

constexpr const char* noSuchScreen = "Sorry! T15, T16 and T17 screens aren't ready yet";
constexpr int notices = 5;

class OpenScreenOnDisplay : public testing::Test
{
protected:
    OpenScreenOnDisplay()
    {
        // Of a type that has no screen: opening one ends in a box.
        const auto database = work.open();
        for (int notice = 0; notice < notices; ++notice)
            writeNtcToDB::insertNtc(aNotice("T15").build(), dao::DBEngine::Workspaces(0), database);
        database->Close();
        host.fileToOpen = work.path();
    }

    NoticeListView& list() { return control<NoticeListView>(screen, "DBGridView"); }
    QPoint placeOf(int row)
    {
        return ask([&] { return list().visualRect(list().model()->index(row, 1)).center(); });
    }
    void clickRow(int row) { click(*list().viewport(), placeOf(row)); }
    void doubleClickRow(int row) { doubleClick(*list().viewport(), placeOf(row)); }
    int currentRow()
    {
        return ask([this] { return list().currentRow(); });
    }
    bool listHasFocus()
    {
        return ask([this] { return list().hasFocus(); });
    }
    Told told()
    {
        return ask([this] { return std::exchange(host.told, {}); });
    }

    void showScreen()
    {
        ask([this] { screen.show(); });
        awaitActive(screen);
    }
    void openDatabase()
    {
        press({"ctrl+m"});
        await("the list is there", [this] { return list().isVisible() && list().hasFocus(); });
    }
    void showList()
    {
        showScreen();
        openDatabase();
        settle();
        ASSERT_EQ(ask([this] { return list().model()->rowCount(); }), notices);
        ASSERT_EQ(currentRow(), 0);
    }
    void clickBar(const char* menu)
    {
        auto& bar = *screen.menuBar();
        auto& item = control<QAction>(screen, menu);
        click(bar, ask([&] { return bar.actionGeometry(&item).center(); }));
    }
    void clickThrough(const char* menuName, const char* itemName)
    {
        clickBar(menuName);
        auto& menu = *control<QAction>(screen, menuName).menu();
        auto& item = control<QAction>(screen, itemName);
        await("the menu opens", [&menu] {
            return QApplication::activePopupWidget() == &menu && menu.windowHandle()->isExposed();
        });
        click(menu, ask([&] { return menu.actionGeometry(&item).center(); }));
    }
    // The modal window of the type, once it has the keyboard.
    template <class Window>
    Window& awaitModal()
    {
        const auto modal = [] { return qobject_cast<Window*>(QApplication::activeModalWidget()); };
        await("the dialog comes up", [modal] { return modal() != nullptr; });
        auto* const window = ask(modal);
        awaitActive(*window);
        return *window;
    }
    void awaitBackInScreen()
    {
        await("the dialog is gone", [] { return QApplication::activeModalWidget() == nullptr; });
        awaitActive(screen);
        settle();
    }
    static bool isAlone()
    {
        return ask([] {
            return QApplication::activeModalWidget() == nullptr &&
                   QApplication::activePopupWidget() == nullptr;
        });
    }

    WorkingDatabase work;
    WatchedHost host;
    OpenScreen screen{host};
};

TEST_F(OpenScreenOnDisplay, aDoubleClickOnARowOpensThatNotice)
{
    const QSignalSpy opened(&list(), &NoticeListView::opened);
    play([&] {
        showList();
        doubleClickRow(2);
        answer(awaitBox(), Answering::Click);
        awaitBackInScreen();
        EXPECT_EQ(ask([&] { return opened.size(); }), 1);
        EXPECT_EQ(told(), Told{noSuchScreen});
        EXPECT_EQ(session::currentVeldaKey, 3);
        EXPECT_EQ(currentRow(), 2);
    });
}

TEST_F(OpenScreenOnDisplay, enterOpensTheCurrentNoticeAndTheFocusComesBackToTheList)
{
    const QSignalSpy opened(&list(), &NoticeListView::opened);
    const auto openAndAnswer = [&](Answering how) {
        press({"Return"});
        answer(awaitBox(), how);
        awaitBackInScreen();
        EXPECT_EQ(told(), Told{noSuchScreen});
        EXPECT_EQ(currentRow(), 1);
        EXPECT_TRUE(listHasFocus());
    };
    play([&] {
        showList();
        clickRow(1);
        for (const auto how : {Answering::Click, Answering::Enter, Answering::Escape})
            openAndAnswer(how);
        EXPECT_EQ(ask([&] { return opened.size(); }), 3);
        press({"Down"});
        settle();
        EXPECT_EQ(currentRow(), 2);
    });
}

TEST_F(OpenScreenOnDisplay, ctrlCCopiesTheRowInHand)
{
    play([&] {
        showList();
        press({"Down", "ctrl+c"});
        settle();
        ask([&] {
            const auto& rows = *list().model();
            QStringList cells;
            for (int column = 0; column < rows.columnCount(); ++column)
                cells << rows.index(1, column).data().toString();
            EXPECT_EQ(cells.constFirst(), "2");
            EXPECT_EQ(QGuiApplication::clipboard()->text(), cells.join('\t'));
        });
    });
}

TEST_F(OpenScreenOnDisplay, theMouseGoesThroughTheMenu)
{
    play([&] {
        showList();
        clickThrough("mnuFile", "mnuClose");
        await("the list is closed", [&] { return !list().isVisible(); });
        settle();
        EXPECT_TRUE(isAlone());
        EXPECT_EQ(told(), Told{});
        openDatabase();
        EXPECT_EQ(currentRow(), 0);
    });
}

TEST_F(OpenScreenOnDisplay, theDescriptionIsClosedByAClickOnItAndByNoKey)
{
    play([&] {
        showList();
        press({"alt+a"});
        auto& about = awaitModal<RvisAbout>();
        press({"Escape"});
        settle();
        EXPECT_TRUE(ask([&] { return QApplication::activeModalWidget() == &about && about.isVisible(); }));
        click(*control<QPlainTextEdit>(about, "TxtAbout").viewport());
        awaitBackInScreen();
        EXPECT_TRUE(listHasFocus());
    });
}

TEST_F(OpenScreenOnDisplay, nothingBehindABoxCanBeReached)
{
    play([&] {
        showList();
        press({"Return"});
        const auto& box = awaitBox();
        clickRow(3);
        clickBar("mnuFile");
        awaitActive(box);
        press({"alt+a", "ctrl+f", "ctrl+m"});
        settle();
        EXPECT_EQ(ask(boxOnScreen), &box);
        EXPECT_EQ(ask(QApplication::activePopupWidget), nullptr);
        EXPECT_EQ(currentRow(), 0);
        answer(box, Answering::Escape);
        awaitBackInScreen();
        EXPECT_TRUE(isAlone());
        EXPECT_EQ(currentRow(), 0);
        EXPECT_EQ(told(), Told{noSuchScreen});
    });
}

TEST_F(OpenScreenOnDisplay, aShortcutOfADisabledMenuDoesNothing)
{
    play([&] {
        showScreen();
        press({"ctrl+f"});
        settle();
        EXPECT_TRUE(isAlone());
        openDatabase();
        press({"ctrl+f"});
        awaitModal<SelectDlg>();
        press({"Escape"});
        awaitBackInScreen();
        EXPECT_TRUE(listHasFocus());
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(OpenScreenOnDisplay, theFrameClosesItUnlessADialogIsOpen)
{
    play([&] {
        showList();
        press({"alt+a"});
        auto& about = awaitModal<RvisAbout>();
        clickClose(screen);
        awaitActive(about);
        settle();
        EXPECT_TRUE(ask([&] { return screen.isVisible() && about.isVisible(); }));
        press({"alt+F4"}); // for the window in front
        awaitBackInScreen();
        EXPECT_TRUE(ask([&] { return screen.isVisible(); }));
        clickClose(screen);
        await("the main window closes", [&] { return !screen.isVisible(); });
    });
}

// Presses while the list is being loaded, and counts what arrives before the loading is over.
class WhileLoadingOpenScreenOnDisplay : public OpenScreenOnDisplay
{
protected:
    void openDatabasePressing(const QStringList& what)
    {
        ask([this, what] {
            host.onPointer = [this, what](int pointer) {
                if (pointer == platform::pointerHourglass && !pressed) {
                    pressed = true;
                    xdotool(what);
                } else if (pressed && arrivedEarly == notYet) {
                    arrivedEarly = arrivals(Qt::Key_Down);
                }
            };
        });
        press({"ctrl+m"});
        await("the loading is over", [this] { return arrivedEarly != notYet; });
    }

    static constexpr int notYet = -1;
    bool pressed = false;
    int arrivedEarly = notYet;
};

TEST_F(WhileLoadingOpenScreenOnDisplay, whatIsTypedWaitsForTheList)
{
    play([&] {
        showScreen();
        openDatabasePressing({"key", "--delay", "0", "Down", "Down", "Return"});
        const auto& box = awaitBox();
        EXPECT_EQ(session::currentVeldaKey, 3);
        answer(box, Answering::Escape);
        awaitBackInScreen();
        EXPECT_EQ(currentRow(), 2);
        EXPECT_EQ(arrivedEarly, 0);
        EXPECT_EQ(told(), Told{noSuchScreen});
    });
}

TEST_F(WhileLoadingOpenScreenOnDisplay, whatIsClickedWaitsForTheList)
{
    play([&] {
        showList();
        pointAt(*list().viewport(), placeOf(3));
        openDatabasePressing({"click", "1"});
        awaitActive(screen);
        settle();
        EXPECT_EQ(currentRow(), 3);
        EXPECT_TRUE(listHasFocus());
        EXPECT_TRUE(isAlone());
        EXPECT_EQ(told(), Told{});
    });
}

} // namespace
