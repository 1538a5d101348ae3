#include "jet/textDecoder.h"

#include "jet/codePages.h"
#include "jet/utf8.h"

#include <cstdint>
#include <cstring>

namespace jet {

namespace {

using namespace std::literals;

constexpr std::uint64_t highBits = 0x8080808080808080U;
constexpr std::uint64_t ones = 0x0101010101010101U;

// Whether a test of eight bytes holds for all of them. Bytes of no text, all "a", fill up the last eight.
template <class Test>
bool allEight(std::string_view bytes, Test test)
{
    std::uint64_t word = 0;
    std::size_t at = 0;
    for (; bytes.size() - at >= sizeof word; at += sizeof word) {
        std::memcpy(&word, bytes.data() + at, sizeof word);
        if (!test(word))
            return false;
    }
    word = ones * 'a';
    for (; at < bytes.size(); ++at)
        word = (word << 8U) | static_cast<unsigned char>(bytes[at]);
    return test(word);
}

bool isAscii(std::string_view bytes)
{
    return allEight(bytes, [](std::uint64_t word) { return (word & highBits) == 0; });
}

// A zero byte borrows from the high bit of its place.
bool isAsciiWithoutZero(std::string_view bytes)
{
    return allEight(bytes, [](std::uint64_t word) { return ((word | (word - ones)) & highBits) == 0; });
}

unsigned byteAt(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]);
}

// Puts units of UTF-16 together to characters. Half of a pair that stands alone becomes U+FFFD.
class UnitSink
{
public:
    explicit UnitSink(std::string& text) : m_text(text) {}

    void add(char32_t unit)
    {
        const bool isLow = (unit & 0xFC00U) == 0xDC00U;
        if (m_high != 0 && isLow) {
            appendUtf8(m_text, 0x10000U + ((m_high & 0x3FFU) << 10U) + (unit & 0x3FFU));
            m_high = 0;
            return;
        }
        finish();
        if ((unit & 0xFC00U) == 0xD800U)
            m_high = unit;
        else
            appendUtf8(m_text, isLow ? replacement : unit);
    }
    void finish()
    {
        if (m_high != 0)
            appendUtf8(m_text, replacement);
        m_high = 0;
    }

private:
    static constexpr char32_t replacement = 0xFFFD;

    std::string& m_text;
    char32_t m_high = 0; // first half of a pair
};

void appendPlain(UnitSink& units, std::string_view bytes)
{
    for (std::size_t at = 0; at + 2 <= bytes.size(); at += 2)
        units.add(byteAt(bytes, at) | (byteAt(bytes, at + 1) << 8U));
}

// One byte a character, or two between zero bytes at the start of a character.
void appendCompressed(UnitSink& units, std::string_view bytes)
{
    bool isCompressed = true;
    std::size_t at = 0;
    while (at < bytes.size()) {
        const auto first = byteAt(bytes, at++);
        if (first == 0)
            isCompressed = !isCompressed;
        else if (isCompressed)
            units.add(first);
        else if (at < bytes.size())
            units.add(first | (byteAt(bytes, at++) << 8U));
    }
}

} // namespace

std::string_view decodeCodePage(std::string_view bytes, unsigned codePage, std::string& buffer)
{
    if (isAscii(bytes))
        return bytes;
    buffer.clear();
    appendCodePage(buffer, bytes, codePage);
    return buffer;
}

std::string_view decodeUnicode(std::string_view bytes, std::string& buffer)
{
    constexpr auto compressedMark = "\xFF\xFE"sv;
    const bool isCompressed = bytes.starts_with(compressedMark);
    if (isCompressed) {
        bytes.remove_prefix(compressedMark.size());
        if (isAsciiWithoutZero(bytes))
            return bytes;
    }
    buffer.clear();
    UnitSink units(buffer);
    if (isCompressed)
        appendCompressed(units, bytes);
    else
        appendPlain(units, bytes);
    units.finish();
    return buffer;
}

std::string utf16ToUtf8(std::string_view bytes)
{
    std::string text;
    UnitSink units(text);
    appendPlain(units, bytes);
    units.finish();
    return text;
}

} // namespace jet
