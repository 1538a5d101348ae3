#pragma once

#include "platform/hostFormat.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

// The engine's own table in a database file: when the definitions of its tables were last changed, and its
// links to tables of other files. A file from elsewhere may lack it.
namespace dao {

enum class ObjectKind : std::uint8_t
{
    Table,
    Link
};

// A table of another file under a name of this one. The file as it was given, not where it is now.
struct Link
{
    std::string name, file, table;
};

// No name of a user's table: the engine's, or one of the engine beneath.
[[nodiscard]] bool isReservedName(std::string_view name);

// The statement that takes the right to write a file with links, and that file alone.
inline constexpr const char* takeWriteLock = "DELETE FROM main.zeph_objects WHERE 0";

[[nodiscard]] std::vector<Link> linksOf(sqlite3* connection);
// Nothing without a record of the object.
[[nodiscard]] std::optional<platform::LocalTime> lastChangeOf(sqlite3* connection, ObjectKind kind,
                                                              std::string_view name);

// All make the table where it is missing, and run in the caller's transaction. Of a table the name alone
// counts.
void noteObject(sqlite3* connection, ObjectKind kind, const Link& object, const platform::LocalTime& when);
void noteTableChange(sqlite3* connection, std::string_view name);
void noteAllTables(sqlite3* connection);
void noteLink(sqlite3* connection, const Link& link);

} // namespace dao
