#include "db/noticeList.h"

#include "model/session.h"

namespace noticeList {

std::string buildNoticeQuery(const std::string& whereClause, Sort sort)
{
    return "SELECT DISTINCT kvr_velda.veldakey, kvr_pub_hist.pub_no, kvr_velda.fragment, "
           "kvr_velda.adm, kvr_velda.freq_assgn, kvr_velda.stn_cls, "
           "kvr_velda.notice_typ, kvr_velda.intent, "
           "kvr_velda.adm_ref_id, kvr_geo.site_name, kvr_geo.ctry, "
           "kvr_geo_pt.long_deg , kvr_geo_pt.long_min, "
           "kvr_geo_pt.long_sec , kvr_geo_pt.long_ew, "
           "kvr_geo_pt.lat_deg , kvr_geo_pt.lat_min, "
           "kvr_geo_pt.lat_sec , kvr_geo_pt.lat_ns "
           "FROM (kvr_geo LEFT JOIN kvr_geo_pt ON kvr_geo.geo_key = kvr_geo_pt.geo_key) "
           "INNER JOIN (kvr_velda LEFT JOIN kvr_pub_hist ON kvr_velda.veldakey = kvr_pub_hist.veldakey) "
           "ON kvr_geo.geo_key = kvr_velda.geo_key " +
           whereClause +
           (sort == Sort::AdmFreq ? "ORDER BY kvr_velda.adm, kvr_velda.freq_assgn, kvr_velda.veldakey "
                                  : "ORDER BY kvr_velda.veldakey ");
}

void loadNoticeKeys(const dao::Ref<dao::Recordset>& rows)
{
    session::keyCount = 0;
    if (rows->RecordCount() < 1)
        return;
    rows->MoveLast();
    session::keyCount = rows->RecordCount();
    rows->MoveFirst();
    // As long as keyCount says from the first moment: whoever walks it relies on that, also after a failure
    // here.
    session::keyArray.assign(static_cast<std::size_t>(session::keyCount), 0);
    for (auto& key : session::keyArray) {
        key = rows->Fields("veldakey").toLong();
        rows->MoveNext();
    }
    rows->MoveFirst();
    session::firstKey = session::keyArray.front();
    session::lastKey = session::keyArray.back();
}

void locateCurrentKey()
{
    for (std::int32_t index = 0; index < session::keyCount; ++index) {
        if (session::keyAt(index) == session::currentVeldaKey) {
            session::currentIndex = index;
            return;
        }
    }
}

} // namespace noticeList
