#include "jet/indexDefinition.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace jet {

namespace {

struct IndexLayout
{
    std::size_t realEntry, key, flags, logicalEntry, realNumber, kind;
};

constexpr IndexLayout jet3Layout = {39, 0, 38, 20, 4, 19};
constexpr IndexLayout jet4Layout = {52, 4, 46, 28, 8, 23};

constexpr std::size_t mostKeyColumns = 10;
constexpr std::size_t keyEntrySize = 3;
constexpr std::uint16_t noColumn = 0xFFFF;
constexpr unsigned uniqueFlag = 1;

enum class Kind : std::uint8_t
{
    Plain = 0,
    PrimaryKey = 1,
};

const Column* columnOfId(const std::vector<Column>& columns, std::uint16_t id)
{
    const auto found =
        std::find_if(columns.begin(), columns.end(), [id](const Column& column) { return column.id == id; });
    return found == columns.end() ? nullptr : &*found;
}

// Nothing when a column of the key is not among the table's.
std::optional<std::vector<std::string>> keyOf(const ByteView& entry, const IndexLayout& layout,
                                              const std::vector<Column>& columns)
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < mostKeyColumns; ++i) {
        const auto id = entry.u16(layout.key + i * keyEntrySize);
        if (id == noColumn)
            continue;
        const auto* const column = columnOfId(columns, id);
        if (!column)
            return std::nullopt;
        names.push_back(column->name);
    }
    return names;
}

bool isUsers(const ByteView& logicalEntry, const IndexLayout& layout)
{
    return logicalEntry.u8(layout.kind) <= static_cast<std::uint8_t>(Kind::PrimaryKey);
}

} // namespace

std::vector<Index> readIndexes(IndexCounts counts, Version version, const std::vector<Column>& columns,
                               const std::function<ByteView(std::size_t)>& take,
                               const std::function<std::string()>& takeName)
{
    const auto& layout = version == Version::Jet3 ? jet3Layout : jet4Layout;
    const auto realEntries = take(counts.real * layout.realEntry);
    const auto logicalEntries = take(counts.logical * layout.logicalEntry);
    std::vector<Index> indexes;
    for (std::size_t i = 0; i < counts.logical; ++i) {
        const auto logical = logicalEntries.part(i * layout.logicalEntry, layout.logicalEntry);
        auto name = takeName();
        const auto number = logical.u32(layout.realNumber);
        if (number >= counts.real)
            raiseDamage(logical.page(), "an index of a table has no columns");
        const auto real = realEntries.part(number * layout.realEntry, layout.realEntry);
        auto key = keyOf(real, layout, columns);
        if (!isUsers(logical, layout) || !key || key->empty())
            continue;
        const bool isPrimary = logical.u8(layout.kind) == static_cast<std::uint8_t>(Kind::PrimaryKey);
        const bool isUnique = isPrimary || (real.u8(layout.flags) & uniqueFlag) != 0;
        indexes.push_back({std::move(name), *std::move(key), isPrimary, isUnique});
    }
    return indexes;
}

} // namespace jet
