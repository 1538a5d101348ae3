#include "screens/fieldRules.h"

#include "platform/host.h"
#include "screens/fieldRuleTable.h"
#include "screens/fieldTest.h"
#include "screens/multiValueBox.h"
#include "screens/multiValueEntry.h"
#include "screens/targetRefusal.h"
#include "widgets/application.h"
#include "widgets/leaveGate.h"

#include <QLineEdit>

#include <array>
#include <map>

namespace screens {

namespace {

// Where a field sends the focus when it is left.
struct Jump
{
    const char* controls;
    ScreenSet screens;
    const char* target;
    bool (*applies)(const NoticeForm& form, const std::string& textLeft);
};

bool leftEmpty(const NoticeForm&, const std::string& textLeft)
{
    return textLeft.empty();
}

bool takesNoTarget(const NoticeForm& form, const std::string&)
{
    return !takesTarget(form);
}

constexpr std::array jumps = {
    Jump{"cAdm1-13", onAll, "opAgcy", leftEmpty},
    Jump{"opAgcy", onAll, "addr_cde", leftEmpty},
    Jump{"callSign", onT11 | onT12, "stateID", leftEmpty},
    Jump{"admRefID", onT11, "freq", takesNoTarget},
};

// What is checked when a control is left.
struct Field
{
    const Rule* rule = nullptr;
    const Jump* jump = nullptr;
};

// The degree field in the row of a site or country of a receiving station ("Rsite3": "RDeg3"); empty for any
// other control.
std::string degreeFieldOf(std::string_view control)
{
    const bool inRow = control.size() == 6 && (control.starts_with("Rsite") || control.starts_with("Rctry"));
    return inRow ? std::string("RDeg") + control.back() : std::string();
}

// Several points are one area, without sites and countries of its points.
void tellMultipoint(bool rowOfLists)
{
    constexpr Words words{"5a and 5b should be blank with option Multipoint", "", Wording::TitleOnly};
    if (rowOfLists) {
        warn(words);
        return;
    }
    platform::host().beep();
    platform::showMessage(words.english);
}

// True when the rule was broken: the field is blank and the focus at the degrees of its row.
bool breaksMultipoint(const NoticeForm& form, const std::string& control)
{
    const auto degrees = degreeFieldOf(control);
    if (degrees.empty() || !form.isSelected("multipt") || form.text(control).empty())
        return false;
    tellMultipoint(form.multiValueBox(control) != nullptr);
    form.setText(control, "");
    widgets::sendFocusTo(form.control(degrees));
    return true;
}

bool mayBeLeft(const NoticeForm& form, const std::string& control, const Field& field)
{
    if (breaksMultipoint(form, control) || (field.rule && !passes(form, control, *field.rule)))
        return false;
    const auto textLeft = form.text(control);
    if (auto* const box = form.multiValueBox(control))
        box->showFirstEntry();
    // Not backwards: the fields before would be out of the keyboard's reach.
    if (field.jump && !widgets::isLeavingBackwards() && field.jump->applies(form, textLeft))
        widgets::sendFocusTo(form.control(field.jump->target));
    return true;
}

std::map<std::string, Field> fieldsOn(ScreenType screen)
{
    std::map<std::string, Field> fields;
    for (const auto& rule : rulesOnLeaving()) {
        if (!contains(rule.screens, screen))
            continue;
        for (const auto& name : namesIn(rule.controls))
            fields[name].rule = &rule;
    }
    for (const auto& jump : jumps) {
        if (!contains(jump.screens, screen))
            continue;
        for (const auto& name : namesIn(jump.controls))
            fields[name].jump = &jump;
    }
    return fields;
}

void attachOnLeaving(NoticeForm& form)
{
    for (const auto& [name, field] : fieldsOn(form.type())) {
        auto* const control = form.control(name);
        if (!control)
            continue;
        widgets::checkOnLeaving(control,
                                [&form, name = name, field = field] { return mayBeLeft(form, name, field); });
        if (form.multiValueBox(name) && field.rule)
            takeEntriesByEnter(form, name, *field.rule);
    }
}

void attachOnChange(NoticeForm& form)
{
    for (const auto& rule : rulesOnChange()) {
        for (const auto& name : namesIn(rule.controls)) {
            auto* const field = form.control<QLineEdit>(name);
            if (!field || !contains(rule.screens, form.type()))
                continue;
            QObject::connect(
                field, &QLineEdit::textEdited, &form,
                widgets::guarded([&form, name, &rule](const QString&) { (void)passes(form, name, rule); }));
        }
    }
}

} // namespace

void attachFieldRules(NoticeForm& form)
{
    attachOnLeaving(form);
    attachOnChange(form);
    refuseTargetFields(form);
}

} // namespace screens
