#include "dao/bookkeeping.h"

#include "dao/connection.h"
#include "dao/engineError.h"
#include "platform/ansiText.h"

#include <algorithm>
#include <array>

namespace dao {

namespace {

// No index: the table is short, and one on text would hold names as other tools do not order them. A moment
// of the host's local time as "2026-03-31 23:59:59".
constexpr const char* definition =
    "CREATE TABLE IF NOT EXISTS main.zeph_objects ("
    "name TEXT COLLATE NOCASE, kind TEXT, file TEXT, source TEXT, changed TEXT)";

const char* kindName(ObjectKind kind)
{
    return kind == ObjectKind::Link ? "link" : "table";
}

// Null when the file lacks the table.
Statement prepareLook(sqlite3* connection, std::string_view sql)
{
    sqlite3_stmt* statement = nullptr;
    const int result =
        sqlite3_prepare_v2(connection, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    Statement owned(statement);
    if (result == SQLITE_OK)
        return owned;
    if (result != SQLITE_ERROR)
        throw engineFailure(result, connection, pathOf(connection));
    if (std::string_view(sqlite3_errmsg(connection)).starts_with("no such table"))
        return nullptr;
    raiseEngineError(errDamaged, pathOf(connection)); // a table of this name, but with other columns
}

} // namespace

void noteObject(sqlite3* connection, ObjectKind kind, const Link& object, const platform::LocalTime& when)
{
    execute(connection, definition);
    const std::string_view whole = kindName(kind);
    const auto removal = prepare(connection, "DELETE FROM main.zeph_objects WHERE name = ?1 AND kind = ?2");
    bindText(removal.get(), 1, object.name);
    bindText(removal.get(), 2, whole);
    static_cast<void>(stepToRow(connection, removal.get()));
    const auto insertion = prepare(
        connection, "INSERT INTO main.zeph_objects (name, kind, file, source, changed) VALUES "
                    "(?1, ?2, ?3, ?4, printf('%04d-%02d-%02d %02d:%02d:%02d', ?5, ?6, ?7, ?8, ?9, ?10))");
    bindText(insertion.get(), 1, object.name);
    bindText(insertion.get(), 2, whole);
    if (kind == ObjectKind::Link) {
        bindText(insertion.get(), 3, object.file);
        bindText(insertion.get(), 4, object.table);
    }
    int place = 5;
    for (const int part : {when.year, when.month, when.day, when.hour, when.minute, when.second})
        sqlite3_bind_int(insertion.get(), place++, part);
    static_cast<void>(stepToRow(connection, insertion.get()));
}

bool isReservedName(std::string_view name)
{
    constexpr std::array<std::string_view, 2> prefixes = {"zeph_", "sqlite_"};
    return std::any_of(prefixes.begin(), prefixes.end(), [name](std::string_view prefix) {
        return platform::equalNoCase(name.substr(0, prefix.size()), prefix);
    });
}

std::vector<Link> linksOf(sqlite3* connection)
{
    std::vector<Link> links;
    const auto look =
        prepareLook(connection, "SELECT name, file, source FROM main.zeph_objects WHERE kind = 'link'");
    if (!look)
        return links;
    while (stepToRow(connection, look.get()))
        links.push_back({textAt(look.get(), 0), textAt(look.get(), 1), textAt(look.get(), 2)});
    return links;
}

std::optional<platform::LocalTime> lastChangeOf(sqlite3* connection, ObjectKind kind, std::string_view name)
{
    const auto look = prepareLook(
        connection,
        "SELECT strftime('%Y', changed), strftime('%m', changed), strftime('%d', changed), "
        "strftime('%H', changed), strftime('%M', changed), strftime('%S', changed) "
        "FROM main.zeph_objects WHERE name = ?1 AND kind = ?2 AND julianday(changed) IS NOT NULL");
    if (!look)
        return std::nullopt;
    bindText(look.get(), 1, name);
    bindText(look.get(), 2, kindName(kind));
    if (!stepToRow(connection, look.get()))
        return std::nullopt;
    std::array<int, 6> parts{};
    for (std::size_t part = 0; part < parts.size(); ++part)
        parts.at(part) = sqlite3_column_int(look.get(), static_cast<int>(part));
    return platform::LocalTime{parts[0], parts[1], parts[2], parts[3], parts[4], parts[5]};
}

void noteTableChange(sqlite3* connection, std::string_view name)
{
    noteObject(connection, ObjectKind::Table, {std::string(name), {}, {}}, platform::now());
}

void noteAllTables(sqlite3* connection)
{
    execute(connection, definition);
    std::vector<std::string> names;
    {
        const auto look = prepare(connection, "SELECT name FROM main.sqlite_schema WHERE type = 'table'");
        while (stepToRow(connection, look.get()))
            names.push_back(textAt(look.get(), 0));
    }
    for (const auto& name : names) {
        if (!isReservedName(name))
            noteTableChange(connection, name);
    }
}

void noteLink(sqlite3* connection, const Link& link)
{
    noteObject(connection, ObjectKind::Link, link, platform::now());
}

} // namespace dao
