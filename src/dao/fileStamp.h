#pragma once

#include "jet/jetFile.h"

#include <string_view>

struct sqlite3_stmt;

// Stamps of old files, as they stand in files of the engine.
namespace dao {

[[nodiscard]] std::string_view commitBytes(const jet::Stamp& stamp);

// Size, time, commit bytes as three parameters of a statement. The stamp must outlive the statement's steps.
void bindStamp(sqlite3_stmt* statement, int firstPlace, const jet::Stamp& stamp);

// Tells contents and names apart, where nobody means to deceive.
inline constexpr std::uint64_t emptyHash = 14695981039346656037ULL;
[[nodiscard]] std::uint64_t hashOf(std::string_view bytes, std::uint64_t hash = emptyHash);

[[nodiscard]] std::string hexadecimal(std::uint64_t number);

} // namespace dao
