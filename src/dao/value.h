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
    // The value as text, numbers by the number-to-text rule. Null throws RuntimeError 94.
    [[nodiscard]] std::string text() const&;
    [[nodiscard]] std::string text() &&;
    // The value as a 32-bit integer. Null throws RuntimeError 94, text that is no number 13, a number out of
    // range 6.
    [[nodiscard]] std::int32_t toLong() const;

    // The value as a column of the type stores it: a number is rounded to it, text is read as a number. Null
    // stays. Throws RuntimeError 3421 when it can't be converted.
    [[nodiscard]] Value convertedTo(DataType type) const&;
    [[nodiscard]] Value convertedTo(DataType type) &&;

    [[nodiscard]] const auto& variant() const { return m_value; }
    bool operator==(const Value&) const = default;

private:
    std::variant<NullValue, std::int16_t, std::int32_t, double, std::string> m_value;
};

} // namespace dao
