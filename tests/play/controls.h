#pragma once

#include <QList>
#include <QString>
#include <QWidget>

#include <string>

// The named controls of a window, and the words that describe them.
namespace play {

// In the order of their names by character code.
[[nodiscard]] QList<QWidget*> namedControls(const QWidget& window);

// Null for none. The name of an array without an index is its element that holds the value: the selected one,
// otherwise the one in sight.
[[nodiscard]] QWidget* findControl(const QWidget& window, const std::string& name);

// The name of the control that a widget is, or is part of; empty for none.
[[nodiscard]] std::string controlNameOf(const QWidget* widget);

// Combo box: its edit text; list: its current line; grid: the first column of its current row; otherwise the
// text or caption. Lines of a text end with CR LF.
[[nodiscard]] QString textOf(const QWidget& control);

// Whether its text can't be changed.
[[nodiscard]] bool isLocked(const QWidget& control);

// NAME KIND "TEXT" and the words that hold.
[[nodiscard]] std::string described(const QWidget& control);

// The controls that Tab visits, in order.
[[nodiscard]] QList<QWidget*> tabStops(QWidget& window);

} // namespace play
