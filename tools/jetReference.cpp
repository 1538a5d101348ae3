#include "tools/jetReference.h"

#include "tools/jetWriter.h"

#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace jetReference {

namespace {

namespace fs = std::filesystem;
using namespace jetWriter;

constexpr double created = 35856.385416666664; // 1998-03-02 09:15:00
constexpr double updated = 36326.354224537036; // 1999-06-15 08:30:05

constexpr std::uint16_t textLength = 20;

void addTexts(Table& table, std::initializer_list<const char*> names)
{
    for (const char* name : names)
        table.add(name, Type::Text, textLength);
}

void addLongs(Table& table, std::initializer_list<const char*> names)
{
    for (const char* name : names)
        table.add(name, Type::Long);
}

void setCodePage(Table& table)
{
    for (auto& column : table.columns)
        column.codePage = 1252;
}

Table assignmentTable(bool withIndexes)
{
    Table table;
    table.name = "kvr_velda";
    addLongs(table, {"veldakey"});
    addTexts(table, {"fragment", "adm", "addr_code"});
    table.add("freq_assgn", Type::Double);
    addLongs(table, {"op_hh_fr", "op_hh_to"});
    addTexts(table, {"stn_cls", "op_cls", "emi_cls", "bdwdth_cde", "freq_carr", "d_inuse", "d_adm_ntc",
                     "notice_typ", "stn_id", "stn_type", "intent", "prov"});
    table.add("adm_ref_id", Type::Text, 30);
    addTexts(table, {"is_resub", "band_pref", "freq_dev", "energy_dsp", "src_update", "d_updated", "d_rcv"});
    addLongs(table, {"geo_key", "target"});
    addTexts(table, {"is_notice"});
    setCodePage(table);
    table.addIndex("PrimaryKey", {"veldakey"}, primaryKey, uniqueIndex | requiredIndex);
    if (withIndexes)
        table.addIndex("VeldaIndex", {"freq_assgn", "op_hh_fr", "op_hh_to", "op_cls", "emi_cls", "bdwdth_cde",
                                      "stn_cls", "is_notice"});
    return table;
}

Table siteTable()
{
    Table table;
    table.name = "kvr_geo";
    addLongs(table, {"geo_key"});
    addTexts(table, {"geo_type", "ctry"});
    table.add("site_name", Type::Text, 60);
    addTexts(table, {"zone_id", "radius"});
    setCodePage(table);
    table.addIndex("PrimaryKey", {"geo_key"}, primaryKey, uniqueIndex | requiredIndex);
    return table;
}

Table pointTable(bool withIndexes)
{
    Table table;
    table.name = "kvr_geo_pt";
    addLongs(table, {"geo_key"});
    table.add("geo_pt", Type::Integer);
    addLongs(table, {"long_deg", "long_min", "long_sec"});
    addTexts(table, {"long_ew"});
    addLongs(table, {"lat_deg", "lat_min", "lat_sec"});
    addTexts(table, {"lat_ns", "site_alt"});
    setCodePage(table);
    if (withIndexes)
        table.addIndex("GeoIndex", {"geo_key", "long_deg", "long_min", "long_sec", "long_ew", "lat_deg",
                                    "lat_min", "lat_sec", "lat_ns"});
    return table;
}

// The code page has the letters of the names that are drawn.
Cell text(const std::string& value)
{
    if (value.empty())
        return std::nullopt;
    Bytes bytes;
    for (const char16_t unit : toUtf16(value))
        bytes += unit < 0x80 || (unit >= 0xA0 && unit < 0x100) ? static_cast<char>(unit) : '?';
    return bytes;
}

Cell number(const std::optional<int>& value)
{
    return value ? Cell(longValue(*value)) : std::nullopt;
}

// A file of one table on its way.
class TableFile
{
public:
    TableFile(fs::path path, const Table& table, double updatedAt)
        : m_path(std::move(path)),
          m_stream(m_path, std::ios::binary | std::ios::trunc),
          m_writer(m_stream, FileForm{}),
          m_table(m_writer.addTable(table, formOf(updatedAt)))
    {}

    void add(const std::vector<Cell>& cells) { m_table.add(cells); }
    void link(std::string_view name, std::string_view path) { m_writer.addLink(name, path, name, created); }
    void finish()
    {
        m_writer.finish();
        m_stream.close();
        if (!m_stream)
            throw std::runtime_error("cannot write " + m_path.string());
    }

private:
    static TableForm formOf(double updatedAt)
    {
        TableForm form;
        form.created = created;
        form.updated = updatedAt;
        return form;
    }

    fs::path m_path;
    std::ofstream m_stream;
    FileWriter m_writer;
    TableWriter& m_table;
};

class Files
{
public:
    Files(const fs::path& folder, bool withIndexes)
        : m_assignments(folder / "VELDAKVR3.mdb", assignmentTable(withIndexes), updated),
          m_points(folder / "VELDAKVR1.mdb", pointTable(withIndexes), created),
          m_sites(folder / "VELDABASEBETA.mdb", siteTable(), created)
    {
        m_sites.link("kvr_geo_pt", R"(D:\QRS\REFBASE\VELDAKVR1.MDB)");
        m_sites.link("kvr_velda", R"(D:\QRS\REFBASE\VELDAKVR3.MDB)");
    }

    void put(const referenceRows::Assignment& row)
    {
        putAssignment(row);
        m_cells = {longValue(row.geoKey), text(row.geo_type), text(row.ctry),
                   text(row.site_name),   text(row.zone_id),  text(row.radius)};
        m_sites.add(m_cells);
        std::int16_t place = 0;
        for (const auto& point : row.points)
            putPoint(row.geoKey, ++place, point);
    }

    void finish()
    {
        for (auto* file : {&m_assignments, &m_points, &m_sites})
            file->finish();
    }

private:
    void putAssignment(const referenceRows::Assignment& row)
    {
        m_cells = {longValue(row.veldakey), text(row.fragment), text(row.adm), text(row.addr_code)};
        m_cells.emplace_back(row.frequency ? Cell(doubleValue(*row.frequency)) : std::nullopt);
        m_cells.emplace_back(number(row.hourFrom));
        m_cells.emplace_back(number(row.hourTo));
        for (const auto* value :
             {&row.stn_cls,  &row.op_cls,     &row.emi_cls,    &row.bdwdth_cde, &row.freq_carr,
              &row.d_inuse,  &row.d_adm_ntc,  &row.notice_typ, &row.stn_id,     &row.stn_type,
              &row.intent,   &row.prov,       &row.adm_ref_id, &row.is_resub,   &row.band_pref,
              &row.freq_dev, &row.energy_dsp, &row.src_update, &row.d_updated,  &row.d_rcv})
            m_cells.emplace_back(text(*value));
        m_cells.emplace_back(longValue(row.geoKey));
        m_cells.emplace_back(std::nullopt);
        m_cells.emplace_back(text(row.is_notice));
        m_assignments.add(m_cells);
    }

    void putPoint(int site, std::int16_t place, const referenceRows::Point& point)
    {
        m_cells = {longValue(site),       integerValue(place), number(point.longDeg), number(point.longMin),
                   number(point.longSec), text(point.long_ew), number(point.latDeg),  number(point.latMin),
                   number(point.latSec),  text(point.lat_ns),  text(point.site_alt)};
        m_points.add(m_cells);
    }

    TableFile m_assignments, m_points, m_sites;
    std::vector<Cell> m_cells;
};

} // namespace

std::vector<referenceRows::Answer> write(const fs::path& folder, const referenceRows::Options& options,
                                         bool withIndexes)
{
    fs::create_directories(folder);
    referenceRows::Rows rows(options);
    Files files(folder, withIndexes);
    while (rows.next())
        files.put(rows.current());
    files.finish();
    return rows.expected();
}

} // namespace jetReference
