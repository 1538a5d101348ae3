#include "play/listRows.h"

#include "play/controls.h"

#include <QHeaderView>

namespace play {

namespace {

QPoint placeInEmptyPart(const QTableView& list)
{
    const auto area = list.viewport()->rect();
    const int belowRows = list.verticalHeader()->length() - list.verticalHeader()->offset();
    const int besideColumns = list.horizontalHeader()->length() - list.horizontalHeader()->offset();
    if (belowRows < area.height() - 1)
        return {area.width() / 2, (belowRows + area.height()) / 2};
    if (besideColumns < area.width() - 1)
        return {(besideColumns + area.width()) / 2, area.height() / 2};
    throw Refusal("the list has no empty part");
}

// A value with a line end or a tab would look like two.
std::string printed(const QVariant& value)
{
    auto text = value.toString();
    text.replace(u'\r', QLatin1String("\\r"));
    text.replace(u'\n', QLatin1String("\\n"));
    text.replace(u'\t', QLatin1String("\\t"));
    return text.toStdString();
}

template <class ValueAt>
std::string lineOf(int columns, ValueAt valueAt)
{
    std::string line;
    for (int column = 0; column < columns; ++column)
        line += (column == 0 ? "" : "\t") + printed(valueAt(column));
    return line;
}

} // namespace

QTableView& listOf(const Stage& stage)
{
    auto* const list = qobject_cast<QTableView*>(&stage.control(listName));
    if (list == nullptr || list->model() == nullptr)
        throw Refusal(std::string(listName) + " is no list");
    return *list;
}

QPoint placeOfRow(QTableView& list, int row)
{
    const auto index = list.model()->index(row, 0);
    if (!index.isValid()) {
        list.scrollToBottom();
        return placeInEmptyPart(list);
    }
    list.scrollTo(index);
    return list.visualRect(index).intersected(list.viewport()->rect()).center();
}

void printRows(const Stage& stage)
{
    const auto& model = *listOf(stage).model();
    const int columns = model.columnCount();
    stage.transcript.line(
        lineOf(columns, [&](int column) { return model.headerData(column, Qt::Horizontal); }));
    for (int row = 0; row < model.rowCount(); ++row)
        stage.transcript.line(lineOf(columns, [&](int column) { return model.index(row, column).data(); }));
}

} // namespace play
