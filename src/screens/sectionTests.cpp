#include "screens/sectionTests.h"

#include "model/session.h"
#include "platform/host.h"
#include "screens/controlValues.h"

#include <algorithm>

namespace screens {

namespace {

constexpr const char* tooManyEntries = "Too many multi-values, contact the administrator";
constexpr const char* unpairedSector = "Either the azm_fr or azm_to is missing";

// The words are English in every language, the title is not.
void tellProblem(const NoticeForm& form, std::string_view control, const char* words)
{
    const char* title = session::language == "F" ? "Erreur" : "Error";
    platform::host().msgBox(words, platform::Buttons::Ok, platform::Icon::Exclamation, title);
    if (auto* box = form.control(control))
        box->setFocus();
}

} // namespace

bool entriesFit(const NoticeForm& form, std::string_view control)
{
    if (entriesOf(form, control).size() <= maxEntries)
        return true;
    platform::host().beep();
    tellProblem(form, control, tooManyEntries);
    return false;
}

bool allEntriesFit(const NoticeForm& form, const std::vector<std::string>& controls)
{
    return std::all_of(controls.begin(), controls.end(),
                       [&](const std::string& control) { return entriesFit(form, control); });
}

// Neither of these two boxes comes with a beep.
bool rotationPairsFit(const NoticeForm& form)
{
    const auto starts = entriesOf(form, "max_fr").size();
    const char* words = nullptr;
    if (starts != entriesOf(form, "max_to").size())
        words = unpairedSector;
    else if (starts > maxEntries)
        words = tooManyEntries;
    if (words)
        tellProblem(form, "max_fr", words);
    return words == nullptr;
}

} // namespace screens
