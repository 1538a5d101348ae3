#pragma once

#include <QHash>
#include <QString>

class QAction;
class QMenuBar;

namespace mainscreen {

// The menu tree of the main screen under the fixed names of its items. A menu's own action carries its name.
class MainMenu
{
public:
    // The bar must outlive the menu.
    explicit MainMenu(QMenuBar& bar);

    // The item must be there.
    [[nodiscard]] QAction* item(const char* name) const;
    void setEnabled(const char* name, bool enabled) const;

private:
    QHash<QString, QAction*> m_items;
};

} // namespace mainscreen
