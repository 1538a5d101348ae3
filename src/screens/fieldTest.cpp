#include "screens/fieldTest.h"

#include "model/ScreenModule.h"
#include "model/session.h"
#include "platform/host.h"

namespace screens {

namespace {

void refuse(const NoticeForm& form, const std::string& control, const Rule& rule, const Words* words)
{
    if ((rule.flags & silent) == 0)
        platform::host().beep();
    if (words != nullptr)
        tell(*words);
    if ((rule.flags & blanking) != 0)
        form.setText(control, "");
}

// Set only where it changes something: it would move the cursor, and no entry of a list be selected any more.
std::string upperCased(const NoticeForm& form, const std::string& control)
{
    const auto text = form.text(control);
    auto upperText = ScreenModule::upperText(text);
    if (upperText != text)
        form.setText(control, upperText);
    return upperText;
}

// Null for none.
const Step* failedStep(const Rule& rule, const std::string& text)
{
    for (const auto& step : rule.steps) {
        if (step.passes != nullptr && !step.passes(text))
            return &step;
    }
    return nullptr;
}

} // namespace

void tell(const Words& words)
{
    const auto box = boxText(words, session::language);
    platform::host().msgBox(box.text, platform::Buttons::Ok, platform::Icon::Exclamation, box.title);
}

void warn(const Words& words)
{
    platform::host().beep();
    tell(words);
}

bool passes(const NoticeForm& form, const std::string& control, const Rule& rule)
{
    const auto text = (rule.flags & upper) != 0 ? upperCased(form, control) : form.text(control);
    if (text.empty())
        return true;
    const auto* const failed = failedStep(rule, text);
    if (failed != nullptr)
        refuse(form, control, rule, failed->words);
    return failed == nullptr;
}

} // namespace screens
