#include "mainscreen/noticeListView.h"

#include "widgets/application.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <vector>

namespace mainscreen {

namespace {

constexpr int rowPadding = 8;      // pixels, above and below the text together
constexpr int measuredRows = 1000; // whose contents decide about the widths of columns

// A selected row needs no frame around the one cell that is current in it.
class RowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->state.testFlag(QStyle::State_Selected))
            option->state &= ~QStyle::State_HasFocus;
    }
};

// Leaves air between columns: a number at the right edge of its column and a text at the left edge of the
// next would read as one word.
class AiryStyle : public QProxyStyle
{
public:
    explicit AiryStyle(QObject* owner) : QProxyStyle(QApplication::style()->name()) { setParent(owner); }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        if (metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin)
            return cellMargin;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

private:
    static constexpr int cellMargin = 6; // pixels
};

struct RowRange
{
    int first, last;
};

// In row order, each row once.
std::vector<RowRange> rangesOf(const QItemSelection& selection)
{
    std::vector<RowRange> all;
    for (const auto& range : selection)
        all.push_back({range.top(), range.bottom()});
    std::sort(all.begin(), all.end(),
              [](const auto& one, const auto& other) { return one.first < other.first; });
    std::vector<RowRange> merged;
    for (const auto& range : all) {
        if (!merged.empty() && range.first <= merged.back().last)
            merged.back().last = std::max(merged.back().last, range.last);
        else
            merged.push_back(range);
    }
    return merged;
}

// A value with a sign that parts values or lines would come apart where it is pasted.
void appendCell(QString& text, QString cell)
{
    for (auto& sign : cell) {
        if (sign == QLatin1Char('\t') || sign == QLatin1Char('\n') || sign == QLatin1Char('\r'))
            sign = QLatin1Char(' ');
    }
    text += cell;
}

template <class CellText>
void appendLine(QString& text, int columns, CellText cellText)
{
    for (int column = 0; column < columns; ++column) {
        if (column > 0)
            text += QLatin1Char('\t');
        appendCell(text, cellText(column));
    }
    text += QLatin1Char('\n');
}

} // namespace

NoticeListView::NoticeListView(QWidget* parent) : QTableView(parent)
{
    setAccessibleName(QStringLiteral("List of notices"));
    auto* const airyStyle = new AiryStyle(this);
    setStyle(airyStyle);
    horizontalHeader()->setStyle(airyStyle);
    setItemDelegate(new RowDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setStretchLastSection(true);
    setRowHeight();
    setContextMenuPolicy(Qt::ActionsContextMenu);
    addCopyAction(tr("&Copy"), Qt::CTRL | Qt::Key_C, false);
    addCopyAction(tr("Copy with &Heads"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, true);
}

void NoticeListView::addCopyAction(const QString& text, const QKeySequence& keys, bool withHeads)
{
    auto* const action = new QAction(text, this);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this,
            widgets::guarded([this, withHeads](bool) { copySelection(withHeads); }));
    addAction(action);
}

void NoticeListView::copySelection(bool withHeads) const
{
    if (selectionModel() == nullptr || !selectionModel()->hasSelection())
        return;
    const auto& rows = *model();
    const int columns = rows.columnCount();
    QString text;
    if (withHeads)
        appendLine(text, columns,
                   [&rows](int column) { return rows.headerData(column, Qt::Horizontal).toString(); });
    for (const auto& [first, last] : rangesOf(selectionModel()->selection())) {
        for (int row = first; row <= last; ++row)
            appendLine(text, columns,
                       [&rows, row](int column) { return rows.index(row, column).data().toString(); });
    }
    text.chop(1);
    QGuiApplication::clipboard()->setText(text);
}

void NoticeListView::setRowHeight()
{
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
}

int NoticeListView::contentWidth(int column) const
{
    const auto metrics = fontMetrics();
    const auto widthIn = [this, column, &metrics](int row) {
        return metrics.horizontalAdvance(model()->index(row, column).data().toString());
    };
    const int last = model()->rowCount() - 1;
    int widest = widthIn(last); // where the keys are the longest
    for (int row = 0; row <= std::min(last, measuredRows - 1); ++row)
        widest = std::max(widest, widthIn(row));
    // A text that just fits is cut short by a rounding of its width.
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    return widest + 2 * margin + metrics.averageCharWidth();
}

void NoticeListView::sizeColumnsOnce()
{
    if (m_sized || model() == nullptr || model()->rowCount() == 0)
        return;
    m_sized = true;
    for (int column = 0; column < model()->columnCount(); ++column) {
        const int head = horizontalHeader()->sectionSizeHint(column);
        setColumnWidth(column, std::max(head, contentWidth(column)));
    }
}

int NoticeListView::currentRow() const
{
    return currentIndex().row();
}

void NoticeListView::setCurrentRow(int row)
{
    if (model() == nullptr || !model()->hasIndex(row, 0))
        return;
    executeDelayedItemsLayout(); // after new rows the ranges of the scroll bars are those of the old ones
    const auto index = model()->index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void NoticeListView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    const int place = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(place);
}

void NoticeListView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        setRowHeight();
}

void NoticeListView::keyPressEvent(QKeyEvent* event)
{
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        event->accept();
        if (!event->isAutoRepeat()) // a key held down opens one notice, not notice upon notice
            emit opened();
        return;
    }
    QTableView::keyPressEvent(event);
}

void NoticeListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    // The hand may have moved on to the next row between the two clicks.
    if (const auto index = indexAt(event->position().toPoint());
        index.isValid() && index.row() != currentRow())
        setCurrentRow(index.row());
    event->accept();
    emit opened();
}

QModelIndex NoticeListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const auto current = currentIndex();
    auto* const bar = horizontalScrollBar();
    switch (action) {
    case MoveHome:
        return model()->index(0, std::max(current.column(), 0));
    case MoveEnd:
        return model()->index(model()->rowCount() - 1, std::max(current.column(), 0));
    case MoveLeft:
        bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
        return current;
    case MoveRight:
        bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        return current;
    default:
        return QTableView::moveCursor(action, modifiers);
    }
}

QItemSelectionModel::SelectionFlags NoticeListView::selectionCommand(const QModelIndex& index,
                                                                     const QEvent* event) const
{
    // A click beside the rows, which may be the first half of a double click, leaves the current row as it
    // is.
    if (!index.isValid() && event != nullptr)
        return QItemSelectionModel::NoUpdate;
    return QTableView::selectionCommand(index, event);
}

} // namespace mainscreen
