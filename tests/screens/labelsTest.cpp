#include "screens/labels.h"

#include "labelWords.h"
#include "model/session.h"
#include "screens/labelTable.h"

#include <gtest/gtest.h>
#include <QAccessible>

#include <set>

namespace {

using namespace screens;
using labelWords::letters;

constexpr std::array types{ScreenType::T11, ScreenType::T12, ScreenType::T13, ScreenType::T14};
const QString before = QStringLiteral("before");

class Labels : public testing::Test
{
protected:
    ~Labels() override { session::language.clear(); }

    static void setLabels(NoticeForm& form, const std::string& letter)
    {
        session::language = letter;
        setScreenLabels(labelWords::typeText(form), form);
    }

    // So that whatever is found afterwards was set by the labels.
    static void forget(NoticeForm& form)
    {
        form.setWindowTitle(before);
        for (auto* control : labelWords::controls(form)) {
            labelWords::setCaption(*control, before);
            control->setToolTip(before);
        }
    }

    static QString captionOf(ScreenType type, const char* name, const std::string& letter)
    {
        NoticeForm form(type);
        setLabels(form, letter);
        return labelWords::caption(*form.control(name));
    }
};

void expectWords(const NoticeForm& form, std::size_t language)
{
    const auto shown = labelWords::shown(form);
    for (const auto& words : labelWords::of(form.type())) {
        const auto found = shown.find(labelWords::key(words));
        ASSERT_NE(found, shown.end()) << words.screen << " lacks " << words.control;
        const auto& text = words.texts.at(language);
        EXPECT_EQ(found->second.toStdString(), (text.isEmpty() ? before : text).toStdString())
            << words.screen << " " << found->first << " " << letters.at(language);
    }
}

TEST_F(Labels, eachScreenHasItsWordsInEachLanguage)
{
    for (const auto type : types)
        for (std::size_t language = 0; language < letters.size(); ++language) {
            NoticeForm form(type);
            forget(form);
            setLabels(form, letters.at(language));
            expectWords(form, language);
        }
}

// What the labels changed on a fresh screen, by property.
std::map<std::string, int> countChanges(const NoticeForm& form)
{
    std::map<std::string, int> counts;
    for (const auto& [name, text] : labelWords::shown(form))
        if (text != before && !(text.isEmpty() && name.starts_with("caption ")))
            ++counts[name.substr(0, name.find(' '))];
    return counts;
}

TEST_F(Labels, areTwoHundredAndTwentyNineAndLeaveAllOtherControlsAlone)
{
    const std::map<ScreenType, std::pair<int, int>> captionsAndTips{
        {ScreenType::T11, {25, 47}},
        {ScreenType::T12, {28, 40}},
        {ScreenType::T13, {24, 22}},
        {ScreenType::T14, {20, 23}},
    };
    for (const auto& [type, expected] : captionsAndTips) {
        NoticeForm form(type);
        forget(form);
        setLabels(form, "");
        auto counts = countChanges(form);
        EXPECT_EQ(counts["title"] + counts["caption"], expected.first) << typeName(type);
        EXPECT_EQ(counts["tip"], expected.second) << typeName(type);
    }
    EXPECT_EQ(labelWords::read().size(), 229U);
}

TEST_F(Labels, standEachOnceAScreenInTheTable)
{
    for (const auto type : types) {
        std::set<std::pair<LabelProperty, std::string_view>> seen;
        for (const auto& row : labelRows())
            EXPECT_TRUE(!contains(row.screens, type) || seen.emplace(row.property, row.control).second)
                << typeName(type) << " " << row.control;
        EXPECT_EQ(seen.size(), labelWords::of(type).size());
    }
}

TEST_F(Labels, areEnglishForAnyOtherLetter)
{
    for (const std::string letter : {"f", "s", "E", "X", "FR", " F", "F ", "S\n"}) {
        NoticeForm form(ScreenType::T13);
        setLabels(form, letter);
        expectWords(form, 0);
    }
}

TEST_F(Labels, areSetForTheTypeOfTheScreenOnly)
{
    NoticeForm form(ScreenType::T12);
    forget(form);
    const auto untouched = labelWords::shown(form);
    for (const std::string type : {"", "T10", "T15", "t12", "T12 ", "T1", "T11", "T13", "T14"}) {
        setScreenLabels(type, form);
        EXPECT_EQ(labelWords::shown(form), untouched) << type;
    }
}

TEST_F(Labels, keepTheTipThatHasNoFrenchWords)
{
    NoticeForm form(ScreenType::T14);
    auto* powerSymbol = form.control("pwr_eiv");
    powerSymbol->setToolTip(before);
    setLabels(form, "F");
    EXPECT_EQ(powerSymbol->toolTip(), before);
    setLabels(form, "");
    setLabels(form, "F");
    EXPECT_EQ(powerSymbol->toolTip(), "Radiated power symbol (E/I/V)");
    setLabels(form, "S");
    setLabels(form, "F");
    EXPECT_EQ(powerSymbol->toolTip(), QStringLiteral("Símbolo de potencia radiada (E/I/V)"));
}

TEST_F(Labels, belongToScreenAndControlTogether)
{
    const std::tuple<ScreenType, const char*, const char*, const char*> rows[] = {
        {ScreenType::T11, "Label67", "",
         "5a Name of the location of the receiving station(s)                              5b"},
        {ScreenType::T12, "Label67", "", "5d Area of the receiving station(s)"},
        {ScreenType::T13, "Label67", "",
         "4e Geographical Area(s) or Standard Area(s) in which the mobile transmitting station is operating"},
        {ScreenType::T11, "Label33", "",
         "4c  longitude              E/W    latitude                         N/S"},
        {ScreenType::T13, "Label33", "",
         "5c  longitude              E/W    latitude                         N/S"},
        {ScreenType::T14, "Label33", "",
         "4c  longitude              E/W    latitude                         N/S          and           4d"},
        {ScreenType::T11, "Label13", "S", "N° de Indice"},
        {ScreenType::T12, "Label13", "S", "N° Indice"},
        {ScreenType::T11, "LblAntennaCnt", "F", "Séction d'antenne numéro"},
        {ScreenType::T12, "LblAntennaCnt", "F", "Numéro de séction d'antenne"},
    };
    for (const auto& [type, control, letter, words] : rows)
        EXPECT_EQ(captionOf(type, control, letter).toStdString(), words) << typeName(type) << " " << control;
}

TEST_F(Labels, giveTheCloseButtonItsAccessKeyAndANameWithoutItsMark)
{
    const std::tuple<const char*, const char*, QString> rows[] = {
        {"", "&C", QStringLiteral("Close Screen")},
        {"F", "&F", QStringLiteral("Fermer écran")},
        {"S", "&C", QStringLiteral("Cerrar Ventana")},
    };
    NoticeForm form(ScreenType::T11);
    auto* close = form.control<QAbstractButton>("ButtonCancel");
    for (const auto& [letter, accessKey, name] : rows) {
        setLabels(form, letter);
        EXPECT_EQ(close->shortcut(), QKeySequence::mnemonic(accessKey)) << letter;
        EXPECT_EQ(QAccessible::queryAccessibleInterface(close)->text(QAccessible::Name), name) << letter;
    }
}

// Whatever name a control has of its own is shorter than its tip, and remarks such as "(not stored)" stay.
TEST_F(Labels, nameOnlyControlsThatHaveNoName)
{
    NoticeForm form(ScreenType::T11);
    form.control("pwrMax")->setAccessibleName("Maximum (not stored)");
    form.control("emi")->setAccessibleName("");
    form.control("emi")->setToolTip("");
    for (const auto& letter : letters) {
        setLabels(form, letter);
        EXPECT_EQ(form.control("pwrMax")->accessibleName(), "Maximum (not stored)");
        EXPECT_EQ(form.control("emi")->accessibleName(), form.control("emi")->toolTip());
    }
}

TEST_F(Labels, areNeverTakenForRichText)
{
    for (const auto& words : labelWords::read())
        for (const auto& text : words.texts)
            EXPECT_FALSE(Qt::mightBeRichText(text)) << text.toStdString();
}

} // namespace
