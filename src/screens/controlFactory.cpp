#include "screens/controlFactory.h"

#include "screens/fieldEdit.h"
#include "screens/multiValueBox.h"
#include "screens/optionSet.h"
#include "screens/remarksEdit.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <array>

namespace screens {

namespace {

// Some desktops let Enter press the button that has the focus; on these screens it belongs to the fields.
class PlainButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            event->ignore();
        else
            QPushButton::keyPressEvent(event);
    }
};

// As wide as a text box for the same text, and the arrow.
class SizedBox : public MultiValueBox
{
public:
    SizedBox(QString sample, QWidget& parent) : MultiValueBox(&parent), m_sample(std::move(sample)) {}

    [[nodiscard]] QSize sizeHint() const override
    {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const auto metrics = fontMetrics();
        const QSize contents(metrics.horizontalAdvance(m_sample) + 4, std::max(metrics.height(), 14) + 2);
        return style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this);
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

private:
    QString m_sample;
};

// A text as wide as the widest of so many characters may be expected to be.
QString sampleOf(const Item& item)
{
    if (item.kind != Kind::Code)
        return {item.size, QLatin1Char('0')};
    return item.size == 1 ? QStringLiteral("W") : QString(item.size, QLatin1Char('N'));
}

QWidget* makeEdit(const Item& item, QWidget& parent)
{
    auto* const edit = new FieldEdit(sampleOf(item), item.limit, &parent);
    edit->setPlaceholderText(QString::fromUtf8(item.text));
    if (item.kind == Kind::Locked)
        lock(*edit);
    return edit;
}

QWidget* makeRemarks(QWidget& parent)
{
    auto* const remarks = new RemarksEdit(&parent);
    return remarks;
}

QWidget* makeButton(const Item& item, QWidget& parent)
{
    auto* const button = new PlainButton(QString::fromUtf8(item.text), &parent);
    button->setAutoDefault(false);
    return button;
}

QWidget* makeCaption(const QString& text, QWidget& parent)
{
    auto* const caption = new QLabel(text, &parent);
    caption->setTextFormat(Qt::PlainText);
    return caption;
}

QWidget* bold(QWidget* caption)
{
    QFont font; // all but the weight comes from the window
    font.setBold(true);
    caption->setFont(font);
    return caption;
}

bool isFreeCaption(Kind kind)
{
    return kind == Kind::Word || kind == Kind::Lead || kind == Kind::Column;
}

QString numbered(const char* text, int number)
{
    return QString::fromUtf8(text).replace(QLatin1Char('#'), QString::number(number));
}

} // namespace

QWidget* makeHeading(const char* text, QWidget& parent)
{
    return bold(makeCaption(QString::fromUtf8(text), parent));
}

void ControlFactory::beginRow(int number, bool ofMultiValueBoxes)
{
    m_number = number;
    m_multiValueRow = ofMultiValueBoxes;
}

QWidget* ControlFactory::control(const Item& item, int number) const
{
    const auto found = m_controls.find(numbered(item.name, number).toStdString());
    return found == m_controls.end() ? nullptr : found->second;
}

QWidget* ControlFactory::create(const Item& item, QWidget& parent)
{
    auto* const control = make(item, parent);
    if (control != nullptr)
        enter(*control, item);
    return control;
}

QWidget* ControlFactory::make(const Item& item, QWidget& parent)
{
    switch (item.kind) {
    case Kind::Options:
        m_options = new OptionSet(&parent);
        m_decided = QString::fromUtf8(item.name);
        return nullptr;
    case Kind::Option:
        return makeOption(item, parent);
    case Kind::Button:
        return makeButton(item, parent);
    case Kind::Heading:
        return makeHeading("", parent);
    case Kind::Label:
    case Kind::LeadLabel:
    case Kind::Over:
        return makeCaption({}, parent);
    case Kind::Word:
    case Kind::Lead:
    case Kind::Column:
        return makeCaption(QString::fromUtf8(item.name), parent);
    default:
        return makeField(item, parent);
    }
}

QWidget* ControlFactory::makeOption(const Item& item, QWidget& parent)
{
    auto* const button = m_options->addButton(&parent);
    button->setText(QString::fromUtf8(item.text));
    button->setAccessibleDescription(m_decided);
    return button;
}

QWidget* ControlFactory::makeField(const Item& item, QWidget& parent) const
{
    QWidget* field = nullptr;
    if (item.kind == Kind::Remarks)
        field = makeRemarks(parent);
    else if (item.kind == Kind::MultiValue || m_multiValueRow)
        field = new SizedBox(sampleOf(item), parent);
    else
        field = makeEdit(item, parent);
    if (item.kind != Kind::Remarks)
        field->setSizePolicy(item.kind == Kind::Name ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                             QSizePolicy::Fixed);
    auto policy = field->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // nothing moves when an option hides it
    field->setSizePolicy(policy);
    return field;
}

void ControlFactory::enter(QWidget& control, const Item& item)
{
    control.setAccessibleName(numbered(item.spoken, m_number));
    if (isFreeCaption(item.kind)) {
        control.setObjectName(QStringLiteral("caption%1").arg(++m_freeCaptions));
        return;
    }
    auto name = numbered(item.name, m_number);
    m_controls.emplace(name.toStdString(), &control);
    if (const int index = arrayIndex(name.toStdString()); index >= 0)
        name += QStringLiteral("(%1)").arg(index);
    control.setObjectName(name);
    if (const auto* const box = qobject_cast<QComboBox*>(&control)) {
        box->lineEdit()->setObjectName(name + QStringLiteral("Edit"));
        box->lineEdit()->setAccessibleName(control.accessibleName());
    }
    if (item.kind != Kind::Locked && control.focusPolicy() != Qt::NoFocus)
        m_tabStops.push_back(&control);
}

} // namespace screens
