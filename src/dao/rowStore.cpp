#include "dao/rowStore.h"

#include "dao/valueForms.h"

#include <sqlite3.h>

#include <cstring>
#include <limits>

namespace dao {

namespace {

// How a value is stored: a tag, then what follows it.
enum Tag : char
{
    tagNull,   // nothing
    tagWhole,  // 32 bits
    tagNumber, // a double
    tagText,   // the length as 32 bits, then the bytes
};

std::size_t lengthBehind(const char* cell)
{
    switch (*cell) {
    case tagWhole:
        return sizeof(std::int32_t);
    case tagNumber:
        return sizeof(double);
    case tagText: {
        std::uint32_t length = 0;
        std::memcpy(&length, cell + 1, sizeof length);
        return sizeof length + length;
    }
    default:
        return 0;
    }
}

Value wholeValue(std::int64_t number, DataType type)
{
    using Integer = std::numeric_limits<std::int16_t>;
    using Long = std::numeric_limits<std::int32_t>;
    const bool isShort = type == DataType::dbInteger || type == DataType::dbByte;
    const bool isFraction = type == DataType::dbDouble || type == DataType::dbSingle;
    if (isShort && number >= Integer::min() && number <= Integer::max())
        return static_cast<std::int16_t>(number);
    // A file from elsewhere may hold a number too large for its column's type: it is shown, not cut.
    if (number < Long::min() || number > Long::max() || isFraction)
        return static_cast<double>(number);
    return static_cast<std::int32_t>(number);
}

// In UTF-8 whatever the encoding of the file.
std::string_view columnText(sqlite3_stmt* statement, int column)
{
    const auto* text =
        static_cast<const char*>(static_cast<const void*>(sqlite3_column_text(statement, column)));
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    return text != nullptr ? std::string_view(text, length) : std::string_view();
}

std::string_view columnBytes(sqlite3_stmt* statement, int column)
{
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    return bytes != nullptr ? std::string_view(bytes, length) : std::string_view();
}

template <class T>
T readRaw(const char* bytes)
{
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

} // namespace

Value columnValue(sqlite3_stmt* statement, int column, DataType type)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return Null;
    case SQLITE_INTEGER:
        return wholeValue(sqlite3_column_int64(statement, column), type);
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    case SQLITE_BLOB:
        if (type == DataType::dbBinary)
            return hexText(columnBytes(statement, column));
        [[fallthrough]];
    default:
        return std::string(columnText(statement, column));
    }
}

template <class T>
void RowStore::appendRaw(char tag, T value)
{
    const auto place = m_bytes.size();
    m_bytes.resize(place + 1 + sizeof value);
    m_bytes[place] = tag;
    std::memcpy(&m_bytes[place + 1], &value, sizeof value);
}

void RowStore::appendText(std::string_view text)
{
    appendRaw(tagText, static_cast<std::uint32_t>(text.size()));
    m_bytes.insert(m_bytes.end(), text.begin(), text.end());
}

void RowStore::append(sqlite3_stmt* statement)
{
    m_starts.push_back(m_bytes.size());
    const int first = m_withIdentity ? 1 : 0;
    if (m_withIdentity)
        m_identities.push_back(sqlite3_column_int64(statement, 0));
    for (int column = first; column < first + static_cast<int>(m_types.size()); ++column) {
        switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL:
            m_bytes.push_back(tagNull);
            break;
        case SQLITE_INTEGER: {
            const auto number = sqlite3_column_int64(statement, column);
            if (number == static_cast<std::int32_t>(number))
                appendRaw(tagWhole, static_cast<std::int32_t>(number));
            else
                appendRaw(tagNumber, static_cast<double>(number));
            break;
        }
        case SQLITE_FLOAT:
            appendRaw(tagNumber, sqlite3_column_double(statement, column));
            break;
        case SQLITE_BLOB:
            if (m_types[static_cast<std::size_t>(column - first)] == DataType::dbBinary) {
                appendText(hexText(columnBytes(statement, column)));
                break;
            }
            [[fallthrough]];
        default:
            appendText(columnText(statement, column));
        }
    }
}

Value RowStore::value(std::size_t row, std::size_t column) const
{
    const char* cell = &m_bytes[m_starts[row]];
    for (std::size_t skipped = 0; skipped < column; ++skipped)
        cell += 1 + lengthBehind(cell);
    switch (*cell) {
    case tagNull:
        return Null;
    case tagWhole:
        return wholeValue(readRaw<std::int32_t>(cell + 1), m_types[column]);
    case tagNumber:
        return readRaw<double>(cell + 1);
    default:
        return std::string(cell + 1 + sizeof(std::uint32_t), readRaw<std::uint32_t>(cell + 1));
    }
}

} // namespace dao
