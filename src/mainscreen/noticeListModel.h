#pragma once

#include "dao/dao.h"

#include <QAbstractTableModel>

#include <memory>

namespace mainscreen {

// The rows of the list for a view, as the data source read them. Numbers stand unpadded, Null as nothing;
// heads are the names of the columns.
class NoticeListModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setRows(std::shared_ptr<const dao::RowSnapshot> rows);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

private:
    std::shared_ptr<const dao::RowSnapshot> m_rows;
};

} // namespace mainscreen
