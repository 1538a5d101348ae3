#pragma once

#include "screens/screenType.h"

#include <QString>

#include <string_view>

// The words of the line of hints, in the three languages of the screens.
namespace screens {

enum class Hint : std::uint8_t
{
    RefusedCharacters, // with the characters
    NoCalendarDay,     // with the date
    DateIncomplete,
    NoUnit,
    TooLarge,
    Rounded, // with the number that is stored
    NotEntered,
    TooManyEntries,
    SectorsUnpaired,
    NoRotation,
    NotStored,
    TakenFromTarget, // with the value that is stored
    RemarkLines,
    RemarkParts,
    CoordinationNotShown,
    TooManyStations,
    StationsNotShown, // with their number
    SectionNotStored,
};
inline constexpr int hints = 18;

// `detail` stands in the place of "#".
[[nodiscard]] QString hintText(Hint hint, std::string_view language, const QString& detail = {});

} // namespace screens
