#pragma once

#include "dao/value.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

struct sqlite3_stmt;

namespace dao {

// The value of one column of a statement's current row.
[[nodiscard]] Value columnValue(sqlite3_stmt* statement, int column, DataType type);

// The rows of a result in compact memory: a few bytes for a number, the bytes of a text, one for a Null.
class RowStore
{
public:
    // With the identity of each row, when that is the first column of the statement.
    RowStore(std::vector<DataType> types, bool withIdentity)
        : m_types(std::move(types)), m_withIdentity(withIdentity)
    {}

    void append(sqlite3_stmt* statement);
    [[nodiscard]] std::size_t rows() const { return m_starts.size(); }
    [[nodiscard]] Value value(std::size_t row, std::size_t column) const;
    [[nodiscard]] std::int64_t identity(std::size_t row) const { return m_identities[row]; }

private:
    template <class T>
    void appendRaw(char tag, T value);
    void appendText(std::string_view text);

    std::vector<DataType> m_types;
    bool m_withIdentity;
    std::vector<std::size_t> m_starts; // of each row in m_bytes
    std::vector<std::int64_t> m_identities;
    std::vector<char> m_bytes;
};

} // namespace dao
