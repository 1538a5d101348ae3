#pragma once

#include <string>
#include <string_view>

// Database files as files.
namespace dao {

// Makes a database file of this engine from a script of SQL statements. Replaces a file of that name.
void createDatabaseFile(const std::string& path, std::string_view script);

// Copies a database file over another, which is replaced whole or not at all: what a crash left beside it
// never gets into the copy, and corrections of an old file that lay there go with it. Of an old file the copy
// is one of this engine with its content. Throws 53 without the source, 70 when both are one file, 3045 while
// another process uses the target, 75 or 61 when it can't be written.
void copyDatabaseFile(const std::string& source, const std::string& target);

// Makes a file of this engine, without gaps, with the content of any file that can be opened. Throws what
// opening it throws, 3204 when the target is there, 3026 on a full disk, 3027 where it can't be written;
// nothing half made is left.
void compactDatabaseFile(const std::string& source, const std::string& target);

// Makes in a database file, or replaces there, the link `name` to a table of another database file. That file
// is looked for each time the database is opened: a file of its name in the folder of the linking one first,
// then this path, which is relative to that folder when it is relative.
void linkTable(const std::string& databasePath, const std::string& name, const std::string& file,
               const std::string& table);

} // namespace dao
