#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Value checks and conversions of the screens and of the notice files. None of them shows a message.
namespace ScreenModule {

// Checks of one value. Strings are compared whole and without regard to case. "This year" is the year of the
// clock at the moment of the call.
[[nodiscard]] bool isValidDay(std::int16_t day);
[[nodiscard]] bool isValidMonth(std::int16_t month);
[[nodiscard]] bool isValidNoticeYear(std::int16_t year); // this year - 2 to this year + 1
[[nodiscard]] bool isValidYear(std::int16_t year);       // 1950 to this year + 5
[[nodiscard]] bool hasNoDigit(std::string_view text);
[[nodiscard]] bool isLongDegree(std::int16_t degree); // no lower bound
[[nodiscard]] bool isLatDegree(std::int16_t degree);  // no lower bound
[[nodiscard]] bool isMinSec(std::int16_t value);      // no lower bound
[[nodiscard]] bool isHourMinute(std::int16_t hhmm);
[[nodiscard]] bool isClassOp(std::string_view text);
[[nodiscard]] bool isPowerType(std::string_view text);
[[nodiscard]] bool isAntDir(std::string_view text);
[[nodiscard]] bool isPowerEIV(std::string_view text);
[[nodiscard]] bool isGainType(std::string_view text);
[[nodiscard]] bool isFreqUnit(std::string_view text);
[[nodiscard]] bool isEastWest(std::string_view text);
[[nodiscard]] bool isNorthSouth(std::string_view text);

// A check of the whole number that a field's text reads as. A text that spells more than 16 bits hold ("9E9")
// fails it: a slip of the operator must not end the program.
[[nodiscard]] bool readsAs(bool (*check)(std::int16_t), std::string_view text);

// MHz of a value in the unit "K", "M" or "G", without regard to case; 0 for any other unit. Throws
// RuntimeError 6 on overflow.
[[nodiscard]] double freqToMHz(double value, std::string_view unit);

// "dd.mm.yyyy" at its first two dots. The text is consumed down to the year. Throws RuntimeError 5 without
// two dots.
void splitDottedDate(std::string& text, std::string& year, std::string& month, std::string& day);

// A date in any form that the host reads, as "dd.mm.yyyy". Text that is no date stays, with "/" in the place
// of the host's date separator.
[[nodiscard]] std::string formatDateDots(std::string_view text);

// The host's setting of the section "intl" by its key; the one known key is "sdate". Empty for any other.
[[nodiscard]] std::string getIntlSetting(std::string_view key);

// The content of a remarks box as rmk_text. Consumes its argument. Of three or more lines only the last two
// survive, joined with nothing between them.
[[nodiscard]] std::string joinTextLines(std::string& text);

// The remarks for the box, unchanged. The argument is left holding what follows its last ";".
[[nodiscard]] std::string copyRemarkText(std::string& text);

// The t_remarks lines of a file: the last two pieces between ";" alone. An empty final piece gives no line.
// The argument is left holding the final piece.
[[nodiscard]] std::string remarksToElectLines(std::string& text);

// key + "=" + value + CR LF; nothing for an empty value.
[[nodiscard]] std::string makeKeyLine(std::string_view key, std::string_view value);
// The same onto the end of a text, for blocks of many lines.
void addKeyLine(std::string& text, std::string_view key, std::string_view value);

[[nodiscard]] std::string trimText(std::string_view text);
[[nodiscard]] std::string upperText(std::string_view text);

} // namespace ScreenModule
