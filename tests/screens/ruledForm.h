#pragma once

#include "model/session.h"
#include "platform/hostFormat.h"
#include "screens/fieldRules.h"
#include "screens/multiValueBox.h"
#include "screens/noticeForm.h"
#include "support/fakeHost.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QTest>
#include <QWidget>

#include <array>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

// A notice screen with the rules of its fields, and the operator's hands on it: real keys and clicks.
class RuledForm
{
public:
    explicit RuledForm(screens::ScreenType type, const char* language = "E") : form(type)
    {
        platform::setClock(platform::LocalTime{2002, 5, 15, 12, 0, 0});
        session::language = language;
        screens::attachFieldRules(form);
        form.resize(form.sizeHint()); // all of it in sight, whatever the screen
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    ~RuledForm()
    {
        session::language.clear();
        platform::setClock({});
    }
    RuledForm(const RuledForm&) = delete;
    RuledForm& operator=(const RuledForm&) = delete;

    QWidget& control(const std::string& name) const
    {
        auto* const found = form.control(name);
        if (!found)
            throw std::runtime_error("no control " + name);
        return *found;
    }

    // Whatever stands in the way: an empty field on the way may send the focus on.
    void enter(const std::string& name)
    {
        for (int tries = 0; tries < 4 && form.focusWidget() != &control(name); ++tries)
            control(name).setFocus();
        EXPECT_EQ(focus(), name);
        forget();
    }
    // A value where there is room for it, the way an operator puts it in; a longer one as a record brings it.
    void put(const std::string& name, const std::string& value)
    {
        form.setText(name, "");
        const auto limit = control(name).property("inputLimit");
        if (limit.isValid() && static_cast<int>(value.size()) > limit.toInt())
            form.setText(name, value);
        else
            type(value);
        EXPECT_EQ(form.text(name), value) << name;
    }
    void type(const std::string& text)
    {
        for (const char character : text)
            QTest::keyClick(form.windowHandle(), character);
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(form.windowHandle(), code, modifiers);
    }
    void tab() { key(Qt::Key_Tab); }
    void backtab() { key(Qt::Key_Backtab, Qt::ShiftModifier); }
    void click(const std::string& name)
    {
        auto& widget = control(name);
        QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {},
                          widget.mapTo(&form, QPoint(8, widget.height() / 2)));
    }

    // The name of the control that has the focus, without index.
    [[nodiscard]] std::string focus() const
    {
        const auto* const widget = form.focusWidget();
        return widget ? widget->objectName().section('(', 0, 0).toStdString() : "none";
    }
    void forget()
    {
        host.boxes.clear();
        host.messages.clear();
        host.beeps = 0;
    }

    FakeHost host;
    screens::NoticeForm form;
};

inline constexpr std::array allScreens{screens::ScreenType::T11, screens::ScreenType::T12,
                                       screens::ScreenType::T13, screens::ScreenType::T14};

// Names of tests by their parameters.
inline std::string screenName(const testing::TestParamInfo<screens::ScreenType>& test)
{
    return std::string(screens::typeName(test.param));
}
using ScreenAndLanguage = std::tuple<screens::ScreenType, const char*>;
inline std::string screenAndLanguage(const testing::TestParamInfo<ScreenAndLanguage>& test)
{
    return std::string(screens::typeName(std::get<0>(test.param))) + std::get<1>(test.param);
}

// One row of the tables beside: what happens to a value when its field is left.
struct RuleRow
{
    std::string screens, controls, value;
    std::string kind; // ok; E, T, L: of the words; blank: E without beep; beep: no words
    std::string text; // that stands in the field then
    std::string english, french;
};

inline std::vector<RuleRow> readRuleRows(const char* file)
{
    std::ifstream stream(std::string(ZEPH_TEST_DIR "/screens/") + file);
    std::vector<RuleRow> rows;
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line.front() == '#')
            continue;
        std::istringstream cells(line);
        RuleRow row;
        for (auto* const cell :
             {&row.screens, &row.controls, &row.value, &row.kind, &row.text, &row.english, &row.french})
            std::getline(cells, *cell, '\t');
        rows.push_back(row);
    }
    return rows;
}

// "RMin1-3 deg" as RMin1, RMin2, RMin3, deg.
inline std::vector<std::string> controlsOf(const RuleRow& row)
{
    std::vector<std::string> names;
    std::istringstream items(row.controls);
    for (std::string item; items >> item;) {
        const auto dash = item.find('-');
        if (dash == std::string::npos) {
            names.push_back(item);
            continue;
        }
        for (int index = item[dash - 1] - '0'; index <= std::stoi(item.substr(dash + 1)); ++index)
            names.push_back(item.substr(0, dash - 1) + std::to_string(index));
    }
    return names;
}

inline bool isOn(const RuleRow& row, screens::ScreenType type)
{
    return row.screens.find(static_cast<char>('1' + static_cast<int>(type))) != std::string::npos;
}

inline int expectedBeeps(const RuleRow& row)
{
    return row.kind == "ok" || row.kind == "blank" ? 0 : 1;
}

inline std::vector<FakeHost::Box> expectedBoxes(const RuleRow& row, const std::string& language)
{
    if (row.kind == "ok" || row.kind == "beep")
        return {};
    const bool translated = row.kind == "T" || row.kind == "L";
    FakeHost::Box box{language == "F" && translated ? "Erreur" : "Error", row.english,
                      platform::Icon::Exclamation, platform::Buttons::Ok};
    if (row.kind == "L" && language == "F")
        box.text = row.french;
    if (row.kind == "L" && language == "S")
        box.text.clear();
    return {box};
}

inline void PrintTo(const FakeHost::Box& box, std::ostream* out)
{
    *out << '"' << box.title << "\": \"" << box.text << "\" icon " << static_cast<int>(box.icon);
}
