#pragma once

#include <QGridLayout>
#include <QLabel>

namespace screens {

// The caption of several columns in one text with runs of blanks, which stays whole for whoever reads it and
// is drawn in pieces, each above its column of the grid. The columns are at least as wide as their pieces.
class CaptionLabel : public QLabel
{
    Q_OBJECT
public:
    // Places itself into the line of the grid, over `columns` columns from `firstColumn` on.
    CaptionLabel(QGridLayout& grid, int line, int firstColumn, int columns, QWidget* parent);

    [[nodiscard]] QStringList pieces() const;
    // Where a piece is drawn, in the label.
    [[nodiscard]] QRect pieceRect(int piece) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QGridLayout& m_grid;
    int m_line;
    int m_firstColumn;
    int m_columns;
};

} // namespace screens
