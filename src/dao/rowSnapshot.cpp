#include "dao/databaseState.h"
#include "dao/rowStore.h"

namespace dao {

namespace {

void requireWithin(std::size_t position, std::size_t count)
{
    if (position >= count)
        platform::raise(platform::errSubscript);
}

} // namespace

RowSnapshot::RowSnapshot(std::unique_ptr<State> state) : m_state(std::move(state)) {}

RowSnapshot::~RowSnapshot() = default;

std::size_t RowSnapshot::rowCount() const
{
    return m_state->rows->rows();
}

std::size_t RowSnapshot::columnCount() const
{
    return m_state->columns.size();
}

const std::string& RowSnapshot::fieldName(std::size_t column) const
{
    requireWithin(column, columnCount());
    return m_state->columns[column].name;
}

DataType RowSnapshot::fieldType(std::size_t column) const
{
    requireWithin(column, columnCount());
    return m_state->columns[column].type.type;
}

Value RowSnapshot::value(std::size_t row, std::size_t column) const
{
    requireWithin(row, rowCount());
    requireWithin(column, columnCount());
    return m_state->rows->value(row, column);
}

} // namespace dao
