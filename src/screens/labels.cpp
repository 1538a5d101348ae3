#include "screens/labels.h"

#include "model/session.h"
#include "screens/labelTable.h"

#include <QAbstractButton>
#include <QLabel>

namespace screens {

namespace {

std::string_view inLanguage(const LabelRow& row)
{
    const auto& [english, french, spanish] = row.texts;
    if (session::language == "F")
        return french;
    return session::language == "S" ? spanish : english;
}

// What is read out: the caption without the mark of its access key.
QString spoken(QString caption)
{
    return caption.remove('&');
}

void setCaption(QWidget& control, const QString& text)
{
    if (auto* label = qobject_cast<QLabel*>(&control))
        label->setText(text);
    else if (auto* button = qobject_cast<QAbstractButton*>(&control))
        button->setText(text);
    control.setAccessibleName(spoken(text));
}

// A tip is read out as the control's description; it is the name only of a control that has no shorter one.
void setTip(QWidget& control, const QString& text)
{
    if (control.accessibleName().isEmpty() || control.accessibleName() == control.toolTip())
        control.setAccessibleName(text);
    control.setToolTip(text);
}

void setLabel(NoticeForm& form, const LabelRow& row)
{
    const auto text = inLanguage(row);
    auto* control = row.property == LabelProperty::Title ? &form : form.control(row.control);
    if (!control || text.empty())
        return;
    const auto words = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (row.property == LabelProperty::Title)
        form.setWindowTitle(words);
    else if (row.property == LabelProperty::Caption)
        setCaption(*control, words);
    else
        setTip(*control, words);
}

} // namespace

void setScreenLabels(const std::string& noticeType, NoticeForm& form)
{
    if (screenOf(noticeType) != form.type())
        return;
    for (const auto& row : labelRows())
        if (contains(row.screens, form.type()))
            setLabel(form, row);
}

} // namespace screens
