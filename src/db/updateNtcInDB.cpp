#include "db/updateNtcInDB.h"

#include "db/MainModule.h"
#include "db/queries.h"
#include "db/recordsets.h"
#include "db/writeNtcToDB.h"
#include "model/session.h"
#include "platform/hostFormat.h"

#include <limits>

namespace updateNtcInDB {

namespace {

using recordsets::assignOrClearColumns;
using recordsets::deleteToEnd;
using recordsets::openQuery;
using recordsets::RecordsetRef;
using recordsets::update;
using writeNtcToDB::StationKind;

void takeSiteKey(const RecordsetRef& rows)
{
    const auto geoKey = rows->Fields("geo_key");
    if (geoKey.isNull())
        // No table has this column: a notice without the key of a site can't be updated.
        rows->setCollect("geoKeyNb", dao::Null);
    else
        session::currentGeoKey = geoKey.toLong();
}

void takeTargetKey(const RecordsetRef& rows)
{
    const auto targetKey = rows->Fields("Target");
    session::currentTargetKey = targetKey.isNull() ? 0 : targetKey.toLong();
}

// The row of the notice itself. Its keys become the session's current ones.
void editNoticeRow(std::int32_t key, const Ntc& ntc, const DatabaseRef& database)
{
    const auto rows = openQuery(database, queries::storedNotice, key);
    rows->Edit();
    assignOrClearColumns(rows, columns::velda, ntc);
    takeSiteKey(rows);
    takeTargetKey(rows);
    if (ntc.intent == "ADD") {
        rows->setCollect("Target", dao::Null); // the session's key stays, for the row that it leads to
    } else if (session::currentTargetKey == 0) {
        writeNtcToDB::drawTargetKey(database);
        rows->setCollect("Target", session::currentTargetKey);
    }
    update(rows);
    rows->Close();
}

std::int16_t antennaNumberOf(const RecordsetRef& rows)
{
    const auto number = rows->Fields("ant_key").toLong();
    using Limits = std::numeric_limits<std::int16_t>;
    if (number < Limits::min() || number > Limits::max())
        platform::raise(platform::errOverflow);
    return static_cast<std::int16_t>(number);
}

} // namespace

void updateNtc(std::int32_t key, Ntc& ntc, const WorkspaceRef& workspace, const DatabaseRef& database)
{
    ntc.src_update = session::getUserName();
    ntc.d_updated = platform::shortDateText(platform::now());
    MainModule::inTransaction(workspace, [&] {
        editNoticeRow(key, ntc, database);
        if (session::currentGeoKey != 0)
            updateGeo(session::currentGeoKey, ntc.geo, database);
        if (session::currentTargetKey != 0)
            updateTarget(session::currentTargetKey, ntc, database);
        updateRmks(key, ntc, database);
        updateAntennas(key, ntc.stn_type, ntc, database);
        updateCallSigns(key, ntc, database);
        updateNatSrv(key, ntc, database);
        updateOpAgcy(key, ntc, database);
        updateCoord(key, ntc.coord, database);
    });
}

void updateGeo(std::int32_t geoKey, const NtcGeo& geo, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, queries::site, geoKey);
        rows->Edit();
        assignOrClearColumns(rows, columns::geo, geo);
        update(rows);
        rows->Close();
        deleteToEnd(openQuery(database, queries::points, geoKey));
        writeNtcToDB::insertGeoPts(geo, database);
    });
}

void updateTarget(std::int32_t targetKey, const Ntc& ntc, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, queries::storedTarget, targetKey);
        if (rows->RecordCount() != 1) {
            writeNtcToDB::addTarget(rows, ntc.target);
        } else if (!ntc.target.present) {
            rows->Delete();
        } else {
            rows->Edit();
            assignOrClearColumns(rows, columns::target, ntc.target);
            update(rows);
        }
        rows->Close();
    });
}

void updateRmks(std::int32_t key, const Ntc& ntc, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        deleteToEnd(openQuery(database, queries::remarks, key));
        writeNtcToDB::insertRmks(ntc, database);
    });
}

void updateCallSigns(std::int32_t key, const Ntc& ntc, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        deleteToEnd(openQuery(database, queries::callSigns, key));
        writeNtcToDB::insertCallSigns(ntc, database);
    });
}

void updateNatSrv(std::int32_t key, const Ntc& ntc, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        deleteToEnd(openQuery(database, queries::natSrv, key));
        writeNtcToDB::insertNatSrv(ntc, database);
    });
}

void updateOpAgcy(std::int32_t key, const Ntc& ntc, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        deleteToEnd(openQuery(database, queries::opAgcy, key));
        writeNtcToDB::insertOpAgcy(ntc, database);
    });
}

void updateCoord(std::int32_t key, const NtcCoord& coord, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        deleteToEnd(openQuery(database, queries::coord, key));
        writeNtcToDB::insertCoord(coord, database);
    });
}

void updateAntennas(std::int32_t key, const std::string& stationType, const Ntc& ntc,
                    const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        removeAntennas(key, stationType, database);
        // By the type of the station, where a new notice goes by its own type.
        const auto kind = ntc.stn_type == "RX" ? StationKind::TX : StationKind::RX;
        writeNtcToDB::insertAntennas(ntc, kind, database);
    });
}

void removeAntennas(std::int32_t key, const std::string& stationType, const DatabaseRef& database)
{
    const auto rows = openQuery(database, queries::storedAntennas, key);
    for (; !rows->EOF_(); rows->MoveNext()) {
        const auto number = antennaNumberOf(rows);
        deleteRxTx(key, number, stationType, database);
        deleteRot(key, number, database);
        rows->Delete();
    }
    rows->Close();
}

void deleteRxTx(std::int32_t key, std::int16_t antennaNumber, const std::string& stationType,
                const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto* const query = stationType == "RX" ? queries::transmitters : queries::receivers;
        const auto rows = openQuery(database, query, key, antennaNumber);
        for (; !rows->EOF_(); rows->MoveNext()) {
            deleteGeo(rows->Fields("geo_key").toLong(), database);
            rows->Delete();
        }
        rows->Close();
    });
}

void deleteRot(std::int32_t key, std::int16_t antennaNumber, const DatabaseRef& database)
{
    MainModule::markingFailure(
        [&] { deleteToEnd(openQuery(database, queries::sectors, key, antennaNumber)); });
}

void deleteGeo(std::int32_t geoKey, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        openQuery(database, queries::site, geoKey)->Delete();
        deleteToEnd(openQuery(database, queries::points, geoKey));
    });
}

} // namespace updateNtcInDB
