#include "bare.h"

namespace bare {

namespace {

void check(bool fine, sqlite3* connection)
{
    if (!fine)
        throw std::runtime_error(sqlite3_errmsg(connection));
}

} // namespace

Connection open(const std::string& path, bool readOnly)
{
    sqlite3* handle = nullptr;
    const int result =
        sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    Connection connection(handle);
    check(result == SQLITE_OK, handle);
    execute(handle, "PRAGMA cell_size_check=ON; PRAGMA mmap_size=0; PRAGMA secure_delete=OFF");
    Statement identity(handle, "PRAGMA application_id");
    check(identity.step() && identity.number(0) != 0, handle);
    execute(handle, readOnly ? "PRAGMA query_only=ON" : "PRAGMA synchronous=EXTRA");
    return connection;
}

void execute(sqlite3* connection, const char* sql)
{
    check(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr) == SQLITE_OK, connection);
}

Statement::Statement(sqlite3* connection, const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    m_statement.reset(statement);
    check(result == SQLITE_OK, connection);
}

bool Statement::step()
{
    const int result = sqlite3_step(get());
    check(result == SQLITE_ROW || result == SQLITE_DONE, sqlite3_db_handle(get()));
    return result == SQLITE_ROW;
}

void Statement::run()
{
    const int result = sqlite3_step(get());
    sqlite3_reset(get());
    sqlite3_clear_bindings(get());
    check(result == SQLITE_DONE, sqlite3_db_handle(get()));
}

} // namespace bare
