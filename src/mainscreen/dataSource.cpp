#include "mainscreen/dataSource.h"

namespace mainscreen {

void DataSource::Refresh(bool checkFile)
{
    closeDatabase();
    const auto database = dao::DBEngine::OpenDatabase(DatabaseName, Exclusive, ReadOnly);
    if (checkFile)
        database->requireSound();
    const auto recordset = database->OpenRecordset(RecordSource, dao::dbOpenDynaset);
    m_rows = recordset->snapshot();
    m_database = database;
    m_recordset = recordset;
}

void DataSource::closeRecordset()
{
    if (m_recordset)
        m_recordset->Close();
    m_recordset.reset();
}

void DataSource::closeDatabase()
{
    closeRecordset();
    if (m_database)
        m_database->Close();
    m_database.reset();
}

void DataSource::unbind()
{
    closeDatabase();
    DatabaseName.clear();
}

} // namespace mainscreen
