#include "mainscreen/noticeListView.h"
#include "mainscreen/openScreen.h"
#include "mainscreen/rcvDate.h"
#include "model/session.h"
#include "support/temporaryFolder.h"
#include "support/windows.h"
#include "x11/watchedHost.h"

#include <gtest/gtest.h>

// What an operator types and clicks while a file is loaded.
namespace {

using windows::control;
using namespace mainscreen;
using namespace x11;

constexpr int notices = 3;

class LoadOnDisplay : public testing::Test
{
protected:
    LoadOnDisplay()
    {
        // Of a type that has no screen: opening one ends in a box.
        std::string text = "<HEAD>\r\nt_adm=XYZ\r\n</HEAD>\r\n";
        for (int notice = 0; notice < notices; ++notice)
            text += "<NOTICE>\r\nt_notice_type=T15\r\nt_action=ADD\r\nt_geo_type=POINT\r\nt_site_name=A\r\n"
                    "</NOTICE>\r\n";
        host.fileToOpen = folder.write("day.txt", text);
        session::dbStatus.clear();
        session::ntcChanged = false;
    }
    ~LoadOnDisplay() override { session::dbStatus.clear(); }

    NoticeListView& list() { return control<NoticeListView>(screen, "DBGridView"); }

    // As the file is going to be read.
    void whileLoading(const std::function<void()>& presses)
    {
        host.onPointer = [this, presses](int pointer) {
            if (pointer == platform::pointerHourglass && !std::exchange(pressed, true))
                presses();
        };
    }
    void load()
    {
        ask([this] { screen.show(); });
        awaitActive(screen);
        press({"ctrl+t"});
        const auto dialog = [] { return qobject_cast<RcvDate*>(QApplication::activeModalWidget()); };
        await("the date is asked for", [dialog] { return dialog() != nullptr; });
        awaitActive(*ask(dialog));
        press({"2", "Tab", "1", "Tab", "2", "0", "2", "6", "Return"});
    }

    TemporaryFolder folder;
    WatchedHost host;
    OpenScreen screen{host};
    bool pressed = false;
};

TEST_F(LoadOnDisplay, isDropped)
{
    whileLoading([this] {
        xdotool({"key", "--delay", "0", "Down", "Return", "ctrl+f", "alt+f"});
        clickClose(screen);
    });
    play([&] {
        load();
        await("the list is there", [this] { return list().isVisible(); });
        awaitActive(screen);
        settle();
        ask([&] {
            EXPECT_TRUE(pressed);
            EXPECT_TRUE(screen.isVisible());
            EXPECT_EQ(list().currentRow(), 0);
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        });
        press({"Down"});
        await("keys act again", [this] { return list().currentRow() == 1; });
    });
}

TEST_F(LoadOnDisplay, doesNotAnswerABoxThatComesUpMeanwhile)
{
    session::dbStatus = session::errorDb; // a box for each notice
    whileLoading([] { xdotool({"key", "--delay", "0", "Return", "space", "Escape", "Return"}); });
    play([&] {
        load();
        for (int box = 1; box <= notices; ++box) {
            await("the next box", [&] {
                return boxOnScreen() != nullptr && host.told.size() == static_cast<std::size_t>(box);
            });
            awaitActive(*ask(boxOnScreen));
            settle();
            EXPECT_EQ(ask([&] { return host.told.size(); }), static_cast<std::size_t>(box));
            press({"Return"});
        }
        await("the list is there", [this] { return list().isVisible(); });
        awaitActive(screen);
    });
}

} // namespace
