#include "labelWords.h"
#include "model/session.h"
#include "screens/labels.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace screens;

// Every change from one language to another, columns of the words.
constexpr std::array<std::size_t, 7> walk{0, 1, 2, 0, 2, 1, 0};

class LanguageSweep : public testing::TestWithParam<ScreenType>
{
protected:
    ~LanguageSweep() override { session::language.clear(); }

    void change(std::size_t language)
    {
        session::language = labelWords::letters.at(language);
        setScreenLabels(labelWords::typeText(form), form);
    }

    NoticeForm form{GetParam()};
    const std::map<std::string, QString> atFirst = labelWords::shown(form);
};

// The words that every control should show now, the free ones as they stood at first. A control without words
// in this language keeps the last ones.
void take(std::map<std::string, QString>& expected, ScreenType type, std::size_t language)
{
    for (const auto& words : labelWords::of(type))
        if (!words.texts.at(language).isEmpty())
            expected[labelWords::key(words)] = words.texts.at(language);
}

TEST_P(LanguageSweep, leavesNoWordsOfAnotherLanguage)
{
    auto expected = atFirst;
    for (const auto language : walk) {
        change(language);
        take(expected, GetParam(), language);
        const auto shown = labelWords::shown(form);
        for (const auto& [name, text] : expected)
            EXPECT_EQ(shown.at(name), text) << name << " " << labelWords::letters.at(language);
    }
}

// Words that are one language's alone, and so give it away wherever they stand.
std::set<QString> wordsOnlyIn(std::size_t language)
{
    std::set<QString> mine, others;
    for (const auto& words : labelWords::read())
        for (std::size_t column = 0; column < words.texts.size(); ++column)
            (column == language ? mine : others).insert(words.texts.at(column));
    std::erase_if(mine, [&others](const QString& text) { return text.isEmpty() || others.contains(text); });
    return mine;
}

// Captions outside the table are English in every language, and one tip has no French words.
bool mayShow(const std::string& name, std::size_t words, std::size_t language)
{
    return words == language || (words == 0 && name.starts_with("caption ")) ||
           (language == 1 && name == "tip pwr_eiv");
}

TEST_P(LanguageSweep, putsNoWordsWhereTheyDoNotBelong)
{
    const std::array foreign{wordsOnlyIn(0), wordsOnlyIn(1), wordsOnlyIn(2)};
    for (const auto language : walk) {
        change(language);
        for (const auto& [name, text] : labelWords::shown(form))
            for (std::size_t words = 0; words < foreign.size(); ++words)
                EXPECT_TRUE(mayShow(name, words, language) || !foreign.at(words).contains(text))
                    << name << ": " << text.toStdString();
    }
}

TEST_P(LanguageSweep, readsOutTheCaptionsThatAreShown)
{
    for (const auto language : walk) {
        change(language);
        for (const auto& words : labelWords::of(GetParam())) {
            if (words.property != "caption")
                continue;
            const auto* control = form.findChild<QWidget*>(QString::fromStdString(words.control));
            ASSERT_TRUE(control) << words.control;
            EXPECT_EQ(control->accessibleName(), labelWords::caption(*control).remove('&')) << words.control;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, LanguageSweep,
                         testing::Values(ScreenType::T11, ScreenType::T12, ScreenType::T13, ScreenType::T14),
                         [](const auto& screen) { return std::string(typeName(screen.param)); });

} // namespace
