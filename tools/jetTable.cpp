#include "tools/jetTable.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace jetWriter {

namespace {

constexpr std::uint16_t junkOffset = 0x1234;
constexpr char junk = '\xA5';

struct VariableArea
{
    std::vector<const Bytes*> values; // null: none
};

std::size_t countOf(const Table& table, const RowForm& form)
{
    return std::min(form.columnsThen, table.columnsEver);
}

std::size_t fixedEnd(const Table& table, std::size_t count)
{
    if (count == table.columnsEver)
        return table.fixedEnd;
    std::size_t end = 0;
    for (const auto& column : table.columns)
        if (column.isFixed && column.id < count && column.type != Type::Boolean)
            end = std::max<std::size_t>(end, column.fixedOffset + std::size_t{column.length});
    return end;
}

std::size_t variableCount(const Table& table, std::size_t count)
{
    if (count == table.columnsEver)
        return table.variableEver;
    std::size_t variables = 0;
    for (const auto& column : table.columns)
        if (!column.isFixed && column.id < count)
            variables = std::max<std::size_t>(variables, column.variableIndex + std::size_t{1});
    return variables;
}

void putFixed(Bytes& row, std::size_t at, const Column& column, const Cell& cell)
{
    if (!cell)
        row.replace(at, column.length, column.length, junk);
    else if (cell->size() > column.length)
        throw std::logic_error("a value is too long for the fixed column " + column.name);
    else
        row.replace(at, cell->size(), *cell);
}

// Offset table of Jet 3: one byte an offset, and for each full 256 bytes of the row a byte that tells with
// which offset the next 256 begin; what is left of these is 0xFF.
void appendTable3(Bytes& row, const std::vector<std::size_t>& offsets, std::size_t maskSize)
{
    const std::size_t base = row.size() + offsets.size() + 1 + maskSize;
    std::size_t jumps = 0;
    while ((base + jumps - 1) / 256 != jumps)
        ++jumps;
    for (std::size_t i = offsets.size(); i-- > 0;)
        row += number(offsets.at(i), 1);
    for (std::size_t k = jumps; k-- > 0;) {
        const auto first = std::lower_bound(offsets.begin(), offsets.end(), 256 * (k + 1));
        row += first == offsets.end() ? '\xFF' : static_cast<char>(first - offsets.begin());
    }
    row += number(offsets.size() - 1, 1);
}

void appendTable4(Bytes& row, const std::vector<std::size_t>& offsets)
{
    for (std::size_t i = offsets.size(); i-- > 0;)
        row += number(offsets.at(i), 2);
    row += number(offsets.size() - 1, 2);
}

void appendVariable(Bytes& row, Version version, const std::vector<const Bytes*>& values,
                    std::size_t maskSize)
{
    std::vector<std::size_t> offsets;
    offsets.reserve(values.size() + 1);
    for (const Bytes* value : values) {
        offsets.push_back(row.size());
        if (value)
            row += *value;
    }
    offsets.push_back(row.size());
    if (version == Version::Jet3)
        appendTable3(row, offsets, maskSize);
    else
        appendTable4(row, offsets);
}

void appendName(Bytes& bytes, Version version, const std::string& name)
{
    const Bytes text = version == Version::Jet3 ? name : plainText(toUtf16(name));
    bytes += number(text.size(), version == Version::Jet3 ? 1 : 2);
    bytes += text;
}

// Where a number stands in the two versions; -1: nowhere.
struct Field
{
    int jet3, jet4;
    std::size_t width;
};

class Entry
{
public:
    Entry(Version version, std::size_t size3, std::size_t size4)
        : m_version(version), m_bytes(version == Version::Jet3 ? size3 : size4, '\0')
    {}
    void put(Field field, std::uint64_t value)
    {
        const int at = m_version == Version::Jet3 ? field.jet3 : field.jet4;
        if (at >= 0)
            putNumber(m_bytes, static_cast<std::size_t>(at), value, field.width);
    }
    [[nodiscard]] const Bytes& bytes() const { return m_bytes; }

private:
    Version m_version;
    Bytes m_bytes;
};

Bytes headBytes(Version version, const Table& table, const Places& places)
{
    Entry head(version, 43, 63);
    head.put({0, 0, 2}, 0x0102);
    head.put({2, -1, 2}, 0x4356);
    head.put({-1, 12, 4}, 0x659);
    head.put({12, 16, 4}, places.rowCount);
    head.put({20, 40, 1}, 0x4E);
    head.put({21, 41, 2}, table.columnsEver);
    head.put({23, 43, 2}, table.variableEver);
    head.put({25, 45, 2}, table.columns.size());
    head.put({27, 47, 4}, table.logicalIndexes.size());
    head.put({31, 51, 4}, table.realIndexes.size());
    head.put({35, 55, 4}, places.map);
    head.put({39, 59, 4}, places.freeMap);
    return head.bytes();
}

Bytes columnEntry(Version version, const Column& column)
{
    const bool isText = column.type == Type::Text || column.type == Type::Memo;
    Entry entry(version, 18, 25);
    entry.put({0, 0, 1}, static_cast<std::uint8_t>(column.type));
    entry.put({-1, 1, 4}, 0x659);
    entry.put({1, 5, 2}, column.id);
    entry.put({3, 7, 2}, column.variableIndex);
    entry.put({5, 9, 2}, column.id);
    entry.put({7, -1, 2}, 0x409);
    entry.put({9, isText ? 11 : -1, 2}, isText ? 0x409 : 0);
    entry.put({11, -1, 2}, isText ? column.codePage : 0);
    if (column.type == Type::Decimal) {
        entry.put({11, 11, 1}, column.precision);
        entry.put({12, 12, 1}, column.scale);
    }
    entry.put({13, 15, 1}, column.flags | (column.isFixed ? 1U : 0U));
    entry.put({14, 21, 2}, column.fixedOffset);
    entry.put({16, 23, 2}, column.length);
    return entry.bytes();
}

Bytes realEntry(Version version, const RealIndex& index, const Places& places)
{
    Entry entry(version, 39, 52);
    entry.put({-1, 0, 4}, 0x659);
    for (int i = 0; i < 10; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const bool isUsed = at < index.columnIds.size();
        entry.put({3 * i, 4 + 3 * i, 2}, isUsed ? index.columnIds.at(at) : 0xFFFF);
        entry.put({3 * i + 2, 6 + 3 * i, 1}, isUsed ? 1 : 0);
    }
    entry.put({30, 34, 4}, places.freeMap);
    entry.put({34, 38, 4}, places.indexRoot);
    entry.put({38, 46, 1}, index.flags | (version == Version::Jet4 ? 0x80U : 0U));
    return entry.bytes();
}

Bytes logicalEntry(Version version, const LogicalIndex& index)
{
    Entry entry(version, 20, 28);
    entry.put({-1, 0, 4}, 0x659);
    entry.put({0, 4, 4}, index.ownNumber);
    entry.put({4, 8, 4}, index.real);
    entry.put({9, 13, 4}, 0xFFFFFFFF);
    entry.put({19, 23, 1}, index.kind);
    return entry.bytes();
}

// One entry and two pointers for each column of long values, ended by a mark.
Bytes trailerBytes(const Table& table, const Places& places)
{
    Bytes trailer;
    for (const auto& column : table.columns)
        if (column.type == Type::Memo || column.type == Type::Ole)
            trailer += number(column.id, 2) + number(places.freeMap, 4) + number(places.freeMap, 4);
    return trailer + "\xFF\xFF";
}

} // namespace

std::uint16_t sizeOf(Type type)
{
    switch (type) {
    case Type::Byte:
        return 1;
    case Type::Integer:
        return 2;
    case Type::Long:
    case Type::Single:
        return 4;
    case Type::Currency:
    case Type::Double:
    case Type::DateTime:
        return 8;
    case Type::Guid:
        return 16;
    case Type::Decimal:
        return 17;
    default:
        return 0;
    }
}

Column& Table::add(std::string_view columnName, Type type, std::uint16_t length)
{
    const auto size = sizeOf(type);
    return size != 0 || type == Type::Boolean ? addFixed(columnName, type, size)
                                              : addVariable(columnName, type, length);
}

Column& Table::addFixed(std::string_view columnName, Type type, std::uint16_t length)
{
    const bool hasPlace = type != Type::Boolean;
    columns.push_back({std::string(columnName), type, length, true, columnsEver++, junkOffset,
                       hasPlace ? fixedEnd : junkOffset});
    if (hasPlace)
        fixedEnd = static_cast<std::uint16_t>(fixedEnd + length);
    return columns.back();
}

Column& Table::addVariable(std::string_view columnName, Type type, std::uint16_t length)
{
    columns.push_back(
        {std::string(columnName), type, length, false, columnsEver++, variableEver++, junkOffset});
    return columns.back();
}

void Table::skipFixed(std::uint16_t length)
{
    ++columnsEver;
    fixedEnd = static_cast<std::uint16_t>(fixedEnd + length);
}

void Table::skipVariable()
{
    ++columnsEver;
    ++variableEver;
}

void Table::addIndex(std::string_view indexName, const std::vector<std::string>& columnNames,
                     std::uint8_t kind, std::uint8_t flags)
{
    RealIndex real;
    real.flags = flags;
    for (const auto& columnName : columnNames) {
        const auto found = std::find_if(columns.begin(), columns.end(),
                                        [&](const Column& column) { return column.name == columnName; });
        if (found == columns.end())
            throw std::logic_error("an index names the unknown column " + columnName);
        real.columnIds.push_back(found->id);
    }
    const auto place = static_cast<std::uint32_t>(realIndexes.size());
    realIndexes.push_back(real);
    logicalIndexes.push_back({std::string(indexName), place, place, kind});
}

Bytes rowBytes(Version version, const Table& table, const std::vector<Cell>& cells, const RowForm& form)
{
    if (cells.size() != table.columns.size())
        throw std::logic_error("a row of " + table.name + " has the wrong number of cells");
    const std::size_t count = countOf(table, form);
    const std::size_t first = version == Version::Jet3 ? 1 : 2;
    Bytes row = number(count, first);
    row.resize(first + fixedEnd(table, count), junk);
    Bytes mask((count + 7) / 8, '\0');
    std::vector<const Bytes*> values(variableCount(table, count), nullptr);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const Column& column = table.columns[i];
        const Cell& cell = cells[i];
        if (column.id >= count)
            continue;
        if (cell)
            mask.at(column.id / 8U) =
                static_cast<char>(static_cast<unsigned char>(mask.at(column.id / 8U)) | 1U << column.id % 8U);
        if (!column.isFixed)
            values.at(column.variableIndex) = cell ? &*cell : nullptr;
        else if (column.type != Type::Boolean)
            putFixed(row, first + column.fixedOffset, column, cell);
    }
    if (table.variableEver > 0 && form.variableTable)
        appendVariable(row, version, values, mask.size());
    return row + mask;
}

Bytes definitionBytes(Version version, const Table& table, const Places& places)
{
    Bytes bytes = headBytes(version, table, places);
    bytes += Bytes(table.realIndexes.size() * (version == Version::Jet3 ? 8 : 12), '\0');
    for (const auto& column : table.columns)
        bytes += columnEntry(version, column);
    for (const auto& column : table.columns)
        appendName(bytes, version, column.name);
    for (const auto& index : table.realIndexes)
        bytes += realEntry(version, index, places);
    for (const auto& index : table.logicalIndexes)
        bytes += logicalEntry(version, index);
    for (const auto& index : table.logicalIndexes)
        appendName(bytes, version, index.name);
    bytes += trailerBytes(table, places);
    putNumber(bytes, 8, bytes.size(), 4);
    return bytes;
}

} // namespace jetWriter
