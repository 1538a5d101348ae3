#pragma once

#include "dao/value.h"

#include <string>
#include <string_view>

// The types of columns as they are declared in the schema of a file.
namespace dao {

// Text when the declaration is none of the engine's, or none at all.
[[nodiscard]] ColumnType columnTypeOf(const char* declaration);

// With the collation that every text has.
[[nodiscard]] std::string declarationOf(const ColumnType& type);

// Whether values of the type are numbers, in whatever form they are given out.
[[nodiscard]] bool holdsNumbers(DataType type);

} // namespace dao
