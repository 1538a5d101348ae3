#pragma once

#include "screens/noticeForm.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QString>
#include <QStringList>

#include <array>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

// The words of the notice screens as labels.tsv has them, one line a control and screen, and what a screen
// shows of them.
namespace labelWords {

inline const std::array<std::string, 3> letters{"", "F", "S"}; // the order of the columns of words

struct Words
{
    std::string screen, control, property; // an array element with its index; "-" for the title
    std::array<QString, 3> texts;          // empty: no words in that language
};

inline std::vector<Words> read()
{
    std::ifstream file(ZEPH_TEST_DIR "/screens/labels.tsv", std::ios::binary);
    std::vector<Words> all;
    std::string line;
    for (std::getline(file, line); std::getline(file, line);) {
        const auto fields = QString::fromStdString(line).split('\t');
        if (fields.size() != 6)
            throw std::runtime_error("labels.tsv: " + line);
        all.push_back({fields[0].toStdString(),
                       fields[1].toStdString(),
                       fields[2].toStdString(),
                       {fields[3], fields[4], fields[5]}});
    }
    return all;
}

inline std::vector<Words> of(screens::ScreenType type)
{
    auto all = read();
    std::erase_if(all, [type](const Words& words) { return words.screen != screens::typeName(type); });
    return all;
}

inline std::string typeText(const screens::NoticeForm& form)
{
    return std::string(screens::typeName(form.type()));
}

// What a control says: the text of a label or button; nothing for other controls.
inline QString caption(const QWidget& control)
{
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        return label->text();
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button ? button->text() : QString();
}

inline void setCaption(QWidget& control, const QString& text)
{
    if (auto* label = qobject_cast<QLabel*>(&control))
        label->setText(text);
    else if (auto* button = qobject_cast<QAbstractButton*>(&control))
        button->setText(text);
}

// The named controls, without the parts that they are made of.
inline std::vector<QWidget*> controls(const screens::NoticeForm& form)
{
    std::vector<QWidget*> named;
    for (auto* child : form.findChildren<QWidget*>())
        if (!child->objectName().isEmpty() && !child->objectName().startsWith("qt_") &&
            !qobject_cast<QComboBox*>(child->parentWidget()))
            named.push_back(child);
    return named;
}

// Everything that can be labelled, by property and control: "caption Label1", "tip freq(0)", "title -".
inline std::map<std::string, QString> shown(const screens::NoticeForm& form)
{
    std::map<std::string, QString> texts{{"title -", form.windowTitle()}};
    for (const auto* control : controls(form)) {
        const auto name = control->objectName().toStdString();
        texts["caption " + name] = caption(*control);
        texts["tip " + name] = control->toolTip();
    }
    return texts;
}

inline std::string key(const Words& words)
{
    return words.property + " " + words.control;
}

} // namespace labelWords
