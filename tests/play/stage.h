#pragma once

#include "play/copyFault.h"
#include "play/transcript.h"
#include "play/windows.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <string>

namespace mainscreen {
class OpenScreen;
} // namespace mainscreen

namespace play {

// What the commands of a script act on.
struct Stage
{
    explicit Stage(Transcript& whereTo);

    // The topmost modal window, otherwise the modeless one that was named, otherwise the main screen; null
    // when none is there.
    [[nodiscard]] QWidget* activeWindow() const;
    // The same; refuses when there is none.
    [[nodiscard]] QWidget& window() const;
    // A control of the active window; refuses when there is none.
    [[nodiscard]] QWidget& control(const std::string& name) const;
    // The same for one that can be worked: refuses when it is hidden or disabled.
    [[nodiscard]] QWidget& workableControl(const std::string& name) const;

    Transcript& transcript;
    Windows windows;
    CopyFault copyFault;
    bool printFails = false;                  // the next print job
    std::string namedWindow;                  // empty for none, and once it has closed
    QPointer<QWidget> mainWindow;             // null before it is there
    mainscreen::OpenScreen* screen = nullptr; // the same as a session's owner; null in a session without one
    // Windows are being painted in the middle of some work: no command may come between.
    bool isInTheMiddle = false;
    // Lets go of the mouse button that brought up a box. Unset for none.
    std::function<void()> heldButton;
};

// Refuses when the control is hidden or disabled.
void requireWorkable(const QWidget& control, const std::string& name);

} // namespace play
