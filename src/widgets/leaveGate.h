#pragma once

#include <QPointer>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <vector>

class QEvent;

// The check of a field before it is left: by Tab, by a click on something that takes the focus, by an access
// key or a shortcut, by Enter where a default button would act, or by code that moves the focus. While the
// check fails the field keeps the focus, its text is selected, and what was tried does not happen. A message
// box, a pop-up, a menu or another window that takes the focus is no leaving; neither is Escape or the
// window's frame.
namespace widgets {

// True when the field may be left. It has told the operator itself otherwise. It may look at any control and
// change any, the enabled state of the one just clicked included. Where it moves the focus itself, there it
// stays, and what was tried does not happen either, but for a button: one that is clicked while the field may
// be left is pressed all the same, without taking the focus, and so is a QShortcut, which takes none.
using LeaveCheck = std::function<bool()>;

// Replaces the check of the field. The application must be a widgets::Application.
void checkOnLeaving(QWidget* field, const LeaveCheck& check);

// For a check: gives the focus to a control and selects its text. One that is hidden or disabled doesn't get
// it. Qt::NoFocusReason sends it on from a field that turned it away: that one is not checked.
void sendFocusTo(QWidget* control, Qt::FocusReason reason = Qt::OtherFocusReason);
// For a check: whether it was Shift+Tab that wants to leave.
[[nodiscard]] bool isLeavingBackwards();

// The application's part of it.
class LeaveGate
{
public:
    enum class Passage : std::uint8_t
    {
        Free,    // nothing is left by this event
        Granted, // the field may be left
        Pressed, // it may, but the focus was sent elsewhere: the button acts without taking it
        Stopped, // the event must not reach its receiver
    };

    // Before an event is delivered.
    [[nodiscard]] Passage ask(QObject* receiver, QEvent* event);
    // After it was, with what `ask` said of it; null for a receiver that is gone.
    void delivered(Passage passage, QObject* receiver, const QEvent& event);

private:
    // A button that gets a press while it must not take the focus, and the policy to give back to it.
    struct Press
    {
        QPointer<QWidget> button;
        Qt::FocusPolicy policy = Qt::NoFocus;
    };

    bool mayLeave(QWidget* field, bool backwards);
    Passage passageTo(QObject* receiver, const QEvent& event, QWidget* field, bool passed);
    void leftByCode(QWidget* field, Qt::FocusReason reason);
    void release(Passage passage);

    std::vector<QPointer<QWidget>> m_granted; // fields that passed during the events in delivery
    std::vector<Press> m_pressed;             // the same for buttons
    bool m_checking = false;                  // a check is running, or its field gets the focus back
};

} // namespace widgets
