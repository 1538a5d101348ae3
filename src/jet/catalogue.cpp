#include "jet/catalogue.h"

#include "jet/rowReader.h"
#include "jet/tableDefinition.h"

#include <algorithm>
#include <array>
#include <optional>

namespace jet {

namespace {

constexpr std::uint32_t cataloguePage = 2;
constexpr std::uint32_t systemFlags = 0x80000002;

// The columns that are read, and no others: the rest is long values of hidden content.
enum WantedColumn : std::uint8_t
{
    Id,
    Name,
    ObjectType,
    Flags,
    DateCreate,
    DateUpdate,
    Database,
    ForeignName,
};

struct WantedRow
{
    std::string_view name;
    Type type;
};

constexpr std::array<WantedRow, 8> wantedColumns = {{
    {"Id", Type::Long},
    {"Name", Type::Text},
    {"Type", Type::Integer},
    {"Flags", Type::Long},
    {"DateCreate", Type::DateTime},
    {"DateUpdate", Type::DateTime},
    {"Database", Type::Memo},
    {"ForeignName", Type::Text},
}};

enum class ObjectKind : std::uint8_t
{
    Table = 1,
    ServerLink = 4,
    Link = 6,
};

Table wantedPartOf(const Table& whole)
{
    Table part;
    part.rowCount = whole.rowCount;
    part.definitionPage = whole.definitionPage;
    part.mapPointer = whole.mapPointer;
    for (const auto& wanted : wantedColumns) {
        const auto found =
            std::find_if(whole.columns.begin(), whole.columns.end(), [&](const Column& column) {
                return column.name == wanted.name && column.type == wanted.type;
            });
        if (found == whole.columns.end())
            raiseDamage(cataloguePage, "the catalogue lacks a column");
        part.columns.push_back(*found);
    }
    return part;
}

std::string textOrNothing(RowReader& rows, WantedColumn column)
{
    return rows.row().isNull(column) ? std::string() : std::string(rows.text(column));
}

DateTime dateOrNothing(const RowReader& rows, WantedColumn column)
{
    return {rows.row().isNull(column) ? 0 : rows.row().value(column).number(0)};
}

std::uint32_t numberOrZero(const RowReader& rows, WantedColumn column)
{
    return rows.row().isNull(column) ? 0 : rows.row().value(column).u32(0);
}

bool isLink(std::uint16_t type)
{
    return type == static_cast<std::uint16_t>(ObjectKind::Link) ||
           type == static_cast<std::uint16_t>(ObjectKind::ServerLink);
}

bool isUsersTable(const RowReader& rows, std::uint16_t type)
{
    return type == static_cast<std::uint16_t>(ObjectKind::Table) &&
           (numberOrZero(rows, Flags) & systemFlags) == 0;
}

std::uint32_t definitionPageOf(const RowReader& rows, std::uint32_t pageCount)
{
    const auto page = numberOrZero(rows, Id);
    if (page == 0 || page >= pageCount)
        raiseDamage(rows.row().value(Name).page(), "the catalogue names a page that is none");
    return page;
}

// Nothing for what is no user's table or link.
std::optional<CatalogueEntry> entryOf(RowReader& rows, std::uint32_t pageCount)
{
    if (rows.row().isNull(Name) || rows.row().isNull(ObjectType))
        return std::nullopt;
    const auto type = rows.row().value(ObjectType).u16(0);
    CatalogueEntry entry;
    if (isUsersTable(rows, type)) {
        entry.definitionPage = definitionPageOf(rows, pageCount);
    } else if (isLink(type)) {
        entry.linkedFile = textOrNothing(rows, Database);
        entry.linkedTable = textOrNothing(rows, ForeignName);
    } else {
        return std::nullopt;
    }
    entry.name = rows.text(Name);
    entry.created = dateOrNothing(rows, DateCreate);
    entry.updated = dateOrNothing(rows, DateUpdate);
    return entry;
}

} // namespace

std::vector<CatalogueEntry> readCatalogue(const PageFile& file)
{
    const auto pageCount = file.pageCount();
    const auto table = wantedPartOf(readTableDefinition(cataloguePage, file));
    RowReader rows(table, file);
    std::vector<CatalogueEntry> entries;
    while (rows.next()) {
        if (auto entry = entryOf(rows, pageCount))
            entries.push_back(*std::move(entry));
    }
    return entries;
}

} // namespace jet
