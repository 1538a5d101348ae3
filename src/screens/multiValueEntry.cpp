#include "screens/multiValueEntry.h"

#include "screens/fieldTest.h"
#include "screens/multiValueBox.h"
#include "widgets/application.h"

#include <algorithm>

namespace screens {

namespace {

constexpr Words duplicate{"Duplicate value", "", Wording::TitleOnly};

bool warnsOfDuplicates(const std::string& control)
{
    const auto names = namesIn("callSign natsrv opAgcy max_fr max_to");
    return std::find(names.begin(), names.end(), control) != names.end();
}

// One box for each equal entry.
void warnOfDuplicates(const MultiValueBox& box, const std::string& entry)
{
    const auto entries = box.entries();
    for (auto equal = std::count(entries.begin(), entries.end(), entry); equal > 0; --equal)
        warn(duplicate);
}

void takeEntry(const NoticeForm& form, const std::string& control, const Rule& rule)
{
    if (!passes(form, control, rule))
        return;
    auto& box = *form.multiValueBox(control);
    const auto entry = form.text(control);
    if (warnsOfDuplicates(control))
        warnOfDuplicates(box, entry);
    box.addEntry(entry);
    form.setText(control, "");
    if (control == "max_to") // pairs are typed in turn
        widgets::sendFocusTo(form.control("max_fr"));
}

} // namespace

void takeEntriesByEnter(NoticeForm& form, const std::string& control, const Rule& rule)
{
    auto* const box = form.multiValueBox(control);
    QObject::connect(box, &MultiValueBox::entered, &form,
                     widgets::guarded([&form, control, &rule] { takeEntry(form, control, rule); }));
}

} // namespace screens
