#include "mainscreen/rcvDate.h"

#include "support/windows.h"
#include "x11/watchedHost.h"

#include <gtest/gtest.h>
#include <QMenu>

#include <array>

// The check of a field before it is left, under a window manager that gives and takes the focus.
namespace {

using mainscreen::RcvDate;
using windows::control;
using namespace x11;
using Told = std::vector<std::string>;

constexpr const char* dayRange = "Value should be between [1,31]";
constexpr const char* monthRange = "Value should be between [1,12]";

class RcvDateOnDisplay : public testing::Test
{
protected:
    RcvDateOnDisplay()
    {
        dialog.setModal(true);
        QObject::connect(&dialog, &QDialog::finished, [this] { ++finished; });
    }

    QWidget& child(const char* name) { return control<QWidget>(dialog, name); }
    QLineEdit& field(const char* name) { return control<QLineEdit>(dialog, name); }

    void showDialog()
    {
        ask([this] { dialog.show(); });
        awaitActive(dialog);
    }
    // Types into the day, which has the focus at first.
    void showWithDay(const QString& day)
    {
        showDialog();
        type(day);
        awaitDay(day);
    }
    void awaitDay(const QString& day)
    {
        await("the day is typed", [this, day] { return field("TxtDay").text() == day; });
    }
    void awaitClosed()
    {
        await("the dialog closes", [this] { return !dialog.isVisible(); });
    }

    Told told()
    {
        return ask([this] { return std::exchange(host.told, {}); });
    }
    // Nothing went through, and the operator can go on typing over the day.
    void expectBackInDay(const QString& day)
    {
        awaitActive(dialog);
        settle();
        ask([&] {
            EXPECT_EQ(boxOnScreen(), nullptr);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(finished, 0);
            EXPECT_TRUE(field("TxtDay").hasFocus());
            EXPECT_EQ(field("TxtDay").selectedText(), day);
            for (const char* button : {"ButtonOK", "ButtonCancel"})
                EXPECT_FALSE(control<QAbstractButton>(dialog, button).isDown()) << button;
        });
    }

    WatchedHost host;
    RcvDate dialog;
    int finished = 0;
};

// How an operator tries to leave a field: a click on a control, or a key.
struct Way
{
    const char* name;
    const char* control; // null: the key
    const char* key;
};
constexpr std::array<Way, 6> ways = {{
    {"aClickOnOk", "ButtonOK", nullptr},
    {"aClickOnAnotherField", "TxtYear", nullptr},
    {"Tab", nullptr, "Tab"},
    {"ShiftTab", nullptr, "shift+Tab"},
    {"AltO", nullptr, "alt+o"},
    {"Enter", nullptr, "Return"},
}};

struct Ending
{
    const char* name;
    Answering how;
};
constexpr std::array<Ending, 3> endings = {
    {{"Click", Answering::Click}, {"Enter", Answering::Enter}, {"Escape", Answering::Escape}}};

class LeavingABadDay : public RcvDateOnDisplay, public testing::WithParamInterface<std::tuple<Way, Ending>>
{};

TEST_P(LeavingABadDay, isToldOnceAndLeadsBackToIt)
{
    const auto& [way, ending] = GetParam();
    play([&] {
        showWithDay("32");
        if (way.control != nullptr)
            click(child(way.control));
        else
            press({way.key});
        answer(awaitBox(), ending.how);
        expectBackInDay("32");
        EXPECT_EQ(told(), Told{dayRange});
    });
}

std::string nameOf(const testing::TestParamInfo<std::tuple<Way, Ending>>& info)
{
    const auto& [way, ending] = info.param;
    return std::string("by") + way.name + "AnsweredBy" + ending.name;
}

INSTANTIATE_TEST_SUITE_P(OnDisplay, LeavingABadDay,
                         testing::Combine(testing::ValuesIn(ways), testing::ValuesIn(endings)), nameOf);

TEST_F(RcvDateOnDisplay, twoBadFieldsDoNotTakeTheFocusFromOneAnother)
{
    play([&] {
        showWithDay("32");
        ask([&] { field("TxtMonth").setText("13"); });
        for (const auto& ending : endings) {
            click(field("TxtMonth"));
            answer(awaitBox(), ending.how);
            expectBackInDay("32");
            EXPECT_EQ(told(), Told{dayRange}) << ending.name;
        }
        type("31");
        click(field("TxtMonth"));
        await("the month is entered", [&] { return field("TxtMonth").hasFocus(); });
        click(field("TxtDay"));
        answer(awaitBox(), Answering::Click);
        awaitActive(dialog);
        settle();
        EXPECT_TRUE(ask([&] { return field("TxtMonth").hasFocus(); }));
        EXPECT_EQ(told(), Told{monthRange});
    });
}

TEST_F(RcvDateOnDisplay, anotherWindowMayTakeTheFocusAndGiveItBack)
{
    QWidget other;
    other.setWindowTitle("another window");
    dialog.setModal(false);
    play([&] {
        ask([&] { other.show(); });
        awaitActive(other);
        showWithDay("32");
        for (int round = 0; round < 3; ++round) {
            activate(other);
            awaitActive(other);
            activate(dialog);
            awaitActive(dialog);
        }
        settle();
        EXPECT_TRUE(ask([&] { return field("TxtDay").hasFocus(); }));
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(RcvDateOnDisplay, theWindowBehindItGetsNothingAndTellsNothing)
{
    QWidget behind;
    behind.resize(1000, 600);
    play([&] {
        ask([&] { behind.show(); });
        awaitActive(behind);
        showWithDay("32");
        click(behind, QPoint(20, 20));
        activate(behind);
        awaitActive(dialog);
        settle();
        EXPECT_TRUE(ask([&] { return dialog.isVisible() && field("TxtDay").hasFocus(); }));
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(RcvDateOnDisplay, thePopUpOfAFieldIsNoLeaving)
{
    play([&] {
        showWithDay("32");
        rightClick(field("TxtDay"));
        await("the pop-up comes", [] {
            const auto* const menu = QApplication::activePopupWidget();
            return menu != nullptr && menu->windowHandle()->isExposed();
        });
        press({"Escape"});
        await("the pop-up goes", [] { return QApplication::activePopupWidget() == nullptr; });
        awaitActive(dialog);
        settle();
        EXPECT_TRUE(ask([&] { return dialog.isVisible() && field("TxtDay").hasFocus(); }));
        EXPECT_EQ(told(), Told{});
    });
}

// The ways of giving up, with a bad day in the field.
class GivingUpRcvDateOnDisplay : public RcvDateOnDisplay
{
protected:
    void expectClosedWithoutAWord(const std::function<void()>& giveUp)
    {
        play([&] {
            showWithDay("32");
            giveUp();
            awaitClosed();
            EXPECT_EQ(ask([this] { return dialog.dateRcv(); }), "");
            EXPECT_EQ(ask([this] { return finished; }), 1);
            EXPECT_EQ(told(), Told{});
        });
    }
};

TEST_F(GivingUpRcvDateOnDisplay, byEscape)
{
    expectClosedWithoutAWord([] { press({"Escape"}); });
}

TEST_F(GivingUpRcvDateOnDisplay, byTheKeysOfTheWindowManager)
{
    expectClosedWithoutAWord([] { press({"alt+F4"}); });
}

TEST_F(GivingUpRcvDateOnDisplay, byTheButtonOfTheFrame)
{
    expectClosedWithoutAWord([this] { clickClose(dialog); });
}

TEST_F(GivingUpRcvDateOnDisplay, byAClickOnCancel)
{
    expectClosedWithoutAWord([this] { click(child("ButtonCancel")); });
}

TEST_F(RcvDateOnDisplay, cancelIsReachedByTabAndPressedByKeys)
{
    play([&] {
        int closings = 0;
        for (const char* key : {"space", "Return"}) {
            ask([this] { field("TxtDay").setFocus(); });
            showDialog();
            press({"Tab", "Tab"}); // all three are empty: that is never wrong, and OK can't be pressed
            press({"Tab"});
            await("Cancel has the focus", [&] { return child("ButtonCancel").hasFocus(); });
            press({key});
            awaitClosed();
            EXPECT_EQ(ask([this] { return finished; }), ++closings) << key;
        }
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(RcvDateOnDisplay, aPressOnCancelThatIsDraggedOffLeavesNoFieldUnchecked)
{
    play([&] {
        showWithDay("32");
        pointAt(child("ButtonCancel"));
        mouseDown();
        await("the button is down",
              [&] { return control<QAbstractButton>(dialog, "ButtonCancel").isDown(); });
        pointAt(child("LabelDateRcv"));
        mouseUp();
        settle();
        EXPECT_TRUE(ask([&] { return dialog.isVisible() && field("TxtDay").hasFocus(); }));
        EXPECT_EQ(told(), Told{});
        press({"Tab"});
        answer(awaitBox(), Answering::Enter);
        expectBackInDay("32");
        EXPECT_EQ(told(), Told{dayRange});
    });
}

TEST_F(RcvDateOnDisplay, theReleaseAfterAPressThatBroughtABoxGoesNowhere)
{
    play([&] {
        showWithDay("32");
        for (const bool overTheBox : {false, true}) {
            pointAt(child("ButtonOK"));
            mouseDown();
            const auto& box = awaitBox();
            if (overTheBox)
                pointAt(*ask([&box] { return box.button(QMessageBox::Ok); }));
            mouseUp();
            settle();
            EXPECT_EQ(ask(boxOnScreen), &box) << overTheBox;
            EXPECT_TRUE(ask([&] { return dialog.isVisible(); })) << overTheBox;
            answer(box, Answering::Click);
            expectBackInDay("32");
            EXPECT_EQ(told(), Told{dayRange}) << overTheBox;
        }
        type("31");
        click(child("ButtonCancel"));
        awaitClosed();
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(RcvDateOnDisplay, aDateIsTypedWithoutTheMouse)
{
    play([&] {
        showWithDay("15");
        press({"Tab"});
        type("5");
        press({"Tab"});
        type("2002");
        press({"Return"});
        awaitClosed();
        EXPECT_EQ(ask([&] { return dialog.dateRcv(); }), "2002-5-15");
        EXPECT_EQ(told(), Told{});
    });
}

} // namespace
