#include "screens/captionLabel.h"

#include <QPainter>
#include <QRegularExpression>
#include <QStyle>

namespace screens {

namespace {

// Takes the room of one piece in its column.
class PieceRoom : public QLayoutItem
{
public:
    PieceRoom(const CaptionLabel& label, int piece) : m_label(label), m_piece(piece) {}

    [[nodiscard]] QSize sizeHint() const override
    {
        return {m_label.fontMetrics().horizontalAdvance(m_label.pieces().value(m_piece)), 0};
    }
    [[nodiscard]] QSize minimumSize() const override { return sizeHint(); }
    [[nodiscard]] QSize maximumSize() const override { return {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX}; }
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    void setGeometry(const QRect& rect) override { m_rect = rect; }
    [[nodiscard]] QRect geometry() const override { return m_rect; }
    [[nodiscard]] bool isEmpty() const override { return false; }

private:
    const CaptionLabel& m_label;
    int m_piece;
    QRect m_rect;
};

QStringList cut(const QString& text, const QString& blanks)
{
    return text.split(QRegularExpression(blanks), Qt::SkipEmptyParts);
}

} // namespace

CaptionLabel::CaptionLabel(QGridLayout& grid, int line, int firstColumn, int columns, QWidget* parent)
    : QLabel(parent), m_grid(grid), m_line(line), m_firstColumn(firstColumn), m_columns(columns)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    grid.addWidget(this, line, firstColumn, 1, columns);
    for (int piece = 0; piece < columns; ++piece)
        grid.addItem(new PieceRoom(*this, piece), line, firstColumn + piece);
}

// Two blanks part pieces only where three leave too few: they also stand inside of pieces.
QStringList CaptionLabel::pieces() const
{
    const auto all = cut(text(), QStringLiteral(" {3,}"));
    return all.size() < m_columns ? cut(text(), QStringLiteral(" {2,}")) : all;
}

QRect CaptionLabel::pieceRect(int piece) const
{
    const auto cell = m_grid.cellRect(m_line, m_firstColumn + piece);
    const int width = fontMetrics().horizontalAdvance(pieces().value(piece));
    return {cell.left() - x(), 0, width, height()};
}

QSize CaptionLabel::sizeHint() const
{
    return {0, fontMetrics().height()};
}

void CaptionLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto all = pieces().mid(0, m_columns);
    for (int piece = 0; piece < all.size(); ++piece)
        style()->drawItemText(&painter, pieceRect(piece),
                              Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, palette(), isEnabled(),
                              all.at(piece), foregroundRole());
}

} // namespace screens
