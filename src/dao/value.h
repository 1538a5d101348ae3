#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace dao {

// Types of a column and of a query's parameter.
enum class DataType : std::uint8_t
{
    dbInteger, // 16-bit signed
    dbLong,    // 32-bit signed
    dbDouble,
    dbText,
    // Of columns alone. Their values are given out as numbers of the types above or as text.
    dbBoolean,  // text: TRUE or FALSE, never Null once it was assigned
    dbByte,     // 0 to 255, as an Integer
    dbCurrency, // text: an exact number with up to four decimals
    dbSingle,   // a Double, the shortest number that reads back as the same 32-bit one
    dbDate,     // text: yyyy-mm-dd, with " hh:mm:ss" behind it unless that is midnight
    dbBinary,   // text: two hexadecimal digits a byte
    dbMemo,     // text
    dbGUID,     // text: {00000000-0000-0000-0000-000000000000}
    dbDecimal,  // text: an exact number
};

// A type with what belongs to it.
struct ColumnType
{
    // A bare type is one too.
    ColumnType(DataType bare) : type(bare) {}
    ColumnType(DataType bare, std::uint8_t digits, std::uint8_t decimals)
        : type(bare), precision(digits), scale(decimals)
    {}
    bool operator==(const ColumnType&) const = default;

    DataType type;
    std::uint8_t precision = 0, scale = 0; // of a Decimal: its digits, and how many of them are decimals
};

struct NullValue
{
    bool operator==(const NullValue&) const = default;
};
inline constexpr NullValue Null{};

// A value of a column: Null, a number, or text in UTF-8.
class Value
{
public:
    Value() = default;
    Value(NullValue) {}
    Value(std::int16_t number) : m_value(number) {}
    Value(std::int32_t number) : m_value(number) {}
    Value(double number) : m_value(number) {}
    Value(std::string text) : m_value(std::move(text)) {}
    Value(const char* text) : m_value(std::string(text)) {}

    [[nodiscard]] bool isNull() const { return std::holds_alternative<NullValue>(m_value); }
    // The value as text, numbers by the exact number-to-text rule. Null throws RuntimeError 94.
    [[nodiscard]] std::string text() const&;
    [[nodiscard]] std::string text() &&;
    // The value as a 32-bit integer. Null throws RuntimeError 94, text that is no number 13, a number out of
    // range 6.
    [[nodiscard]] std::int32_t toLong() const;

    // The value as a column of the type stores it: a number is rounded to it, text is read as a number. Null
    // stays, but for a Boolean, which is FALSE then. Throws RuntimeError 3421 when it can't be converted.
    [[nodiscard]] Value convertedTo(const ColumnType& type) const&;
    [[nodiscard]] Value convertedTo(const ColumnType& type) &&;

    [[nodiscard]] const auto& variant() const { return m_value; }
    bool operator==(const Value&) const = default;

private:
    std::variant<NullValue, std::int16_t, std::int32_t, double, std::string> m_value;
};

} // namespace dao
