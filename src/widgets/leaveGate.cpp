#include "widgets/leaveGate.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QHash>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <algorithm>

namespace widgets {

namespace {

QHash<QWidget*, LeaveCheck>& checks()
{
    static QHash<QWidget*, LeaveCheck> all;
    return all;
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
    return focus != nullptr && checks().contains(focus) ? focus : nullptr;
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

bool LeaveGate::mayLeave(QWidget* field)
{
    const QPointer<QWidget> alive = field;
    const auto check = checks().value(field); // a copy: it may be replaced while it runs
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
    const bool passed = mayLeave(field);
    if (!passed || !field || !stillThere || field->window()->focusWidget() != field)
        return Passage::Stopped;
    m_granted.push_back(field);
    return Passage::Granted;
}

// The focus is elsewhere already: it comes back before anything else happens.
void LeaveGate::leftByCode(QWidget* field)
{
    const QPointer<QWidget> alive = field;
    auto* const target = field->window()->focusWidget();
    if (mayLeave(field) || !alive || field->window()->focusWidget() != target)
        return;
    m_checking = true; // the one that loses it again is not asked
    field->setFocus(Qt::OtherFocusReason);
    m_checking = false;
}

void LeaveGate::delivered(Passage passage, QObject* receiver, const QEvent& event)
{
    if (passage == Passage::Granted)
        m_granted.pop_back();
    if (event.type() != QEvent::FocusOut || m_checking)
        return;
    auto* const field = qobject_cast<QWidget*>(receiver);
    const bool granted = std::find(m_granted.begin(), m_granted.end(), field) != m_granted.end();
    if (field == nullptr || granted || !checks().contains(field) || !field->isVisible() ||
        !isLeaving(static_cast<const QFocusEvent&>(event).reason()))
        return;
    auto* const target = QApplication::focusWidget();
    if (target != nullptr && target != field && target->window() == field->window())
        leftByCode(field);
}

} // namespace widgets
