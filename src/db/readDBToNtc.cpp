#include "db/readDBToNtc.h"

#include "db/columns.h"
#include "db/MainModule.h"
#include "db/queries.h"
#include "db/recordsets.h"
#include "model/InitializeNtc.h"
#include "model/ScreenModule.h"
#include "platform/ansiText.h"

namespace readDBToNtc {

namespace {

using columns::Reading;
using recordsets::openQuery;
using recordsets::RecordsetRef;

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
    const auto rows = openQuery(database, queries::points, geoKey);
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
    const auto rows = openQuery(database, queries::antennas, key);
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
        const auto rows = openQuery(database, queries::notice, key);
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
        const auto rows = openQuery(database, queries::site, geoKey);
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
        const auto rows = openQuery(database, queries::target, targetKey);
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
        const auto rows = openQuery(database, queries::remarks, key);
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
        const auto rows = openQuery(database, queries::sectors, key, antennaNumber);
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
        readStations(openQuery(database, queries::receivers, key, antennaNumber), true, antenna, database);
    });
}

void readTx(std::int32_t key, std::int16_t antennaNumber, NtcAntenna& antenna, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        readStations(openQuery(database, queries::transmitters, key, antennaNumber), false, antenna,
                     database);
    });
}

void readCallSigns(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    readList(database, queries::callSigns, "call_sign", key, ntc.call_sign);
}

void readNatSrv(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    readList(database, queries::natSrv, "nat_srv", key, ntc.nat_srv);
}

void readOpAgcy(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    readList(database, queries::opAgcy, "op_agcy", key, ntc.op_agcy);
}

void readCoord(std::int32_t key, Ntc& ntc, const DatabaseRef& database)
{
    MainModule::markingFailure([&] {
        const auto rows = openQuery(database, queries::coord, key);
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
