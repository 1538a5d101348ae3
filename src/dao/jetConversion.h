#pragma once

#include "dao/value.h"
#include "jet/jetFile.h"
#include "platform/hostFormat.h"

#include <string>

// The content of an old file in the form of the engine.
namespace dao {

// The type of the engine for a column of an old file.
[[nodiscard]] ColumnType columnTypeOf(const jet::Column& column);

// When the definition of a table or a link was last changed.
[[nodiscard]] platform::LocalTime lastChange(const jet::CatalogueEntry& entry);

// Writes all that the old file holds into an empty or absent file: each table with its rows in their order
// and its indexes, the indexes that the system's own queries need, links, and when tables were last changed.
// Identities of rows are their places; no column is a key, so that double and missing ones stay. A moment
// that is none stays as its bare number. The file is of no use after a failure. Throws the engine's failures:
// 3026 on a full disk, 3049 for damage.
void convertJetFile(const jet::File& file, const std::string& path, const std::string& target);

} // namespace dao
