#include "platform/ansiText.h"

#include "platform/runtimeError.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <unicode/uchar.h>

namespace platform {

namespace {

constexpr unsigned char asciiEnd = 0x80;
constexpr unsigned char firstLatin1 = 0xA0; // from here on a byte is its character's own code
constexpr char32_t unicodeEnd = 0x110000;   // a malformed byte counts as the character unicodeEnd + byte

constexpr std::array<char16_t, 32> codesFrom0x80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned char byteAt(std::string_view text, std::size_t position)
{
    return static_cast<unsigned char>(text[position]);
}

// End of the run of ASCII that begins at the position.
std::size_t asciiRunEnd(std::string_view text, std::size_t position)
{
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::uint64_t word = 0;
    while (text.size() - position >= sizeof word) {
        std::memcpy(&word, text.data() + position, sizeof word);
        if ((word & highBits) != 0)
            break;
        position += sizeof word;
    }
    while (position < text.size() && byteAt(text, position) < asciiEnd)
        ++position;
    return position;
}

std::size_t sequenceLength(unsigned char lead)
{
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool isAllowed(char32_t code, std::size_t length)
{
    if (length == 3)
        return code >= 0x800 && (code < 0xD800 || code > 0xDFFF);
    return length != 4 || (code >= 0x10000 && code < unicodeEnd);
}

// The character at the position, which moves behind it. A byte that belongs to no character stands for
// itself.
char32_t nextCode(std::string_view text, std::size_t& position)
{
    const auto lead = byteAt(text, position);
    if (lead < asciiEnd) {
        ++position;
        return lead;
    }
    const auto length = sequenceLength(lead);
    if (length != 0 && text.size() - position >= length) {
        char32_t code = lead & (0x7FU >> length);
        bool complete = true;
        for (std::size_t i = 1; i < length; ++i) {
            const auto byte = byteAt(text, position + i);
            complete = complete && (byte & 0xC0U) == 0x80U;
            code = (code << 6U) | (byte & 0x3FU);
        }
        if (complete && isAllowed(code, length)) {
            position += length;
            return code;
        }
    }
    ++position;
    return unicodeEnd + lead;
}

// For codes below 0x10000: the code page holds no other.
void appendUtf8(std::string& text, char32_t code)
{
    if (code < 0x80) {
        text += static_cast<char>(code);
        return;
    }
    if (code < 0x800) {
        text += static_cast<char>(0xC0U | (code >> 6U));
    } else {
        text += static_cast<char>(0xE0U | (code >> 12U));
        text += static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
    }
    text += static_cast<char>(0x80U | (code & 0x3FU));
}

char32_t codeOfAnsi(unsigned char byte)
{
    return byte < asciiEnd || byte >= firstLatin1 ? byte : codesFrom0x80[byte - asciiEnd];
}

// The byte of a character, -1 when the code page lacks it.
int ansiOfCode(char32_t code)
{
    if (code < asciiEnd || (code >= firstLatin1 && code <= 0xFF))
        return static_cast<int>(code);
    for (std::size_t i = 0; i < codesFrom0x80.size(); ++i) {
        if (codesFrom0x80[i] == code)
            return static_cast<int>(i) + asciiEnd;
    }
    return -1;
}

template <class Map>
std::string mapLetters(std::string_view text, Map map)
{
    std::string result;
    result.reserve(text.size() + 2);
    for (std::size_t position = 0; position < text.size();) {
        const auto start = position;
        const auto code = nextCode(text, position);
        const auto mapped = isAnsi(code) ? static_cast<char32_t>(map(static_cast<UChar32>(code))) : code;
        if (mapped != code && isAnsi(mapped))
            appendUtf8(result, mapped);
        else
            result += text.substr(start, position - start);
    }
    return result;
}

// Position behind `count` characters, or the end of the text.
std::size_t skipCharacters(std::string_view text, std::size_t position, std::size_t count)
{
    for (; count > 0 && position < text.size(); --count)
        nextCode(text, position);
    return position;
}

unsigned char lowerAscii(unsigned char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

char32_t foldCase(char32_t code)
{
    if (code < asciiEnd)
        return lowerAscii(static_cast<unsigned char>(code));
    return code >= unicodeEnd
               ? code
               : static_cast<char32_t>(u_foldCase(static_cast<UChar32>(code), U_FOLD_CASE_DEFAULT));
}

// The order from a character's beginning in both texts to their ends.
int compareFolded(std::string_view left, std::string_view right)
{
    std::size_t leftAt = 0;
    std::size_t rightAt = 0;
    while (leftAt < left.size() && rightAt < right.size()) {
        const auto leftCode = foldCase(nextCode(left, leftAt));
        const auto rightCode = foldCase(nextCode(right, rightAt));
        if (leftCode != rightCode)
            return leftCode < rightCode ? -1 : 1;
    }
    return static_cast<int>(leftAt < left.size()) - static_cast<int>(rightAt < right.size());
}

} // namespace

std::string ansiToUtf8(std::string_view ansi)
{
    std::string text;
    appendAnsiAsUtf8(text, ansi);
    return text;
}

void appendAnsiAsUtf8(std::string& text, std::string_view ansi)
{
    for (std::size_t position = 0; position < ansi.size();) {
        const auto end = asciiRunEnd(ansi, position);
        text.append(ansi, position, end - position);
        for (position = end; position < ansi.size() && byteAt(ansi, position) >= asciiEnd; ++position)
            appendUtf8(text, codeOfAnsi(byteAt(ansi, position)));
    }
}

bool isAnsi(char32_t character)
{
    return ansiOfCode(character) >= 0;
}

std::string utf8ToAnsi(std::string_view text)
{
    std::string ansi;
    ansi.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const auto end = asciiRunEnd(text, position);
        ansi.append(text, position, end - position);
        for (position = end; position < text.size() && byteAt(text, position) >= asciiEnd;) {
            const int byte = ansiOfCode(nextCode(text, position));
            ansi += byte < 0 ? '?' : static_cast<char>(byte);
        }
    }
    return ansi;
}

std::size_t characterCount(std::string_view text)
{
    std::size_t position = asciiRunEnd(text, 0);
    std::size_t count = position;
    for (; position < text.size(); ++count)
        nextCode(text, position);
    return count;
}

std::string_view mid(std::string_view text, std::size_t start, std::size_t count)
{
    if (start == 0)
        raise(errInvalidCall);
    text.remove_prefix(skipCharacters(text, 0, start - 1));
    // No text has more characters than bytes, so a rest that is short enough needs no counting.
    return count >= text.size() ? text : text.substr(0, skipCharacters(text, 0, count));
}

std::string_view trimBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string toUpper(std::string_view text)
{
    return mapLetters(text, u_toupper);
}

std::string toLower(std::string_view text)
{
    return mapLetters(text, u_tolower);
}

int compareNoCase(std::string_view left, std::string_view right)
{
    const auto shorter = std::min(left.size(), right.size());
    std::size_t position = 0;
    for (; position < shorter; ++position) {
        const auto leftByte = byteAt(left, position);
        const auto rightByte = byteAt(right, position);
        if (leftByte >= asciiEnd || rightByte >= asciiEnd)
            break;
        if (leftByte != rightByte && lowerAscii(leftByte) != lowerAscii(rightByte))
            return lowerAscii(leftByte) < lowerAscii(rightByte) ? -1 : 1;
    }
    return compareFolded(left.substr(position), right.substr(position));
}

} // namespace platform
