#include "load/findTarget.h"

#include "db/MainModule.h"
#include "model/session.h"

namespace findTarget {

namespace {

using QueryRef = dao::Ref<dao::QueryDef>;

// The pieces stand as they are joined, blanks and their absence included.
constexpr const char* pointParameters = "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] "
                                        "String, [LDeg] Long, [OpFrom] Long, [OpTo] Long, "
                                        "[Adm] String, [LMin] Long, [LSec] Long, [LEW] String, [LaDeg] Long, "
                                        "[LaMin] Long, [LaSec] Long, [LNS] String;";
constexpr const char* pointAndOpClsParameters = "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, "
                                                "[BDCde] String, [LDeg] Long, [OpFrom] Long, [OpTo] Long, "
                                                "[OpCls] String,[LMin] Long, [LSec] Long, [LEW] String, "
                                                "[Adm] String, [LaDeg] Long, [LaMin] Long, [LaSec] Long, "
                                                "[LNS] String;";
constexpr const char* zoneParameters = "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] "
                                       "String, [Adm] String, [OpFrom] Long, [OpTo] Long, "
                                       "[ZoneID] String;";
constexpr const char* pointTables = "SELECT DISTINCT kvr_velda.veldakey FROM kvr_geo_pt INNER JOIN (kvr_geo "
                                    "INNER JOIN kvr_velda ON kvr_geo.geo_key "
                                    "= kvr_velda.geo_key) ON kvr_geo_pt.geo_key = kvr_geo.geo_key ";
constexpr const char* zoneTables = "SELECT DISTINCT kvr_velda.veldakey FROM kvr_geo INNER JOIN kvr_velda ON "
                                   "kvr_geo.geo_key = kvr_velda.geo_key ";
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
                                   "AND ((kvr_geo_pt.lat_sec) = [LaSec]) AND ((kvr_geo_pt.lat_ns) = [LNS])) ";
constexpr const char* onZone = "AND ((kvr_geo.zone_id) = [ZoneID]))";

const std::string& pointQuery()
{
    static const auto text =
        std::string(pointParameters) + pointTables + frequencyAndClass + emissionAndHours + onPosition;
    return text;
}

const std::string& pointAndOpClsQuery()
{
    static const auto text = std::string(pointAndOpClsParameters) + pointTables + frequencyAndClass +
                             classOfOperation + emissionAndHours + onPosition;
    return text;
}

const std::string& zoneQuery()
{
    static const auto text =
        std::string(zoneParameters) + zoneTables + frequencyAndClass + emissionAndHours + onZone;
    return text;
}

void set(const QueryRef& query, const char* name, const dao::Value& value)
{
    query->Parameters(name).setValue(value);
}

void setPosition(const QueryRef& query, const Position& at)
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

// Runs a query whose own parameters `setOthers` sets beside those that all three shapes have.
template <class SetOthers>
bool found(const DatabaseRef& database, const std::string& text, const Assignment& assignment,
           SetOthers setOthers)
{
    bool result = false;
    MainModule::showingFailure([&] {
        const auto query = database->CreateQueryDef("", text);
        set(query, "Adm", assignment.adm);
        set(query, "Freq", assignment.frequency);
        set(query, "Stn", assignment.stn_cls);
        set(query, "Emi", assignment.emi_cls);
        set(query, "BDCde", assignment.bdwdth_cde);
        set(query, "OpFrom", assignment.hourFrom);
        set(query, "OpTo", assignment.hourTo);
        setOthers(query);
        const auto rows = query->OpenRecordset(dao::dbOpenDynaset);
        if (rows->RecordCount() >= 1) {
            result = true;
            session::currentVeldaKey = rows->Fields("veldakey").toLong();
        }
        rows->Close();
    });
    return result;
}

} // namespace

bool findTargetByPoint(const Assignment& assignment, const Position& position, const DatabaseRef& database)
{
    return found(database, pointQuery(), assignment,
                 [&](const QueryRef& query) { setPosition(query, position); });
}

bool findTargetByPointAndOpCls(const Assignment& assignment, const std::string& op_cls,
                               const Position& position, const DatabaseRef& database)
{
    return found(database, pointAndOpClsQuery(), assignment, [&](const QueryRef& query) {
        set(query, "OpCls", op_cls);
        setPosition(query, position);
    });
}

bool findTargetByZone(const Assignment& assignment, const std::string& zone_id, const DatabaseRef& database)
{
    return found(database, zoneQuery(), assignment,
                 [&](const QueryRef& query) { set(query, "ZoneID", zone_id); });
}

} // namespace findTarget
