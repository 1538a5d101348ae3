#include "dao/definitions.h"

#include "dao/bookkeeping.h"
#include "dao/connection.h"
#include "dao/engineError.h"
#include "dao/sqlTranslator.h"
#include "platform/ansiText.h"

#include <algorithm>

namespace dao {

namespace {

using platform::equalNoCase;

// Beneath, the names of indexes and tables are one set for the whole file; here each table has its own
// indexes. An index whose name can't stand alone has that of its table before it.
std::string prefixOf(const std::string& table)
{
    return table + ".";
}

bool startsWithNoCase(std::string_view text, std::string_view start)
{
    return text.size() >= start.size() && equalNoCase(text.substr(0, start.size()), start);
}

struct StoredIndex
{
    std::string name, storedName;
};

std::vector<StoredIndex> storedIndexesOf(sqlite3* connection, const std::string& table)
{
    std::vector<StoredIndex> found;
    const auto prefix = prefixOf(table);
    const auto look =
        prepare(connection, "SELECT name FROM pragma_index_list(?1, 'main') WHERE origin = 'c'");
    bindText(look.get(), 1, table);
    while (stepToRow(connection, look.get())) {
        auto stored = textAt(look.get(), 0);
        auto name = startsWithNoCase(stored, prefix) ? stored.substr(prefix.size()) : stored;
        found.push_back({std::move(name), std::move(stored)});
    }
    std::sort(found.begin(), found.end(), [](const auto& left, const auto& right) {
        return platform::compareNoCase(left.name, right.name) < 0;
    });
    return found;
}

Index indexNamed(sqlite3* connection, const StoredIndex& stored)
{
    Index index(stored.name);
    const auto look = prepare(
        connection, "SELECT name FROM pragma_index_info(?1, 'main') WHERE name IS NOT NULL ORDER BY seqno");
    bindText(look.get(), 1, stored.storedName);
    while (stepToRow(connection, look.get()))
        index.Fields().Append(Index::CreateField(textAt(look.get(), 0)));
    return index;
}

bool isTaken(sqlite3* connection, std::string_view name)
{
    const auto look = prepare(connection, "SELECT 1 FROM main.sqlite_schema WHERE name = ?1 COLLATE NOCASE");
    bindText(look.get(), 1, name);
    return stepToRow(connection, look.get());
}

std::string freeName(sqlite3* connection, const std::string& table, const std::string& name)
{
    const auto prefix = prefixOf(table);
    if (!isReservedName(name) && !startsWithNoCase(name, prefix) && !isTaken(connection, name))
        return name;
    if (isTaken(connection, prefix + name))
        raiseEngineError(errIndexExists);
    return prefix + name;
}

void requireColumn(sqlite3* connection, const std::string& table, const std::string& column)
{
    const auto look =
        prepare(connection, "SELECT 1 FROM pragma_table_info(?1, 'main') WHERE name = ?2 COLLATE NOCASE");
    bindText(look.get(), 1, table);
    bindText(look.get(), 2, column);
    if (!stepToRow(connection, look.get()))
        raiseEngineError(errInvalidField, column);
}

// The engine beneath finds out late that an index is in the way of a reader, and what is then rolled back
// ends every reader of the connection.
void requireNoReader(sqlite3* connection)
{
    for (auto* statement = sqlite3_next_stmt(connection, nullptr); statement != nullptr;
         statement = sqlite3_next_stmt(connection, statement)) {
        if (sqlite3_stmt_busy(statement) != 0)
            raiseEngineError(errLocked);
    }
}

} // namespace

std::optional<std::string> findTable(sqlite3* connection, const std::string& schema, std::string_view name)
{
    if (isReservedName(name))
        return std::nullopt;
    const auto look =
        prepare(connection, "SELECT name FROM " + quotedName(schema) +
                                ".sqlite_schema WHERE type = 'table' AND name = ?1 COLLATE NOCASE");
    bindText(look.get(), 1, name);
    if (!stepToRow(connection, look.get()))
        return std::nullopt;
    return textAt(look.get(), 0);
}

std::vector<Index> indexesOf(sqlite3* connection, const std::string& table)
{
    std::vector<Index> indexes;
    for (const auto& stored : storedIndexesOf(connection, table))
        indexes.push_back(indexNamed(connection, stored));
    return indexes;
}

void createIndex(sqlite3* connection, const std::string& table, const Index& index)
{
    if (index.Fields().Count() == 0)
        raiseEngineError(errNoFieldDefined);
    for (const auto& stored : storedIndexesOf(connection, table)) {
        if (equalNoCase(stored.name, index.Name()))
            raiseEngineError(errIndexExists);
    }
    std::string columns;
    for (const auto& field : index.Fields()) {
        requireColumn(connection, table, field.Name());
        columns += (columns.empty() ? "" : ", ") + quotedName(field.Name());
    }
    const auto name = freeName(connection, table, index.Name());
    execute(connection,
            ("CREATE INDEX main." + quotedName(name) + " ON " + quotedName(table) + " (" + columns + ")")
                .c_str());
}

void dropIndex(sqlite3* connection, const std::string& table, std::string_view name)
{
    for (const auto& stored : storedIndexesOf(connection, table)) {
        if (equalNoCase(stored.name, name)) {
            requireNoReader(connection);
            execute(connection, ("DROP INDEX main." + quotedName(stored.storedName)).c_str());
            return;
        }
    }
    raiseEngineError(errNoSuchItem);
}

} // namespace dao
