// The texts of the queries stand letter for letter: both blanks and their absence are part of them.
#include "load/targetQueries.h"

#include <gtest/gtest.h>

namespace {

using targetQueries::Among;

struct QueryText
{
    const char* name;
    std::string (*made)(Among);
    Among among;
    const char* text;
};

class EachQuery : public testing::TestWithParam<QueryText>
{};

INSTANTIATE_TEST_SUITE_P(
    Of, EachQuery,
    testing::Values(
        QueryText{"theSearchByPoint", targetQueries::byPoint, Among::StoredNotices,
                  "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] String, [LDeg] Long, "
                  "[OpFrom] Long, [OpTo] Long, [Adm] String, [LMin] Long, [LSec] Long, [LEW] String, [LaDeg] "
                  "Long, [LaMin] Long, [LaSec] Long, [LNS] String;SELECT DISTINCT kvr_velda.veldakey FROM "
                  "kvr_geo_pt INNER JOIN (kvr_geo INNER JOIN kvr_velda ON kvr_geo.geo_key = "
                  "kvr_velda.geo_key) ON kvr_geo_pt.geo_key = kvr_geo.geo_key WHERE (((kvr_velda.freq_assgn) "
                  "= [Freq]) AND ((kvr_velda.adm) = [Adm]) AND ((kvr_velda.stn_cls) = [Stn]) AND "
                  "((kvr_velda.emi_cls) = [Emi]) AND ((kvr_velda.bdwdth_cde) = [BDCde])AND "
                  "((kvr_velda.op_hh_fr) = [OpFrom]) AND ((kvr_velda.op_hh_to) = [OpTo]) AND "
                  "((kvr_geo_pt.long_deg) = [LDeg]) AND ((kvr_geo_pt.long_min) = [LMin]) AND "
                  "((kvr_geo_pt.long_sec) = [LSec]) AND ((kvr_geo_pt.long_ew) = [LEW]) AND "
                  "((kvr_geo_pt.lat_deg) = [LaDeg]) AND ((kvr_geo_pt.lat_min) = [LaMin]) AND "
                  "((kvr_geo_pt.lat_sec) = [LaSec]) AND ((kvr_geo_pt.lat_ns) = [LNS])) "},
        QueryText{"theSearchByPointAndOpCls", targetQueries::byPointAndOpCls, Among::StoredNotices,
                  "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] String, [LDeg] Long, "
                  "[OpFrom] Long, [OpTo] Long, [OpCls] String,[LMin] Long, [LSec] Long, [LEW] String, [Adm] "
                  "String, [LaDeg] Long, [LaMin] Long, [LaSec] Long, [LNS] String;SELECT DISTINCT "
                  "kvr_velda.veldakey FROM kvr_geo_pt INNER JOIN (kvr_geo INNER JOIN kvr_velda ON "
                  "kvr_geo.geo_key = kvr_velda.geo_key) ON kvr_geo_pt.geo_key = kvr_geo.geo_key WHERE "
                  "(((kvr_velda.freq_assgn) = [Freq]) AND ((kvr_velda.adm) = [Adm]) AND ((kvr_velda.stn_cls) "
                  "= [Stn]) AND ((kvr_velda.op_cls) = [OpCls]) AND ((kvr_velda.emi_cls) = [Emi]) AND "
                  "((kvr_velda.bdwdth_cde) = [BDCde])AND ((kvr_velda.op_hh_fr) = [OpFrom]) AND "
                  "((kvr_velda.op_hh_to) = [OpTo]) AND ((kvr_geo_pt.long_deg) = [LDeg]) AND "
                  "((kvr_geo_pt.long_min) = [LMin]) AND ((kvr_geo_pt.long_sec) = [LSec]) AND "
                  "((kvr_geo_pt.long_ew) = [LEW]) AND ((kvr_geo_pt.lat_deg) = [LaDeg]) AND "
                  "((kvr_geo_pt.lat_min) = [LaMin]) AND ((kvr_geo_pt.lat_sec) = [LaSec]) AND "
                  "((kvr_geo_pt.lat_ns) = [LNS])) "},
        QueryText{"theSearchByZone", targetQueries::byZone, Among::StoredNotices,
                  "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] String, [Adm] String, "
                  "[OpFrom] Long, [OpTo] Long, [ZoneID] String;SELECT DISTINCT kvr_velda.veldakey FROM "
                  "kvr_geo INNER JOIN kvr_velda ON kvr_geo.geo_key = kvr_velda.geo_key WHERE "
                  "(((kvr_velda.freq_assgn) = [Freq]) AND ((kvr_velda.adm) = [Adm]) AND ((kvr_velda.stn_cls) "
                  "= [Stn]) AND ((kvr_velda.emi_cls) = [Emi]) AND ((kvr_velda.bdwdth_cde) = [BDCde])AND "
                  "((kvr_velda.op_hh_fr) = [OpFrom]) AND ((kvr_velda.op_hh_to) = [OpTo]) AND "
                  "((kvr_geo.zone_id) = [ZoneID]))"},
        QueryText{"theCheckByPoint", targetQueries::byPoint, Among::References,
                  "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] String, [LDeg] Long, "
                  "[OpFrom] Long, [OpTo] Long, [Adm] String, [LMin] Long, [LSec] Long, [LEW] String, "
                  "[IsNotice] String, [LaDeg] Long, [LaMin] Long, [LaSec] Long, [LNS] String;SELECT DISTINCT "
                  "kvr_velda.veldakey, kvr_geo.site_name, kvr_geo.ctry FROM kvr_geo_pt INNER JOIN (kvr_geo "
                  "INNER JOIN kvr_velda ON kvr_geo.geo_key = kvr_velda.geo_key) ON kvr_geo_pt.geo_key = "
                  "kvr_geo.geo_key WHERE (((kvr_velda.freq_assgn) = [Freq]) AND ((kvr_velda.adm) = [Adm]) "
                  "AND ((kvr_velda.stn_cls) = [Stn]) AND ((kvr_velda.emi_cls) = [Emi]) AND "
                  "((kvr_velda.bdwdth_cde) = [BDCde])AND ((kvr_velda.op_hh_fr) = [OpFrom]) AND "
                  "((kvr_velda.op_hh_to) = [OpTo]) AND ((kvr_geo_pt.long_deg) = [LDeg]) AND "
                  "((kvr_geo_pt.long_min) = [LMin]) AND ((kvr_geo_pt.long_sec) = [LSec]) AND "
                  "((kvr_geo_pt.long_ew) = [LEW]) AND ((kvr_geo_pt.lat_deg) = [LaDeg]) AND "
                  "((kvr_geo_pt.lat_min) = [LaMin]) AND ((kvr_geo_pt.lat_sec) = [LaSec]) AND "
                  "((kvr_geo_pt.lat_ns) = [LNS]) AND ((kvr_velda.is_notice) = [IsNotice])) "},
        QueryText{"theCheckByPointAndOpCls", targetQueries::byPointAndOpCls, Among::References,
                  "PARAMETERS [Freq] Double, [Stn] String, [Emi] String, [BDCde] String, [LDeg] Long, [Adm] "
                  "String, [OpFrom] Long, [OpTo] Long, [OpCls] String,[LMin] Long, [LSec] Long, [LEW] "
                  "String, [IsNotice] String, [LaDeg] Long, [LaMin] Long, [LaSec] Long, [LNS] String;SELECT "
                  "DISTINCT kvr_velda.veldakey, kvr_geo.site_name, kvr_geo.ctry FROM kvr_geo_pt INNER JOIN "
                  "(kvr_geo INNER JOIN kvr_velda ON kvr_geo.geo_key = kvr_velda.geo_key) ON "
                  "kvr_geo_pt.geo_key = kvr_geo.geo_key WHERE (((kvr_velda.freq_assgn) = [Freq]) AND "
                  "((kvr_velda.adm) = [Adm]) AND ((kvr_velda.stn_cls) = [Stn]) AND ((kvr_velda.op_cls) = "
                  "[OpCls]) AND ((kvr_velda.emi_cls) = [Emi]) AND ((kvr_velda.bdwdth_cde) = [BDCde])AND "
                  "((kvr_velda.op_hh_fr) = [OpFrom]) AND ((kvr_velda.op_hh_to) = [OpTo]) AND "
                  "((kvr_geo_pt.long_deg) = [LDeg]) AND ((kvr_geo_pt.long_min) = [LMin]) AND "
                  "((kvr_geo_pt.long_sec) = [LSec]) AND ((kvr_geo_pt.long_ew) = [LEW]) AND "
                  "((kvr_geo_pt.lat_deg) = [LaDeg]) AND ((kvr_geo_pt.lat_min) = [LaMin]) AND "
                  "((kvr_geo_pt.lat_sec) = [LaSec]) AND ((kvr_geo_pt.lat_ns) = [LNS]) AND "
                  "((kvr_velda.is_notice) = [IsNotice])) "},
        QueryText{"theCheckByZone", targetQueries::byZone, Among::References,
                  "PARAMETERS [Freq] Double, [Stn] String, [Adm] String, [Emi] String, [BDCde] String, "
                  "[IsNotice] String, [OpFrom] Long, [OpTo] Long, [ZoneID] String;SELECT DISTINCT "
                  "kvr_velda.veldakey, kvr_geo.site_name, kvr_geo.ctry FROM kvr_geo INNER JOIN kvr_velda ON "
                  "kvr_geo.geo_key = kvr_velda.geo_key WHERE (((kvr_velda.freq_assgn) = [Freq]) AND "
                  "((kvr_velda.adm) = [Adm]) AND ((kvr_velda.stn_cls) = [Stn]) AND ((kvr_velda.emi_cls) = "
                  "[Emi]) AND ((kvr_velda.bdwdth_cde) = [BDCde])AND ((kvr_velda.op_hh_fr) = [OpFrom]) AND "
                  "((kvr_velda.op_hh_to) = [OpTo]) AND ((kvr_geo.zone_id) = [ZoneID])AND "
                  "((kvr_velda.is_notice) = [IsNotice])) "}),
    [](const auto& row) { return row.param.name; });

} // namespace

TEST_P(EachQuery, HasItsText)
{
    EXPECT_EQ(GetParam().made(GetParam().among), GetParam().text);
}
