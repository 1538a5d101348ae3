#include "db/deleteNtcFromDB.h"

#include "db/MainModule.h"
#include "db/queries.h"
#include "db/recordsets.h"
#include "db/updateNtcInDB.h"
#include "model/session.h"

namespace deleteNtcFromDB {

namespace {

using recordsets::openQuery;

// The row of the notice itself; gives its station type. Neither the key of the site nor the station type may
// be Null.
std::string deleteNoticeRow(std::int32_t key, const DatabaseRef& database)
{
    const auto rows = openQuery(database, queries::storedNotice, key);
    session::currentGeoKey = rows->Fields("geo_key").toLong();
    const auto targetKey = rows->Fields("Target");
    if (!targetKey.isNull())
        session::currentTargetKey = targetKey.toLong();
    auto stationType = rows->Fields("stn_type").text();
    rows->Delete();
    rows->Close();
    return stationType;
}

void deleteAllRows(std::int32_t key, const char* query, const DatabaseRef& database)
{
    MainModule::markingFailure([&] { recordsets::deleteToEnd(openQuery(database, query, key)); });
}

void deleteFirstRow(std::int32_t key, const char* query, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, query, key);
        if (rows->RecordCount() > 0)
            rows->Delete();
        rows->Close();
    });
}

} // namespace

void deleteNtc(std::int32_t key, const WorkspaceRef& workspace, const DatabaseRef& database)
{
    MainModule::inTransaction(workspace, [&] {
        const auto stationType = deleteNoticeRow(key, database);
        if (session::currentGeoKey != 0)
            updateNtcInDB::deleteGeo(session::currentGeoKey, database);
        if (session::currentTargetKey != 0)
            deleteTarget(session::currentTargetKey, database);
        deleteRmks(key, database);
        deleteAntennas(key, stationType, database);
        deleteCallSigns(key, database);
        deleteNatSrv(key, database);
        deleteOpAgcy(key, database);
        deleteCoord(key, database);
        deletePubHist(key, database);
    });
}

void deleteTarget(std::int32_t targetKey, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, queries::target, targetKey);
        rows->Delete();
        rows->Close();
    });
}

void deleteAntennas(std::int32_t key, const std::string& stationType, const DatabaseRef& database)
{
    MainModule::markingFailure([&] { updateNtcInDB::removeAntennas(key, stationType, database); });
}

void deleteCallSigns(std::int32_t key, const DatabaseRef& database)
{
    deleteAllRows(key, queries::callSigns, database);
}

void deleteNatSrv(std::int32_t key, const DatabaseRef& database)
{
    deleteAllRows(key, queries::natSrv, database);
}

void deleteOpAgcy(std::int32_t key, const DatabaseRef& database)
{
    deleteAllRows(key, queries::opAgcy, database);
}

void deleteCoord(std::int32_t key, const DatabaseRef& database)
{
    deleteAllRows(key, queries::coord, database);
}

void deleteRmks(std::int32_t key, const DatabaseRef& database)
{
    deleteFirstRow(key, queries::remarks, database);
}

void deletePubHist(std::int32_t key, const DatabaseRef& database)
{
    deleteFirstRow(key, queries::publications, database);
}

} // namespace deleteNtcFromDB
