#include "widgets/inputHold.h"

#include <QEvent>
#include <QGuiApplication>

namespace widgets {

namespace {

int holds = 0;
bool throwingAway = false;

// The windows are painted and the rest of the toolkit's work goes on.
void throwAwayInput()
{
    if (qGuiApp == nullptr)
        return;
    throwingAway = true;
    QGuiApplication::sync(); // what the window system has sent by now is here
    QCoreApplication::processEvents();
    throwingAway = false;
}

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::Close: // by the frame
        return true;
    default:
        return false;
    }
}

} // namespace

InputHold::InputHold()
{
    ++holds;
}

InputHold::~InputHold()
{
    if (--holds == 0)
        throwAwayInput();
}

// A shortcut is made of a key by the toolkit itself; all else comes from the window system to a window.
bool isThrownAway(const QObject* receiver, const QEvent& event)
{
    if (!throwingAway)
        return false;
    return event.type() == QEvent::Shortcut ||
           (receiver->isWindowType() && event.spontaneous() && isInput(event.type()));
}

} // namespace widgets
