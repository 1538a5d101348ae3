#pragma once

#include "screens/noticeForm.h"
#include "screens/recordFields.h"

#include <string>
#include <string_view>
#include <vector>

// Values of single controls on their way from and to the record. An empty value of the record leaves its
// control alone, and an empty control leaves its member alone: each side was emptied before.
namespace screens {

// Empties a text box, a multi-value box with its list, or turns an option off.
void blank(const NoticeForm& form, std::string_view control);
void blankAll(const NoticeForm& form, const std::vector<std::string>& controls);

void showText(const NoticeForm& form, std::string_view control, const std::string& value);
void takeText(const NoticeForm& form, std::string_view control, std::string& member);

// The record's frequencies are in MHz, so the unit shown is "M".
void showFrequency(const NoticeForm& form, std::string_view control, std::string_view unit,
                   const std::string& megahertz);
// Text in MHz; empty for an empty control, "0" for one whose unit is none. Throws RuntimeError 6 for a number
// that is too large.
[[nodiscard]] std::string frequencyOf(const NoticeForm& form, std::string_view control,
                                      std::string_view unit);

// Three numbers without leading zeros. Throws RuntimeError 5 for text that is no date.
void showDate(const NoticeForm& form, const fields::DateRow& row, const std::string& date);
// The parts of a date of the record. Throws RuntimeError 5 for text that is none.
struct DateParts
{
    std::string year, month, day;
};
[[nodiscard]] DateParts partsOf(const std::string& date);
// Year, month and day as typed; nothing unless all three are given.
void takeDate(const NoticeForm& form, const fields::DateRow& row, std::string& member);

// The entries of a multi-value box; none for a control that is no such box.
[[nodiscard]] std::vector<std::string> entriesOf(const NoticeForm& form, std::string_view control);
void addEntry(const NoticeForm& form, std::string_view control, const std::string& entry);
void showFirstEntry(const NoticeForm& form, std::string_view control);

// Walks the rows of a table that are for the form's screen.
template <class Rows, class Visit>
void forRowsOf(const NoticeForm& form, const Rows& rows, Visit visit)
{
    for (const auto& row : rows) {
        if (contains(row.screens, form.type()))
            visit(row);
    }
}

template <class Rows, class Record>
void showTexts(const NoticeForm& form, const Rows& rows, const Record& record)
{
    forRowsOf(form, rows, [&](const auto& row) { showText(form, row.control, record.*row.member); });
}

template <class Rows, class Record>
void takeTexts(const NoticeForm& form, const Rows& rows, Record& record)
{
    forRowsOf(form, rows, [&](const auto& row) { takeText(form, row.control, record.*row.member); });
}

// The option whose word the value is, if any.
template <class Rows>
void showOption(const NoticeForm& form, const Rows& rows, const std::string& value)
{
    forRowsOf(form, rows, [&](const auto& row) {
        if (value == row.word)
            form.setSelected(row.control, true);
    });
}

// The word of the selected option; null for none.
template <class Rows>
[[nodiscard]] const char* selectedWord(const NoticeForm& form, const Rows& rows)
{
    const char* word = nullptr;
    forRowsOf(form, rows, [&](const auto& row) {
        if (!word && form.isSelected(row.control))
            word = row.word;
    });
    return word;
}

} // namespace screens
