#pragma once

#include <QLabel>
#include <QPointer>

namespace screens {

class NoticeForm;

// The line at the foot of a notice screen that says what the field in hand, or the section, will come to when
// that is not what it looks like; empty when there is nothing to say. It takes no focus and hinders nothing.
// What it says is read out, as the description of the field in hand too.
class HintLine : public QLabel
{
    Q_OBJECT
public:
    explicit HintLine(NoticeForm& form);

    // Once the form has its controls: from here on each change is followed.
    void watchFields();
    // With the next events, however often it is asked for until then.
    void refresh();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    void noteRefused(const QString& characters);
    void forgetRefused();
    void say(const QString& text);
    void describe(QWidget* field, const QString& text);
    [[nodiscard]] QString hint() const;

    NoticeForm& m_form;
    QPointer<QWidget> m_described; // the field whose description is the hint
    QString m_ownDescription;      // that field's own
    QString m_refused;             // characters of the last entry
    bool m_entryInWork = false;    // the changes that come with it do not forget them
    bool m_waiting = false;        // a refresh is on its way
};

} // namespace screens
