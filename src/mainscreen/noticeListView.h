#pragma once

#include <QTableView>

namespace mainscreen {

// The grid of the list: whole rows, read-only. Enter and a double click anywhere below the heads open the
// current row; Ctrl+C copies the selected rows as text parted by tabs, Ctrl+Shift+C with the heads. The
// arrows to the left and right scroll, for there is no current cell in a row.
class NoticeListView : public QTableView
{
    Q_OBJECT
public:
    explicit NoticeListView(QWidget* parent = nullptr);

    // Widths that fit heads and contents; done once, when there is content for the first time. The operator's
    // own widths stay from then on.
    void sizeColumnsOnce();
    // -1 for none.
    [[nodiscard]] int currentRow() const;
    // Current, selected and in sight. The horizontal place stays.
    void setCurrentRow(int row);

    // Only vertically: the rest of a row is where the operator has left it.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

signals:
    void opened();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;

private:
    void addCopyAction(const QString& text, const QKeySequence& keys, bool withHeads);
    void copySelection(bool withHeads) const;
    void setRowHeight();
    [[nodiscard]] int contentWidth(int column) const;

    bool m_sized = false;
};

} // namespace mainscreen
