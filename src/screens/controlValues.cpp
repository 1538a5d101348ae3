#include "screens/controlValues.h"

#include "model/ScreenModule.h"
#include "platform/ansiText.h"
#include "platform/numberText.h"
#include "screens/multiValueBox.h"

#include <QAbstractButton>

namespace screens {

namespace {

std::string withoutLeadingZeros(const std::string& digits)
{
    return platform::numberText(platform::readNumber(digits));
}

} // namespace

void blank(const NoticeForm& form, std::string_view control)
{
    if (auto* box = form.multiValueBox(control))
        box->clearAll();
    else if (form.control<QAbstractButton>(control))
        form.setSelected(control, false);
    else
        form.setText(control, {});
}

void blankAll(const NoticeForm& form, const std::vector<std::string>& controls)
{
    for (const auto& control : controls)
        blank(form, control);
}

void showText(const NoticeForm& form, std::string_view control, const std::string& value)
{
    if (!value.empty())
        form.setText(control, value);
}

void takeText(const NoticeForm& form, std::string_view control, std::string& member)
{
    auto text = form.text(control);
    if (!text.empty())
        member = std::move(text);
}

void showFrequency(const NoticeForm& form, std::string_view control, std::string_view unit,
                   const std::string& megahertz)
{
    if (megahertz.empty())
        return;
    form.setText(control, megahertz);
    form.setText(unit, "M");
}

std::string frequencyOf(const NoticeForm& form, std::string_view control, std::string_view unit)
{
    const auto text = form.text(control);
    if (text.empty())
        return {};
    const auto megahertz = ScreenModule::freqToMHz(platform::readNumber(text), form.text(unit));
    // What a multiplication leaves behind the fifteenth digit is not what was typed.
    return platform::equalNoCase(form.text(unit), "M") ? platform::exactNumberText(megahertz)
                                                       : platform::numberText(megahertz);
}

DateParts partsOf(const std::string& date)
{
    DateParts parts;
    auto text = ScreenModule::formatDateDots(date);
    ScreenModule::splitDottedDate(text, parts.year, parts.month, parts.day);
    return parts;
}

void showDate(const NoticeForm& form, const fields::DateRow& row, const std::string& date)
{
    if (date.empty())
        return;
    const auto [year, month, day] = partsOf(date);
    form.setText(row.year, withoutLeadingZeros(year));
    form.setText(row.month, withoutLeadingZeros(month));
    form.setText(row.day, withoutLeadingZeros(day));
}

void takeDate(const NoticeForm& form, const fields::DateRow& row, std::string& member)
{
    const auto year = form.text(row.year);
    const auto month = form.text(row.month);
    const auto day = form.text(row.day);
    if (!year.empty() && !month.empty() && !day.empty())
        member = year + '-' + month + '-' + day;
}

std::vector<std::string> entriesOf(const NoticeForm& form, std::string_view control)
{
    const auto* box = form.multiValueBox(control);
    return box ? box->entries() : std::vector<std::string>();
}

void addEntry(const NoticeForm& form, std::string_view control, const std::string& entry)
{
    if (auto* box = form.multiValueBox(control))
        box->addEntry(entry);
}

void showFirstEntry(const NoticeForm& form, std::string_view control)
{
    if (auto* box = form.multiValueBox(control))
        box->showFirstEntry();
}

} // namespace screens
