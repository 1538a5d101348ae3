#pragma once

#include <string>
#include <string_view>

// Database files as files.
namespace dao {

// Makes a database file of this engine from a script of SQL statements. Replaces a file of that name.
void createDatabaseFile(const std::string& path, std::string_view script);

// Copies a database file over another, which is replaced whole or not at all: what a crash left beside it
// never gets into the copy. Throws 53 without the source, 70 when both are one file, 3045 while another
// process uses the target, 75 or 61 when it can't be written.
void copyDatabaseFile(const std::string& source, const std::string& target);

} // namespace dao
