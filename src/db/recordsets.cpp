#include "db/recordsets.h"

namespace recordsets {

RecordsetRef openTable(const DatabaseRef& database, const char* name)
{
    return database->OpenRecordset(name, dao::dbOpenTable);
}

RecordsetRef openQuery(const DatabaseRef& database, const char* text, std::int32_t key)
{
    const auto query = database->CreateQueryDef("", text);
    query->Parameters("Key").setValue(key);
    return query->OpenRecordset(dao::dbOpenDynaset);
}

RecordsetRef openQuery(const DatabaseRef& database, const char* text, std::int32_t key,
                       std::int16_t antennaNumber)
{
    const auto query = database->CreateQueryDef("", text);
    query->Parameters("Key").setValue(key);
    query->Parameters("AntNb").setValue(antennaNumber);
    return query->OpenRecordset(dao::dbOpenDynaset);
}

void update(const RecordsetRef& rows)
{
    rows->Update(dao::dbUpdateRegular, false);
}

void deleteToEnd(const RecordsetRef& rows)
{
    for (; !rows->EOF_(); rows->MoveNext())
        rows->Delete();
    rows->Close();
}

} // namespace recordsets
