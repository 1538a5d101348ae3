// Where the rules of the fields send the focus: refused target fields, jumps of empty fields, the option for
// several points, and the way of the Tab key round each screen.
#include "ruledForm.h"

#include "screens/MakeVisible.h"

#include <QAbstractButton>

#include <algorithm>

namespace {

using screens::ScreenType;
using Messages = std::vector<std::string>;

std::vector<std::string> targetFields(ScreenType type)
{
    std::vector<std::string> names{"trgadmRefID", "trgFreq",   "Unit",    "trgStnCls", "trgBdwdth", "trgEmi",
                                   "trgOphhFr",   "trgOphhTo", "trgDeg",  "trgMin",    "trgsec",    "EW",
                                   "trgLdeg",     "trgLMin",   "trgLsec", "NS"};
    if (type == ScreenType::T11)
        names.emplace_back("trgOpCls");
    if (type == ScreenType::T14)
        names.emplace_back("trgZoneID");
    return names;
}

const FakeHost::Box refusal{"", "Only allowed for Mod/Sup/Wdraw notices", platform::Icon::None,
                            platform::Buttons::Ok};

class Target : public testing::TestWithParam<ScreenType>
{
protected:
    void expectRefusal(const std::string& name)
    {
        EXPECT_EQ(work.host.boxes, std::vector{refusal}) << name;
        EXPECT_EQ(work.host.beeps, 1) << name;
        EXPECT_EQ(work.focus(), "freq") << name;
    }

    RuledForm work{GetParam(), "F"};
};

} // namespace

TEST_P(Target, IsRefusedOnceWhateverBroughtTheFocus)
{
    for (const auto* intent : {"", "Int_Add"}) {
        work.form.setSelected(intent, true);
        for (const auto& name : targetFields(GetParam())) {
            for (const auto reason : {Qt::OtherFocusReason, Qt::TabFocusReason, Qt::BacktabFocusReason,
                                      Qt::ShortcutFocusReason, Qt::MouseFocusReason}) {
                work.enter("coordProv");
                work.control(name).setFocus(reason);
                expectRefusal(name);
            }
        }
    }
}

TEST_P(Target, IsRefusedOnceWhenClicked)
{
    for (const auto& name : targetFields(GetParam())) {
        work.enter("coordProv");
        work.click(name);
        expectRefusal(name);
    }
}

TEST_P(Target, ThatIsRefusedIsNotCheckedItself)
{
    for (const auto& name : targetFields(GetParam())) {
        work.form.setText(name, "?9?");
        work.enter("coordProv");
        work.click(name);
        expectRefusal(name);
        EXPECT_EQ(work.form.text(name), "?9?");
    }
}

TEST_P(Target, IsOpenForNoticesThatHaveOne)
{
    for (const auto* intent : {"Int_Mod", "Int_Sup", "Int_Wdraw"}) {
        work.form.setSelected(intent, true);
        for (const auto& name : targetFields(GetParam())) {
            work.enter("coordProv");
            work.click(name);
            EXPECT_EQ(work.focus(), name);
            EXPECT_EQ(work.host.boxes, std::vector<FakeHost::Box>()) << name;
        }
    }
}

TEST_P(Target, IsNotEvenReachedFromABadField)
{
    work.enter("nAdm");
    work.type("h0l");
    work.control("trgFreq").setFocus();
    EXPECT_EQ(work.focus(), "nAdm");
    work.click("trgFreq");
    EXPECT_EQ(work.focus(), "nAdm");
    const Messages twice(2, "Value must have only characters");
    EXPECT_EQ(work.host.messages, twice);
}

TEST_P(Target, KeepsOperatorsWithABadValueInsteadOfLettingThemTakeBackTheIntent)
{
    work.form.setSelected("Int_Mod", true);
    work.enter("trgFreq");
    work.type("x");
    work.click("Int_Add");
    EXPECT_EQ(work.host.messages, Messages{"Value must be numerical"});
    EXPECT_TRUE(work.form.isSelected("Int_Mod"));
    EXPECT_EQ(work.focus(), "trgFreq");
}

// As a move to the next notice leaves it, where the field stays in sight.
TEST(TargetZone, IsCheckedInTheOperatorsHandThoughTheNoticeTakesNoTargetAnyMore)
{
    RuledForm work(ScreenType::T14);
    work.form.setSelected("Int_Mod", true);
    work.enter("trgZoneID");
    work.form.setSelected("Int_Add", true);
    work.type("a1");
    work.tab();
    EXPECT_EQ(work.host.messages, Messages{"Value must have only characters"});
    EXPECT_EQ(work.focus(), "trgZoneID");
    work.click("Int_Mod");
    EXPECT_EQ(work.host.messages, Messages(2, "Value must have only characters"));
    EXPECT_EQ(work.focus(), "trgZoneID");
    EXPECT_FALSE(work.form.isSelected("Int_Mod"));
}

INSTANTIATE_TEST_SUITE_P(AllScreens, Target, testing::ValuesIn(allScreens), screenName);

namespace {

class Jump : public testing::TestWithParam<ScreenType>
{
protected:
    // From the field, left by each of the ways forward.
    void expectJump(const std::string& from, const std::string& to)
    {
        SCOPED_TRACE(from);
        work.enter(from);
        work.tab();
        EXPECT_EQ(work.focus(), to);
        work.enter(from);
        work.click("coordProv");
        EXPECT_EQ(work.focus(), to);
        work.enter(from);
        work.control("TxtRemarks").setFocus();
        EXPECT_EQ(work.focus(), to);
        EXPECT_EQ(work.host.beeps, 0);
    }
    void expectButtonActs(const std::string& from, const std::string& to)
    {
        SCOPED_TRACE(from);
        work.form.setSelected("Int_Add", true);
        work.enter(from);
        work.click("Int_Mod");
        EXPECT_TRUE(work.form.isSelected("Int_Mod"));
        EXPECT_EQ(work.focus(), to);
    }

    RuledForm work{GetParam()};
};

} // namespace

TEST_P(Jump, AnEmptyAdministrationEndsTheirList)
{
    for (int index = 1; index <= 13; ++index)
        expectJump("cAdm" + std::to_string(index), "opAgcy");
    work.enter("cAdm4");
    work.type("d");
    work.tab();
    EXPECT_EQ(work.focus(), "cAdm5");
    work.enter("cAdm4");
    work.click("freq");
    EXPECT_EQ(work.focus(), "freq");
}

TEST_P(Jump, AnEmptyAgencySendsToItsAddress)
{
    expectJump("opAgcy", "addr_cde");
    auto& box = *work.form.multiValueBox("opAgcy");
    box.addEntry("1");
    box.showFirstEntry();
    work.enter("opAgcy");
    work.click("coordProv");
    EXPECT_EQ(work.focus(), "coordProv");
}

TEST_P(Jump, WhatTheOperatorLeftIsEmptyThoughAnEntryIsShownThen)
{
    work.enter("opAgcy");
    work.type("abc");
    work.key(Qt::Key_Return);
    work.click("coordProv");
    EXPECT_EQ(work.focus(), "addr_cde");
    EXPECT_EQ(work.form.text("opAgcy"), "abc");
    EXPECT_EQ(work.form.multiValueBox("opAgcy")->selectedEntry(), 0);
}

TEST_P(Jump, AClickedButtonIsPressedAndTheJumpKeepsTheFocus)
{
    expectButtonActs("cAdm1", "opAgcy");
    expectButtonActs("opAgcy", "addr_cde");
    if (work.form.has("callSign"))
        expectButtonActs("callSign", "stateID");
    int updates = 0;
    QObject::connect(qobject_cast<QAbstractButton*>(&work.control("ButtonUpdate")), &QAbstractButton::clicked,
                     [&] { ++updates; });
    work.enter("cAdm2");
    work.click("ButtonUpdate");
    EXPECT_EQ(updates, 1);
    EXPECT_EQ(work.focus(), "opAgcy");
}

TEST_P(Jump, ABadFieldIsHeldAndDoesNotJump)
{
    work.enter("opAgcy");
    work.type("abcd");
    work.tab();
    EXPECT_EQ(work.focus(), "opAgcy");
    EXPECT_EQ(work.host.boxes.size(), 1U);
}

TEST_P(Jump, GoingBackIsNotSentForward)
{
    work.enter("opAgcy");
    work.backtab();
    EXPECT_EQ(work.focus(), "cAdm13");
    work.backtab();
    EXPECT_EQ(work.focus(), "cAdm12");
}

TEST_P(Jump, TheReferenceSendsPastTheTargetOnTheFirstScreenAlone)
{
    if (GetParam() == ScreenType::T11) {
        expectJump("admRefID", "freq");
        work.form.setSelected("Int_Add", true);
        work.form.setText("admRefID", "A1");
        expectJump("admRefID", "freq");
    } else {
        work.enter("admRefID");
        work.tab();
        EXPECT_EQ(work.host.boxes, std::vector{refusal});
        EXPECT_EQ(work.focus(), "freq");
    }
    work.form.setSelected("Int_Sup", true);
    work.enter("admRefID");
    work.tab();
    EXPECT_EQ(work.focus(), "trgadmRefID");
    EXPECT_EQ(work.host.beeps, 0);
}

INSTANTIATE_TEST_SUITE_P(AllScreens, Jump, testing::ValuesIn(allScreens), screenName);

TEST(CallSign, LeftEmptySendsToTheStation)
{
    for (const auto type : {ScreenType::T11, ScreenType::T12}) {
        RuledForm work(type);
        work.enter("callSign");
        work.click("freq");
        EXPECT_EQ(work.focus(), "stateID");
        work.enter("callSign");
        work.type("pa");
        work.click("freq"); // the text is lost, and yet the box was not left empty
        EXPECT_EQ(work.focus(), "freq");
        EXPECT_EQ(work.form.text("callSign"), "");
    }
}

TEST(Jumps, AHiddenTargetGetsNoFocus)
{
    RuledForm work(ScreenType::T11);
    work.control("addr_cde").hide();
    work.enter("opAgcy");
    work.click("freq");
    EXPECT_EQ(work.focus(), "freq");
}

TEST(Jumps, AFieldThatIsHiddenInTheOperatorsHandIsNeitherCheckedNorAreItsNeighboursRefused)
{
    RuledForm work(ScreenType::T14);
    work.form.setSelected("Int_Mod", true);
    work.enter("trgFreq");
    work.type("x");
    work.form.setSelected("Int_Add", true);
    MakeVisible::showTargetFields(work.form, "T14");
    EXPECT_EQ(work.host.beeps, 0);
    EXPECT_FALSE(work.control("trgFreq").isVisible());
    EXPECT_EQ(work.focus(), "freq");
    QCoreApplication::processEvents();
    work.click("trgZoneID");
    EXPECT_EQ(work.host.boxes, std::vector{refusal});
}

namespace {

class SeveralPoints : public testing::Test
{
protected:
    SeveralPoints() { work.form.setSelected("multipt", true); }

    void expectBlanked(const std::string& name, const FakeHost::Box& box)
    {
        SCOPED_TRACE(name);
        EXPECT_EQ(work.host.boxes, std::vector{box});
        EXPECT_EQ(work.host.beeps, 1);
        EXPECT_EQ(work.form.text(name), "");
        EXPECT_EQ(work.focus(), std::string("RDeg") + name.back());
    }
    void fill(const std::string& name)
    {
        work.enter(name);
        work.type("x1");
    }

    const FakeHost::Box plain{"", "5a and 5b should be blank with option Multipoint", platform::Icon::None,
                              platform::Buttons::Ok};
    RuledForm work{ScreenType::T11, "F"};
};

} // namespace

TEST_F(SeveralPoints, LeaveNoSiteAndNoCountry)
{
    for (const std::string column : {"Rsite", "Rctry"}) {
        for (int row = 1; row <= 5; ++row) {
            const auto name = column + std::to_string(row);
            fill(name);
            work.tab();
            expectBlanked(name, plain);
            fill(name);
            work.click("freq");
            expectBlanked(name, plain);
            fill(name);
            work.control("RDeg" + std::to_string(row)).setFocus();
            expectBlanked(name, plain);
        }
    }
}

TEST_F(SeveralPoints, LeaveNoSiteAndNoCountryInTheLastRowEither)
{
    for (const auto* language : {"F", "S", "E"}) {
        session::language = language;
        auto box = plain;
        box.title = std::string(language) == "F" ? "Erreur" : "Error";
        box.icon = platform::Icon::Exclamation;
        for (const auto* name : {"Rsite6", "Rctry6"}) {
            fill(name);
            work.tab();
            expectBlanked(name, box);
        }
    }
}

TEST_F(SeveralPoints, AreToldBeforeAButtonActs)
{
    fill("Rsite2");
    work.click("Rpoint");
    expectBlanked("Rsite2", plain);
    EXPECT_TRUE(work.form.isSelected("multipt"));
}

TEST_F(SeveralPoints, LetEmptyFieldsBe)
{
    work.enter("Rsite1");
    work.tab();
    EXPECT_EQ(work.focus(), "Rctry1");
    work.tab();
    EXPECT_EQ(work.focus(), "RDeg1");
    EXPECT_EQ(work.host.beeps, 0);
}

TEST_F(SeveralPoints, AskNothingOfHiddenDegrees)
{
    work.control("RDeg3").hide();
    fill("Rsite3");
    work.tab();
    EXPECT_EQ(work.host.boxes, std::vector{plain});
    EXPECT_EQ(work.form.text("Rsite3"), "");
    EXPECT_EQ(work.focus(), "Rsite3");
    work.tab();
    EXPECT_EQ(work.focus(), "Rctry3");
}

TEST_F(SeveralPoints, OnTheOtherScreenHaveNoSites)
{
    RuledForm second(ScreenType::T12);
    second.form.setSelected("multipt", true);
    second.enter("siteName");
    second.type("x");
    second.tab();
    EXPECT_EQ(second.form.text("siteName"), "X");
    EXPECT_EQ(second.host.beeps, 0);
}

namespace {

using RoundOf = std::tuple<ScreenType, const char*, bool>;

std::string roundName(const testing::TestParamInfo<RoundOf>& test)
{
    const auto& [type, intent, filled] = test.param;
    return std::string(screens::typeName(type)) + (intent + 4) + (filled ? "Filled" : "Empty");
}

// A screen with an intent, and each field empty or with a value that is let through.
class Round : public testing::TestWithParam<RoundOf>
{
protected:
    Round()
    {
        const auto& [type, intent, filled] = GetParam();
        work.form.setSelected(intent, true);
        MakeVisible::showTargetFields(work.form, std::string(screens::typeName(type)));
        if (filled)
            fill();
    }

    void fill()
    {
        for (const auto* file : {"rules.tsv", "multiValueRules.tsv"}) {
            for (const auto& row : readRuleRows(file)) {
                if (!isOn(row, work.form.type()) || row.kind != "ok")
                    continue;
                for (const auto& name : controlsOf(row))
                    fill(name, row.text);
            }
        }
    }
    void fill(const std::string& name, const std::string& value)
    {
        if (auto* const box = work.form.multiValueBox(name)) {
            box->addEntry(value);
            box->showFirstEntry();
        } else {
            work.form.setText(name, value);
        }
    }

    // The stops of one round, from the notifying administration back to it; without end none come back.
    std::vector<std::string> walk(void (RuledForm::*step)())
    {
        work.enter("nAdm");
        std::vector<std::string> stops;
        do {
            (work.*step)();
            stops.push_back(work.focus());
        } while (stops.back() != "nAdm" && stops.size() < 400);
        EXPECT_EQ(stops.back(), "nAdm");
        EXPECT_EQ(work.host.messages, Messages());
        return stops;
    }
    static bool isAmong(const std::vector<std::string>& stops, const char* name)
    {
        return std::find(stops.begin(), stops.end(), name) != stops.end();
    }

    RuledForm work{std::get<0>(GetParam())};
};

} // namespace

TEST_P(Round, EndsWhereItBegan)
{
    const auto& [type, intent, filled] = GetParam();
    const auto stops = walk(&RuledForm::tab);
    const bool add = std::string(intent) == "Int_Add";
    EXPECT_EQ(isAmong(stops, "trgFreq"), !add);
    EXPECT_EQ(isAmong(stops, "cAdm2"), filled);
    for (const auto* name :
         {"admRefID", "freq", "opAgcy", "addr_cde", "pwrtype", "TxtRemarks", "ButtonCancel"})
        EXPECT_TRUE(isAmong(stops, name)) << name;
}

TEST_P(Round, EndsWhereItBeganGoingBack)
{
    auto back = walk(&RuledForm::backtab);
    // Nothing is out of reach: backwards no field is passed by.
    for (const auto* name :
         {"admRefID", "freq", "cAdm1", "cAdm2", "cAdm13", "opAgcy", "addr_cde", "TxtRemarks"})
        EXPECT_TRUE(std::find(back.begin(), back.end(), name) != back.end()) << name;
}

INSTANTIATE_TEST_SUITE_P(AllScreens, Round,
                         testing::Combine(testing::ValuesIn(allScreens),
                                          testing::Values("Int_Add", "Int_Mod"), testing::Bool()),
                         roundName);

TEST(Rounds, WithoutAnIntentTheTargetIsRefusedOnceOnTheWay)
{
    for (const auto type : allScreens) {
        RuledForm work(type);
        work.enter("nAdm");
        int steps = 0;
        do
            work.tab();
        while (work.focus() != "nAdm" && ++steps < 400);
        EXPECT_EQ(work.focus(), "nAdm");
        EXPECT_EQ(work.host.boxes.size(), type == ScreenType::T11 ? 0U : 1U);
    }
}
