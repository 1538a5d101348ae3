#include "screens/remarksEdit.h"

#include "widgets/textEntry.h"

#include <QKeyEvent>
#include <QMimeData>

namespace screens {

RemarksEdit::RemarksEdit(QWidget* parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
}

QString RemarksEdit::accepted(const QString& entry)
{
    QString lost;
    auto taken = widgets::ansiOnly(entry, lost);
    if (!lost.isEmpty())
        emit refused(lost);
    return taken;
}

void RemarksEdit::keyPressEvent(QKeyEvent* event)
{
    if (accepted(event->text()) == event->text())
        QPlainTextEdit::keyPressEvent(event);
}

void RemarksEdit::inputMethodEvent(QInputMethodEvent* event)
{
    const auto taken = accepted(event->commitString());
    if (taken != event->commitString())
        event->setCommitString(taken, event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(event);
}

void RemarksEdit::insertFromMimeData(const QMimeData* source)
{
    QMimeData text;
    auto lines = source->text().normalized(QString::NormalizationForm_C);
    for (const auto separator : {QChar::ParagraphSeparator, QChar::LineSeparator})
        lines.replace(QChar(separator), QLatin1Char('\n'));
    text.setText(accepted(lines));
    QPlainTextEdit::insertFromMimeData(&text);
}

} // namespace screens
