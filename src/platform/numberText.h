#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Numbers as text and text as numbers, never by the host's locale: the decimal sign is always a point.
namespace platform {

// The numeric test: the whole text is an optional sign, digits with an optional decimal point (at least one
// digit), and an optional exponent of E, optional sign, digits. No blanks.
[[nodiscard]] bool isNumeric(std::string_view text);

// The numeric reading: the longest leading part that reads as a number behind any leading blanks, 0 when
// there is none. Throws RuntimeError 6 when the number is too large for a double.
[[nodiscard]] double readNumber(std::string_view text);

// Number to text: up to 15 significant digits, the zero before the point kept; plain form from 1E+15 on no
// longer, and below 1 only while 15 decimals suffice; an exponent has at least two digits: "1E+15",
// "1.5E-16".
[[nodiscard]] std::string numberText(double number);

// The same with as many digits, up to 17, as it takes to read back the very number: what a database holds
// must not change by being read into a record and stored again.
[[nodiscard]] std::string exactNumberText(double number);

// Number to text with a blank in the place of a plus sign: " 5", "-5".
[[nodiscard]] std::string signedNumberText(double number);

// Whole number to text: "5", "-5".
[[nodiscard]] std::string integerText(std::int64_t number);

// Rounding to 32 and to 16 bits, halves to the even number. Both throw RuntimeError 6 out of range.
[[nodiscard]] std::int32_t roundToLong(double number);
[[nodiscard]] std::int16_t roundToInteger(double number);

} // namespace platform
