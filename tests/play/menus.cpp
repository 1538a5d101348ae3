#include "play/menus.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace play {

namespace {

QMenuBar& menuBarOf(QWidget& window)
{
    auto* const bar = window.findChild<QMenuBar*>();
    if (bar == nullptr || bar->window() != &window)
        throw Refusal("no menu bar");
    return *bar;
}

std::string nameOf(const QAction& action)
{
    const bool isNamed = !action.objectName().isEmpty() || action.menu() == nullptr;
    return (isNamed ? action.objectName() : action.menu()->objectName()).toStdString();
}

// From the bar down to the item; empty when there is none.
QList<QAction*> wayTo(const std::string& name, const QList<QAction*>& actions)
{
    for (auto* const action : actions) {
        if (nameOf(*action) == name)
            return {action};
        const auto rest =
            action->menu() != nullptr ? wayTo(name, action->menu()->actions()) : QList<QAction*>();
        if (!rest.isEmpty())
            return QList<QAction*>{action} + rest;
    }
    return {};
}

void printItems(Transcript& transcript, const QList<QAction*>& actions)
{
    for (const auto* const action : actions) {
        if (action->isSeparator())
            continue;
        const auto shortcut = action->shortcut().toString(QKeySequence::PortableText).toStdString();
        transcript.line(nameOf(*action) + ' ' + quoted(action->text()) + ' ' +
                        (shortcut.empty() ? "-" : shortcut) + (action->isEnabled() ? "" : " disabled") +
                        (action->isChecked() ? " checked" : ""));
        if (action->menu() != nullptr)
            printItems(transcript, action->menu()->actions());
    }
}

// Opens the menus on the way below the bar and leaves the item current in the last one, which it returns.
QMenu& openMenus(const QList<QAction*>& way)
{
    QMenu* menu = way.front()->menu();
    for (auto* const action : way.mid(1)) {
        if (menu == nullptr || !menu->isVisible())
            throw Refusal("menu " + nameOf(*way.back()) + " does not open");
        menu->setActiveAction(action);
        if (action != way.back())
            menu = action->menu();
    }
    return *menu;
}

} // namespace

void triggerMenuItem(Stage& stage, const std::string& name)
{
    auto& bar = menuBarOf(stage.window());
    const auto way = wayTo(name, bar.actions());
    if (way.isEmpty())
        throw Refusal("no menu " + name);
    const bool isEnabled =
        std::all_of(way.begin(), way.end(), [](const QAction* a) { return a->isEnabled(); });
    if (!isEnabled)
        throw Refusal("menu " + name + " is disabled");
    OperatorHands hands(stage);
    if (hands.click(bar, bar.actionGeometry(way.front()).center()) && way.size() > 1)
        hands.press(openMenus(way), {Qt::Key_Return, {}, QStringLiteral("\r")});
}

void printMenus(const Stage& stage)
{
    printItems(stage.transcript, menuBarOf(stage.window()).actions());
}

} // namespace play
