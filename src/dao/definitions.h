#pragma once

#include "dao/dao.h"

#include <optional>

struct sqlite3;

// Definitions of tables and indexes, as they stand in a file of the engine.
namespace dao {

// A user's table as the file spells its name; nothing without it. Names are not case-sensitive.
[[nodiscard]] std::optional<std::string> findTable(sqlite3* connection, const std::string& schema,
                                                   std::string_view name);

// The indexes that somebody made, in the order of their names.
[[nodiscard]] std::vector<Index> indexesOf(sqlite3* connection, const std::string& table);

// Both run in the caller's transaction. Throw what Indexes.Append and Indexes.Delete throw.
void createIndex(sqlite3* connection, const std::string& table, const Index& index);
void dropIndex(sqlite3* connection, const std::string& table, std::string_view name);

} // namespace dao
