#include "mainscreen/mainMenu.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace mainscreen {

namespace {

enum class Kind : std::uint8_t
{
    Menu,
    Item,
    Choice, // carries a check mark
};

struct Row
{
    const char* name;
    const char* caption;
    const char* shortcut;
    const char* parent; // null: on the bar
    Kind kind;
    bool enabled;
};

// clang-format off
constexpr std::array<Row, 22> rows{{
    {"mnuFile",           "File",                           nullptr,  nullptr,       Kind::Menu,   true},
    {"mnuOpenMDB",        "Open&MDB",                       "Ctrl+M", "mnuFile",     Kind::Item,   true},
    {"mnuOpenTxt",        "&OpenTxt",                       "Ctrl+T", "mnuFile",     Kind::Item,   true},
    {"mnuClose",          "&Close",                         nullptr,  "mnuFile",     Kind::Item,   true},
    {"mnuNtc",            "Notice",                         nullptr,  nullptr,       Kind::Menu,   false},
    {"mnuFind",           "&Find",                          nullptr,  "mnuNtc",      Kind::Menu,   true},
    {"mnuSuppress",       "Sitename for Suppress/Withdraw", nullptr,  "mnuFind",     Kind::Menu,   true},
    {"mnuOneSuppress",    "One notice ",                    nullptr,  "mnuSuppress", Kind::Item,   true},
    {"mnuAllSuppress",    "All notices",                    nullptr,  "mnuSuppress", Kind::Item,   true},
    {"mnuDB",             "Database",                       nullptr,  nullptr,       Kind::Menu,   false},
    {"mnuLink",           "&Link",                          "Ctrl+L", "mnuDB",       Kind::Item,   true},
    {"mnuTrgIndex",       "&Index",                         nullptr,  "mnuDB",       Kind::Menu,   false},
    {"mnuTrgIndexInfo",   "Info",                           nullptr,  "mnuTrgIndex", Kind::Item,   true},
    {"mnuTrgIndexCreate", "Create",                         nullptr,  "mnuTrgIndex", Kind::Item,   true},
    {"mnuTrgIndexDelete", "Delete",                         nullptr,  "mnuTrgIndex", Kind::Item,   true},
    {"mnuTools",          "Tools",                          nullptr,  nullptr,       Kind::Menu,   false},
    {"mnuSort",           "Sort Order",                     nullptr,  "mnuTools",    Kind::Menu,   true},
    {"mnuSortIndex",      "by Index",                       nullptr,  "mnuSort",     Kind::Choice, true},
    {"mnuSortAdmFreq",    "by Adm/Freq",                    nullptr,  "mnuSort",     Kind::Choice, true},
    {"mnuFilter",         "&Filter",                        "Ctrl+F", "mnuTools",    Kind::Item,   true},
    {"mnuAbout",          "&About",                         nullptr,  nullptr,       Kind::Item,   true},
    {"mnuFileExit",       "Exit",                           nullptr,  nullptr,       Kind::Item,   true},
}};
// clang-format on

QAction* addRow(const Row& row, QWidget& parent)
{
    auto* const action = new QAction(QString::fromUtf8(row.caption), &parent);
    action->setObjectName(QString::fromUtf8(row.name));
    action->setMenuRole(QAction::NoRole); // no host moves an item elsewhere by what its caption means
    if (row.kind == Kind::Menu) {
        auto* const menu = new QMenu(&parent);
        menu->setObjectName(QString::fromUtf8(row.name));
        action->setMenu(menu);
    }
    action->setCheckable(row.kind == Kind::Choice);
    if (row.shortcut != nullptr)
        action->setShortcut(QKeySequence(QString::fromUtf8(row.shortcut)));
    action->setEnabled(row.enabled);
    parent.addAction(action);
    return action;
}

} // namespace

MainMenu::MainMenu(QMenuBar& bar)
{
    for (const auto& row : rows) {
        QWidget& parent = row.parent == nullptr ? static_cast<QWidget&>(bar) : *item(row.parent)->menu();
        m_items.insert(QString::fromUtf8(row.name), addRow(row, parent));
    }
    item("mnuSortIndex")->setChecked(true);
}

QAction* MainMenu::item(const char* name) const
{
    auto* const found = m_items.value(QString::fromUtf8(name));
    Q_ASSERT(found != nullptr);
    return found;
}

void MainMenu::setEnabled(const char* name, bool enabled) const
{
    item(name)->setEnabled(enabled);
}

} // namespace mainscreen
