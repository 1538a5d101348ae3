#include "support/referenceSet.h"

#include "dao/databaseFile.h"
#include "db/recordsets.h"
#include "platform/paths.h"
#include "support/workingDatabase.h"

namespace {

using recordsets::RecordsetRef;

// A table as the master database has it, but for its indexes.
std::string definitionOf(const std::string& table)
{
    const auto found =
        rowsOf(platform::programDirectory() + "/MasterKVR_QRS.mdb",
               "SELECT sql FROM sqlite_schema WHERE type = 'table' AND name = '" + table + "'");
    return found.at(0) + ";";
}

// Opens a table of a file, lets `fill` add rows, and closes both.
template <class Fill>
void addTo(const std::string& path, const char* table, Fill fill)
{
    const auto database = dao::DBEngine::OpenDatabase(path, false, false);
    const auto rows = recordsets::openTable(database, table);
    fill(rows);
    rows->Close();
    database->Close();
}

} // namespace

ReferenceSet::ReferenceSet()
{
    dao::createDatabaseFile(file(kvr3), definitionOf("kvr_velda"));
    dao::createDatabaseFile(file(kvr1), definitionOf("kvr_geo_pt"));
    dao::createDatabaseFile(file(beta), definitionOf("kvr_geo"));
    dao::linkTable(file(beta), "kvr_velda", kvr3, "kvr_velda");
    dao::linkTable(file(beta), "kvr_geo_pt", kvr1, "kvr_geo_pt");
}

void ReferenceSet::add(const Ntc& ntc, const char* isNotice)
{
    const auto key = ++m_lastKey;
    addTo(file(kvr3), "kvr_velda", [&](const RecordsetRef& rows) {
        rows->AddNew();
        rows->setCollect("veldakey", key);
        rows->setCollect("geo_key", key);
        recordsets::assignColumns(rows, columns::velda, ntc);
        if (isNotice != nullptr)
            rows->setCollect("is_notice", isNotice);
        recordsets::update(rows);
    });
    addTo(file(beta), "kvr_geo", [&](const RecordsetRef& rows) {
        rows->AddNew();
        rows->setCollect("geo_key", key);
        recordsets::assignColumns(rows, columns::geo, ntc.geo);
        recordsets::update(rows);
    });
    addTo(file(kvr1), "kvr_geo_pt", [&](const RecordsetRef& rows) {
        for (const auto& point : ntc.geo.pt) {
            if (!point.present)
                continue;
            rows->AddNew();
            rows->setCollect("geo_key", key);
            recordsets::assignColumns(rows, columns::geoPt, point);
            recordsets::update(rows);
        }
    });
}

void ReferenceSet::execute(const std::string& name, const std::string& sql) const
{
    static_cast<void>(rows(name, sql));
}

std::vector<std::string> ReferenceSet::rows(const std::string& name, const std::string& sql) const
{
    return rowsOf(file(name), sql);
}

void ReferenceSet::addGeoIndex() const
{
    execute(kvr1, "CREATE INDEX GeoIndex ON kvr_geo_pt (geo_key, long_deg, long_min, long_sec, long_ew, "
                  "lat_deg, lat_min, lat_sec, lat_ns)");
}

void ReferenceSet::addVeldaIndex() const
{
    execute(kvr3, "CREATE INDEX VeldaIndex ON kvr_velda (freq_assgn, op_hh_fr, op_hh_to, op_cls, emi_cls, "
                  "bdwdth_cde, stn_cls, is_notice)");
}

std::vector<std::string> ReferenceSet::indexes(const std::string& name) const
{
    return rows(name, "SELECT name FROM sqlite_schema WHERE type = 'index' ORDER BY name");
}
