#pragma once

#include <QPointer>
#include <QString>
#include <QValidator>

class QEvent;
class QLineEdit;

// What gets into a field of text, whichever way an operator puts it in. Text set by code is nobody's entry.
namespace widgets {

// Without the characters that notice files can't hold. Where there are any the host beeps, and they are
// appended to `refused`, each once.
[[nodiscard]] QString ansiOnly(const QString& text, QString& refused);

// A text from elsewhere for a field of one line: up to its first line break, without the blanks and control
// characters at both ends; those within are blanks.
[[nodiscard]] QString oneLine(const QString& text);

// Whether the event is a key that would put a character into a field of text although a modifier is held that
// makes no characters of the operator's keyboard. It must not get there: an access key that does not exist
// would change a value.
[[nodiscard]] bool isMuffledKey(const QObject* receiver, const QEvent& event);

// Sees to the entries of a field of one line: characters that notice files can't hold are refused, a pasted
// or dropped text becomes one line, and what there is no room for is cut off. A longer text set by code
// stands whole and may be edited, but doesn't grow.
class TextEntry : public QValidator
{
    Q_OBJECT
public:
    // Owned by the field. Its property "inputLimit" tells the limit; 0 for none.
    explicit TextEntry(QLineEdit& field, int limit = 0);

    State validate(QString& text, int& cursor) const override;

signals:
    void refused(const QString& characters) const;

private:
    void note();
    [[nodiscard]] QString accepted(const QString& entry) const;

    QLineEdit& m_field;
    int m_limit;
    QString m_before;     // the text before the entry
    qsizetype m_kept = 0; // of its characters: all but the selection
};

} // namespace widgets
