#include "compareDatabases.h"

#include "bare.h"

#include <vector>

namespace {

std::vector<std::string> tablesOf(sqlite3* connection)
{
    std::vector<std::string> names;
    bare::Statement tables(
        connection,
        "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY name");
    while (tables.step())
        names.emplace_back(tables.text(0));
    return names;
}

void compareRow(const bare::Statement& left, const bare::Statement& right, const std::string& table)
{
    const int columns = sqlite3_column_count(left.get());
    if (columns != sqlite3_column_count(right.get()))
        throw std::runtime_error(table + ": different columns");
    for (int column = 0; column < columns; ++column) {
        const bool same =
            sqlite3_column_type(left.get(), column) == sqlite3_column_type(right.get(), column) &&
            left.text(column) == right.text(column);
        if (!same)
            throw std::runtime_error(table + ": row " + std::string(left.text(0)) + ", column " +
                                     sqlite3_column_name(left.get(), column) + ": \"" +
                                     std::string(left.text(column)) + "\" and \"" +
                                     std::string(right.text(column)) + "\"");
    }
}

void compareTable(sqlite3* leftConnection, sqlite3* rightConnection, const std::string& table)
{
    const auto rows = "SELECT rowid, * FROM \"" + table + "\" ORDER BY rowid";
    bare::Statement left(leftConnection, rows), right(rightConnection, rows);
    for (;;) {
        const bool leftRow = left.step(), rightRow = right.step();
        if (leftRow != rightRow)
            throw std::runtime_error(table + ": different numbers of rows");
        if (!leftRow)
            return;
        compareRow(left, right, table);
    }
}

} // namespace

void compareDatabases(const std::string& left, const std::string& right)
{
    const auto leftConnection = bare::open(left, true), rightConnection = bare::open(right, true);
    const auto tables = tablesOf(leftConnection.get());
    if (tables.empty() || tables != tablesOf(rightConnection.get()))
        throw std::runtime_error("different tables");
    for (const auto& table : tables)
        compareTable(leftConnection.get(), rightConnection.get(), table);
}
