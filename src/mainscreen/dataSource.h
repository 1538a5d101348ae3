#pragma once

#include "dao/dao.h"

#include <memory>
#include <string>

namespace mainscreen {

// The data source control behind the list: a database name, a record source, and what a refresh opened. After
// a refresh all rows are in memory and the file is under no lock.
class DataSource
{
public:
    std::string DatabaseName; // empty: bound to nothing
    bool Exclusive = false;
    bool ReadOnly = false;
    std::string RecordSource;

    // Replaces what is open. With `checkFile` a quick check of the whole file comes first. Throws the
    // engine's failures; then nothing is open.
    void Refresh(bool checkFile);

    // The recordset and the database; nothing when they are closed or were never open.
    void closeRecordset();
    void closeDatabase();
    // Both, and the name is emptied.
    void unbind();

    // Unset before the first refresh and after a failed one.
    [[nodiscard]] const dao::Ref<dao::Recordset>& Recordset() const { return m_recordset; }
    // The rows of the last refresh that worked; they stay when all is closed. Null before.
    [[nodiscard]] const std::shared_ptr<const dao::RowSnapshot>& rows() const { return m_rows; }

private:
    dao::Ref<dao::Database> m_database;
    dao::Ref<dao::Recordset> m_recordset;
    std::shared_ptr<const dao::RowSnapshot> m_rows;
};

} // namespace mainscreen
