#include "widgets/textEntry.h"

#include "platform/ansiText.h"
#include "platform/host.h"
#include "platform/keyboard.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QWidget>

#include <algorithm>
#include <array>

namespace widgets {

namespace {

bool isLineBreak(QChar character)
{
    switch (character.unicode()) {
    case '\n':
    case '\v':
    case '\f':
    case '\r':
    case 0x85:
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
        return true;
    default:
        return false;
    }
}

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control;
}

bool isMargin(QChar character)
{
    return character.isSpace() || isControl(character);
}

bool typesCharacter(const QKeyEvent& key)
{
    return key.key() != 0 && !key.text().isEmpty() && key.text().front().isPrint();
}

bool isKeyOfEditing(const QKeyEvent& key)
{
    constexpr std::array keys = {QKeySequence::Copy, QKeySequence::Cut,  QKeySequence::Paste,
                                 QKeySequence::Undo, QKeySequence::Redo, QKeySequence::SelectAll};
    return std::any_of(keys.begin(), keys.end(),
                       [&key](QKeySequence::StandardKey known) { return key.matches(known); });
}

// The toolkit types nothing with Control alone, or Control and Shift, but for any more, as on a keypad.
bool makesNoCharacter(const QKeyEvent& key)
{
    const auto held = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (held == Qt::ControlModifier)
        return !isKeyOfEditing(key);
    const bool isAltGr = platform::altGrIsControlAlt && held == (Qt::ControlModifier | Qt::AltModifier);
    return held != Qt::NoModifier && !isAltGr;
}

} // namespace

QString ansiOnly(const QString& text, QString& refused)
{
    QString kept;
    QString lost;
    for (const char32_t code : text.toUcs4()) {
        const auto character = QString::fromUcs4(&code, 1);
        if (platform::isAnsi(code))
            kept += character;
        else if (!lost.contains(character))
            lost += character;
    }
    if (!lost.isEmpty())
        platform::host().beep();
    refused += lost;
    return kept;
}

QString oneLine(const QString& text)
{
    const auto* const begin = std::find_if_not(text.begin(), text.end(), isMargin);
    const auto* end = std::find_if(begin, text.end(), isLineBreak);
    while (end != begin && isMargin(*(end - 1)))
        --end;
    QString line(begin, end - begin);
    std::replace_if(line.begin(), line.end(), isControl, u' ');
    return line;
}

bool isMuffledKey(const QObject* receiver, const QEvent& event)
{
    if (event.type() != QEvent::KeyPress || !receiver->isWidgetType())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return static_cast<const QWidget*>(receiver)->testAttribute(Qt::WA_InputMethodEnabled) &&
           typesCharacter(key) && makesNoCharacter(key);
}

TextEntry::TextEntry(QLineEdit& field, int limit) : QValidator(&field), m_field(field), m_limit(limit)
{
    if (limit > 0)
        field.setProperty("inputLimit", limit);
    connect(&field, &QLineEdit::selectionChanged, this, &TextEntry::note);
    connect(&field, &QLineEdit::textChanged, this, &TextEntry::note);
    note();
    field.setValidator(this);
}

void TextEntry::note()
{
    m_before = m_field.text();
    m_kept = m_before.size() - m_field.selectedText().size();
}

// The toolkit asks before anybody hears of the new text, and at other times too. A text set by code has no
// history to undo, and one brought back by undo can be redone: both stand as they are.
QValidator::State TextEntry::validate(QString& text, int& cursor) const
{
    const auto length = text.size() - m_kept;
    if (length <= 0 || length > cursor || text == m_before || !m_field.isUndoAvailable() ||
        m_field.isRedoAvailable())
        return Acceptable;
    const auto start = cursor - length;
    const auto entry = text.mid(start, length);
    const auto taken = accepted(entry);
    if (taken == entry)
        return Acceptable;
    if (taken.isEmpty())
        return Invalid; // the toolkit goes back to the text before
    text.replace(start, length, taken);
    cursor = static_cast<int>(start + taken.size());
    return Acceptable;
}

// One character is typed, or might as well be; more come from elsewhere.
QString TextEntry::accepted(const QString& entry) const
{
    const bool typed = entry.size() == 1 && !isControl(entry.front());
    QString lost;
    auto taken = ansiOnly(typed ? entry : oneLine(entry.normalized(QString::NormalizationForm_C)), lost);
    if (!lost.isEmpty())
        emit refused(lost);
    if (m_limit > 0)
        taken.truncate(std::max<qsizetype>(m_limit - m_kept, 0));
    return taken;
}

} // namespace widgets
