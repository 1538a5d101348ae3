// Every rule of every field, on each screen that has it, in each language: what is said of a bad value and
// where the operator stands then, and what is let through.
#include "ruledForm.h"

#include <QComboBox>
#include <QLineEdit>

#include <set>

namespace {

using screens::ScreenType;

// A screen in a language; the field is left by Tab in English, by a click in French, by code in Spanish.
class Leaving : public testing::TestWithParam<ScreenAndLanguage>
{
protected:
    Leaving() : work(std::get<0>(GetParam()), std::get<1>(GetParam()))
    {
        work.form.setSelected("Int_Mod", true); // target fields are asked for
    }

    void leave()
    {
        const std::string language = std::get<1>(GetParam());
        if (language == "E")
            work.tab();
        else if (language == "F")
            work.click("TxtRemarks");
        else
            work.control("TxtRemarks").setFocus();
    }

    void expectOutcome(const RuleRow& row, const std::string& name)
    {
        EXPECT_EQ(work.host.beeps, expectedBeeps(row));
        EXPECT_EQ(work.host.boxes, expectedBoxes(row, std::get<1>(GetParam())));
        const bool passed = row.kind == "ok";
        EXPECT_EQ(work.focus() != name, passed) << work.focus();
        // What a box of several values lets go of is no value.
        EXPECT_EQ(work.form.text(name), passed && work.form.multiValueBox(name) ? "" : row.text);
    }

    void walk(const char* file)
    {
        for (const auto& row : readRuleRows(file)) {
            if (!isOn(row, work.form.type()))
                continue;
            for (const auto& name : controlsOf(row)) {
                SCOPED_TRACE(name + " \"" + row.value + "\"");
                work.enter(name);
                work.put(name, row.value);
                leave();
                expectOutcome(row, name);
                work.form.setText(name, "");
            }
        }
    }

    RuledForm work;
};

} // namespace

TEST_P(Leaving, EachFieldSaysWhatIsWrongOrLetsGo)
{
    walk("rules.tsv");
}

TEST_P(Leaving, EachBoxOfSeveralValuesSaysWhatIsWrongOrLetsGo)
{
    walk("multiValueRules.tsv");
}

TEST_P(Leaving, AnEmptyFieldIsSilent)
{
    std::set<std::string> names;
    for (const auto* file : {"rules.tsv", "multiValueRules.tsv"}) {
        for (const auto& row : readRuleRows(file)) {
            for (const auto& name : controlsOf(row))
                names.insert(name);
        }
    }
    for (const auto& name : names) {
        if (!work.form.has(name))
            continue;
        work.enter(name);
        leave();
        EXPECT_NE(work.focus(), name);
        EXPECT_EQ(work.host.beeps, 0) << name;
        EXPECT_EQ(work.host.messages, std::vector<std::string>()) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(AllScreens, Leaving,
                         testing::Combine(testing::ValuesIn(allScreens), testing::Values("E", "F", "S")),
                         screenAndLanguage);

namespace {

// Controls that no rule of the tables is about, and why.
bool isFree(const std::string& name)
{
    static const std::set<std::string> free{
        "TxtVeldakey", "TxtDateRcv", "TxtAntennaCnt", // locked
        "TxtRemarks",  "coordProv",  "stateID",       // any text
        "st_Alt",      "antRef",     "distMax",       // any text
        "RLsec1",                                     // checked while it is typed
    };
    return free.contains(name) || name.starts_with("Rzone") || name.starts_with("noisTmp");
}

} // namespace

TEST(TablesOfRules, NameEveryFieldOfEveryScreenThatHasARule)
{
    std::set<std::pair<int, std::string>> named;
    for (const auto* file : {"rules.tsv", "multiValueRules.tsv"}) {
        for (const auto& row : readRuleRows(file)) {
            for (const char screen : row.screens) {
                for (const auto& name : controlsOf(row))
                    named.emplace(screen - '1', name);
            }
        }
    }
    for (const auto type : allScreens) {
        const RuledForm work(type);
        for (auto* const widget : work.form.findChildren<QWidget*>()) {
            const auto name = widget->objectName().section('(', 0, 0).toStdString();
            const bool isPart = qobject_cast<QComboBox*>(widget->parentWidget()) != nullptr;
            const bool takesText =
                !isPart && (qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget));
            if (!takesText || name.empty() || name.starts_with("qt_") || isFree(name))
                continue;
            EXPECT_TRUE(named.contains({static_cast<int>(type), name})) << typeName(type) << ' ' << name;
        }
    }
}

TEST(FieldRules, TheTextOfABadFieldIsSelected)
{
    RuledForm work(ScreenType::T11);
    work.enter("freq");
    work.put("freq", "12a");
    work.tab();
    EXPECT_EQ(work.form.control<QLineEdit>("freq")->selectedText(), "12a");
    work.type("7");
    work.tab();
    EXPECT_EQ(work.focus(), "Units1");
    EXPECT_EQ(work.form.text("freq"), "7");
    EXPECT_EQ(work.host.boxes.size(), 1U);
}

TEST(FieldRules, ABadFieldKeepsButtonsFromActing)
{
    RuledForm work(ScreenType::T11);
    work.enter("nAdm");
    work.put("nAdm", "h0l");
    work.click("Int_Sup");
    EXPECT_FALSE(work.form.isSelected("Int_Sup"));
    EXPECT_EQ(work.focus(), "nAdm");
    EXPECT_EQ(work.host.messages, std::vector<std::string>{"Value must have only characters"});
}

TEST(FieldRules, AValueSetByCodeRaisesNothing)
{
    RuledForm work(ScreenType::T11);
    work.enter("nAdm");
    work.form.setText("RLsec1", "xx");
    work.form.setText("freq", "xx");
    work.form.setText("nAdm", "hol");
    EXPECT_EQ(work.form.text("nAdm"), "hol");
    EXPECT_EQ(work.host.beeps, 0);
}

TEST(FieldRules, LettersBeyondTheAlphabetGetTheirCapitals)
{
    RuledForm work(ScreenType::T11);
    work.enter("siteName");
    work.form.setText("siteName", "übach à l'œil");
    work.tab();
    EXPECT_EQ(work.form.text("siteName"), "ÜBACH À L'ŒIL");
}

TEST(FieldRules, LengthsCountCharacters)
{
    RuledForm work(ScreenType::T11);
    work.enter("Rctry6");
    work.form.setText("Rctry6", "éàü");
    work.tab();
    EXPECT_EQ(work.host.messages, std::vector<std::string>());
}

TEST(FieldRules, ANumberThatNoWholeNumberHoldsIsOutOfRange)
{
    for (const auto& [name, value] : {std::pair{"ophhFr", "40E3"}, {"deg", "9E9"}, {"dNtcYY", "9E99"}}) {
        RuledForm work(ScreenType::T11);
        work.enter(name);
        work.put(name, value);
        work.tab();
        EXPECT_EQ(work.host.messages.size(), 1U) << name;
        EXPECT_EQ(work.focus(), name);
    }
    RuledForm work(ScreenType::T11);
    work.enter("freq"); // its value is not read
    work.put("freq", "9E999");
    work.tab();
    EXPECT_EQ(work.focus(), "Units1");
}

namespace {

class SecondsOfTheFirstRow : public testing::TestWithParam<ScreenType>
{};

} // namespace

TEST_P(SecondsOfTheFirstRow, AreCheckedAtEachChangeAndNotOnLeaving)
{
    RuledForm work(GetParam(), "F");
    work.enter("RLsec1");
    work.type("6");
    EXPECT_EQ(work.host.beeps, 0);
    work.type("0");
    EXPECT_EQ(work.host.beeps, 1);
    const FakeHost::Box range{"Error", "Value must be between [0,59]", platform::Icon::Exclamation,
                              platform::Buttons::Ok};
    EXPECT_EQ(work.host.boxes, std::vector{range});
    work.key(Qt::Key_Backspace);
    work.key(Qt::Key_Backspace);
    EXPECT_EQ(work.host.beeps, 1);
    work.type("-");
    EXPECT_EQ(work.host.messages.back(), "Value must be numerical");
    EXPECT_EQ(work.host.beeps, 2);
    EXPECT_EQ(work.form.text("RLsec1"), "-");
    work.tab();
    EXPECT_NE(work.focus(), "RLsec1");
    EXPECT_EQ(work.host.beeps, 2);
}

INSTANTIATE_TEST_SUITE_P(BothScreens, SecondsOfTheFirstRow, testing::Values(ScreenType::T11, ScreenType::T12),
                         screenName);
