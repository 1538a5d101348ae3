#include "jet/rows.h"

#include "jet/values.h"

#include <utility>

namespace jet {

Rows::Rows(std::unique_ptr<State> state) : m_state(std::move(state)) {}
Rows::~Rows() = default;
Rows::Rows(Rows&&) noexcept = default;
Rows& Rows::operator=(Rows&&) noexcept = default;

bool Rows::next()
{
    return m_state->reader.next();
}

bool Rows::isNull(std::size_t column) const
{
    return m_state->reader.row().isNull(column);
}

bool Rows::boolean(std::size_t column) const
{
    return m_state->reader.row().isSet(column);
}

std::int32_t Rows::integer(std::size_t column) const
{
    const auto value = m_state->reader.row().value(column);
    switch (m_state->reader.typeOf(column)) {
    case Type::Byte:
        return value.u8(0);
    case Type::Integer:
        return static_cast<std::int16_t>(value.u16(0));
    default:
        return static_cast<std::int32_t>(value.u32(0));
    }
}

std::int64_t Rows::currency(std::size_t column) const
{
    return static_cast<std::int64_t>(m_state->reader.row().value(column).u64(0));
}

float Rows::single(std::size_t column) const
{
    return m_state->reader.row().value(column).single(0);
}

double Rows::number(std::size_t column) const
{
    return m_state->reader.row().value(column).number(0);
}

DateTime Rows::dateTime(std::size_t column) const
{
    return {number(column)};
}

std::string_view Rows::text(std::size_t column) const
{
    return m_state->reader.text(column);
}

std::string Rows::exactText(std::size_t column) const
{
    switch (m_state->reader.typeOf(column)) {
    case Type::Currency:
        return currencyText(currency(column));
    case Type::Guid:
        return guidText(m_state->reader.row().value(column));
    default:
        return decimalText(m_state->reader.row().value(column), m_state->reader.scaleOf(column));
    }
}

std::string Rows::bytes(std::size_t column) const
{
    return std::string(m_state->reader.bytes(column));
}

} // namespace jet
