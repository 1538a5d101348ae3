#include "db/readDBToNtc.h"

#include "db/columns.h"
#include "db/MainModule.h"
#include "model/InitializeNtc.h"
#include "model/ScreenModule.h"
#include "platform/ansiText.h"

namespace readDBToNtc {

namespace {

using columns::Reading;
using dao::dbOpenDynaset;
using RecordsetRef = dao::Ref<dao::Recordset>;

constexpr const char* noticeQuery =
    "PARAMETERS [Key] Long;SELECT fragment, adm, addr_code, freq_assgn, op_hh_fr, op_hh_to, stn_cls, op_cls, "
    "emi_cls, bdwdth_cde, freq_carr, d_inuse, notice_typ, stn_id, stn_type, intent, prov, is_resub, "
    "adm_ref_id, "
    "geo_key, d_adm_ntc, target, band_pref, freq_dev, energy_dsp, target, d_rcv, d_updated, src_update FROM "
    "kvr_velda WHERE veldakey = [Key]";
constexpr const char* siteQuery = "PARAMETERS [Key] Long;SELECT geo_type, ctry, site_name, zone_id, radius "
                                  "FROM kvr_geo WHERE geo_key = [Key]";
constexpr const char* pointsQuery =
    "PARAMETERS [Key] Long;SELECT long_deg, long_min, long_sec, long_ew, lat_deg, lat_min, lat_sec, lat_ns, "
    "site_alt FROM kvr_geo_pt WHERE geo_key = [Key]";
constexpr const char* targetQuery =
    "PARAMETERS [Key] Long;SELECT trg_freq_assgn, trg_op_hh_fr, trg_op_hh_to, trg_stn_cls, trg_op_cls, "
    "trg_emi_cls, trg_bdwdth_cde, trg_adm_ref_id, trg_geo_type, trg_zone_id, trg_long_deg, trg_long_min, "
    "trg_long_sec, trg_long_ew, trg_lat_deg, trg_lat_min, trg_lat_sec, trg_lat_ns FROM kvr_target WHERE "
    "target = "
    "[Key]";
constexpr const char* remarksQuery =
    "PARAMETERS [Key] Long;SELECT rmk_text FROM kvr_rmks WHERE veldakey = [Key]";
constexpr const char* antennasQuery =
    "PARAMETERS [Key] Long;SELECT pwr_xyz, pwr_ant, pwr_dbw, pwr_eiv, ant_dir, azm_max_e, gain_max, "
    "gain_type, "
    "bmwdth, ant_ref, elev, polar, hgt_agl, dist_max, is_rot, pwr_dens FROM kvr_ant WHERE veldakey = [Key]";
constexpr const char* sectorsQuery =
    "PARAMETERS [Key] Long, [AntNb] Integer;SELECT azm_fr, azm_to FROM kvr_rot WHERE ((veldakey = [Key]) and "
    "(ant_key = [AntNb]))";
constexpr const char* receiversQuery = "PARAMETERS [Key] Long, [AntNb] Integer;SELECT geo_key, noise_temp "
                                       "FROM kvr_rx WHERE ((veldakey = [Key]) and "
                                       "(ant_key = [AntNb]))";
constexpr const char* transmittersQuery =
    "PARAMETERS [Key] Long, [AntNb] Integer;SELECT geo_key FROM kvr_tx WHERE ((veldakey = [Key]) and "
    "(ant_key = [AntNb]))";
constexpr const char* callSignsQuery =
    "PARAMETERS [Key] Long;SELECT call_sign FROM kvr_call_sign WHERE veldakey = [Key]";
constexpr const char* natSrvQuery =
    "PARAMETERS [Key] Long;SELECT nat_srv FROM kvr_nat_serv WHERE veldakey = [Key]";
constexpr const char* opAgcyQuery =
    "PARAMETERS [Key] Long;SELECT op_agcy FROM kvr_op_agcy WHERE veldakey = [Key]";
constexpr const char* coordQuery =
    "PARAMETERS [Key] Long;SELECT coord_prov, adm FROM kvr_coord WHERE veldakey = [Key]";

RecordsetRef openQuery(const DatabaseRef& database, const char* text, std::int32_t key)
{
    const auto query = database->CreateQueryDef("", text);
    query->Parameters("Key").setValue(key);
    return query->OpenRecordset(dbOpenDynaset);
}

RecordsetRef openQuery(const DatabaseRef& database, const char* text, std::int32_t key,
                       std::int16_t antennaNumber)
{
    const auto query = database->CreateQueryDef("", text);
    query->Parameters("Key").setValue(key);
    query->Parameters("AntNb").setValue(antennaNumber);
    return query->OpenRecordset(dbOpenDynaset);
}

std::string converted(std::string&& text, Reading reading)
{
    switch (reading) {
    case Reading::Upper:
        return ScreenModule::upperText(ScreenModule::trimText(text));
    case Reading::HHMM:
        return padHHMM(text);
    case Reading::LongDeg:
        return padLongDeg(text);
    case Reading::LatDeg:
        return padLatDeg(text);
    case Reading::MinSec:
        return padMinSec(text);
    default:
        // Hardly any value has blanks around it.
        if (text.starts_with(' ') || text.ends_with(' '))
            return ScreenModule::trimText(text);
        return std::move(text);
    }
}

void readText(const RecordsetRef& rows, const char* column, Reading reading, std::string& member)
{
    auto value = rows->Fields(column);
    if (!value.isNull())
        member = converted(std::move(value).text(), reading);
}

template <class Record, std::size_t Count>
void readColumns(const RecordsetRef& rows, const std::array<columns::Row<Record>, Count>& table,
                 Record& record)
{
    for (const auto& row : table)
        readText(rows, row.column, row.reading, record.*row.member);
}

// The next slot of an array of the record.
template <class Array>
auto& slotOf(Array& array, std::size_t slot)
{
    if (slot >= array.size())
        platform::raise(platform::errSubscript);
    return array[slot];
}

std::int32_t keyOrZero(const dao::Value& value)
{
    return value.isNull() ? 0 : value.toLong();
}

template <class Array>
void readList(const DatabaseRef& database, const char* query, const char* column, std::int32_t key,
              Array& values)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, query, key);
        for (std::size_t slot = 0; !rows->EOF_(); rows->MoveNext()) {
            const auto value = rows->Fields(column);
            if (!value.isNull())
                slotOf(values, slot++) = ScreenModule::trimText(value.text());
        }
        rows->Close();
    });
}

void readPoints(std::int32_t geoKey, NtcGeo& geo, const DatabaseRef& database)
{
    const auto rows = openQuery(database, pointsQuery, geoKey);
    NtcGeoPt point;
    for (std::size_t slot = 0; !rows->EOF_(); rows->MoveNext()) {
        point.present = true;
        readColumns(rows, columns::geoPt, point);
        slotOf(geo.pt, slot++) = point;
        InitializeNtc::initGeoPt(point);
    }
    rows->Close();
}

void readAntennaRows(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    const auto rows = openQuery(database, antennasQuery, key);
    // Kept from one reading to the next: to make one with its thousand strings costs more than to empty it.
    static NtcAntenna antenna;
    InitializeNtc::initAntenna(antenna);
    for (std::size_t slot = 0; !rows->EOF_(); rows->MoveNext()) {
        antenna.present = true;
        readColumns(rows, columns::ant, antenna);
        const auto rotational = rows->Fields("is_rot");
        if (!rotational.isNull() && rotational.text() == "TRUE")
            antenna.is_rot = "TRUE";
        slotOf(ntc.antenna, slot++) = antenna;
        InitializeNtc::initAntenna(antenna);
    }
    rows->Close();
}

// Stations of either kind. A site that gives less than the one before it keeps what that one gave: the site
// is not emptied in between.
void readStations(const RecordsetRef& rows, bool withNoiseTemperature, NtcAntenna& antenna,
                  const DatabaseRef& database)
{
    static NtcRx station;
    static NtcGeo site;
    InitializeNtc::initRx(station);
    InitializeNtc::initGeo(site);
    for (std::size_t slot = 0; !rows->EOF_(); rows->MoveNext()) {
        station.present = true;
        if (withNoiseTemperature)
            readColumns(rows, columns::rx, station);
        readGeo(rows->Fields("geo_key").toLong(), site, database);
        station.geo = site;
        slotOf(antenna.rx, slot++) = station;
        InitializeNtc::initRx(station);
    }
    rows->Close();
}

std::string padded(std::string_view text, std::size_t length)
{
    const auto given = platform::characterCount(text);
    const auto zeros = given == 0 || given >= length ? 0 : length - given;
    return std::string(zeros, '0').append(text);
}

} // namespace

std::string padHHMM(std::string_view text)
{
    return padded(text, 4);
}

std::string padLongDeg(std::string_view text)
{
    return padded(text, 3);
}

std::string padLatDeg(std::string_view text)
{
    return padded(text, 2);
}

std::string padMinSec(std::string_view text)
{
    return padded(text, 2);
}

bool readNtc(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    bool found = false;
    MainModule::markingFailure([&] {
        const dao::ReadScope scope(database);
        const auto rows = openQuery(database, noticeQuery, key);
        if (rows->RecordCount() != 1) {
            rows->Close();
            return;
        }
        readColumns(rows, columns::velda, ntc);
        const auto geoKey = keyOrZero(rows->Fields("geo_key"));
        const auto targetKey = keyOrZero(rows->Fields("Target"));
        rows->Close();
        if (geoKey != 0) {
            NtcGeo site;
            readGeo(geoKey, site, database);
            ntc.geo = std::move(site);
        }
        if (targetKey != 0)
            readTarget(targetKey, ntc, database);
        readRmks(key, ntc, database);
        readAntennas(key, ntc.stn_type, ntc, database);
        readCallSigns(key, ntc, database);
        readNatSrv(key, ntc, database);
        readOpAgcy(key, ntc, database);
        readCoord(key, ntc, database);
        found = true;
    });
    return found;
}

void readGeo(std::int32_t geoKey, NtcGeo& geo, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, siteQuery, geoKey);
        if (rows->RecordCount() == 1) {
            geo.present = true;
            readColumns(rows, columns::geo, geo);
        }
        rows->Close();
        readPoints(geoKey, geo, database);
    });
}

void readTarget(std::int32_t targetKey, Ntc& ntc, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, targetQuery, targetKey);
        if (rows->RecordCount() == 1) {
            ntc.target.present = true;
            readColumns(rows, columns::target, ntc.target);
        }
        rows->Close();
    });
}

void readRmks(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, remarksQuery, key);
        if (rows->RecordCount() == 1)
            readText(rows, "rmk_text", Reading::Trim, ntc.rmk_text);
        rows->Close();
    });
}

void readAntennas(std::int32_t key, const std::string& stationType, Ntc& ntc, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        readAntennaRows(key, ntc, database);
        for (std::size_t slot = 0; slot < ntc.antenna.size(); ++slot) {
            if (!ntc.antenna.at(slot).present)
                continue;
            auto& antenna = ntc.antenna[slot];
            // The number is that of the slot: what hangs on a row is found by its place among the rows.
            const auto number = static_cast<std::int16_t>(slot + 1);
            if (antenna.is_rot == "TRUE")
                readRot(key, number, antenna, database);
            if (stationType == "TX")
                readRx(key, number, antenna, database);
            else if (stationType == "RX")
                readTx(key, number, antenna, database);
        }
    });
}

void readRot(std::int32_t key, std::int16_t antennaNumber, NtcAntenna& antenna, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, sectorsQuery, key, antennaNumber);
        NtcRot sector;
        for (std::size_t slot = 0; !rows->EOF_(); rows->MoveNext()) {
            sector.present = true;
            readColumns(rows, columns::rot, sector);
            slotOf(antenna.rot, slot++) = sector;
            InitializeNtc::initRot(sector);
        }
        rows->Close();
    });
}

void readRx(std::int32_t key, std::int16_t antennaNumber, NtcAntenna& antenna, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        readStations(openQuery(database, receiversQuery, key, antennaNumber), true, antenna, database);
    });
}

void readTx(std::int32_t key, std::int16_t antennaNumber, NtcAntenna& antenna, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        readStations(openQuery(database, transmittersQuery, key, antennaNumber), false, antenna, database);
    });
}

void readCallSigns(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    readList(database, callSignsQuery, "call_sign", key, ntc.call_sign);
}

void readNatSrv(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    readList(database, natSrvQuery, "nat_srv", key, ntc.nat_srv);
}

void readOpAgcy(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    readList(database, opAgcyQuery, "op_agcy", key, ntc.op_agcy);
}

void readCoord(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, coordQuery, key);
        if (rows->RecordCount() >= 1) {
            ntc.coord.present = true;
            readText(rows, "coord_prov", Reading::Trim, ntc.coord.coord_prov);
        }
        for (std::size_t slot = 0; !rows->EOF_(); rows->MoveNext()) {
            const auto value = rows->Fields("adm");
            if (!value.isNull())
                slotOf(ntc.coord.adm, slot++) = ScreenModule::trimText(value.text());
        }
        rows->Close();
    });
}

} // namespace readDBToNtc
