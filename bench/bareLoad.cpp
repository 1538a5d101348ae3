#include "bareLoad.h"

#include "bareReader.h"
#include "bareWriter.h"
#include "model/session.h"
#include "platform/hostFormat.h"
#include "progress.h"

#include <cstdint>

namespace bare {

namespace {

// The searches as they reach the engine; parameters in the order of the product's declarations.
constexpr const char* pointSearch =
    "SELECT DISTINCT kvr_velda.veldakey FROM kvr_geo_pt INNER JOIN (kvr_geo INNER JOIN kvr_velda ON "
    "kvr_geo.geo_key = kvr_velda.geo_key) ON kvr_geo_pt.geo_key = kvr_geo.geo_key WHERE "
    "(((kvr_velda.freq_assgn) = ?1) AND ((kvr_velda.adm) = ?8) AND ((kvr_velda.stn_cls) = ?2) AND "
    "((kvr_velda.emi_cls) = ?3) AND ((kvr_velda.bdwdth_cde) = ?4)AND ((kvr_velda.op_hh_fr) = ?6) AND "
    "((kvr_velda.op_hh_to) = ?7) AND ((kvr_geo_pt.long_deg) = ?5) AND ((kvr_geo_pt.long_min) = ?9) AND "
    "((kvr_geo_pt.long_sec) = ?10) AND ((kvr_geo_pt.long_ew) = ?11) AND ((kvr_geo_pt.lat_deg) = ?12) AND "
    "((kvr_geo_pt.lat_min) = ?13) AND ((kvr_geo_pt.lat_sec) = ?14) AND ((kvr_geo_pt.lat_ns) = ?15)) ORDER BY "
    "1";
constexpr const char* pointAndClassSearch =
    "SELECT DISTINCT kvr_velda.veldakey FROM kvr_geo_pt INNER JOIN (kvr_geo INNER JOIN kvr_velda ON "
    "kvr_geo.geo_key = kvr_velda.geo_key) ON kvr_geo_pt.geo_key = kvr_geo.geo_key WHERE "
    "(((kvr_velda.freq_assgn) = ?1) AND ((kvr_velda.adm) = ?8) AND ((kvr_velda.stn_cls) = ?2) AND "
    "((kvr_velda.op_cls) = ?16) AND "
    "((kvr_velda.emi_cls) = ?3) AND ((kvr_velda.bdwdth_cde) = ?4)AND ((kvr_velda.op_hh_fr) = ?6) AND "
    "((kvr_velda.op_hh_to) = ?7) AND ((kvr_geo_pt.long_deg) = ?5) AND ((kvr_geo_pt.long_min) = ?9) AND "
    "((kvr_geo_pt.long_sec) = ?10) AND ((kvr_geo_pt.long_ew) = ?11) AND ((kvr_geo_pt.lat_deg) = ?12) AND "
    "((kvr_geo_pt.lat_min) = ?13) AND ((kvr_geo_pt.lat_sec) = ?14) AND ((kvr_geo_pt.lat_ns) = ?15)) ORDER BY "
    "1";
constexpr const char* zoneSearch =
    "SELECT DISTINCT kvr_velda.veldakey FROM kvr_geo INNER JOIN kvr_velda ON kvr_geo.geo_key = "
    "kvr_velda.geo_key WHERE (((kvr_velda.freq_assgn) = ?1) AND ((kvr_velda.adm) = ?8) AND "
    "((kvr_velda.stn_cls) = ?2) AND ((kvr_velda.emi_cls) = ?3) AND ((kvr_velda.bdwdth_cde) = ?4)AND "
    "((kvr_velda.op_hh_fr) = ?6) AND ((kvr_velda.op_hh_to) = ?7) AND ((kvr_geo.zone_id) = ?5)) ORDER BY 1";

// The statistics are renewed where the product renews them.
constexpr std::int64_t firstStatistics = 2'000;
constexpr std::int64_t statisticsFactor = 4;

class Search
{
public:
    explicit Search(sqlite3* connection)
        : m_point(connection, pointSearch),
          m_pointAndClass(connection, pointAndClassSearch),
          m_zone(connection, zoneSearch)
    {}

    bool found(const Notice& notice)
    {
        auto& search = searchFor(notice);
        const auto& velda = notice.velda;
        search.bindDouble(1, numberOf<double>(velda[freqAssgn]));
        search.bindText(2, given(velda[stnCls]));
        search.bindText(3, given(velda[emiCls]));
        search.bindText(4, given(velda[bdwdthCde]));
        search.bindLong(6, numberOf<int>(velda[opHhFr]));
        search.bindLong(7, numberOf<int>(velda[opHhTo]));
        search.bindText(8, given(velda[adm]));
        const bool result = search.step();
        search.reset();
        return result;
    }

private:
    // An empty text is a text and no Null.
    static Text given(Text text) { return text.empty() ? Text("") : text; }

    Statement& searchFor(const Notice& notice)
    {
        const auto& zone = notice.site.columns[zoneId];
        if (!zone.empty()) {
            m_zone.bindText(5, zone);
            return m_zone;
        }
        const auto& opClass = notice.velda[opCls];
        auto& search = opClass.empty() ? m_point : m_pointAndClass;
        if (!opClass.empty())
            search.bindText(16, opClass);
        const auto& point = notice.site.points[0].columns;
        search.bindLong(5, numberOf<int>(point[longDeg]));
        search.bindLong(9, numberOf<int>(point[longMin]));
        search.bindLong(10, numberOf<int>(point[longSec]));
        search.bindText(11, given(point[longEw]));
        search.bindLong(12, numberOf<int>(point[latDeg]));
        search.bindLong(13, numberOf<int>(point[latMin]));
        search.bindLong(14, numberOf<int>(point[latSec]));
        search.bindText(15, given(point[latNs]));
        return search;
    }

    Statement m_point, m_pointAndClass, m_zone;
};

// Commits have only reached the operating system's memory; the load ends on the disk.
void flush(sqlite3* connection)
{
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (file != nullptr && file->pMethods->xSync(file, SQLITE_SYNC_NORMAL) != SQLITE_OK)
        throw std::runtime_error("can't flush the database");
}

void loadInto(sqlite3* connection, Text file, const std::string& dateOfReceipt, bool renewStatistics,
              int& found)
{
    const auto user = session::getUserName();
    const auto today = platform::shortDateText(platform::now());
    Search search(connection);
    Writer writer(connection);
    Reader reader(file);
    auto notice = std::make_unique<Notice>();
    notice->velda.fill({});
    std::int64_t nextStatistics = firstStatistics;
    int number = 0;
    while (reader.next(*notice)) {
        notice->velda[srcUpdate] = user;
        notice->velda[dUpdated] = today;
        notice->velda[dRcv] = dateOfReceipt;
        ++number;
        if (search.found(*notice)) {
            ++found;
            progress::tell(number);
        }
        writer.write(*notice);
        if (renewStatistics && writer.written() >= nextStatistics) {
            nextStatistics = writer.written() * statisticsFactor;
            execute(connection, "ANALYZE kvr_velda; ANALYZE kvr_geo; ANALYZE kvr_geo_pt");
        }
    }
}

} // namespace

int load(const std::string& noticeFile, const std::string& database, const std::string& dateOfReceipt,
         const LoadSettings& settings)
{
    const auto connection = open(database, false);
    execute(connection.get(), settings.pragmas);
    const auto file = readFile(noticeFile);
    int found = 0;
    {
        // As the product does: a query that is not finished keeps a reader's lock between two transactions.
        Statement lock(connection.get(), "SELECT 1 FROM sqlite_schema");
        if (!lock.step())
            throw std::runtime_error("a database without tables");
        loadInto(connection.get(), file, dateOfReceipt, settings.renewStatistics, found);
    }
    flush(connection.get());
    execute(connection.get(), "PRAGMA journal_mode=DELETE");
    return found;
}

} // namespace bare
