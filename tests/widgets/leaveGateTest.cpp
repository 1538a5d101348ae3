// When the check of a field runs, and what happens to the key or click that wanted to leave it.
#include "widgets/leaveGate.h"

#include <gtest/gtest.h>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// A form with a checked field that takes "good" or nothing, and all that one can leave it for.
class Form : public testing::Test
{
protected:
    Form()
    {
        auto* const layout = new QVBoxLayout(&window);
        for (auto* const widget :
             std::initializer_list<QWidget*>{&field, &other, &label, &button, &box, &list})
            layout->addWidget(widget);
        button.setText("&Go");
        QObject::connect(&button, &QPushButton::clicked, [this] { ++presses; });
        QObject::connect(&shortcut, &QShortcut::activated, [this] { ++shortcuts; });
        widgets::checkOnLeaving(&field, [this] { return check(field); });
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field.setFocus();
    }

    bool check(const QLineEdit& checked)
    {
        ++checks;
        whileChecking();
        return checked.text().isEmpty() || checked.text() == "good";
    }

    // The press of a real mouse, and its release.
    void press(QWidget& widget)
    {
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, placeOf(widget));
    }
    void release(QWidget& widget)
    {
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, placeOf(widget));
    }
    void click(QWidget& widget)
    {
        press(widget);
        release(widget);
    }
    QPoint placeOf(QWidget& widget) { return widget.mapTo(&window, QPoint(8, widget.height() / 2)); }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window.windowHandle(), code, modifiers);
    }
    QWidget* focus() { return window.focusWidget(); }

    QDialog window;
    QLineEdit field{"bad"}, other;
    QLabel label{"text"};
    QPushButton button;
    QCheckBox box{"box"};
    QComboBox list;
    QShortcut shortcut{QKeySequence("Ctrl+S"), &window};
    std::function<void()> whileChecking = [] {};
    int checks = 0, presses = 0, shortcuts = 0;
};

} // namespace

TEST_F(Form, TabLeavesAGoodFieldAfterOneCheck)
{
    field.setText("good");
    key(Qt::Key_Tab);
    EXPECT_EQ(focus(), &other);
    EXPECT_EQ(checks, 1);
}

TEST_F(Form, TabAndBacktabStayInABadFieldWithItsTextSelected)
{
    key(Qt::Key_Tab);
    EXPECT_EQ(focus(), &field);
    EXPECT_EQ(field.selectedText(), "bad");
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), &field);
    EXPECT_EQ(checks, 2);
}

TEST_F(Form, AClickElsewhereStaysInABadFieldAndDoesNotGoThrough)
{
    click(button);
    EXPECT_EQ(focus(), &field);
    EXPECT_EQ(presses, 0);
    EXPECT_FALSE(button.isDown());
    click(box);
    EXPECT_FALSE(box.isChecked());
    click(other);
    EXPECT_EQ(focus(), &field);
    EXPECT_EQ(checks, 3);
}

TEST_F(Form, AClickElsewhereLeavesAGoodFieldAndGoesThrough)
{
    field.setText("good");
    click(button);
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(focus(), &button);
    EXPECT_EQ(checks, 1);
}

TEST_F(Form, TheSecondPressOfADoubleClickDoesNotSlipThrough)
{
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, placeOf(box));
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(focus(), &field);
}

TEST_F(Form, AClickOnTheFieldItselfOrOnSomethingWithoutFocusIsNoLeaving)
{
    click(field);
    click(label);
    button.setEnabled(false);
    click(button);
    EXPECT_EQ(checks, 0);
    EXPECT_EQ(focus(), &field);
}

TEST_F(Form, AnAccessKeyChecksFirst)
{
    key(Qt::Key_G, Qt::AltModifier);
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(focus(), &field);
    field.setText("good");
    key(Qt::Key_G, Qt::AltModifier);
    // The button goes down and up for the operator to see.
    EXPECT_TRUE(QTest::qWaitFor([this] { return presses == 1; }));
    EXPECT_EQ(checks, 2);
}

TEST_F(Form, AShortcutChecksFirst)
{
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(shortcuts, 0);
    field.clear();
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(shortcuts, 1);
    EXPECT_EQ(checks, 2);
}

TEST_F(Form, EnterChecksBeforeTheDefaultButtonActs)
{
    button.setDefault(true);
    key(Qt::Key_Return);
    EXPECT_EQ(presses, 0);
    field.setText("good");
    key(Qt::Key_Enter);
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(checks, 2);
}

TEST_F(Form, EnterWithoutADefaultButtonIsNoLeaving)
{
    button.setAutoDefault(false);
    button.setDefault(false);
    key(Qt::Key_Return);
    EXPECT_EQ(checks, 0);
}

TEST_F(Form, EscapeClosesWithoutACheck)
{
    key(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(checks, 0);
}

TEST_F(Form, TheFrameClosesWithoutACheck)
{
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(checks, 0);
}

TEST_F(Form, AnotherWindowThatTakesTheFocusIsNoLeaving)
{
    QDialog second(&window);
    second.show();
    second.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&second));
    EXPECT_EQ(checks, 0);
    second.hide();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(focus(), &field);
    EXPECT_EQ(checks, 0);
}

TEST_F(Form, APopUpIsNoLeaving)
{
    QMenu menu(&window);
    menu.addAction("Copy");
    menu.popup(window.mapToGlobal(QPoint(5, 5)));
    menu.hide();
    EXPECT_EQ(checks, 0);
}

TEST_F(Form, CodeThatMovesTheFocusIsCheckedToo)
{
    other.setFocus();
    EXPECT_EQ(focus(), &field);
    EXPECT_EQ(field.selectedText(), "bad");
    EXPECT_EQ(checks, 1);
    field.setText("good");
    other.setFocus();
    EXPECT_EQ(focus(), &other);
    EXPECT_EQ(checks, 2);
}

TEST_F(Form, TwoBadNeighboursDoNotPlayPingPong)
{
    int neighbourChecks = 0;
    other.setText("worse");
    widgets::checkOnLeaving(&other, [&] { return ++neighbourChecks < 0; });
    other.setFocus();
    EXPECT_EQ(focus(), &field);
    EXPECT_EQ(checks, 1);
    EXPECT_EQ(neighbourChecks, 0);
    click(other);
    EXPECT_EQ(focus(), &field);
    EXPECT_EQ(checks, 2);
    EXPECT_EQ(neighbourChecks, 0);
}

TEST_F(Form, ABoxOfTheCheckTakesItsOwnKeysAndClicks)
{
    whileChecking = [this] {
        QDialog message(&window);
        auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok, &message);
        QObject::connect(buttons, &QDialogButtonBox::accepted, &message, &QDialog::accept);
        QTimer::singleShot(0, &message, [&message] {
            message.activateWindow();
            QTest::keyClick(message.windowHandle(), Qt::Key_Return);
        });
        message.exec();
    };
    press(button);
    EXPECT_EQ(checks, 1);
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(focus(), &field);
    EXPECT_FALSE(button.isDown());
    EXPECT_EQ(presses, 0);
}

TEST_F(Form, ACheckThatDisablesTheButtonKeepsItFromActing)
{
    field.setText("good");
    whileChecking = [this] { button.setEnabled(false); };
    click(button);
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(checks, 1);
}

TEST_F(Form, ACheckThatMovesTheFocusItselfHasTheLastWord)
{
    field.setText("good");
    whileChecking = [this] { box.setFocus(); };
    key(Qt::Key_Tab);
    EXPECT_EQ(focus(), &box);
    EXPECT_EQ(checks, 1);
}

TEST_F(Form, AClickedButtonIsPressedThoughTheCheckSentTheFocusElsewhere)
{
    field.setText("good");
    whileChecking = [this] { widgets::sendFocusTo(&other); };
    click(button);
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(focus(), &other);
    EXPECT_EQ(checks, 1);
    EXPECT_EQ(button.focusPolicy(), QPushButton().focusPolicy());
    field.setFocus();
    click(box);
    EXPECT_TRUE(box.isChecked());
    EXPECT_EQ(focus(), &other);
    EXPECT_EQ(checks, 2);
}

TEST_F(Form, TheFieldThatGotTheFocusIsNotCheckedByTheClickThatGoesThrough)
{
    int neighbourChecks = 0;
    widgets::checkOnLeaving(&other, [&] { return ++neighbourChecks < 0; });
    field.setText("good");
    whileChecking = [this] { widgets::sendFocusTo(&other); };
    click(button);
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(focus(), &other);
    EXPECT_EQ(neighbourChecks, 0);
}

TEST_F(Form, AnAccessKeyPressesItsButtonThoughTheCheckSentTheFocusElsewhere)
{
    field.setText("good");
    whileChecking = [this] { widgets::sendFocusTo(&other); };
    key(Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return presses == 1; }));
    EXPECT_EQ(focus(), &other);
    EXPECT_EQ(checks, 1);
}

TEST_F(Form, AShortcutActsThoughTheCheckSentTheFocusElsewhere)
{
    field.setText("good");
    whileChecking = [this] { widgets::sendFocusTo(&other); };
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(shortcuts, 1);
    EXPECT_EQ(focus(), &other);
    EXPECT_EQ(checks, 1);
}

TEST_F(Form, AButtonThatDestroysItselfOnThePressMayDoSo)
{
    QPointer<QPushButton> gone = new QPushButton(&window);
    window.layout()->addWidget(gone);
    gone->show();
    QTest::qWait(0);
    QObject::connect(gone, &QPushButton::pressed, gone, [&] { gone->deleteLater(); });
    field.setText("good");
    whileChecking = [this] { widgets::sendFocusTo(&other); };
    press(*gone);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QTest::qWaitFor([&] { return gone.isNull(); }));
    EXPECT_EQ(focus(), &other);
}

TEST_F(Form, ABadFieldStopsTheButtonWhereverItsCheckSentTheFocus)
{
    whileChecking = [this] { widgets::sendFocusTo(&other); };
    click(button);
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(focus(), &other);
}

TEST_F(Form, AClickOnAnotherFieldEndsWhereTheCheckSentTheFocus)
{
    field.setText("good");
    whileChecking = [this] { widgets::sendFocusTo(&box); };
    click(other);
    EXPECT_EQ(focus(), &box);
    EXPECT_EQ(checks, 1);
    field.setFocus();
    other.setFocus();
    EXPECT_EQ(focus(), &box);
    EXPECT_EQ(checks, 2);
}

TEST_F(Form, ABadFieldMaySendTheFocusToTheVeryOneThatCodeGaveItTo)
{
    whileChecking = [this] { widgets::sendFocusTo(&other); };
    other.setFocus();
    EXPECT_EQ(focus(), &other);
    EXPECT_EQ(checks, 1);
}

TEST_F(Form, TheFocusIsNotSentToWhatCannotTakeIt)
{
    field.setText("good");
    box.hide();
    button.setEnabled(false);
    whileChecking = [this] {
        widgets::sendFocusTo(&box);
        widgets::sendFocusTo(&button);
        widgets::sendFocusTo(nullptr);
    };
    key(Qt::Key_Tab);
    EXPECT_EQ(focus(), &other);
}

TEST_F(Form, ACheckKnowsThatItIsLeftBackwards)
{
    field.setText("good");
    std::vector<bool> backwards;
    whileChecking = [&] { backwards.push_back(widgets::isLeavingBackwards()); };
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    field.setFocus();
    key(Qt::Key_Tab, Qt::ShiftModifier);
    field.setFocus();
    key(Qt::Key_Tab);
    field.setFocus();
    click(other);
    field.setFocus();
    other.setFocus(Qt::BacktabFocusReason);
    EXPECT_EQ(backwards, (std::vector{true, true, false, false, true}));
}

TEST_F(Form, AFieldThatIsHiddenOrDisabledByCodeIsNotChecked)
{
    field.hide();
    EXPECT_EQ(checks, 0);
    EXPECT_NE(focus(), &field);
    field.show();
    field.setFocus();
    field.setEnabled(false);
    EXPECT_EQ(checks, 0);
    EXPECT_NE(focus(), &field);
}

TEST_F(Form, TheCheckGoesWithItsField)
{
    auto* const passing = new QLineEdit("x", &window);
    passing->show();
    widgets::checkOnLeaving(passing, [this] { return ++checks < 0; });
    field.clear();
    passing->setFocus();
    checks = 0;
    delete passing;
    EXPECT_EQ(checks, 0);
    other.setFocus();
    EXPECT_EQ(focus(), &other);
}

TEST_F(Form, AnEditableComboBoxIsAFieldAsAnyOther)
{
    list.setEditable(true);
    list.setFocus();
    field.clear();
    list.setEditText("odd");
    int listChecks = 0;
    widgets::checkOnLeaving(&list, [&] {
        ++listChecks;
        return list.currentText() != "odd";
    });
    field.clear();
    list.setFocus();
    key(Qt::Key_Tab);
    EXPECT_EQ(focus(), &list);
    EXPECT_EQ(listChecks, 1);
    list.setEditText("even");
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), &box);
    EXPECT_EQ(listChecks, 2);
}
