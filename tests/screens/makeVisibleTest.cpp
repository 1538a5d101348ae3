#include "screens/MakeVisible.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace screens;
using MakeVisible::showAreaFields;
using MakeVisible::showTargetFields;

using Names = std::set<std::string>;

Names operator+(Names left, const Names& right)
{
    left.insert(right.begin(), right.end());
    return left;
}

Names numbered(const std::set<std::string>& stems, int first, int last)
{
    Names names;
    for (const auto& stem : stems)
        for (int number = first; number <= last; ++number)
            names.insert(stem + std::to_string(number));
    return names;
}

const Names targetFields{"trgadmRefID", "trgBdwdth", "trgDeg", "trgEmi",    "trgFreq",   "trgLdeg",
                         "trgLMin",     "trgLsec",   "trgMin", "trgOphhFr", "trgOphhTo", "trgsec",
                         "trgStnCls",   "Unit",      "EW",     "NS"};
const Names zones = numbered({"Rzone"}, 1, 24);
const Names circle{"RCDeg", "RCMin", "RCsec", "RCEW", "RCLdeg", "RCLMin", "RCLsec", "RCNS", "Rradius"};
const Names points = numbered({"RDeg", "RMin", "Rsec", "REW", "RLdeg", "RLMin", "RLsec", "RNS"}, 1, 6);
const Names furtherSites = numbered({"Rsite", "Rctry"}, 1, 6) + numbered({"noisTmp"}, 2, 5);

Names targetOf(ScreenType type)
{
    return type == ScreenType::T11 ? targetFields + Names{"trgOpCls"} : targetFields;
}

std::string withoutIndex(const QWidget& control)
{
    const auto name = control.objectName().toStdString();
    return name.substr(0, name.find('('));
}

// The controls out of sight, in a window that need not be open itself.
Names hidden(const NoticeForm& form)
{
    Names names;
    for (const auto* child : form.findChildren<QWidget*>())
        if (child->isHidden() && form.control(withoutIndex(*child)) == child)
            names.insert(withoutIndex(*child));
    return names;
}

void setAll(const NoticeForm& form, const Names& names, bool shown)
{
    for (const auto& name : names) {
        ASSERT_TRUE(form.has(name)) << name;
        form.control(name)->setVisible(shown);
    }
}

void clearOptions(const NoticeForm& form)
{
    for (const auto* option :
         {"Int_Add", "Int_Mod", "Int_Sup", "Int_Wdraw", "Rpoint", "multipt", "Rcircle", "zone", "Tcircle"})
        if (form.has(option))
            form.setSelected(option, false);
}

const std::string none;

void select(const NoticeForm& form, const std::string& option)
{
    clearOptions(form);
    if (!option.empty())
        form.setSelected(option, true);
}

std::string typeText(ScreenType type)
{
    return std::string(typeName(type));
}

struct Case
{
    ScreenType screen;
    std::string option; // selected; none when empty
    Names shown, hidden;
};

using Routine = void (*)(NoticeForm&, const std::string&);

// Whatever stood in sight before, the case's fields do as told and no other control of the screen is touched.
void expectRule(Routine routine, const Case& row)
{
    SCOPED_TRACE(typeText(row.screen) + " " + row.option);
    for (const bool before : {true, false}) {
        NoticeForm form(row.screen);
        select(form, row.option);
        setAll(form, row.shown + row.hidden, before);
        auto expected = hidden(form) + row.hidden;
        for (const auto& name : row.shown)
            expected.erase(name);

        routine(form, typeText(row.screen));
        EXPECT_EQ(hidden(form), expected) << "all " << (before ? "shown" : "hidden") << " before";
    }
}

TEST(TargetFields, areHiddenWithAddAndShownWithAnyOtherIntent)
{
    for (const auto type : {ScreenType::T11, ScreenType::T12, ScreenType::T13, ScreenType::T14}) {
        expectRule(showTargetFields, {type, "Int_Add", {}, targetOf(type)});
        for (const auto& option :
             {std::string("Int_Mod"), std::string("Int_Sup"), std::string("Int_Wdraw"), none})
            expectRule(showTargetFields, {type, option, targetOf(type), {}});
    }
}

TEST(AreaFields, ofFurtherSitesAreHiddenWithMultipointOnly)
{
    expectRule(showAreaFields, {ScreenType::T11, "multipt", {}, furtherSites});
    expectRule(showAreaFields, {ScreenType::T11, "Rpoint", furtherSites, {}});
    expectRule(showAreaFields, {ScreenType::T11, none, furtherSites, {}});
}

TEST(AreaFields, ofTheReceivingAreaFollowItsKind)
{
    expectRule(showAreaFields, {ScreenType::T12, "zone", zones, circle + points});
    expectRule(showAreaFields, {ScreenType::T12, "multipt", points, zones + circle});
    expectRule(showAreaFields, {ScreenType::T12, "Rcircle", circle, zones + points});
    expectRule(showAreaFields, {ScreenType::T12, none, {}, {}});
}

TEST(AreaFields, ofTheTransmittingAreaAreZonesUnlessItIsACircle)
{
    expectRule(showAreaFields, {ScreenType::T13, "Tcircle", circle, zones});
    expectRule(showAreaFields, {ScreenType::T13, "zone", zones, circle});
    expectRule(showAreaFields, {ScreenType::T13, none, zones, circle});
}

TEST(AreaFields, changeFromZonesToACircleAndLeaveThePointsHidden)
{
    NoticeForm form(ScreenType::T12);
    select(form, "zone");
    showAreaFields(form, "T12");
    EXPECT_EQ(hidden(form), circle + points);
    select(form, "Rcircle");
    showAreaFields(form, "T12");
    EXPECT_EQ(hidden(form), zones + points);
}

TEST(AreaFields, ofAScreenWithoutAreaAreNone)
{
    NoticeForm form(ScreenType::T14);
    for (const auto* option : {"Int_Add", "Int_Mod"}) {
        select(form, option);
        const auto before = hidden(form);
        showAreaFields(form, "T14");
        EXPECT_EQ(hidden(form), before);
    }
}

TEST(Visibility, changesForTheTypeOfTheScreenOnly)
{
    NoticeForm form(ScreenType::T11);
    select(form, "multipt");
    setAll(form, furtherSites + targetOf(ScreenType::T11), true);
    form.setSelected("Int_Add", true);
    setAll(form, furtherSites + targetOf(ScreenType::T11), true);
    const auto before = hidden(form);
    for (const std::string type : {"", "T10", "T15", "t11", "T11 ", "T12", "T13", "T14"}) {
        showAreaFields(form, type);
        showTargetFields(form, type);
        EXPECT_EQ(hidden(form), before) << type;
    }
}

TEST(Visibility, changesNoValueAndEnablesNothing)
{
    NoticeForm form(ScreenType::T12);
    for (const auto& name : targetFields + zones + circle + points)
        form.setText(name, "1");
    form.control("Rzone3")->setEnabled(false);
    for (const auto* option : {"zone", "multipt", "Rcircle"}) {
        form.setSelected(option, true);
        form.setSelected("Int_Add", true);
        showAreaFields(form, "T12");
        showTargetFields(form, "T12");
        EXPECT_TRUE(form.isSelected(option));
        EXPECT_TRUE(form.isSelected("Int_Add"));
        for (const auto& name : targetFields + zones + circle + points) {
            EXPECT_EQ(form.text(name), "1") << name;
            EXPECT_EQ(form.control(name)->isEnabled(), name != "Rzone3") << name;
        }
    }
}

} // namespace
