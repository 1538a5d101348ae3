#include "play/stage.h"

#include "play/controls.h"

#include <QApplication>

namespace play {

Stage::Stage(Transcript& whereTo) : transcript(whereTo), windows(whereTo)
{
    windows.onOpening = [this] { copyFault.over(); };
    windows.onClosed = [this](const std::string& name) {
        if (name == "RcvDate")
            copyFault.copyIsNext();
        if (name == namedWindow && windows.named(name) == nullptr)
            namedWindow.clear();
    };
}

QWidget* Stage::activeWindow() const
{
    if (auto* const modal = QApplication::activeModalWidget())
        return modal;
    if (auto* const modeless = namedWindow.empty() ? nullptr : windows.named(namedWindow))
        return modeless;
    return mainWindow && mainWindow->isVisible() ? mainWindow.data() : nullptr;
}

QWidget& Stage::window() const
{
    auto* const active = activeWindow();
    if (active == nullptr)
        throw Refusal("no window is open");
    return *active;
}

QWidget& Stage::control(const std::string& name) const
{
    auto* const found = findControl(window(), name);
    if (found == nullptr)
        throw Refusal("no control " + name);
    return *found;
}

QWidget& Stage::workableControl(const std::string& name) const
{
    auto& found = control(name);
    requireWorkable(found, name);
    return found;
}

void requireWorkable(const QWidget& control, const std::string& name)
{
    if (!control.isVisibleTo(control.window()))
        throw Refusal(name + " is hidden");
    if (!control.isEnabled())
        throw Refusal(name + " is disabled");
}

} // namespace play
