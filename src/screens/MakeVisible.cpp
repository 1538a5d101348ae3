#include "screens/MakeVisible.h"

#include <array>
#include <span>
#include <string_view>

namespace MakeVisible {

namespace {

using namespace screens;

// The controls name`first` to name`last`; without numbers the one control of the name itself.
struct Controls
{
    std::string_view name;
    int first = 0, last = 0;
};
using Group = std::span<const Controls>;

// clang-format off
constexpr auto target = std::to_array<Controls>({
    {"trgadmRefID"}, {"trgBdwdth"}, {"trgDeg"}, {"trgEmi"}, {"trgFreq"}, {"trgLdeg"}, {"trgLMin"}, {"trgLsec"},
    {"trgMin"}, {"trgOphhFr"}, {"trgOphhTo"}, {"trgsec"}, {"trgStnCls"}, {"Unit"}, {"EW"}, {"NS"},
});
constexpr auto targetClassOfOperation = std::to_array<Controls>({{"trgOpCls"}});
// The noise of row 1 stands for all points together, and row 6 keeps its own.
constexpr auto furtherSites = std::to_array<Controls>({{"Rsite", 1, 6}, {"Rctry", 1, 6}, {"noisTmp", 2, 5}});
constexpr auto zones = std::to_array<Controls>({{"Rzone", 1, 24}});
constexpr auto circle = std::to_array<Controls>({
    {"RCDeg"}, {"RCMin"}, {"RCsec"}, {"RCEW"}, {"RCLdeg"}, {"RCLMin"}, {"RCLsec"}, {"RCNS"}, {"Rradius"},
});
constexpr auto points = std::to_array<Controls>({
    {"RDeg", 1, 6},  {"RMin", 1, 6},  {"Rsec", 1, 6},  {"REW", 1, 6},
    {"RLdeg", 1, 6}, {"RLMin", 1, 6}, {"RLsec", 1, 6}, {"RNS", 1, 6},
});
// clang-format on

// While the option is selected (is not selected) the group is shown or hidden.
struct Rule
{
    ScreenSet screens;
    std::string_view option;
    bool selected;
    Group group;
    bool shown;
};

// clang-format off
constexpr auto targetRules = std::to_array<Rule>({
    {onAll, "Int_Add", true,  target,                 false},
    {onAll, "Int_Add", false, target,                 true},
    {onT11, "Int_Add", true,  targetClassOfOperation, false},
    {onT11, "Int_Add", false, targetClassOfOperation, true},
});

// T12 asks for each option by itself: with none selected everything stays as it is.
constexpr auto areaRules = std::to_array<Rule>({
    {onT11, "multipt", true,  furtherSites, false},
    {onT11, "multipt", false, furtherSites, true},

    {onT12, "zone",    true,  zones,        true},
    {onT12, "zone",    true,  circle,       false},
    {onT12, "zone",    true,  points,       false},
    {onT12, "multipt", true,  zones,        false},
    {onT12, "multipt", true,  circle,       false},
    {onT12, "multipt", true,  points,       true},
    {onT12, "Rcircle", true,  zones,        false},
    {onT12, "Rcircle", true,  circle,       true},
    {onT12, "Rcircle", true,  points,       false},

    {onT13, "Tcircle", true,  zones,        false},
    {onT13, "Tcircle", true,  circle,       true},
    {onT13, "Tcircle", false, zones,        true},
    {onT13, "Tcircle", false, circle,       false},
});
// clang-format on

void setVisible(const NoticeForm& form, const std::string& name, bool shown)
{
    if (auto* control = form.control(name))
        control->setVisible(shown);
}

void setVisible(const NoticeForm& form, const Controls& controls, bool shown)
{
    const std::string name(controls.name);
    if (controls.last == 0) {
        setVisible(form, name, shown);
        return;
    }
    for (int number = controls.first; number <= controls.last; ++number)
        setVisible(form, name + std::to_string(number), shown);
}

void apply(std::span<const Rule> rules, const NoticeForm& form, const std::string& noticeType)
{
    if (screenOf(noticeType) != form.type())
        return;
    for (const auto& rule : rules)
        if (contains(rule.screens, form.type()) && form.isSelected(rule.option) == rule.selected)
            for (const auto& controls : rule.group)
                setVisible(form, controls, rule.shown);
}

} // namespace

void showAreaFields(NoticeForm& form, const std::string& noticeType)
{
    apply(areaRules, form, noticeType);
}

void showTargetFields(NoticeForm& form, const std::string& noticeType)
{
    apply(targetRules, form, noticeType);
}

} // namespace MakeVisible
