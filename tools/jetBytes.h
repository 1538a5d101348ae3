#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The bytes of which files of the original engine are made. Nothing here is shared with the reader, so that a
// slip of either can't hide in both.
namespace jetWriter {

using Bytes = std::string;

enum class Version : std::uint8_t
{
    Jet3,
    Jet4
};

[[nodiscard]] constexpr std::size_t pageSize(Version version)
{
    return version == Version::Jet3 ? 2048 : 4096;
}

[[nodiscard]] Bytes number(std::uint64_t value, std::size_t width);
void putNumber(Bytes& bytes, std::size_t at, std::uint64_t value, std::size_t width);
[[nodiscard]] std::uint64_t numberAt(std::string_view bytes, std::size_t at, std::size_t width);

// What stands in a row; no value is Null. A Boolean that is true is any bytes, false is Null.
using Cell = std::optional<Bytes>;

[[nodiscard]] inline Bytes byteValue(std::uint8_t value)
{
    return number(value, 1);
}
[[nodiscard]] Bytes integerValue(std::int16_t value);
[[nodiscard]] Bytes longValue(std::int32_t value);
[[nodiscard]] Bytes currencyValue(std::int64_t tenThousandths);
[[nodiscard]] Bytes singleValue(float value);
[[nodiscard]] Bytes doubleValue(double value);
// Two words are enough for what tests ask.
[[nodiscard]] Bytes decimalValue(bool isNegative, std::uint64_t digits);
[[nodiscard]] Bytes guidValue(std::uint32_t first, std::uint16_t second, std::uint16_t third,
                              std::string_view eightBytes);

// Text of Jet 4.
[[nodiscard]] Bytes plainText(std::u16string_view text);
struct Stretch
{
    bool isCompressed = true;
    std::u16string text; // compressed: U+0001 to U+00FF; plain: no unit whose low byte is zero
};
[[nodiscard]] Bytes compressedText(const std::vector<Stretch>& stretches);
[[nodiscard]] Bytes compressedText(std::u16string_view text);
// Of well-formed UTF-8.
[[nodiscard]] std::u16string toUtf16(std::string_view utf8);

// RC4 from its first state on: coding and decoding are the same.
[[nodiscard]] Bytes coded(std::string_view bytes, std::uint32_t key);
// The part of the first page that is always coded, as it is stored from its plain form and back.
void codeHeader(Bytes& file, Version version);
// A whole file, not encoded yet, with all pages behind the first one coded by the key, which the header
// tells.
[[nodiscard]] Bytes encodedFile(Bytes file, std::uint32_t key);

} // namespace jetWriter
