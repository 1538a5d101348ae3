#pragma once

#include "mainscreen/qtHost.h"
#include "x11/realInput.h"

#include <QAbstractButton>
#include <QMessageBox>

#include <functional>
#include <string>
#include <vector>

// The program's own host and its boxes, with a list of what they said, and with a file at hand where a file
// dialog would ask for one.
class WatchedHost : public mainscreen::QtHost
{
public:
    platform::Answer msgBox(const std::string& text, platform::Buttons buttons, platform::Icon icon,
                            const std::string& title) override
    {
        told.push_back(text);
        return QtHost::msgBox(text, buttons, icon, title);
    }
    std::optional<std::string> openFile(const platform::FileChoice&) override { return fileToOpen; }
    void setPointer(int pointer) override
    {
        QtHost::setPointer(pointer);
        if (onPointer)
            onPointer(pointer);
    }

    std::vector<std::string> told;
    std::string fileToOpen;
    std::function<void(int pointer)> onPointer; // empty: none
};

// The operator before a box.
namespace x11 {

inline QMessageBox* boxOnScreen()
{
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

inline const QMessageBox& awaitBox()
{
    await("a box comes up", [] { return boxOnScreen() != nullptr; });
    const auto* const box = ask(boxOnScreen);
    awaitActive(*box);
    return *box;
}

inline void awaitNoBox()
{
    await("the box is gone", [] { return boxOnScreen() == nullptr; });
}

// Each way of answering a box that has one button.
enum class Answering
{
    Click,
    Enter,
    Escape
};

inline void answer(const QMessageBox& box, Answering how)
{
    if (how == Answering::Click)
        click(*ask([&box] { return box.button(QMessageBox::Ok); }));
    else
        press({how == Answering::Enter ? "Return" : "Escape"});
    awaitNoBox();
}

} // namespace x11
