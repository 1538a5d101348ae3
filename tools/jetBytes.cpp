#include "tools/jetBytes.h"

#include <array>
#include <bit>
#include <numeric>
#include <utility>

namespace jetWriter {

namespace {

constexpr std::uint32_t headerKey = 0x6B39DAC7;
constexpr std::size_t codedFrom = 0x18;
constexpr std::size_t keyAt = 0x3E;

std::uint8_t byteOf(std::uint64_t value)
{
    return static_cast<std::uint8_t>(value & 0xFFU);
}

char32_t takeCharacter(std::string_view& utf8)
{
    const auto first = static_cast<unsigned char>(utf8.front());
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? first : first & (0xFFU >> (length + 1));
    for (std::size_t at = 1; at < length; ++at)
        character = character << 6U | (static_cast<unsigned char>(utf8.at(at)) & 0x3FU);
    utf8.remove_prefix(length);
    return character;
}

} // namespace

Bytes number(std::uint64_t value, std::size_t width)
{
    Bytes bytes(width, '\0');
    putNumber(bytes, 0, value, width);
    return bytes;
}

void putNumber(Bytes& bytes, std::size_t at, std::uint64_t value, std::size_t width)
{
    for (std::size_t i = 0; i < width; ++i)
        bytes.at(at + i) = static_cast<char>(byteOf(value >> (8 * i)));
}

std::uint64_t numberAt(std::string_view bytes, std::size_t at, std::size_t width)
{
    std::uint64_t value = 0;
    for (std::size_t i = width; i-- > 0;)
        value = value << 8U | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

Bytes integerValue(std::int16_t value)
{
    return number(static_cast<std::uint16_t>(value), 2);
}

Bytes longValue(std::int32_t value)
{
    return number(static_cast<std::uint32_t>(value), 4);
}

Bytes currencyValue(std::int64_t tenThousandths)
{
    return number(static_cast<std::uint64_t>(tenThousandths), 8);
}

Bytes singleValue(float value)
{
    return number(std::bit_cast<std::uint32_t>(value), 4);
}

Bytes doubleValue(double value)
{
    return number(std::bit_cast<std::uint64_t>(value), 8);
}

Bytes decimalValue(bool isNegative, std::uint64_t digits)
{
    return number(isNegative ? 0x80 : 0, 1) + number(0, 8) + number(digits >> 32U, 4) + number(digits, 4);
}

Bytes guidValue(std::uint32_t first, std::uint16_t second, std::uint16_t third, std::string_view eightBytes)
{
    return number(first, 4) + number(second, 2) + number(third, 2) + Bytes(eightBytes);
}

Bytes plainText(std::u16string_view text)
{
    Bytes bytes;
    for (const char16_t unit : text)
        bytes += number(unit, 2);
    return bytes;
}

Bytes compressedText(const std::vector<Stretch>& stretches)
{
    Bytes bytes = "\xFF\xFE";
    bool isCompressed = true;
    for (const auto& stretch : stretches) {
        if (stretch.isCompressed != isCompressed)
            bytes += '\0';
        isCompressed = stretch.isCompressed;
        for (const char16_t unit : stretch.text)
            bytes += number(unit, isCompressed ? 1 : 2);
    }
    return bytes;
}

Bytes compressedText(std::u16string_view text)
{
    return compressedText({{true, std::u16string(text)}});
}

std::u16string toUtf16(std::string_view utf8)
{
    std::u16string text;
    while (!utf8.empty()) {
        const char32_t character = takeCharacter(utf8);
        if (character < 0x10000) {
            text += static_cast<char16_t>(character);
        } else {
            text += static_cast<char16_t>(0xD7C0U + (character >> 10U));
            text += static_cast<char16_t>(0xDC00U + (character & 0x3FFU));
        }
    }
    return text;
}

Bytes coded(std::string_view bytes, std::uint32_t key)
{
    std::array<std::uint8_t, 256> state{};
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = byteOf(std::uint64_t{j} + state.at(i) + byteOf(key >> (8 * (i % 4))));
        std::swap(state.at(i), state.at(j));
    }
    Bytes result(bytes);
    std::uint8_t i = 0;
    j = 0;
    for (char& byte : result) {
        i = byteOf(std::uint64_t{i} + 1);
        j = byteOf(std::uint64_t{j} + state.at(i));
        std::swap(state.at(i), state.at(j));
        const auto mask = state.at(byteOf(std::uint64_t{state.at(i)} + state.at(j)));
        byte = static_cast<char>(static_cast<unsigned char>(byte) ^ mask);
    }
    return result;
}

void codeHeader(Bytes& file, Version version)
{
    const std::size_t length = version == Version::Jet3 ? 126 : 128;
    file.replace(codedFrom, length, coded(std::string_view(file).substr(codedFrom, length), headerKey));
}

Bytes encodedFile(Bytes file, std::uint32_t key)
{
    const auto version = file.at(0x14) == 0 ? Version::Jet3 : Version::Jet4;
    codeHeader(file, version);
    putNumber(file, keyAt, key, 4);
    codeHeader(file, version);
    const auto size = pageSize(version);
    for (std::uint32_t page = 1; (page + 1) * size <= file.size(); ++page)
        file.replace(page * size, size, coded(std::string_view(file).substr(page * size, size), key ^ page));
    return file;
}

} // namespace jetWriter
