#include "db/writeNtcToDB.h"
#include "mainscreen/errorMsg.h"
#include "mainscreen/noticeListView.h"
#include "mainscreen/openScreen.h"
#include "model/session.h"
#include "support/noticeBuilder.h"
#include "support/referenceSet.h"
#include "support/windows.h"
#include "support/workingDatabase.h"
#include "x11/watchedHost.h"

#include <gtest/gtest.h>
#include <QListWidget>
#include <QScreen>
#include <QThread>

#include <set>

// The check of site names under a window manager: what of it is on the screen before it is over, and when the
// operator's keys act.
namespace {

using windows::control;
using namespace mainscreen;
using namespace x11;

constexpr int notices = 30;
constexpr int longLookUp = 50; // milliseconds: each line is shown

class CheckingHost : public WatchedHost
{
public:
    void selectErrorLine(int line) override
    {
        WatchedHost::selectErrorLine(line);
        if (onLine)
            onLine(line);
    }

    std::function<void(int line)> onLine; // empty: none
};

class CheckOnDisplay : public testing::Test
{
protected:
    CheckOnDisplay()
    {
        const auto database = work.open();
        for (int notice = 0; notice < notices; ++notice)
            writeNtcToDB::insertNtc(aNotice("T15", "SUPPRESS").build(), dao::DBEngine::Workspaces(0),
                                    database);
        database->Close();
        set.addGeoIndex();
        session::ntcChanged = false;
    }
    // A check leaves its last notice, whose dates are none that a screen could show.
    ~CheckOnDisplay() override { session::notice = {}; }

    void linkAll()
    {
        ask([this] { screen.show(); });
        awaitActive(screen);
        openByKey("ctrl+m", work.path());
        await("the list is there", [this] { return list().isVisible(); });
        openByKey("ctrl+l", set.path());
        await("the set is linked", [this] { return control<QAction>(screen, "mnuNtc").isEnabled(); });
        settle();
    }
    void checkAll()
    {
        ask([this] {
            QMetaObject::invokeMethod(&control<QAction>(screen, "mnuAllSuppress"), "trigger",
                                      Qt::QueuedConnection);
        });
        await("the check is over",
              [this] { return host.isErrorMsgLoaded() && host.errorMsg().lineCount() > notices; });
    }
    // What the server shows of the list of messages.
    QImage shown()
    {
        const auto& window = host.errorMsg();
        const auto& lines = control<QListWidget>(window, "ListErrors");
        const QRect place(lines.mapTo(&window, QPoint()), lines.size());
        return window.screen()
            ->grabWindow(window.winId(), place.x(), place.y(), place.width(), place.height())
            .toImage();
    }
    NoticeListView& list() { return control<NoticeListView>(screen, "DBGridView"); }

    WorkingDatabase work;
    ReferenceSet set;
    CheckingHost host;
    OpenScreen screen{host};

private:
    void openByKey(const char* key, const std::string& file)
    {
        ask([&] { host.fileToOpen = file; });
        press({key});
    }
};

TEST_F(CheckOnDisplay, eachLineIsOnTheScreenBeforeTheNextNoticeIsLookedUp)
{
    std::vector<QImage> pictures;
    std::vector<bool> matches;
    host.onLine = [&](int) {
        pictures.push_back(shown());
        auto& lines = control<QListWidget>(host.errorMsg(), "ListErrors");
        matches.push_back(pictures.back() ==
                          lines.grab().toImage().convertToFormat(pictures.back().format()));
        QThread::msleep(longLookUp);
    };
    play([&] {
        linkAll();
        checkAll();
        ask([&] {
            ASSERT_EQ(pictures.size(), notices);
            for (std::size_t line = 1; line < pictures.size(); ++line)
                EXPECT_NE(pictures[line], pictures[line - 1]) << line;
            for (std::size_t line = 0; line < matches.size(); ++line)
                EXPECT_TRUE(matches[line]) << line;
            EXPECT_FALSE(host.errorMsg().isModal());
        });
    });
}

TEST_F(CheckOnDisplay, whatIsTypedAndClickedMeanwhileIsDropped)
{
    host.onLine = [&](int line) {
        if (line == 1) {
            xdotool({"key", "--delay", "0", "Down", "Return", "ctrl+f", "alt+f"});
            clickClose(screen);
            click(list());
        }
        QThread::msleep(longLookUp);
    };
    play([&] {
        linkAll();
        checkAll();
        const auto& window = ask([&]() -> const QWidget* { return &host.errorMsg(); });
        awaitActive(*window);
        settle();
        ask([&] {
            EXPECT_TRUE(screen.isVisible());
            EXPECT_EQ(list().currentRow(), 0);
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        });
        activate(screen);
        awaitActive(screen);
        ask([&] { list().setFocus(); });
        press({"Down"});
        await("keys act again", [this] { return list().currentRow() == 1; });
    });
}

TEST_F(CheckOnDisplay, theMessagesStandBesideTheMainScreenUntilTheyAreClosed)
{
    play([&] {
        linkAll();
        checkAll();
        const auto& window = ask([&]() -> const QWidget* { return &host.errorMsg(); });
        awaitActive(*window);
        activate(screen);
        awaitActive(screen);
        ask([&] { list().setFocus(); });
        press({"Return"}); // a notice, and back
        answer(awaitBox(), Answering::Escape);
        awaitActive(screen);
        activate(*window);
        awaitActive(*window);
        press({"Escape"});
        await("the messages are gone", [this] { return !host.isErrorMsgLoaded(); });
        awaitActive(screen);
    });
}

} // namespace
