#include "bareLookUp.h"

namespace bare {

namespace {

// Places of the parameters, the same in all statements.
enum Place : std::uint8_t
{
    Frequency = 1,
    Adm,
    StnCls,
    EmiCls,
    BdwdthCde,
    HourFrom,
    HourTo,
    IsNotice,
    OpCls,
    ZoneId = OpCls,
    LongDeg,
    LongMin,
    LongSec,
    LongEw,
    LatDeg,
    LatMin,
    LatSec,
    LatNs,
};

const std::string site = "SELECT DISTINCT v.veldakey, g.site_name, g.ctry FROM assignments.kvr_velda v "
                         "JOIN kvr_geo g ON g.geo_key = v.geo_key ";
const std::string points = "JOIN points.kvr_geo_pt p ON p.geo_key = g.geo_key ";
const std::string characteristics =
    "WHERE v.freq_assgn = ?1 AND v.adm = ?2 AND v.stn_cls = ?3 AND v.emi_cls = ?4 AND v.bdwdth_cde = ?5 "
    "AND v.op_hh_fr = ?6 AND v.op_hh_to = ?7 AND v.is_notice = ?8 ";
const std::string position =
    "AND p.long_deg = ?10 AND p.long_min = ?11 AND p.long_sec = ?12 AND p.long_ew = ?13 "
    "AND p.lat_deg = ?14 AND p.lat_min = ?15 AND p.lat_sec = ?16 AND p.lat_ns = ?17";

void bindCharacteristics(Statement& statement, const Sought& sought)
{
    statement.bindDouble(Frequency, sought.frequency);
    statement.bindText(Adm, sought.adm);
    statement.bindText(StnCls, sought.stn_cls);
    statement.bindText(EmiCls, sought.emi_cls);
    statement.bindText(BdwdthCde, sought.bdwdth_cde);
    statement.bindLong(HourFrom, sought.hourFrom);
    statement.bindLong(HourTo, sought.hourTo);
    statement.bindText(IsNotice, sought.is_notice);
}

void bindPosition(Statement& statement, const Sought& sought)
{
    statement.bindLong(LongDeg, sought.longDeg);
    statement.bindLong(LongMin, sought.longMin);
    statement.bindLong(LongSec, sought.longSec);
    statement.bindText(LongEw, sought.long_ew);
    statement.bindLong(LatDeg, sought.latDeg);
    statement.bindLong(LatMin, sought.latMin);
    statement.bindLong(LatSec, sought.latSec);
    statement.bindText(LatNs, sought.lat_ns);
}

std::string padded(std::string emi_cls)
{
    if (emi_cls.size() < 5)
        emi_cls.resize(5, '-');
    return emi_cls;
}

} // namespace

Sought soughtBy(const Ntc& ntc)
{
    const auto& at = ntc.geo.pt[0];
    return {ntc.adm,
            ntc.stn_cls,
            ntc.op_cls,
            padded(ntc.emi_cls),
            ntc.bdwdth_cde,
            ntc.geo.zone_id,
            ntc.intent == "SUPPRESS" ? "FALSE" : "TRUE",
            numberOf<double>(ntc.freq_assgn),
            numberOf<int>(ntc.op_hh_fr),
            numberOf<int>(ntc.op_hh_to),
            numberOf<int>(at.long_deg),
            numberOf<int>(at.long_min),
            numberOf<int>(at.long_sec),
            numberOf<int>(at.lat_deg),
            numberOf<int>(at.lat_min),
            numberOf<int>(at.lat_sec),
            at.long_ew,
            at.lat_ns};
}

LookUps::LookUps(const std::string& folder, bool mapped)
    : m_connection(open(folder + "/VELDABASEBETA.mdb", true))
{
    auto* const connection = m_connection.get();
    execute(connection, ("ATTACH '" + folder + "/VELDAKVR1.mdb' AS points; ATTACH '" + folder +
                         "/VELDAKVR3.mdb' AS assignments")
                            .c_str());
    if (mapped)
        execute(connection, "PRAGMA mmap_size=2000000000"); // of all files
    m_byPoint.emplace(connection, site + points + characteristics + position);
    m_byPointAndOpCls.emplace(connection, site + points + characteristics + "AND v.op_cls = ?9 " + position);
    m_byZone.emplace(connection, site + characteristics + "AND g.zone_id = ?9");
}

SiteFound LookUps::find(const Sought& sought)
{
    auto& statement =
        !sought.zone_id.empty() ? *m_byZone : (!sought.op_cls.empty() ? *m_byPointAndOpCls : *m_byPoint);
    bindCharacteristics(statement, sought);
    if (!sought.zone_id.empty()) {
        statement.bindText(ZoneId, sought.zone_id);
    } else {
        if (!sought.op_cls.empty())
            statement.bindText(OpCls, sought.op_cls);
        bindPosition(statement, sought);
    }
    SiteFound found;
    while (statement.step()) {
        ++found.count;
        found.site_name = statement.text(1);
        found.ctry = statement.text(2);
    }
    statement.reset();
    return found;
}

} // namespace bare
