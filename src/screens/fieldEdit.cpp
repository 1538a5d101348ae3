#include "screens/fieldEdit.h"

#include <QStyle>
#include <QStyleOptionFrame>
#include <QValidator>

#include <algorithm>

namespace screens {

namespace {

constexpr int roomAroundText = 6; // margins of the text and the cursor

// Cuts what an operator puts in down to what there is room for. The toolkit asks it before anybody hears of
// the new text. A text set by code has no history to undo, and one brought back by undo can be redone: both
// stand as they are.
class InputLimit : public QValidator
{
public:
    InputLimit(FieldEdit& edit, int characters) : QValidator(&edit), m_edit(edit), m_characters(characters)
    {
        connect(&edit, &QLineEdit::selectionChanged, this, [this] { note(); });
        connect(&edit, &QLineEdit::textChanged, this, [this] { note(); });
        note();
    }

    State validate(QString& text, int& cursor) const override
    {
        const auto inserted = text.size() - m_kept;
        const auto excess = std::min(text.size() - m_characters, inserted);
        if (excess <= 0 || !m_edit.isUndoAvailable() || m_edit.isRedoAvailable())
            return Acceptable;
        if (excess == inserted)
            return Invalid; // the toolkit goes back to the text before
        cursor -= static_cast<int>(excess);
        text.remove(cursor, excess);
        return Acceptable;
    }

private:
    // What stays of the text when something is put in: all but the selection.
    void note() { m_kept = m_edit.text().size() - m_edit.selectedText().size(); }

    const FieldEdit& m_edit;
    qsizetype m_characters;
    qsizetype m_kept = 0;
};

} // namespace

FieldEdit::FieldEdit(QString sample, QWidget* parent) : QLineEdit(parent), m_sample(std::move(sample))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void FieldEdit::setInputLimit(int characters)
{
    setProperty("inputLimit", characters);
    setValidator(new InputLimit(*this, characters));
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
