#pragma once

#include "dao/value.h"

#include <optional>
#include <string>
#include <string_view>

// The forms in which values stand in a file whose types have none of their own there.
namespace dao {

// The shortest number that reads back as the same 32-bit one: 0.1, not 0.100000001490116.
[[nodiscard]] double shortestNumber(float number);

// A number with the fewest digits that read back as the same one.
[[nodiscard]] std::string shortestText(double number);

// The date, with the time behind it when it is not midnight.
[[nodiscard]] std::string momentText(int year, int month, int day, int hour, int minute, int second);

// Two digits a byte, letters in lower case.
[[nodiscard]] std::string hexText(std::string_view bytes);
[[nodiscard]] std::optional<std::string> bytesOfHex(std::string_view text);

// A value as a column of one of these types stores it; nothing when it can't be converted. No Null comes in.
[[nodiscard]] std::optional<Value> asBoolean(const Value& value);
[[nodiscard]] std::optional<Value> asMoment(const Value& value);
[[nodiscard]] std::optional<Value> asGuid(const Value& value);
// Rounded to the decimals of the type, halves to the even digit.
[[nodiscard]] std::optional<Value> asExactNumber(const Value& value, const ColumnType& type);

} // namespace dao
