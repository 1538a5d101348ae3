#include "dao/value.h"

#include "dao/engineError.h"
#include "dao/valueForms.h"
#include "platform/ansiText.h"
#include "platform/numberText.h"

#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace dao {

namespace {

template <class... Handlers>
struct Overloaded : Handlers...
{
    using Handlers::operator()...;
};
template <class... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

double numberOf(const std::string& text)
{
    const auto trimmed = platform::trimBlanks(text);
    if (!platform::isNumeric(trimmed))
        raiseEngineError(errConversion);
    return platform::readNumber(trimmed);
}

std::int16_t roundedToByte(double number)
{
    const auto whole = platform::roundToInteger(number);
    if (whole < 0 || whole > std::numeric_limits<std::uint8_t>::max())
        platform::raise(platform::errOverflow);
    return whole;
}

Value rounded(double number, DataType type)
{
    switch (type) {
    case DataType::dbInteger:
        return platform::roundToInteger(number);
    case DataType::dbLong:
        return platform::roundToLong(number);
    case DataType::dbByte:
        return roundedToByte(number);
    case DataType::dbSingle:
        if (std::abs(number) > std::numeric_limits<float>::max())
            platform::raise(platform::errOverflow);
        return shortestNumber(static_cast<float>(number));
    default:
        return number;
    }
}

bool isPlainText(DataType type)
{
    return type == DataType::dbText || type == DataType::dbMemo;
}

// Nothing when it can't be converted, and for the types whose values are numbers.
std::optional<Value> inFormOfItsOwn(const Value& value, const ColumnType& type)
{
    switch (type.type) {
    case DataType::dbBoolean:
        return asBoolean(value);
    case DataType::dbCurrency:
    case DataType::dbDecimal:
        return asExactNumber(value, type);
    case DataType::dbDate:
        return asMoment(value);
    case DataType::dbGUID:
        return asGuid(value);
    case DataType::dbBinary:
        return bytesOfHex(value.text()) ? std::optional(value) : std::nullopt;
    default:
        return std::nullopt;
    }
}

bool isNumber(DataType type)
{
    return type == DataType::dbInteger || type == DataType::dbLong || type == DataType::dbDouble ||
           type == DataType::dbByte || type == DataType::dbSingle;
}

} // namespace

std::string Value::text() const&
{
    return std::visit(Overloaded{
                          [](NullValue) -> std::string { raiseEngineError(errInvalidUseOfNull); },
                          [](double number) { return platform::exactNumberText(number); },
                          [](const std::string& held) { return held; },
                          [](auto number) { return platform::integerText(number); },
                      },
                      m_value);
}

std::string Value::text() &&
{
    auto* const held = std::get_if<std::string>(&m_value);
    return held != nullptr ? std::move(*held) : std::as_const(*this).text();
}

std::int32_t Value::toLong() const
{
    return std::visit(Overloaded{
                          [](NullValue) -> std::int32_t { raiseEngineError(errInvalidUseOfNull); },
                          [](double number) { return platform::roundToLong(number); },
                          [](const std::string& held) -> std::int32_t {
                              const auto trimmed = platform::trimBlanks(held);
                              if (!platform::isNumeric(trimmed))
                                  platform::raise(platform::errTypeMismatch);
                              return platform::roundToLong(platform::readNumber(trimmed));
                          },
                          [](auto number) { return static_cast<std::int32_t>(number); },
                      },
                      m_value);
}

Value Value::convertedTo(const ColumnType& type) &&
{
    const bool textAlready = isPlainText(type.type) && std::holds_alternative<std::string>(m_value);
    return textAlready ? std::move(*this) : std::as_const(*this).convertedTo(type);
}

Value Value::convertedTo(const ColumnType& type) const&
{
    if (isNull())
        return type.type == DataType::dbBoolean ? Value("FALSE") : *this;
    if (isPlainText(type.type))
        return text();
    if (!isNumber(type.type)) {
        auto stored = inFormOfItsOwn(*this, type);
        if (!stored)
            raiseEngineError(errConversion);
        return *std::move(stored);
    }
    try {
        return std::visit(
            Overloaded{
                [](NullValue) -> Value { return Null; },
                [&type](const std::string& held) { return rounded(numberOf(held), type.type); },
                [&type](auto number) { return rounded(static_cast<double>(number), type.type); },
            },
            m_value);
    } catch (const platform::RuntimeError& failure) {
        // A number too large for the column is no other failure to the engine than text that is no number.
        if (failure.number == platform::errOverflow)
            raiseEngineError(errConversion);
        throw;
    }
}

} // namespace dao
