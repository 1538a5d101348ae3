#include "mainscreen/selectDlg.h"

#include "support/windows.h"

#include <gtest/gtest.h>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace {

using mainscreen::NoticeFilter;
using mainscreen::SelectDlg;
using namespace windows;
using States = std::array<std::int16_t, 4>;

constexpr std::array<const char*, 4> types = {"chkT11", "ChkT12", "ChkT13", "ChkT14"};
constexpr std::array<const char*, 4> intents = {"ChkAdd", "ChkMod", "ChkSup", "ChkWdraw"};
constexpr States none{};

class Filter : public testing::Test
{
protected:
    // A fresh dialog on what the filter holds, as each showing is.
    void openDialog()
    {
        dialog = std::make_unique<SelectDlg>(filter);
        open(*dialog);
    }
    QCheckBox& box(const char* name) { return control<QCheckBox>(*dialog, name); }
    bool isChecked(const char* name) { return box(name).isChecked(); }
    // By the keyboard, which reaches the box whatever its width is.
    void toggle(const char* name)
    {
        EXPECT_TRUE(box(name).isEnabled()) << name;
        box(name).setFocus();
        press(*dialog, Qt::Key_Space);
    }
    // A letter for each of the four intent boxes: "+" can be used, "-" can't.
    std::string enabledIntents()
    {
        std::string letters;
        for (const char* intent : intents)
            letters += box(intent).isEnabled() ? '+' : '-';
        return letters;
    }
    std::vector<std::string> marks()
    {
        std::vector<std::string> names;
        for (const auto* each : dialog->findChildren<QCheckBox*>())
            if (each->isChecked())
                names.push_back(each->objectName().toStdString());
        return names;
    }
    std::string clauseAfterOk(const std::vector<const char*>& boxes)
    {
        filter = {};
        openDialog();
        for (const char* name : boxes)
            toggle(name);
        click(*dialog, "OKButton");
        return filter.whereClause;
    }

    NoticeFilter filter;
    std::unique_ptr<SelectDlg> dialog;
};

using Names = std::vector<std::string>;

TEST_F(Filter, comesUpWithItsTexts)
{
    openDialog();
    EXPECT_EQ(badNames(*dialog), "");
    const std::pair<const char*, const char*> captions[] = {
        {"chkT11", "T11"},      {"ChkT12", "T12"},          {"ChkT13", "T13"},
        {"ChkT14", "T14"},      {"ChkAdd", "Add"},          {"ChkMod", "Modify"},
        {"ChkSup", "Suppress"}, {"ChkWdraw", "Withdraw"},   {"ChkSelectAll", "Select All"},
        {"OKButton", "OK"},     {"CancelButton", "Cancel"},
    };
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(control<QAbstractButton>(*dialog, name).text(), caption) << name;
    EXPECT_EQ(control<QLabel>(*dialog, "Lbl").text(), "AND");
    EXPECT_EQ(control<QGroupBox>(*dialog, "FrmIntent").title(), "Intent");
    for (const char* type : types)
        EXPECT_EQ(box(type).parentWidget()->objectName(), "FrmNoticeTpe");
    for (const char* intent : intents)
        EXPECT_EQ(box(intent).parentWidget()->objectName(), "FrmIntent");
    EXPECT_TRUE(control<QPushButton>(*dialog, "OKButton").isDefault());
}

TEST_F(Filter, opensWithAllSelectedAndNoStateWhenThereIsNoClause)
{
    filter.typeChecked = {1, 1, 0, 1};
    filter.intentChecked = {1, 0, 1, 0};
    openDialog();
    EXPECT_EQ(marks(), Names{"ChkSelectAll"});
    EXPECT_EQ(filter.typeChecked, none);
    EXPECT_EQ(filter.intentChecked, none);
    EXPECT_EQ(enabledIntents(), "++++");
}

TEST_F(Filter, opensWithTheMarksOfTheStatesAndSoEmptiesTheClause)
{
    filter = {"WHERE kvr_velda.notice_typ = 'T12' ", {0, 1, 0, 0}, {0, 0, 0, 1}};
    openDialog();
    EXPECT_EQ(marks(), (Names{"ChkT12", "ChkWdraw"}));
    EXPECT_EQ(filter.whereClause, "");
    EXPECT_EQ(filter.typeChecked, (States{0, 1, 0, 0}));
    EXPECT_EQ(filter.intentChecked, (States{0, 0, 0, 1}));
    EXPECT_EQ(enabledIntents(), "---+");
}

TEST_F(Filter, runsTheRuleOfEachBoxItSetsOnOpening)
{
    filter = {"WHERE x", {1, 0, 1, 0}, {}};
    openDialog();
    EXPECT_EQ(enabledIntents(), "----");
    // The types come first: the rule of the intent has the last word about the other three.
    filter = {"WHERE x", {1, 0, 1, 0}, {0, 1, 0, 0}};
    openDialog();
    EXPECT_EQ(enabledIntents(), "----") << "the box itself stays as the types left it";
}

TEST_F(Filter, keepsAClauseThatHasNoStates)
{
    filter.whereClause = "WHERE kvr_velda.adm = 'XYZ' ";
    openDialog();
    EXPECT_EQ(marks(), Names{});
    EXPECT_EQ(filter.whereClause, "WHERE kvr_velda.adm = 'XYZ' ");
    click(*dialog, "OKButton");
    EXPECT_EQ(filter.whereClause, "WHERE kvr_velda.adm = 'XYZ' ");
}

TEST_F(Filter, emptiesTheClauseAtEveryClick)
{
    filter.whereClause = "WHERE x";
    openDialog();
    for (const char* name :
         {"chkT11", "chkT11", "ChkT12", "ChkT12", "ChkT13", "ChkT13", "ChkT14", "ChkT14", "ChkAdd", "ChkAdd",
          "ChkMod", "ChkMod", "ChkSup", "ChkSup", "ChkWdraw", "ChkWdraw", "ChkSelectAll", "ChkSelectAll"}) {
        filter.whereClause = "WHERE x";
        toggle(name);
        EXPECT_EQ(filter.whereClause, "") << name;
    }
}

TEST_F(Filter, keepsTheIntentsForOneTypeOnly)
{
    openDialog();
    for (std::size_t first = 0; first < types.size(); ++first)
        for (std::size_t second = 0; second < types.size(); ++second) {
            if (first == second)
                continue;
            toggle(types[first]);
            EXPECT_FALSE(isChecked("ChkSelectAll"));
            EXPECT_EQ(filter.typeChecked[first], 1);
            EXPECT_EQ(enabledIntents(), "++++");
            toggle(types[second]);
            EXPECT_EQ(enabledIntents(), "----");
            toggle(types[first]); // one is left, and it counts as another one
            EXPECT_EQ(filter.typeChecked[first], 0);
            EXPECT_EQ(enabledIntents(), "----");
            toggle(types[second]);
            EXPECT_EQ(enabledIntents(), "++++");
            EXPECT_EQ(filter.typeChecked, none);
        }
}

TEST_F(Filter, keepsOneIntentAgainstTheOthers)
{
    openDialog();
    for (std::size_t intent = 0; intent < intents.size(); ++intent) {
        box("ChkSelectAll").setChecked(true);
        toggle(intents[intent]);
        EXPECT_FALSE(isChecked("ChkSelectAll"));
        States one{};
        one[intent] = 1;
        EXPECT_EQ(filter.intentChecked, one);
        std::string alone = "----";
        alone[intent] = '+';
        EXPECT_EQ(enabledIntents(), alone);
        toggle(intents[intent]);
        EXPECT_EQ(filter.intentChecked, none);
        EXPECT_EQ(enabledIntents(), "++++");
    }
}

TEST_F(Filter, letsATypeEnableTheIntentsThatAnIntentShutOut)
{
    openDialog();
    toggle("ChkAdd");
    toggle("chkT11");
    EXPECT_EQ(enabledIntents(), "++++");
    toggle("ChkMod");
    EXPECT_EQ(filter.intentChecked, (States{1, 1, 0, 0}));
    EXPECT_EQ(enabledIntents(), "-+--");
}

TEST_F(Filter, clearsEverythingBySelectAll)
{
    openDialog();
    for (const char* name : {"ChkSup", "chkT11", "ChkT14"})
        toggle(name);
    EXPECT_EQ(marks(), (Names{"chkT11", "ChkT14", "ChkSup"}));
    toggle("ChkSelectAll");
    EXPECT_EQ(marks(), Names{"ChkSelectAll"});
    EXPECT_EQ(filter.typeChecked, none);
    EXPECT_EQ(filter.intentChecked, none);
    EXPECT_EQ(enabledIntents(), "++++");
}

TEST_F(Filter, doesNothingMoreWhenSelectAllIsUnchecked)
{
    openDialog();
    filter.typeChecked = {1, 0, 0, 0};
    toggle("ChkSelectAll");
    EXPECT_EQ(marks(), Names{});
    EXPECT_EQ(filter.typeChecked, (States{1, 0, 0, 0}));
}

TEST_F(Filter, clearsStatesThatNoMarkStandsFor)
{
    openDialog();
    toggle("ChkSelectAll");
    filter.typeChecked = filter.intentChecked = {1, 1, 1, 1};
    toggle("ChkSelectAll");
    EXPECT_EQ(filter.typeChecked, none);
    EXPECT_EQ(filter.intentChecked, none);
}

TEST_F(Filter, writesTheClauseInTheOrderOfTheBoxes)
{
    const struct
    {
        std::vector<const char*> boxes;
        const char* clause;
    } rows[] = {
        {{}, ""},
        {{"ChkSelectAll"}, ""}, // unchecked by this, and nothing else checked
        {{"chkT11"}, "WHERE kvr_velda.notice_typ = 'T11' "},
        {{"ChkT12"}, "WHERE kvr_velda.notice_typ = 'T12' "},
        {{"ChkT13"}, "WHERE kvr_velda.notice_typ = 'T13' "},
        {{"ChkT14"}, "WHERE kvr_velda.notice_typ = 'T14' "},
        {{"ChkAdd"}, "WHERE kvr_velda.intent = 'ADD' "},
        {{"ChkMod"}, "WHERE kvr_velda.intent = 'MODIFY' "},
        {{"ChkSup"}, "WHERE kvr_velda.intent = 'SUPPRESS' "},
        {{"ChkWdraw"}, "WHERE kvr_velda.intent = 'WITHDRAW' "},
        {{"ChkT13", "chkT11"}, "WHERE kvr_velda.notice_typ = 'T11' OR kvr_velda.notice_typ = 'T13' "},
        {{"chkT11", "ChkT12"}, "WHERE kvr_velda.notice_typ = 'T11' OR kvr_velda.notice_typ = 'T12'  "},
        {{"chkT11", "ChkT12", "ChkT13", "ChkT14"},
         "WHERE kvr_velda.notice_typ = 'T11' OR kvr_velda.notice_typ = 'T12'  "
         "OR kvr_velda.notice_typ = 'T13' OR kvr_velda.notice_typ = 'T14' "},
        {{"chkT11", "ChkAdd"}, "WHERE kvr_velda.notice_typ = 'T11' AND kvr_velda.intent = 'ADD' "},
        {{"ChkT14", "ChkMod"}, "WHERE kvr_velda.notice_typ = 'T14' AND kvr_velda.intent = 'MODIFY' "},
        {{"ChkT12", "ChkSup"}, "WHERE kvr_velda.notice_typ = 'T12' AND kvr_velda.intent = 'SUPPRESS' "},
        {{"ChkT13", "ChkWdraw"}, "WHERE kvr_velda.notice_typ = 'T13' AND kvr_velda.intent = 'WITHDRAW' "},
        // An intent that was marked before the second type disabled it is read all the same; no parentheses.
        {{"ChkAdd", "chkT11", "ChkT13"},
         "WHERE kvr_velda.notice_typ = 'T11' OR kvr_velda.notice_typ = 'T13' "
         "AND kvr_velda.intent = 'ADD' "},
        // A type in between lets a second intent in.
        {{"ChkAdd", "chkT11", "ChkMod"},
         "WHERE kvr_velda.notice_typ = 'T11' AND kvr_velda.intent = 'ADD' AND kvr_velda.intent = 'MODIFY' "},
    };
    for (const auto& row : rows)
        EXPECT_EQ(clauseAfterOk(row.boxes), row.clause);
}

TEST_F(Filter, writesTheMarksAndNotTheStates)
{
    openDialog();
    toggle("ChkT12");
    filter.typeChecked = {1, 0, 1, 1};
    filter.intentChecked = {0, 1, 0, 0};
    click(*dialog, "OKButton");
    EXPECT_EQ(filter.whereClause, "WHERE kvr_velda.notice_typ = 'T12' ");
}

TEST_F(Filter, givesTheSameClauseWhenConfirmedAgain)
{
    const auto clause = clauseAfterOk({"ChkAdd", "chkT11", "ChkT13"});
    for (int showing = 0; showing < 2; ++showing) {
        openDialog();
        EXPECT_EQ(marks(), (Names{"chkT11", "ChkT13", "ChkAdd"}));
        click(*dialog, "OKButton");
        EXPECT_EQ(filter.whereClause, clause);
    }
}

TEST_F(Filter, losesItsClauseButNotItsStatesByCancel)
{
    const std::function<void()> ways[] = {
        [&] { click(*dialog, "CancelButton"); },
        [&] { press(*dialog, Qt::Key_Escape); },
        [&] { dialog->close(); },
    };
    for (const auto& way : ways) {
        clauseAfterOk({"ChkT13", "ChkSup"});
        openDialog();
        way();
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(filter.whereClause, "");
        EXPECT_EQ(filter.typeChecked, (States{0, 0, 1, 0}));
        EXPECT_EQ(filter.intentChecked, (States{0, 0, 1, 0}));
        openDialog();
        EXPECT_EQ(marks(), Names{"ChkSelectAll"});
        EXPECT_EQ(filter.typeChecked, none);
        EXPECT_EQ(filter.intentChecked, none);
    }
}

TEST_F(Filter, losesByCancelAlsoAClauseThatNoBoxEmptied)
{
    filter.whereClause = "WHERE x";
    openDialog();
    click(*dialog, "CancelButton");
    EXPECT_EQ(filter.whereClause, "");
}

TEST_F(Filter, takesEnterForOk)
{
    openDialog();
    toggle("ChkT12");
    press(*dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(filter.whereClause, "WHERE kvr_velda.notice_typ = 'T12' ");
}

} // namespace
