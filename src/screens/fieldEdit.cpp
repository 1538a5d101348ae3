#include "screens/fieldEdit.h"

#include "widgets/textEntry.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

namespace screens {

namespace {

constexpr int roomAroundText = 6; // margins of the text and the cursor

// The page shows through, dark or light.
void letPageThrough(FieldEdit& field)
{
    QPalette palette; // all but the background comes from the window
    palette.setBrush(QPalette::Base, Qt::transparent);
    field.setPalette(palette);
}

} // namespace

FieldEdit::FieldEdit(QString sample, int limit, QWidget* parent)
    : QLineEdit(parent), m_sample(std::move(sample))
{
    new widgets::TextEntry(*this, limit);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize FieldEdit::sizeHint() const
{
    auto size = QLineEdit::sizeHint();
    if (m_widthOf != nullptr)
        return {m_widthOf->sizeHint().width(), size.height()};
    QStyleOptionFrame option;
    initStyleOption(&option);
    const auto metrics = fontMetrics();
    const int text =
        std::max(metrics.horizontalAdvance(m_sample), metrics.horizontalAdvance(placeholderText()));
    const QSize contents(text + roomAroundText, metrics.height());
    size.setWidth(style()->sizeFromContents(QStyle::CT_LineEdit, &option, contents, this).width());
    return size;
}

void FieldEdit::markNotStored()
{
    m_notStored = true;
    letPageThrough(*this);
}

// The hatching is of the colour of the text, so that it shows on any page, and faint, so that the text does.
void FieldEdit::paintEvent(QPaintEvent* event)
{
    if (m_notStored) {
        constexpr int frame = 2;
        auto color = palette().color(QPalette::WindowText);
        color.setAlphaF(0.3F);
        QPainter(this).fillRect(rect().adjusted(frame, frame, -frame, -frame),
                                QBrush(color, Qt::BDiagPattern));
    }
    QLineEdit::paintEvent(event);
}

void lock(FieldEdit& field)
{
    field.setReadOnly(true);
    field.setFocusPolicy(Qt::ClickFocus);
    letPageThrough(field);
}

} // namespace screens
