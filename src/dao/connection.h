#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

// The handles of SQLite, and how a database file is opened. Nothing outside this folder sees them.
namespace dao {

// In the header of each file of the engine: "ZEPH".
inline constexpr int applicationId = 0x5A455048;

// How many files may be open beneath a connection besides its own.
inline constexpr int mostAttachedFiles = 10;

struct ConnectionCloser
{
    void operator()(sqlite3* connection) const noexcept { sqlite3_close_v2(connection); }
};
using Connection = std::unique_ptr<sqlite3, ConnectionCloser>;

struct StatementCloser
{
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementCloser>;

// Opens a file that is not trusted. Read-only is the engine's own rule over a handle that may recover what a
// crash left; a file without write right is opened all the same. Throws 3024, 3343, 3049, 3051.
[[nodiscard]] Connection openConnection(const std::string& path, bool readOnly);

// The same for any SQLite file, a new one included, without a look at what it holds.
[[nodiscard]] Connection openAnyFile(const std::string& path, int flags);

// Opens another file beneath the same connection, under a schema's name and with the same distrust.
void attachFile(sqlite3* connection, const std::string& path, const std::string& schema);

[[nodiscard]] Statement prepare(sqlite3* connection, std::string_view sql);

// Runs statements that give no rows of interest. Throws the engine's failure.
void execute(sqlite3* connection, const char* sql);

[[nodiscard]] std::string pathOf(sqlite3* connection);

// The whole content of one file onto another, as one transaction. A failure names the path.
void copyContent(sqlite3* content, sqlite3* onto, std::string_view path);

// For short looks into a file. The text must outlive the statement's steps.
void bindText(sqlite3_stmt* statement, int place, std::string_view text);
[[nodiscard]] std::string textAt(sqlite3_stmt* statement, int column);
// False without a further row.
[[nodiscard]] bool stepToRow(sqlite3* connection, sqlite3_stmt* statement);

} // namespace dao
