#include "dao/connection.h"

#include "dao/engineError.h"
#include "platform/ansiText.h"
#include "platform/paths.h"

#include <array>
#include <filesystem>

namespace dao {

namespace {

constexpr int busyTimeoutMilliseconds = 2000;

int collateWithoutCase(void*, int leftLength, const void* left, int rightLength, const void* right)
{
    return platform::compareNoCase({static_cast<const char*>(left), static_cast<std::size_t>(leftLength)},
                                   {static_cast<const char*>(right), static_cast<std::size_t>(rightLength)});
}

// A file may come from anywhere: no code of its own runs, and nothing in it can ask for boundless work.
void distrust(sqlite3* connection)
{
    struct Setting
    {
        int option, value;
    };
    constexpr std::array settings = {
        Setting{SQLITE_DBCONFIG_DEFENSIVE, 1},      Setting{SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
        Setting{SQLITE_DBCONFIG_ENABLE_TRIGGER, 0}, Setting{SQLITE_DBCONFIG_ENABLE_VIEW, 0},
        Setting{SQLITE_DBCONFIG_DQS_DML, 0},        Setting{SQLITE_DBCONFIG_DQS_DDL, 0},
    };
    for (const auto& [option, value] : settings)
        sqlite3_db_config(connection, option, value, nullptr);
    struct Limit
    {
        int category, value;
    };
    constexpr std::array limits = {
        Limit{SQLITE_LIMIT_LENGTH, 64 * 1024 * 1024},
        Limit{SQLITE_LIMIT_SQL_LENGTH, 1024 * 1024},
        Limit{SQLITE_LIMIT_COLUMN, 256},
        Limit{SQLITE_LIMIT_EXPR_DEPTH, 200},
        Limit{SQLITE_LIMIT_ATTACHED, mostAttachedFiles},
        Limit{SQLITE_LIMIT_VARIABLE_NUMBER, 512},
    };
    for (const auto& [category, value] : limits)
        sqlite3_limit(connection, category, value);
}

void requireOwnFile(sqlite3* connection, const std::string& schema, const std::string& path)
{
    const auto statement = prepare(connection, "PRAGMA " + schema + ".application_id");
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_ROW)
        throw engineFailure(result, connection, path);
    if (sqlite3_column_int(statement.get(), 0) != applicationId)
        raiseEngineError(errUnrecognizedFormat, path);
}

} // namespace

Connection openAnyFile(const std::string& path, int flags)
{
    // Nobody asks how much memory is in use, and each allocation would take a lock to count it. It can be
    // said only before the first connection; afterwards the request is refused and nothing changes.
    static const int memoryStatistics = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    static_cast<void>(memoryStatistics);
    // A name that begins with "file:" would be taken for something else than a name.
    const auto name = path.starts_with("file:") ? "./" + path : path;
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(name.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    Connection connection(handle);
    if (result != SQLITE_OK)
        throw engineFailure(result, handle, path);
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_timeout(handle, busyTimeoutMilliseconds);
    // Text is compared without regard to case in every column that is declared NOCASE, and beyond ASCII too,
    // unlike the collation that SQLite brings under this name. A file is in order for whoever opens it with
    // other tools as long as no index holds letters beyond ASCII.
    if (sqlite3_create_collation(handle, "NOCASE", SQLITE_UTF8, nullptr, collateWithoutCase) != SQLITE_OK)
        throw engineFailure(sqlite3_errcode(handle), handle, path);
    return connection;
}

Connection openConnection(const std::string& path, bool readOnly)
{
    const auto file = platform::hostPath(path);
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored))
        raiseEngineError(errFileMissing, path);
    auto connection = openAnyFile(platform::utf8Path(file), SQLITE_OPEN_READWRITE);
    distrust(connection.get());
    // Wiping what was deleted, the default of some builds of the library, costs time and protects no secret
    // here.
    execute(connection.get(), "PRAGMA cell_size_check=ON; PRAGMA mmap_size=0; PRAGMA secure_delete=OFF");
    requireOwnFile(connection.get(), "main", path);
    // EXTRA also puts the removal of the journal on the disk, which ends a commit.
    execute(connection.get(), readOnly ? "PRAGMA query_only=ON" : "PRAGMA synchronous=EXTRA");
    return connection;
}

void attachFile(sqlite3* connection, const std::string& path, const std::string& schema)
{
    const auto statement = prepare(connection, "ATTACH ?1 AS ?2");
    bindText(statement.get(), 1, path);
    bindText(statement.get(), 2, schema);
    const int result = sqlite3_step(statement.get());
    // The engine beneath reads a file of another text encoding than the first one's only by itself.
    if (result == SQLITE_ERROR)
        raiseEngineError(errUnrecognizedFormat, path);
    if (result != SQLITE_DONE)
        throw engineFailure(result, connection, path);
    try {
        requireOwnFile(connection, schema, path);
    } catch (const platform::RuntimeError&) {
        // Whoever tries again needs the name.
        sqlite3_exec(connection, ("DETACH " + schema).c_str(), nullptr, nullptr, nullptr);
        throw;
    }
}

Statement prepare(sqlite3* connection, std::string_view sql)
{
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    Statement owned(statement);
    if (result != SQLITE_OK)
        throw engineFailure(result, connection, pathOf(connection));
    return owned;
}

void execute(sqlite3* connection, const char* sql)
{
    const int result = sqlite3_exec(connection, sql, nullptr, nullptr, nullptr);
    if (result != SQLITE_OK)
        throw engineFailure(result, connection, pathOf(connection));
}

std::string pathOf(sqlite3* connection)
{
    const char* name = sqlite3_db_filename(connection, "main");
    return name != nullptr ? name : "";
}

void copyContent(sqlite3* content, sqlite3* onto, std::string_view path)
{
    struct Closer
    {
        void operator()(sqlite3_backup* backup) const noexcept { sqlite3_backup_finish(backup); }
    };
    const std::unique_ptr<sqlite3_backup, Closer> backup(sqlite3_backup_init(onto, "main", content, "main"));
    const int result = backup ? sqlite3_backup_step(backup.get(), -1) : sqlite3_errcode(onto);
    if (result != SQLITE_DONE)
        throw engineFailure(result, nullptr, path);
}

void bindText(sqlite3_stmt* statement, int place, std::string_view text)
{
    sqlite3_bind_text64(statement, place, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

std::string textAt(sqlite3_stmt* statement, int column)
{
    const auto* text =
        static_cast<const char*>(static_cast<const void*>(sqlite3_column_text(statement, column)));
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    return text != nullptr ? std::string(text, length) : std::string();
}

bool stepToRow(sqlite3* connection, sqlite3_stmt* statement)
{
    const int result = sqlite3_step(statement);
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        throw engineFailure(result, connection, pathOf(connection));
    return result == SQLITE_ROW;
}

} // namespace dao
