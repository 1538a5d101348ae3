#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Text in memory is UTF-8; text in notice files, reports and the log is Windows-1252 with its five undefined
// bytes mapped to the C1 controls of the same value. Positions and lengths are those of characters.
namespace platform {

// Every byte has a character, so that what was read is written back byte for byte.
[[nodiscard]] std::string ansiToUtf8(std::string_view ansi);
// The same onto the end of `text`, for callers that keep a buffer.
void appendAnsiAsUtf8(std::string& text, std::string_view ansi);

// A character that the code page lacks, and what is no UTF-8, becomes "?".
[[nodiscard]] std::string utf8ToAnsi(std::string_view text);

// Whether the code page has the character.
[[nodiscard]] bool isAnsi(char32_t character);

// Number of characters.
[[nodiscard]] std::size_t characterCount(std::string_view text);

// `count` characters from position `start`, counted from 1; fewer or none where the text ends before.
[[nodiscard]] std::string_view mid(std::string_view text, std::size_t start, std::size_t count);

// Without blanks (code 32 alone) at both ends.
[[nodiscard]] std::string_view trimBlanks(std::string_view text);

// Upper and lower case one to one within the code page: a letter without a counterpart there stays.
[[nodiscard]] std::string toUpper(std::string_view text);
[[nodiscard]] std::string toLower(std::string_view text);

// Order of two texts without regard to case, beyond ASCII too; accents count. Negative, 0 or positive.
[[nodiscard]] int compareNoCase(std::string_view left, std::string_view right);
[[nodiscard]] inline bool equalNoCase(std::string_view left, std::string_view right)
{
    return compareNoCase(left, right) == 0;
}

} // namespace platform
