#include "dao/value.h"

#include "dao/engineError.h"
#include "platform/ansiText.h"
#include "platform/numberText.h"

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

Value rounded(double number, DataType type)
{
    switch (type) {
    case DataType::dbInteger:
        return platform::roundToInteger(number);
    case DataType::dbLong:
        return platform::roundToLong(number);
    default:
        return number;
    }
}

} // namespace

std::string Value::text() const&
{
    return std::visit(Overloaded{
                          [](NullValue) -> std::string { raiseEngineError(errInvalidUseOfNull); },
                          [](double number) { return platform::numberText(number); },
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

Value Value::convertedTo(DataType type) &&
{
    const bool textAlready = type == DataType::dbText && std::holds_alternative<std::string>(m_value);
    return textAlready ? std::move(*this) : std::as_const(*this).convertedTo(type);
}

Value Value::convertedTo(DataType type) const&
{
    if (isNull())
        return *this;
    if (type == DataType::dbText)
        return text();
    try {
        return std::visit(Overloaded{
                              [](NullValue) -> Value { return Null; },
                              [type](const std::string& held) { return rounded(numberOf(held), type); },
                              [type](auto number) { return rounded(static_cast<double>(number), type); },
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
