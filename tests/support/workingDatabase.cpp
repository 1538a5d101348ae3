#include "support/workingDatabase.h"

#include "dao/databaseFile.h"
#include "platform/paths.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

namespace {

using Handle = std::unique_ptr<sqlite3, decltype(&sqlite3_close_v2)>;

Handle openBare(const std::string& path)
{
    sqlite3* connection = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &connection, SQLITE_OPEN_READWRITE, nullptr);
    Handle handle(connection, sqlite3_close_v2);
    if (result != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(connection));
    return handle;
}

int appendRow(void* rows, int columns, char** values, char**)
{
    std::string row;
    for (int column = 0; column < columns; ++column) {
        if (column != 0)
            row += '|';
        row += values[column] != nullptr ? values[column] : "(null)";
    }
    static_cast<std::vector<std::string>*>(rows)->push_back(row);
    return 0;
}

} // namespace

WorkingDatabase::WorkingDatabase() : m_path(m_folder.file("work.mdb"))
{
    dao::copyDatabaseFile(platform::programDirectory() + "/MasterKVR_QRS.mdb", m_path);
}

dao::Ref<dao::Database> WorkingDatabase::open(bool readOnly) const
{
    return dao::DBEngine::OpenDatabase(m_path, false, readOnly);
}

void WorkingDatabase::execute(const std::string& sql) const
{
    static_cast<void>(rows(sql));
}

std::vector<std::string> rowsOf(const std::string& path, const std::string& sql)
{
    std::vector<std::string> found;
    const auto connection = openBare(path);
    if (sqlite3_exec(connection.get(), sql.c_str(), appendRow, &found, nullptr) != SQLITE_OK)
        throw std::runtime_error(sql + ": " + sqlite3_errmsg(connection.get()));
    return found;
}

std::vector<std::string> WorkingDatabase::rows(const std::string& sql) const
{
    return rowsOf(m_path, sql);
}

std::string WorkingDatabase::scalar(const std::string& sql) const
{
    const auto found = rows(sql);
    return found.empty() ? "(no row)" : found.front();
}

int WorkingDatabase::count(const std::string& table) const
{
    return std::stoi(scalar("SELECT count(*) FROM " + table));
}

std::vector<std::string> WorkingDatabase::contents(std::vector<std::string> tables) const
{
    if (tables.empty()) {
        tables = noticeTables();
        tables.emplace_back("kvr_keys");
    }
    std::vector<std::string> all;
    for (const auto& table : tables) {
        for (const auto& row : rows("SELECT rowid, * FROM " + table))
            all.push_back(std::string(table).append(": ").append(row));
    }
    return all;
}

const std::vector<std::string>& noticeTables()
{
    static const std::vector<std::string> tables = {
        "kvr_velda",   "kvr_geo",  "kvr_geo_pt", "kvr_ant",       "kvr_rot",
        "kvr_rx",      "kvr_tx",   "kvr_coord",  "kvr_call_sign", "kvr_nat_serv",
        "kvr_op_agcy", "kvr_rmks", "kvr_target", "kvr_pub_hist"};
    return tables;
}
