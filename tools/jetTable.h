#pragma once

#include "tools/jetBytes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// A table of a file of the original engine: its columns and indexes, the bytes of its rows and of its
// definition.
namespace jetWriter {

enum class Type : std::uint8_t
{
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    DateTime = 8,
    Binary = 9,
    Text = 10,
    Ole = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16,
    Unknown = 17,
};

struct Column
{
    std::string name; // UTF-8; in Jet 3 bytes of the file's code page
    Type type = Type::Text;
    std::uint16_t length = 0;
    bool isFixed = false;
    std::uint16_t id = 0;
    std::uint16_t variableIndex = 0, fixedOffset = 0; // junk in a column of the other kind
    std::uint16_t codePage = 0;                       // Jet 3
    std::uint8_t precision = 0, scale = 0;            // Jet 4
    std::uint8_t flags = 2;
};

struct RealIndex
{
    std::vector<std::uint16_t> columnIds; // in the order of the key
    std::uint8_t flags = 0;
};

struct LogicalIndex
{
    std::string name;
    std::uint32_t ownNumber = 0, real = 0;
    std::uint8_t kind = 0;
};

inline constexpr std::uint8_t uniqueIndex = 1;
inline constexpr std::uint8_t requiredIndex = 8;
inline constexpr std::uint8_t primaryKey = 1;
inline constexpr std::uint8_t relationship = 2;

struct Table
{
    std::string name;
    std::vector<Column> columns; // in the order in which they are shown
    std::vector<RealIndex> realIndexes;
    std::vector<LogicalIndex> logicalIndexes;
    std::uint16_t columnsEver = 0, variableEver = 0, fixedEnd = 0;

    // The column is fixed where its type is, or not. The reference lasts until the next one is added.
    Column& add(std::string_view columnName, Type type, std::uint16_t length = 0);
    Column& addFixed(std::string_view columnName, Type type, std::uint16_t length);
    Column& addVariable(std::string_view columnName, Type type, std::uint16_t length);
    // A column that was deleted since.
    void skipFixed(std::uint16_t length);
    void skipVariable();
    // A real index with its logical one.
    void addIndex(std::string_view indexName, const std::vector<std::string>& columnNames,
                  std::uint8_t kind = 0, std::uint8_t flags = 0);
};

// Bytes that a value of the type takes; 0: no fixed number.
[[nodiscard]] std::uint16_t sizeOf(Type type);

struct RowForm
{
    std::uint16_t columnsThen = 0xFFFF; // columns when the row was written; more than there are: all
    bool variableTable = true;          // false: a row from before the first variable column without one
};

// One cell a column, in the order of the columns. Fixed cells that are Null hold junk.
[[nodiscard]] Bytes rowBytes(Version version, const Table& table, const std::vector<Cell>& cells,
                             const RowForm& form = {});

// What a definition tells of the rest of the file.
struct Places
{
    std::uint32_t rowCount = 0;
    std::uint32_t map = 0, freeMap = 0; // row pointers
    std::uint32_t indexRoot = 0;        // an empty leaf, the same for all
};

// The joined bytes, with the header of the first page and without one for the others.
[[nodiscard]] Bytes definitionBytes(Version version, const Table& table, const Places& places);

} // namespace jetWriter
