#include "screens/noticeForm.h"
#include "support/windows.h"
#include "x11/watchedHost.h"

#include <gtest/gtest.h>
#include <QClipboard>
#include <QProcess>

// What the keys of a real keyboard type, and what the mouse pastes.
namespace {

using namespace x11;

class TypingOnDisplay : public testing::Test
{
protected:
    ~TypingOnDisplay() override { setLayout("us"); }

    static void setLayout(const char* layout) { QProcess::execute("setxkbmap", {layout}); }

    void showForm()
    {
        ask([this] {
            form.show();
            form.control("stateID")->setFocus();
        });
        awaitActive(form);
        settle();
    }
    std::string text(const char* field)
    {
        settle();
        return ask([&] { return form.text(field); });
    }

    WatchedHost host;
    screens::NoticeForm form{screens::ScreenType::T11};
};

TEST_F(TypingOnDisplay, aKeyThatAModifierKeepsFromMakingACharacterTypesNothing)
{
    play([&] {
        showForm();
        for (const char* field : {"stateID", "callSign", "TxtRemarks"}) {
            ask([&] { form.control(field)->setFocus(); });
            press({"alt+1", "alt+x", "alt+shift+1", "super+1", "ctrl+alt+1", "alt+space", "ctrl+KP_1"});
            EXPECT_EQ(text(field), "") << field;
            press({"1", "shift+x", "KP_2"});
            EXPECT_EQ(text(field), "1X2") << field;
        }
    });
}

TEST_F(TypingOnDisplay, altGrMakesItsCharacters)
{
    play([&] {
        setLayout("de");
        showForm();
        xdotool({"keydown", "ISO_Level3_Shift", "key", "q", "key", "e", "keyup", "ISO_Level3_Shift"});
        EXPECT_EQ(text("stateID"), "@\u20ac");
        xdotool({"keydown", "ISO_Level3_Shift", "keydown", "alt", "key", "q", "keyup", "alt", "keyup",
                 "ISO_Level3_Shift"});
        EXPECT_EQ(text("stateID"), "@\u20ac");
        press({"dead_acute", "e"});
        EXPECT_EQ(text("stateID"), "@\u20ac\u00e9");
    });
}

TEST_F(TypingOnDisplay, theMiddleButtonPastesOneLine)
{
    play([&] {
        showForm();
        ask([] { QGuiApplication::clipboard()->setText(" 7.5\r\nt_adm=X", QClipboard::Selection); });
        const auto* const field = ask([this] { return form.control("stateID"); });
        pointAt(*field);
        xdotool({"click", "2"});
        EXPECT_EQ(text("stateID"), "7.5");
    });
}

} // namespace
