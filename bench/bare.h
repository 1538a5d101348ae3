#pragma once

#include <sqlite3.h>

#include <charconv>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

// The engine without anything of the product above it: what the floors of the benchmarks stand on.
namespace bare {

using Text = std::string_view; // empty: not given

struct ConnectionCloser
{
    void operator()(sqlite3* connection) const noexcept { sqlite3_close_v2(connection); }
};
using Connection = std::unique_ptr<sqlite3, ConnectionCloser>;

// With the settings that the product opens a database with.
[[nodiscard]] Connection open(const std::string& path, bool readOnly);

void execute(sqlite3* connection, const char* sql);

// A prepared statement. Places of parameters are counted from 1, columns from 0.
class Statement
{
public:
    Statement(sqlite3* connection, const std::string& sql);

    // The bytes must stay until the statement has run.
    void bindText(int place, Text text)
    {
        sqlite3_bind_text(get(), place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    }
    void bindLong(int place, int number) { sqlite3_bind_int(get(), place, number); }
    void bindDouble(int place, double number) { sqlite3_bind_double(get(), place, number); }

    [[nodiscard]] bool step(); // true: stands on a row
    void reset() { sqlite3_reset(get()); }
    void run(); // for a statement without rows; ready for the next binding afterwards

    [[nodiscard]] bool isNull(int column) const { return sqlite3_column_type(get(), column) == SQLITE_NULL; }
    [[nodiscard]] int number(int column) const { return sqlite3_column_int(get(), column); }
    [[nodiscard]] double real(int column) const { return sqlite3_column_double(get(), column); }
    [[nodiscard]] Text text(int column) const
    {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(get(), column));
        return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(get(), column))};
    }
    [[nodiscard]] sqlite3_stmt* get() const { return m_statement.get(); }

private:
    struct Finalizer
    {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

// Digits as a number, 0 for an empty text. Throws for anything else.
template <class Number>
Number numberOf(Text text)
{
    Number number = 0;
    const auto* end = text.data() + text.size();
    if (text.empty())
        return number;
    const auto [rest, failure] = std::from_chars(text.data(), end, number);
    if (failure != std::errc() || rest != end)
        throw std::runtime_error("no number: " + std::string(text));
    return number;
}

} // namespace bare
