#include "load/targetQueries.h"

namespace targetQueries {

namespace {

// The pieces stand as they are joined, blanks and their absence included.
struct Pieces
{
    const char *pointParameters, *pointAndOpClsParameters, *zoneParameters, *columns;
    const char *behindPosition, *behindZone; // the last condition to the end
};

constexpr Pieces ofStoredNotices = {
    "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] String, [LDeg] Long, [OpFrom] Long, "
    "[OpTo] Long, [Adm] String, [LMin] Long, [LSec] Long, [LEW] String, [LaDeg] Long, [LaMin] Long, "
    "[LaSec] Long, [LNS] String;",
    "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] String, [LDeg] Long, [OpFrom] Long, "
    "[OpTo] Long, [OpCls] String,[LMin] Long, [LSec] Long, [LEW] String, [Adm] String, [LaDeg] Long, "
    "[LaMin] Long, [LaSec] Long, [LNS] String;",
    "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] String, [Adm] String, [OpFrom] Long, "
    "[OpTo] Long, [ZoneID] String;",
    "SELECT DISTINCT kvr_velda.veldakey FROM ",
    ") ",
    ")",
};

constexpr Pieces ofReferences = {
    "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] String, [LDeg] Long, [OpFrom] Long, "
    "[OpTo] Long, [Adm] String, [LMin] Long, [LSec] Long, [LEW] String, [IsNotice] String, [LaDeg] Long, "
    "[LaMin] Long, [LaSec] Long, [LNS] String;",
    "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] String, [LDeg] Long, [Adm] String, "
    "[OpFrom] Long, [OpTo] Long, [OpCls] String,[LMin] Long, [LSec] Long, [LEW] String, [IsNotice] String, "
    "[LaDeg] Long, [LaMin] Long, [LaSec] Long, [LNS] String;",
    "PARAMETERS [Freq] Double, [Stn] String, [Adm] String, [Emi] String, [BDCde] String, [IsNotice] String, "
    "[OpFrom] Long, [OpTo] Long, [ZoneID] String;",
    "SELECT DISTINCT kvr_velda.veldakey, kvr_geo.site_name, kvr_geo.ctry FROM ",
    " AND ((kvr_velda.is_notice) = [IsNotice])) ",
    "AND ((kvr_velda.is_notice) = [IsNotice])) ",
};

constexpr const char* pointTables = "kvr_geo_pt INNER JOIN (kvr_geo INNER JOIN kvr_velda ON kvr_geo.geo_key "
                                    "= kvr_velda.geo_key) ON kvr_geo_pt.geo_key = kvr_geo.geo_key ";
constexpr const char* zoneTables = "kvr_geo INNER JOIN kvr_velda ON kvr_geo.geo_key = kvr_velda.geo_key ";
constexpr const char* frequencyAndClass = "WHERE (((kvr_velda.freq_assgn) = [Freq]) AND ((kvr_velda.adm) = "
                                          "[Adm]) AND ((kvr_velda.stn_cls) = [Stn]) ";
constexpr const char* classOfOperation = "AND ((kvr_velda.op_cls) = [OpCls]) ";
constexpr const char* emissionAndHours = "AND ((kvr_velda.emi_cls) = [Emi]) AND ((kvr_velda.bdwdth_cde) = "
                                         "[BDCde])AND ((kvr_velda.op_hh_fr) = [OpFrom]) "
                                         "AND ((kvr_velda.op_hh_to) = [OpTo]) ";
constexpr const char* onPosition = "AND ((kvr_geo_pt.long_deg) = [LDeg]) AND ((kvr_geo_pt.long_min) = "
                                   "[LMin]) AND ((kvr_geo_pt.long_sec) = [LSec]) "
                                   "AND ((kvr_geo_pt.long_ew) = [LEW]) AND ((kvr_geo_pt.lat_deg) = [LaDeg]) "
                                   "AND ((kvr_geo_pt.lat_min) = [LaMin]) "
                                   "AND ((kvr_geo_pt.lat_sec) = [LaSec]) AND ((kvr_geo_pt.lat_ns) = [LNS])";
constexpr const char* onZone = "AND ((kvr_geo.zone_id) = [ZoneID])";

const Pieces& piecesOf(Among among)
{
    return among == Among::StoredNotices ? ofStoredNotices : ofReferences;
}

} // namespace

std::string byPoint(Among among)
{
    const auto& pieces = piecesOf(among);
    return std::string(pieces.pointParameters) + pieces.columns + pointTables + frequencyAndClass +
           emissionAndHours + onPosition + pieces.behindPosition;
}

std::string byPointAndOpCls(Among among)
{
    const auto& pieces = piecesOf(among);
    return std::string(pieces.pointAndOpClsParameters) + pieces.columns + pointTables + frequencyAndClass +
           classOfOperation + emissionAndHours + onPosition + pieces.behindPosition;
}

std::string byZone(Among among)
{
    const auto& pieces = piecesOf(among);
    return std::string(pieces.zoneParameters) + pieces.columns + zoneTables + frequencyAndClass +
           emissionAndHours + onZone + pieces.behindZone;
}

void set(const QueryRef& query, const char* name, const dao::Value& value)
{
    query->Parameters(name).setValue(value);
}

void setAssignment(const QueryRef& query, const targetValues::Assignment& assignment)
{
    set(query, "Adm", assignment.adm);
    set(query, "Freq", assignment.frequency);
    set(query, "Stn", assignment.stn_cls);
    set(query, "Emi", assignment.emi_cls);
    set(query, "BDCde", assignment.bdwdth_cde);
    set(query, "OpFrom", assignment.hourFrom);
    set(query, "OpTo", assignment.hourTo);
}

void setPosition(const QueryRef& query, const targetValues::Position& at)
{
    set(query, "LDeg", at.longDeg);
    set(query, "LMin", at.longMin);
    set(query, "LSec", at.longSec);
    set(query, "LEW", at.long_ew);
    set(query, "LaDeg", at.latDeg);
    set(query, "LaMin", at.latMin);
    set(query, "LaSec", at.latSec);
    set(query, "LNS", at.lat_ns);
}

} // namespace targetQueries
