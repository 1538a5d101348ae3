#include "screens/noticeForm.h"

#include "screens/fieldEdit.h"
#include "screens/hintLine.h"
#include "screens/layoutBuilder.h"
#include "screens/multiValueBox.h"
#include "screens/recordFields.h"
#include "widgets/application.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QTextDocument>
#include <QVBoxLayout>

namespace screens {

namespace {

// Scrolls the groups in a window too small for them; otherwise it does not show.
QScrollArea* newScrollArea(QWidget* parent)
{
    auto* const area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    return area;
}

// The document's own text: the toolkit's plain text would make common blanks of those that must not break.
QString remarksText(const QPlainTextEdit& remarks)
{
    auto text = remarks.document()->toRawText();
    for (const auto separator : {QChar::ParagraphSeparator, QChar::LineSeparator})
        text.replace(QChar(separator), QStringLiteral("\r\n"));
    return text;
}

// Tab brings what it goes to into sight; where the focus is sent by a rule that has to be seen to.
void keepFocusInSight(QScrollArea* area)
{
    QObject::connect(qApp, &QApplication::focusChanged, area,
                     widgets::guarded([area](QWidget*, QWidget* focus) {
                         if (focus != nullptr && area->isAncestorOf(focus))
                             area->ensureWidgetVisible(focus);
                     }));
}

// The captions get their texts after the form was built; the sizes follow at once, not with the next events.
void settle(const QWidget& page)
{
    for (auto* const box : page.findChildren<QGroupBox*>())
        box->layout()->activate();
    page.layout()->activate();
}

// The zone of the target is hidden by no option; with Add it is left out of the way of the Tab key.
void passByTargetZone(const NoticeForm& form)
{
    auto* const zone = form.control("trgZoneID");
    if (zone == nullptr)
        return;
    auto* const add = form.control<QRadioButton>("Int_Add");
    QObject::connect(add, &QRadioButton::toggled, zone, widgets::guarded([zone](bool selected) {
                         zone->setFocusPolicy(selected ? Qt::ClickFocus : Qt::StrongFocus);
                     }));
}

void markFieldsNotStored(const NoticeForm& form)
{
    for (const auto& name : fields::controlsNotStored(form.type())) {
        if (auto* const field = form.control<FieldEdit>(name))
            field->markNotStored();
    }
}

} // namespace

NoticeForm::NoticeForm(ScreenType type, QWidget* parent)
    : QDialog(parent), m_type(type), m_hints(new HintLine(*this))
{
    setObjectName(QString::fromStdString(std::string(typeName(type))) + QStringLiteral("Screen"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);

    auto* const area = newScrollArea(this);
    auto* const page = new QWidget;
    auto* const bar = new QWidget(this);
    LayoutBuilder builder(type);
    builder.buildPage(*page);
    builder.buildBar(*bar);
    area->setWidget(page);

    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(area, 1);
    all->addWidget(m_hints);
    all->addWidget(bar);
    builder.orderTabs();
    keepFocusInSight(area);
    m_controls = builder.controls();
    m_controls.emplace(m_hints->objectName().toStdString(), m_hints);
    m_hints->watchFields();
    markFieldsNotStored(*this);
    m_page = page;
    m_bar = bar;
    passByTargetZone(*this);
}

QWidget* NoticeForm::control(std::string_view name) const
{
    const auto found = m_controls.find(std::string(name));
    return found == m_controls.end() ? nullptr : found->second;
}

std::string NoticeForm::text(std::string_view name) const
{
    auto* const widget = control(name);
    if (const auto* const edit = qobject_cast<QLineEdit*>(widget))
        return edit->text().toStdString();
    if (const auto* const box = qobject_cast<QComboBox*>(widget))
        return box->currentText().toStdString();
    if (const auto* const remarks = qobject_cast<QPlainTextEdit*>(widget))
        return remarksText(*remarks).toStdString();
    return {};
}

void NoticeForm::setText(std::string_view name, const std::string& text) const
{
    auto* const widget = control(name);
    const auto shown = QString::fromStdString(text);
    if (auto* const edit = qobject_cast<QLineEdit*>(widget)) {
        edit->setText(shown);
        if (!edit->hasFocus())
            edit->setCursorPosition(0); // of a long text the beginning is in sight
    } else if (auto* const box = qobject_cast<QComboBox*>(widget)) {
        box->setEditText(shown);
    } else if (auto* const remarks = qobject_cast<QPlainTextEdit*>(widget)) {
        remarks->setPlainText(shown);
    }
}

bool NoticeForm::isSelected(std::string_view name) const
{
    const auto* const option = control<QRadioButton>(name);
    return option != nullptr && option->isChecked();
}

void NoticeForm::setSelected(std::string_view name, bool selected) const
{
    if (auto* const option = control<QRadioButton>(name))
        option->setChecked(selected);
}

MultiValueBox* NoticeForm::multiValueBox(std::string_view name) const
{
    return control<MultiValueBox>(name);
}

void NoticeForm::setHidden(const Hidden& hidden)
{
    m_hidden = hidden;
    m_hints->refresh();
}

QSize NoticeForm::sizeHint() const
{
    settle(*m_page);
    const auto page = m_page->sizeHint();
    const auto bar = m_bar->sizeHint();
    return {std::max(page.width(), bar.width()), page.height() + m_hints->sizeHint().height() + bar.height()};
}

// The first time at the size that shows everything, as far as the screen has room; the toolkit would take two
// thirds of the screen at most.
void NoticeForm::setVisible(bool visible)
{
    if (visible && !testAttribute(Qt::WA_Resized) && screen() != nullptr)
        resize(sizeHint().boundedTo(screen()->availableSize()));
    QDialog::setVisible(visible);
}

} // namespace screens
