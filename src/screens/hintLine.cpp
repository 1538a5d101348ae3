#include "screens/hintLine.h"

#include "model/session.h"
#include "screens/hints.h"
#include "screens/multiValueBox.h"
#include "screens/noticeForm.h"
#include "screens/remarksEdit.h"
#include "widgets/application.h"
#include "widgets/textEntry.h"

#include <QAbstractItemModel>
#include <QAccessible>
#include <QLineEdit>
#include <QRadioButton>

#include <utility>

namespace screens {

namespace {

constexpr int roomAround = 2; // above and below the words

const QString& silentName()
{
    static const auto name = QStringLiteral("Hint");
    return name;
}

} // namespace

HintLine::HintLine(NoticeForm& form) : QLabel(&form), m_form(form)
{
    setObjectName(QStringLiteral("LblHint"));
    setAccessibleName(silentName());
    setTextFormat(Qt::PlainText);
    setContentsMargins(8, 0, 8, 0);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    // The colours of tips: every desktop has them, light, dark or of high contrast.
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
}

// The height of one line whatever it says, so that nothing moves.
QSize HintLine::sizeHint() const
{
    return {0, fontMetrics().height() + 2 * roomAround};
}

QSize HintLine::minimumSizeHint() const
{
    return sizeHint();
}

void HintLine::watchFields()
{
    const auto changed = widgets::guarded([this](auto&&...) { forgetRefused(); });
    connect(qApp, &QApplication::focusChanged, this, changed);
    for (auto* const field : m_form.findChildren<QLineEdit*>())
        connect(field, &QLineEdit::textChanged, this, changed);
    for (auto* const box : m_form.findChildren<MultiValueBox*>()) {
        connect(box, &QComboBox::currentIndexChanged, this, changed);
        connect(box, &QComboBox::activated, this, changed);
        connect(box->model(), &QAbstractItemModel::rowsInserted, this, changed);
        connect(box->model(), &QAbstractItemModel::rowsRemoved, this, changed);
    }
    for (auto* const option : m_form.findChildren<QRadioButton*>())
        connect(option, &QRadioButton::toggled, this, changed);
    const auto refused = widgets::guarded([this](const QString& characters) { noteRefused(characters); });
    for (auto* const entry : m_form.findChildren<widgets::TextEntry*>())
        connect(entry, &widgets::TextEntry::refused, this, refused);
    for (auto* const remarks : m_form.findChildren<RemarksEdit*>()) {
        connect(remarks, &RemarksEdit::textChanged, this, changed);
        connect(remarks, &RemarksEdit::refused, this, refused);
    }
}

void HintLine::noteRefused(const QString& characters)
{
    m_refused = characters;
    m_entryInWork = true;
    refresh();
}

void HintLine::forgetRefused()
{
    if (!m_entryInWork)
        m_refused.clear();
    refresh();
}

void HintLine::refresh()
{
    if (std::exchange(m_waiting, true))
        return;
    QMetaObject::invokeMethod(this, widgets::guarded([this] {
                                  m_waiting = m_entryInWork = false;
                                  say(hint());
                              }),
                              Qt::QueuedConnection);
}

QString HintLine::hint() const
{
    if (!m_refused.isEmpty())
        return hintText(Hint::RefusedCharacters, session::language, m_refused);
    const auto* const field = m_form.focusWidget();
    auto said = field == nullptr ? std::nullopt
                                 : hintOfField(m_form, field->objectName().section(u'(', 0, 0).toStdString());
    if (!said)
        said = hintOfSection(m_form);
    return said ? hintText(said->hint, session::language, said->detail) : QString();
}

void HintLine::say(const QString& text)
{
    describe(m_form.focusWidget(), text);
    if (text == this->text())
        return;
    setText(text);
    setAutoFillBackground(!text.isEmpty());
    setAccessibleName(text.isEmpty() ? silentName() : text);
    if (text.isEmpty())
        return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void HintLine::describe(QWidget* field, const QString& text)
{
    if (m_described != nullptr)
        m_described->setAccessibleDescription(m_ownDescription);
    m_described = text.isEmpty() ? nullptr : field;
    if (m_described == nullptr)
        return;
    m_ownDescription = field->accessibleDescription();
    field->setAccessibleDescription(m_ownDescription.isEmpty() ? text : text + u' ' + m_ownDescription);
}

} // namespace screens
