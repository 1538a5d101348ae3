#include "tools/referenceSet.h"

#include "dao/databaseFile.h"
#include "platform/paths.h"
#include "tools/bareFile.h"

#include <array>
#include <filesystem>
#include <ostream>
#include <string_view>

namespace referenceSet {

namespace {

namespace fs = std::filesystem;
using bareFile::Statement;
using referenceRows::Assignment;

constexpr const char* siteFile = "VELDABASEBETA.mdb";
constexpr const char* pointFile = "VELDAKVR1.mdb";
constexpr const char* assignmentFile = "VELDAKVR3.mdb";
// The file that is picked comes last: where it stands, the others stand too.
constexpr std::array files = {assignmentFile, pointFile, siteFile};

constexpr const char* plainPointIndex = "CREATE INDEX geo_pt_site ON kvr_geo_pt (geo_key, geo_pt)";
constexpr const char* geoIndex =
    "CREATE INDEX GeoIndex ON kvr_geo_pt (geo_key, long_deg, long_min, long_sec, "
    "long_ew, lat_deg, lat_min, lat_sec, lat_ns)";
constexpr const char* veldaIndex =
    "CREATE INDEX VeldaIndex ON kvr_velda (freq_assgn, op_hh_fr, op_hh_to, op_cls, "
    "emi_cls, bdwdth_cde, stn_cls, is_notice)";

std::string inFolder(const fs::path& folder, const char* file)
{
    return platform::utf8Path(folder / file);
}

// A table as the master database has it, but for its indexes.
std::string definitionOf(const std::string& table)
{
    const auto master = bareFile::open(platform::programDirectory() + "/MasterKVR_QRS.mdb");
    Statement definition(master.get(), "SELECT sql FROM sqlite_schema WHERE name = '" + table + "'");
    if (!definition.step())
        throw std::runtime_error("the master database has no table " + table);
    return definition.text(0);
}

std::string insertInto(const std::string& table, int columns)
{
    std::string sql = "INSERT INTO " + table + " VALUES (?";
    for (int more = 1; more < columns; ++more)
        sql += ", ?";
    return sql + ")";
}

// A file of the engine with its table, which is filled in one transaction. It goes when anything fails, so
// nothing is kept to roll back to.
class Table
{
public:
    Table(const std::string& path, const std::string& name, int columns)
    {
        dao::createDatabaseFile(path, definitionOf(name));
        m_connection = bareFile::open(path);
        bareFile::execute(
            m_connection.get(),
            "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE; BEGIN");
        m_insert.emplace(m_connection.get(), insertInto(name, columns));
    }

    Statement& insert() { return *m_insert; }
    void index(const char* sql) { bareFile::execute(m_connection.get(), sql); }
    void commit() { bareFile::execute(m_connection.get(), "COMMIT"); }

private:
    bareFile::Connection m_connection;
    std::optional<Statement> m_insert;
};

// The files of a set while they are filled.
class Files
{
public:
    explicit Files(const fs::path& folder)
        : m_assignments(inFolder(folder, assignmentFile), "kvr_velda", 30),
          m_points(inFolder(folder, pointFile), "kvr_geo_pt", 11),
          m_sites(inFolder(folder, siteFile), "kvr_geo", 6)
    {}

    void put(const Assignment& row)
    {
        m_assignments.insert().run(row.veldakey, row.fragment, row.adm, row.addr_code, row.frequency,
                                   row.hourFrom, row.hourTo, row.stn_cls, row.op_cls, row.emi_cls,
                                   row.bdwdth_cde, row.freq_carr, row.d_inuse, row.d_adm_ntc, row.notice_typ,
                                   row.stn_id, row.stn_type, row.intent, row.prov, row.adm_ref_id,
                                   row.is_resub, row.band_pref, row.freq_dev, row.energy_dsp, row.src_update,
                                   row.d_updated, row.d_rcv, row.geoKey, nullptr, row.is_notice);
        m_sites.insert().run(row.geoKey, row.geo_type, row.ctry, row.site_name, row.zone_id, row.radius);
        int number = 0;
        for (const auto& point : row.points)
            m_points.insert().run(row.geoKey, ++number, point.longDeg, point.longMin, point.longSec,
                                  point.long_ew, point.latDeg, point.latMin, point.latSec, point.lat_ns,
                                  point.site_alt);
    }

    void finish(bool withIndexes)
    {
        m_points.index(plainPointIndex);
        if (withIndexes) {
            m_points.index(geoIndex);
            m_assignments.index(veldaIndex);
        }
        for (auto* table : {&m_assignments, &m_points, &m_sites})
            table->commit();
    }

private:
    Table m_assignments, m_points, m_sites;
};

// A folder that goes with its scope.
class FleetingFolder
{
public:
    explicit FleetingFolder(fs::path path) : m_path(std::move(path))
    {
        fs::remove_all(m_path);
        fs::create_directories(m_path);
    }
    ~FleetingFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    FleetingFolder(const FleetingFolder&) = delete;
    FleetingFolder& operator=(const FleetingFolder&) = delete;

    [[nodiscard]] const fs::path& path() const { return m_path; }

private:
    fs::path m_path;
};

// Gives the files of a finished set their place. Until all have it, what stood there is kept aside.
class Move
{
public:
    Move(fs::path from, fs::path to) : m_from(std::move(from)), m_to(std::move(to)) {}
    ~Move()
    {
        if (m_done)
            return;
        std::error_code ignored;
        for (const auto* file : m_moved)
            fs::remove(m_to / file, ignored);
        for (const auto& name : m_aside)
            fs::rename(aside(name), m_to / name, ignored);
    }
    Move(const Move&) = delete;
    Move& operator=(const Move&) = delete;

    void run()
    {
        // A journal that was left there would be rolled into the new file.
        for (const std::string file : files) {
            for (const char* companion : {"", "-journal", "-wal", "-shm"})
                putAside(file + companion);
        }
        for (const auto* file : files) {
            fs::rename(m_from / file, m_to / file);
            m_moved.push_back(file);
        }
        m_done = true;
    }

private:
    [[nodiscard]] fs::path aside(const std::string& name) const { return m_from / ("old-" + name); }

    void putAside(const std::string& name)
    {
        if (!fs::exists(m_to / name))
            return;
        if (!fs::is_regular_file(m_to / name))
            throw std::runtime_error(platform::utf8Path(m_to / name) + " is no file");
        fs::rename(m_to / name, aside(name));
        m_aside.push_back(name);
    }

    fs::path m_from, m_to;
    std::vector<std::string> m_aside;
    std::vector<const char*> m_moved;
    bool m_done = false;
};

void dumpTable(const std::string& path, const std::string& table, std::ostream& output)
{
    const auto connection = bareFile::open(path);
    Statement rows(connection.get(), "SELECT * FROM " + table + " ORDER BY rowid");
    while (rows.step()) {
        output << table;
        for (int column = 0; column < rows.columns(); ++column)
            output << '\t' << rows.text(column);
        output << '\n';
    }
}

std::vector<referenceRows::Answer> fill(const fs::path& folder, const referenceRows::Options& options,
                                        bool withIndexes)
{
    referenceRows::Rows rows(options);
    Files set(folder);
    while (rows.next())
        set.put(rows.current());
    set.finish(withIndexes);
    return rows.expected();
}

} // namespace

std::vector<referenceRows::Answer> write(const std::string& folder, const referenceRows::Options& options,
                                         bool withIndexes)
{
    const auto target = platform::hostPath(folder);
    const bool isNew = !fs::exists(target);
    fs::create_directories(target);
    try {
        const FleetingFolder fresh(target / "unfinished");
        auto expected = fill(fresh.path(), options, withIndexes);
        dao::linkTable(inFolder(fresh.path(), siteFile), "kvr_velda", assignmentFile, "kvr_velda");
        dao::linkTable(inFolder(fresh.path(), siteFile), "kvr_geo_pt", pointFile, "kvr_geo_pt");
        Move(fresh.path(), target).run();
        return expected;
    } catch (...) {
        std::error_code ignored;
        if (isNew)
            fs::remove(target, ignored);
        throw;
    }
}

void dump(const std::string& folder, std::ostream& output)
{
    const auto source = platform::hostPath(folder);
    dumpTable(inFolder(source, assignmentFile), "kvr_velda", output);
    dumpTable(inFolder(source, siteFile), "kvr_geo", output);
    dumpTable(inFolder(source, pointFile), "kvr_geo_pt", output);
}

} // namespace referenceSet
