#include "widgets/leaveGate.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QHash>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>

namespace widgets {

namespace {

QHash<QWidget*, LeaveCheck>& checks()
{
    static QHash<QWidget*, LeaveCheck> all;
    return all;
}

// What the check that runs was told, and what it did.
struct RunningCheck
{
    bool backwards = false;
    bool sentFocus = false;
};

RunningCheck& runningCheck()
{
    static RunningCheck running;
    return running;
}

bool takesClickFocus(const QWidget* widget, QEvent::Type type)
{
    const auto wanted = type == QEvent::Wheel ? Qt::WheelFocus : Qt::ClickFocus;
    return widget->isEnabled() && (widget->focusPolicy() & wanted) == wanted;
}

// The widget that a press (or the turn of a wheel) on another gives the focus to, as the toolkit looks for
// it; null when the focus stays where it is.
QWidget* newFocusOf(QWidget* pressed, const QWidget* field, QEvent::Type type)
{
    for (auto* widget = pressed; widget != nullptr; widget = widget->parentWidget()) {
        auto* target = widget;
        while (target->focusProxy() != nullptr)
            target = target->focusProxy();
        if (target == field)
            return nullptr;
        if (takesClickFocus(widget, type) && takesClickFocus(target, type))
            return target;
        if (widget->isWindow())
            break;
    }
    return nullptr;
}

bool tabLeaves(const QWidget* field, const QKeyEvent& key)
{
    if ((key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != Qt::NoModifier)
        return false;
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(field))
        return text->tabChangesFocus() || text->isReadOnly();
    return true;
}

bool hasDefaultButton(const QWidget* window)
{
    const auto buttons = window->findChildren<QPushButton*>();
    return std::any_of(buttons.begin(), buttons.end(),
                       [](const QPushButton* button) { return button->isDefault() && button->isVisible(); });
}

bool keyLeaves(const QWidget* field, const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return tabLeaves(field, key);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return hasDefaultButton(field->window());
    default:
        return false;
    }
}

QWidget* checkedFocusOf(const QWidget* window)
{
    auto* const focus = window != nullptr ? window->focusWidget() : nullptr;
    const bool isChecked = focus != nullptr && focus->isVisible() && focus->isEnabled();
    return isChecked && checks().contains(focus) ? focus : nullptr;
}

QWidget* leftByPress(QWidget* pressed, QEvent::Type type)
{
    // Asked of the window, not of the application: the press may come before the window is active again.
    auto* const field = pressed != nullptr ? checkedFocusOf(pressed->window()) : nullptr;
    return field != nullptr && newFocusOf(pressed, field, type) != nullptr ? field : nullptr;
}

QWidget* leftByKey(QWidget* field, const QKeyEvent& key)
{
    return field != nullptr && checks().contains(field) && keyLeaves(field, key) ? field : nullptr;
}

// The checked field that the event is going to leave; null for none.
QWidget* leftBy(QObject* receiver, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
        return leftByPress(qobject_cast<QWidget*>(receiver), event->type());
    case QEvent::KeyPress:
        return leftByKey(qobject_cast<QWidget*>(receiver), *static_cast<const QKeyEvent*>(event));
    case QEvent::Shortcut: // an access key too
        return checkedFocusOf(QApplication::activeWindow());
    default:
        return nullptr;
    }
}

bool isBacktab(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Backtab ||
           (key.key() == Qt::Key_Tab && key.modifiers().testFlag(Qt::ShiftModifier));
}

// The click or the access key of a button.
bool isPressOfButton(const QObject* receiver, QEvent::Type type)
{
    return qobject_cast<const QAbstractButton*>(receiver) != nullptr &&
           (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
            type == QEvent::Shortcut);
}

void selectText(QWidget* field)
{
    if (auto* const line = qobject_cast<QLineEdit*>(field))
        line->selectAll();
    else if (auto* const box = qobject_cast<QComboBox*>(field); box != nullptr && box->isEditable())
        box->lineEdit()->selectAll();
}

bool isLeaving(Qt::FocusReason reason)
{
    return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
           reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason ||
           reason == Qt::OtherFocusReason;
}

} // namespace

void checkOnLeaving(QWidget* field, const LeaveCheck& check)
{
    if (!checks().contains(field))
        QObject::connect(field, &QObject::destroyed, [field] { checks().remove(field); });
    checks().insert(field, check);
}

void sendFocusTo(QWidget* control, Qt::FocusReason reason)
{
    if (control == nullptr || !control->isVisible() || !control->isEnabled())
        return;
    runningCheck().sentFocus = true;
    control->setFocus(reason);
    selectText(control);
}

bool isLeavingBackwards()
{
    return runningCheck().backwards;
}

bool LeaveGate::mayLeave(QWidget* field, bool backwards)
{
    const QPointer<QWidget> alive = field;
    const auto check = checks().value(field); // a copy: it may be replaced while it runs
    runningCheck() = {backwards, false};
    m_checking = true;
    const bool passed = check();
    m_checking = false;
    if (!passed && alive)
        selectText(field);
    return passed;
}

LeaveGate::Passage LeaveGate::ask(QObject* receiver, QEvent* event)
{
    if (m_checking)
        return Passage::Free; // the box of the check has its keys and clicks
    const QPointer<QWidget> field = leftBy(receiver, event);
    if (!field)
        return Passage::Free;
    const QPointer<QObject> stillThere = receiver;
    const bool passed = mayLeave(field, isBacktab(*event));
    return stillThere ? passageTo(receiver, *event, field, passed) : Passage::Stopped;
}

LeaveGate::Passage LeaveGate::passageTo(QObject* receiver, const QEvent& event, QWidget* field, bool passed)
{
    if (!passed || field == nullptr)
        return Passage::Stopped;
    if (field->window()->focusWidget() == field) {
        m_granted.emplace_back(field);
        return Passage::Granted;
    }
    if (qobject_cast<const QShortcut*>(receiver) != nullptr)
        return Passage::Free;
    if (!isPressOfButton(receiver, event.type()))
        return Passage::Stopped;
    auto* const button = static_cast<QWidget*>(receiver);
    m_pressed.push_back({button, button->focusPolicy()});
    button->setFocusPolicy(Qt::NoFocus);
    return Passage::Pressed;
}

// The focus is elsewhere already: it comes back before anything else happens.
void LeaveGate::leftByCode(QWidget* field, Qt::FocusReason reason)
{
    const QPointer<QWidget> alive = field;
    auto* const target = field->window()->focusWidget();
    const bool passed = mayLeave(field, reason == Qt::BacktabFocusReason);
    if (passed || runningCheck().sentFocus || !alive || field->window()->focusWidget() != target)
        return;
    m_checking = true; // the one that loses it again is not asked
    field->setFocus(Qt::OtherFocusReason);
    m_checking = false;
}

void LeaveGate::release(Passage passage)
{
    if (passage == Passage::Granted)
        m_granted.pop_back();
    if (passage != Passage::Pressed)
        return;
    const auto press = m_pressed.back();
    m_pressed.pop_back();
    if (press.button)
        press.button->setFocusPolicy(press.policy);
}

void LeaveGate::delivered(Passage passage, QObject* receiver, const QEvent& event)
{
    release(passage);
    if (event.type() != QEvent::FocusOut || m_checking)
        return;
    auto* const field = qobject_cast<QWidget*>(receiver);
    const bool granted = std::find(m_granted.begin(), m_granted.end(), field) != m_granted.end();
    const auto reason = static_cast<const QFocusEvent&>(event).reason();
    if (field == nullptr || granted || !checks().contains(field) || !field->isVisible() ||
        !field->isEnabled() || !isLeaving(reason))
        return;
    auto* const target = QApplication::focusWidget();
    if (target != nullptr && target != field && target->window() == field->window())
        leftByCode(field, reason);
}

} // namespace widgets
