#include "screens/sectionTests.h"

#include "screens/controlValues.h"
#include "screens/fieldTest.h"

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

std::vector<std::string> entriesThatFit(const NoticeForm& form, std::string_view control)
{
    auto entries = entriesOf(form, control);
    if (entries.size() <= maxEntries)
        return entries;
    warn(tooManyEntries);
    focusOn(form, control);
    return {};
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
