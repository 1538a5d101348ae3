#include "play/operatorHands.h"

#include "play/controls.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QRadioButton>
#include <QScrollArea>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <QWindow>

namespace play {

namespace {

constexpr int stepOfClock = 10;
constexpr int longerThanDoubleClick = 2000;

// The clock of mouse events, in milliseconds: only what shall be a double click comes fast enough for one.
int mouseClock = 0;

QWindow& handleOf(const QWidget& widget)
{
    auto* const handle = widget.window()->windowHandle();
    if (handle == nullptr)
        throw Refusal("the window is not on the screen");
    return *handle;
}

// A pop-up that is open takes the keyboard from the window beneath.
const QWidget& keyboardOwner(const QWidget& window)
{
    const auto* const popUp = QApplication::activePopupWidget();
    return popUp != nullptr ? *popUp : window;
}

void sendKey(const QWidget& window, QEvent::Type type, const Key& key)
{
    qt_handleKeyEvent(&handleOf(keyboardOwner(window)), type, key.code, key.modifiers, key.text);
}

void sendMouse(QWindow& window, QPointF local, QEvent::Type type)
{
    const auto buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    mouseClock += stepOfClock;
    qt_handleMouseEvent(&window, local, window.mapToGlobal(local), buttons, Qt::LeftButton, type,
                        Qt::NoModifier, mouseClock);
}

QPoint aimAt(const QAbstractButton& button, QStyle::SubElement indicator)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    return button.style()->subElementRect(indicator, &option, &button).center();
}

QPoint aimAt(const QWidget& control)
{
    if (const auto* const box = qobject_cast<const QCheckBox*>(&control))
        return aimAt(*box, QStyle::SE_CheckBoxIndicator);
    if (const auto* const option = qobject_cast<const QRadioButton*>(&control))
        return aimAt(*option, QStyle::SE_RadioButtonIndicator);
    return control.rect().center();
}

void scrollIntoSight(QWidget& control)
{
    for (auto* parent = control.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto* const area = qobject_cast<QScrollArea*>(parent))
            area->ensureWidgetVisible(&control);
    }
}

bool isReachable(const QWidget& control, QPoint position)
{
    auto* const window = control.window();
    const auto* const hit = window->childAt(control.mapTo(window, position));
    return hit != nullptr && (hit == &control || control.isAncestorOf(hit));
}

bool isWithin(const QWidget* widget, const QWidget& control)
{
    return widget != nullptr &&
           (widget == &control || widget == control.focusProxy() || control.isAncestorOf(widget));
}

bool isOpenedBy(const QWidget* popUp, const QWidget& control)
{
    while (popUp != nullptr && popUp != &control)
        popUp = popUp->parentWidget();
    return popUp != nullptr;
}

// An operator gets to another control only when the pop-up of this one is out of the way.
void closePopUpsOfOthers(const QWidget& control)
{
    auto* popUp = QApplication::activePopupWidget();
    while (popUp != nullptr && !isOpenedBy(popUp, control) && popUp->close())
        popUp = QApplication::activePopupWidget();
}

} // namespace

OperatorHands::OperatorHands(Stage& stage) : m_stage(stage), m_openings(stage.windows.openings()) {}

bool OperatorHands::pressButton(QWidget& widget, QPoint position)
{
    const QPointer<QWindow> handle = &handleOf(widget);
    const QPointF local = widget.mapTo(widget.window(), position);
    m_stage.heldButton = [handle, local] {
        if (!handle.isNull())
            sendMouse(*handle, local, QEvent::MouseButtonRelease);
    };
    sendMouse(*handle, local, QEvent::MouseButtonPress);
    return areFree();
}

bool OperatorHands::letGo(QWidget& widget, QPoint position)
{
    m_stage.heldButton = nullptr;
    // What closes on the press is not there for the release.
    if (widget.window()->isVisible())
        sendMouse(handleOf(widget), widget.mapTo(widget.window(), position), QEvent::MouseButtonRelease);
    return areFree();
}

bool OperatorHands::click(QWidget& widget, QPoint position)
{
    mouseClock += longerThanDoubleClick;
    const QPointer<QWidget> alive = &widget;
    return pressButton(widget, position) && !alive.isNull() && letGo(widget, position);
}

bool OperatorHands::clickControl(QWidget& control)
{
    scrollIntoSight(control);
    const auto position = aimAt(control);
    if (!isReachable(control, position))
        throw Refusal(controlNameOf(&control) + " is covered");
    return click(control, position);
}

bool OperatorHands::doubleClick(QWidget& widget, QPoint position)
{
    const QPointer<QWidget> alive = &widget;
    return click(widget, position) && !alive.isNull() && pressButton(widget, position) && !alive.isNull() &&
           letGo(widget, position);
}

bool OperatorHands::press(QWidget& window, const Key& key) const
{
    const QPointer<QWidget> alive = &window;
    sendKey(window, QEvent::KeyPress, key);
    if (!alive.isNull() && areFree())
        sendKey(window, QEvent::KeyRelease, key);
    return !alive.isNull() && areFree();
}

bool OperatorHands::focus(QWidget& control) const
{
    const QPointer<QWidget> alive = &control;
    closePopUpsOfOthers(control);
    control.setFocus(Qt::OtherFocusReason);
    return areFree() && !alive.isNull() && isWithin(control.window()->focusWidget(), control);
}

} // namespace play
