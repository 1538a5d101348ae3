#include "db/writeNtcToDB.h"

#include "db/columns.h"
#include "db/MainModule.h"
#include "db/recordsets.h"
#include "model/session.h"

#include <limits>

namespace writeNtcToDB {

namespace {

using recordsets::assignColumns;
using recordsets::openTable;
using recordsets::update;

void drawKey(const DatabaseRef& database, const char* column, std::int32_t& key)
{
    MainModule::showingFailure([&] {
        const auto rows = openTable(database, "kvr_keys");
        rows->Edit();
        key = rows->Fields(column).toLong();
        if (key == std::numeric_limits<std::int32_t>::max())
            platform::raise(platform::errOverflow);
        rows->setCollect(column, key + 1);
        update(rows);
        rows->Close();
    });
}

template <class List>
void insertList(const DatabaseRef& database, const char* table, const char* column, const List& values)
{
    MainModule::showingFailure([&] {
        const auto rows = openTable(database, table);
        for (const auto& value : values) {
            if (value.empty())
                continue;
            rows->AddNew();
            rows->setCollect("veldakey", session::currentVeldaKey);
            rows->setCollect(column, value);
            update(rows);
        }
        rows->Close();
    });
}

void addNewOfAntenna(const recordsets::RecordsetRef& rows, std::int16_t antennaNumber)
{
    rows->AddNew();
    rows->setCollect("veldakey", session::currentVeldaKey);
    rows->setCollect("ant_key", antennaNumber);
}

void insertAntennaRow(std::int16_t antennaNumber, const NtcAntenna& antenna, const DatabaseRef& database)
{
    const auto rows = openTable(database, "kvr_ant");
    addNewOfAntenna(rows, antennaNumber);
    assignColumns(rows, columns::ant, antenna);
    rows->setCollect("is_rot", antenna.is_rot);
    update(rows);
    rows->Close();
}

void insertSectors(std::int16_t antennaNumber, const NtcAntenna& antenna, const DatabaseRef& database)
{
    const auto rows = openTable(database, "kvr_rot");
    for (const auto& sector : antenna.rot) {
        if (!sector.present)
            continue;
        addNewOfAntenna(rows, antennaNumber);
        assignColumns(rows, columns::rot, sector);
        update(rows);
    }
    rows->Close();
}

void insertStations(std::int16_t antennaNumber, const NtcAntenna& antenna, StationKind kind,
                    const DatabaseRef& database)
{
    const auto rows = openTable(database, kind == StationKind::RX ? "kvr_rx" : "kvr_tx");
    for (const auto& station : antenna.rx) {
        if (!station.present)
            continue;
        drawGeoKey(database);
        addNewOfAntenna(rows, antennaNumber);
        rows->setCollect("geo_key", session::currentGeoKey);
        if (kind == StationKind::RX)
            assignColumns(rows, columns::rx, station);
        update(rows);
        insertGeo(station.geo, database);
    }
    rows->Close();
}

// The row of the notice itself. Its site and its target get their keys here, between AddNew and Update.
void insertNoticeRow(const Ntc& ntc, const DatabaseRef& database)
{
    drawVeldaKey(database);
    const auto rows = openTable(database, "kvr_velda");
    rows->AddNew();
    rows->setCollect("veldakey", session::currentVeldaKey);
    assignColumns(rows, columns::velda, ntc);
    drawGeoKey(database);
    rows->setCollect("geo_key", session::currentGeoKey);
    if (ntc.intent != "ADD") {
        drawTargetKey(database);
        rows->setCollect("Target", session::currentTargetKey);
    }
    update(rows);
    rows->Close();
}

} // namespace

void insertNtc(const Ntc& ntc, const WorkspaceRef& workspace, const DatabaseRef& database)
{
    MainModule::inTransaction(workspace, [&] {
        insertNoticeRow(ntc, database);
        if (ntc.intent != "ADD")
            insertTarget(ntc, database);
        insertGeo(ntc.geo, database);
        insertCoord(ntc.coord, database);
        if (!ntc.rmk_text.empty())
            insertRmks(ntc, database);
        insertCallSigns(ntc, database);
        insertNatSrv(ntc, database);
        insertOpAgcy(ntc, database);
        insertAntennas(ntc, ntc.notice_typ == "T13" ? StationKind::TX : StationKind::RX, database);
    });
}

void drawVeldaKey(const DatabaseRef& database)
{
    drawKey(database, "veldakey", session::currentVeldaKey);
}

void drawGeoKey(const DatabaseRef& database)
{
    drawKey(database, "geo_key", session::currentGeoKey);
}

void drawTargetKey(const DatabaseRef& database)
{
    drawKey(database, "Target", session::currentTargetKey);
}

void insertTarget(const Ntc& ntc, const DatabaseRef& database)
{
    MainModule::showingFailure([&] {
        const auto rows = openTable(database, "kvr_target");
        addTarget(rows, ntc.target);
        rows->Close();
    });
}

void addTarget(const recordsets::RecordsetRef& rows, const NtcTarget& target)
{
    rows->AddNew();
    rows->setCollect("Target", session::currentTargetKey);
    assignColumns(rows, columns::target, target);
    update(rows);
}

void insertGeo(const NtcGeo& geo, const DatabaseRef& database)
{
    MainModule::showingFailure([&] {
        const auto rows = openTable(database, "kvr_geo");
        if (geo.present) {
            rows->AddNew();
            rows->setCollect("geo_key", session::currentGeoKey);
            assignColumns(rows, columns::geo, geo);
            update(rows);
        }
        rows->Close();
        insertGeoPts(geo, database);
    });
}

void insertGeoPts(const NtcGeo& geo, const DatabaseRef& database)
{
    MainModule::showingFailure([&] {
        const auto rows = openTable(database, "kvr_geo_pt");
        for (std::size_t slot = 0; slot < geo.pt.size(); ++slot) {
            const auto& point = geo.pt[slot];
            if (!point.present)
                continue;
            rows->AddNew();
            rows->setCollect("geo_key", session::currentGeoKey);
            rows->setCollect("geo_pt", static_cast<std::int16_t>(slot + 1));
            assignColumns(rows, columns::geoPt, point);
            update(rows);
        }
        rows->Close();
    });
}

void insertCoord(const NtcCoord& coord, const DatabaseRef& database)
{
    MainModule::showingFailure([&] {
        const auto rows = openTable(database, "kvr_coord");
        for (const auto& adm : coord.adm) {
            if (!coord.present || adm.empty())
                continue;
            rows->AddNew();
            rows->setCollect("veldakey", session::currentVeldaKey);
            rows->setCollect("coord_prov", coord.coord_prov); // an empty one too, unlike other members
            rows->setCollect("adm", adm);
            update(rows);
        }
        rows->Close();
    });
}

void insertRmks(const Ntc& ntc, const DatabaseRef& database)
{
    MainModule::showingFailure([&] {
        const auto rows = openTable(database, "kvr_rmks");
        if (!ntc.rmk_text.empty()) {
            rows->AddNew();
            rows->setCollect("veldakey", session::currentVeldaKey);
            rows->setCollect("rmk_text", ntc.rmk_text);
            update(rows);
        }
        rows->Close();
    });
}

void insertCallSigns(const Ntc& ntc, const DatabaseRef& database)
{
    insertList(database, "kvr_call_sign", "call_sign", ntc.call_sign);
}

void insertNatSrv(const Ntc& ntc, const DatabaseRef& database)
{
    insertList(database, "kvr_nat_serv", "nat_srv", ntc.nat_srv);
}

void insertOpAgcy(const Ntc& ntc, const DatabaseRef& database)
{
    insertList(database, "kvr_op_agcy", "op_agcy", ntc.op_agcy);
}

void insertAntenna(std::int16_t antennaNumber, const NtcAntenna& antenna, StationKind kind,
                   const DatabaseRef& database)
{
    MainModule::showingFailure([&] {
        insertAntennaRow(antennaNumber, antenna, database);
        insertSectors(antennaNumber, antenna, database);
        insertStations(antennaNumber, antenna, kind, database);
    });
}

void insertAntennas(const Ntc& ntc, StationKind kind, const DatabaseRef& database)
{
    for (std::size_t slot = 0; slot < ntc.antenna.size(); ++slot) {
        const auto& antenna = ntc.antenna[slot];
        if (antenna.present)
            insertAntenna(static_cast<std::int16_t>(slot + 1), antenna, kind, database);
    }
}

} // namespace writeNtcToDB
