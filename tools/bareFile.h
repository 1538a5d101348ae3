#pragma once

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

// A database file that rows are put into in one go, past the program's engine. Throws std::runtime_error.
namespace bareFile {

struct ConnectionCloser
{
    void operator()(sqlite3* connection) const noexcept { sqlite3_close_v2(connection); }
};
using Connection = std::unique_ptr<sqlite3, ConnectionCloser>;

inline void check(bool fine, sqlite3* connection)
{
    if (!fine)
        throw std::runtime_error(sqlite3_errmsg(connection));
}

inline void execute(sqlite3* connection, const char* sql)
{
    check(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr) == SQLITE_OK, connection);
}

// An existing file.
inline Connection open(const std::string& path)
{
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    Connection connection(handle);
    if (result != SQLITE_OK)
        throw std::runtime_error(path + ": " + sqlite3_errmsg(handle));
    return connection;
}

// A prepared statement; values are bound from the left.
class Statement
{
public:
    Statement(sqlite3* connection, const std::string& sql)
    {
        sqlite3_stmt* statement = nullptr;
        const int result = sqlite3_prepare_v2(connection, sql.c_str(), -1, &statement, nullptr);
        m_statement.reset(statement);
        check(result == SQLITE_OK, connection);
    }

    // Empty: Null. The text must stay until the statement has run.
    void put(const std::string& text)
    {
        if (text.empty())
            sqlite3_bind_null(m_statement.get(), ++m_place);
        else
            sqlite3_bind_text(m_statement.get(), ++m_place, text.c_str(), static_cast<int>(text.size()),
                              SQLITE_STATIC);
    }
    void put(int number) { sqlite3_bind_int(m_statement.get(), ++m_place, number); }
    void put(double number) { sqlite3_bind_double(m_statement.get(), ++m_place, number); }
    void put(std::nullptr_t) { sqlite3_bind_null(m_statement.get(), ++m_place); }
    template <class Number>
    void put(const std::optional<Number>& number)
    {
        if (number)
            put(*number);
        else
            put(nullptr);
    }

    template <class... Values>
    void run(const Values&... values)
    {
        m_place = 0;
        (put(values), ...);
        const int result = sqlite3_step(m_statement.get());
        sqlite3_reset(m_statement.get());
        check(result == SQLITE_DONE, sqlite3_db_handle(m_statement.get()));
    }

    // True: stands on a row.
    [[nodiscard]] bool step()
    {
        const int result = sqlite3_step(m_statement.get());
        check(result == SQLITE_ROW || result == SQLITE_DONE, sqlite3_db_handle(m_statement.get()));
        return result == SQLITE_ROW;
    }
    [[nodiscard]] int columns() const { return sqlite3_column_count(m_statement.get()); }
    // Null as "(null)".
    [[nodiscard]] std::string text(int column) const
    {
        if (sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL)
            return "(null)";
        // The bytes of a number are those of its text.
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement.get(), column));
        return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column))};
    }

private:
    struct Finalizer
    {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
    int m_place = 0;
};

} // namespace bareFile
