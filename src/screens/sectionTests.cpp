#include "screens/sectionTests.h"

#include "screens/controlValues.h"
#include "screens/fieldTest.h"

#include <algorithm>

namespace screens {

namespace {

constexpr Words tooManyEntries{"Too many multi-values, contact the administrator", "", Wording::TitleOnly};
constexpr Words unpairedSector{"Either the azm_fr or azm_to is missing", "", Wording::TitleOnly};

void focusOn(const NoticeForm& form, std::string_view control)
{
    if (auto* box = form.control(control))
        box->setFocus();
}

} // namespace

bool entriesFit(const NoticeForm& form, std::string_view control)
{
    if (entriesOf(form, control).size() <= maxEntries)
        return true;
    warn(tooManyEntries);
    focusOn(form, control);
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
    const bool paired = starts == entriesOf(form, "max_to").size();
    if (paired && starts <= maxEntries)
        return true;
    tell(paired ? tooManyEntries : unpairedSector);
    focusOn(form, "max_fr");
    return false;
}

} // namespace screens
