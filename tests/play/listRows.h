#pragma once

#include "play/stage.h"

#include <QPoint>
#include <QTableView>

namespace play {

inline constexpr const char* listName = "DBGridView";

// The list of the active window; refuses when it has none.
[[nodiscard]] QTableView& listOf(const Stage& stage);

// Where to click in the viewport for a row, which is brought into sight. For a row that is not there: in the
// empty part below or beside the rows; refuses when the rows leave none.
[[nodiscard]] QPoint placeOfRow(QTableView& list, int row);

// A line of heads and one for each row, values parted by tabs.
void printRows(const Stage& stage);

} // namespace play
