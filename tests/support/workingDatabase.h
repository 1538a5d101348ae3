#pragma once

#include "dao/dao.h"
#include "support/failures.h"
#include "support/temporaryFolder.h"

#include <string>
#include <vector>

// A fresh working database in a folder of its own, and a look into it past the engine.
class WorkingDatabase
{
public:
    WorkingDatabase();

    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }
    [[nodiscard]] dao::Ref<dao::Database> open(bool readOnly = false) const;

    // Through bare SQLite.
    void execute(const std::string& sql) const;
    // Rows as text, columns parted by "|", Null as "(null)".
    [[nodiscard]] std::vector<std::string> rows(const std::string& sql) const;
    [[nodiscard]] std::string scalar(const std::string& sql) const;
    [[nodiscard]] int count(const std::string& table) const;
    // Every row of the tables with its identity; those of the counters too when no tables are named.
    [[nodiscard]] std::vector<std::string> contents(std::vector<std::string> tables = {}) const;

private:
    TemporaryFolder m_folder;
    std::string m_path;
};

// The rows that a statement gives in any database file, through bare SQLite and in the form of
// WorkingDatabase::rows.
std::vector<std::string> rowsOf(const std::string& path, const std::string& sql);

// The names of all tables of a working database but for the counters.
[[nodiscard]] const std::vector<std::string>& noticeTables();
