#include "jet/tableDefinition.h"

#include "jet/indexDefinition.h"
#include "jet/textDecoder.h"
#include "jet/values.h"

#include <algorithm>
#include <string>

namespace jet {

namespace {

// Where things stand in a definition.
struct DefinitionLayout
{
    std::size_t rowCount, variableColumns, columns, logicalIndexes, realIndexes, mapPointer, firstPart;
    std::size_t realIndexHead, columnEntry;
    std::size_t id, variableIndex, flags, fixedOffset, length;
};

constexpr DefinitionLayout jet3Layout = {12, 23, 25, 27, 31, 35, 43, 8, 18, 1, 3, 13, 14, 16};
constexpr DefinitionLayout jet4Layout = {16, 43, 45, 47, 51, 55, 63, 12, 25, 5, 7, 15, 21, 23};

constexpr std::size_t nextPageOffset = 4;
constexpr std::size_t lengthOffset = 8;
constexpr std::size_t furtherPageHeader = 8;
constexpr unsigned mostPages = 64; // no definition needs more; and pages may point in a circle
constexpr std::uint32_t mostColumns = 255;
constexpr std::uint32_t mostIndexes = 1000;

// The bytes of all pages of a definition, one behind the other.
std::string joinPages(std::uint32_t firstPage, const PageFile& file)
{
    PageBuffer buffer(file);
    std::string joined;
    auto number = firstPage;
    for (unsigned count = 0; number != 0; ++count) {
        if (count == mostPages)
            raiseDamage(firstPage, "the definition of a table has no end");
        const auto page = buffer.page(number, PageType::Definition);
        joined += page.from(joined.empty() ? 0 : furtherPageHeader).bytes();
        number = page.u32(nextPageOffset);
    }
    return joined;
}

std::uint32_t checkedCount(std::uint32_t count, std::uint32_t most, std::uint32_t page)
{
    if (count > most)
        raiseDamage(page, "the definition of a table counts too many parts");
    return count;
}

// Walks over the parts of a definition.
class DefinitionReader
{
public:
    DefinitionReader(const ByteView& joined, const PageFile& file)
        : m_file(file),
          m_layout(file.isJet3() ? jet3Layout : jet4Layout),
          m_bytes(joined.part(0, std::min<std::size_t>(joined.size(), joined.u32(lengthOffset)))),
          m_columns(checkedCount(m_bytes.u16(m_layout.columns), mostColumns, joined.page())),
          m_counts{checkedCount(m_bytes.u32(m_layout.realIndexes), mostIndexes, joined.page()),
                   checkedCount(m_bytes.u32(m_layout.logicalIndexes), mostIndexes, joined.page())},
          m_at(m_layout.firstPart + m_counts.real * m_layout.realIndexHead)
    {}

    [[nodiscard]] Table table()
    {
        Table table;
        table.rowCount = m_bytes.u32(m_layout.rowCount);
        table.definitionPage = m_bytes.page();
        table.mapPointer = m_bytes.u32(m_layout.mapPointer);
        for (std::uint32_t i = 0; i < m_columns; ++i)
            table.columns.push_back(columnOf(taken(m_layout.columnEntry)));
        for (auto& column : table.columns)
            column.name = takenName();
        table.indexes = readIndexes(
            m_counts, m_file.version(), table.columns, [this](std::size_t size) { return taken(size); },
            [this] { return takenName(); });
        return table;
    }

private:
    ByteView taken(std::size_t size)
    {
        const auto part = m_bytes.part(m_at, size);
        m_at += size;
        return part;
    }

    std::string takenName()
    {
        std::string buffer;
        if (m_file.isJet3()) {
            const auto bytes = taken(taken(1).u8(0)).bytes();
            return std::string(decodeCodePage(bytes, m_file.codePage(), buffer));
        }
        return utf16ToUtf8(taken(taken(2).u16(0)).bytes());
    }

    [[nodiscard]] Column columnOf(const ByteView& entry) const
    {
        constexpr unsigned fixedFlag = 1;
        Column column;
        column.type = static_cast<Type>(entry.u8(0));
        column.isFixed = (entry.u8(m_layout.flags) & fixedFlag) != 0;
        column.id = entry.u16(m_layout.id);
        column.variableIndex = entry.u16(m_layout.variableIndex);
        column.fixedOffset = entry.u16(m_layout.fixedOffset);
        column.length = entry.u16(m_layout.length);
        if (column.type == Type::Decimal) {
            column.precision = entry.u8(11);
            column.scale = entry.u8(12);
        }
        if (m_file.isJet3() && (column.type == Type::Text || column.type == Type::Memo))
            column.codePage = codePageOf(entry);
        check(column);
        return column;
    }

    [[nodiscard]] std::uint16_t codePageOf(const ByteView& entry) const
    {
        const auto own = entry.u16(11);
        return own != 0 ? own : static_cast<std::uint16_t>(m_file.codePage());
    }

    void check(const Column& column) const
    {
        if (column.type == Type::Boolean)
            return;
        if (column.isFixed && column.length < sizeOf(column.type))
            raiseDamage(m_bytes.page(), "a column is shorter than its values");
        if (!column.isFixed && m_bytes.u16(m_layout.variableColumns) == 0)
            raiseDamage(m_bytes.page(), "a column of a kind that the table is said to lack");
    }

    const PageFile& m_file;
    const DefinitionLayout& m_layout;
    ByteView m_bytes;
    std::uint32_t m_columns;
    IndexCounts m_counts;
    std::size_t m_at; // of the next part
};

} // namespace

Table readTableDefinition(std::uint32_t page, const PageFile& file)
{
    if (page == 0)
        raiseDamage(page, "no table can be defined on it");
    const auto joined = joinPages(page, file);
    return DefinitionReader(ByteView(joined, page), file).table();
}

} // namespace jet
