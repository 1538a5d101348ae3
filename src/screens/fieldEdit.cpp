#include "screens/fieldEdit.h"

#include "widgets/textEntry.h"

#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

namespace screens {

namespace {

constexpr int roomAroundText = 6; // margins of the text and the cursor

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

void lock(FieldEdit& field)
{
    field.setReadOnly(true);
    field.setFocusPolicy(Qt::ClickFocus);
    QPalette palette;                                  // all but the background comes from the window
    palette.setBrush(QPalette::Base, Qt::transparent); // the page shows through, dark or light
    field.setPalette(palette);
}

} // namespace screens
