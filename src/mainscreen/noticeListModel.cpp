#include "mainscreen/noticeListModel.h"

#include "dao/columnTypes.h"

namespace mainscreen {

namespace {

QString shownText(dao::Value&& value)
{
    return value.isNull() ? QString() : QString::fromStdString(std::move(value).text());
}

int alignmentOf(dao::DataType type)
{
    const auto side = dao::holdsNumbers(type) ? Qt::AlignRight : Qt::AlignLeft;
    return static_cast<int>(side | Qt::AlignVCenter);
}

} // namespace

void NoticeListModel::setRows(std::shared_ptr<const dao::RowSnapshot> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

int NoticeListModel::rowCount(const QModelIndex& parent) const
{
    return m_rows && !parent.isValid() ? static_cast<int>(m_rows->rowCount()) : 0;
}

int NoticeListModel::columnCount(const QModelIndex& parent) const
{
    return m_rows && !parent.isValid() ? static_cast<int>(m_rows->columnCount()) : 0;
}

QVariant NoticeListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto column = static_cast<std::size_t>(index.column());
    if (role == Qt::DisplayRole)
        return shownText(m_rows->value(static_cast<std::size_t>(index.row()), column));
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(m_rows->fieldType(column));
    return {};
}

QVariant NoticeListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const auto column = static_cast<std::size_t>(section);
    if (role == Qt::DisplayRole)
        return QString::fromStdString(m_rows->fieldName(column));
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(m_rows->fieldType(column));
    return {};
}

} // namespace mainscreen
