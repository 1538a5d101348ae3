#include "bareChange.h"

#include "bareWriter.h"
#include "db/columns.h"

#include <map>

namespace bare {

namespace {

template <class Record, std::size_t Count, class Columns>
void take(const std::array<columns::Row<Record>, Count>& table, const Record& record, Columns& texts)
{
    static_assert(std::tuple_size_v<Columns> == Count);
    for (std::size_t column = 0; column < Count; ++column)
        texts[column] = record.*table[column].member;
}

Site siteOf(const NtcGeo& geo)
{
    Site site;
    take(columns::geo, geo, site.columns);
    for (std::size_t slot = 0; slot < site.points.size(); ++slot) {
        site.points[slot].present = geo.pt[slot].present;
        if (geo.pt[slot].present)
            take(columns::geoPt, geo.pt[slot], site.points[slot].columns);
    }
    return site;
}

Antenna antennaOf(const NtcAntenna& from)
{
    Antenna antenna;
    take(columns::ant, from, antenna.columns);
    antenna.rotational = from.is_rot == "TRUE";
    for (const auto& sector : from.rot) {
        if (sector.present)
            antenna.sectors.next().columns = {sector.azm_fr, sector.azm_to};
    }
    for (const auto& station : from.rx) {
        if (station.present)
            antenna.stations.next() = {siteOf(station.geo), station.noise_temp};
    }
    return antenna;
}

template <class Values, std::size_t N>
void takeList(const Values& values, List<Text, N>& list)
{
    for (const auto& value : values) {
        if (!value.empty())
            list.next() = value;
    }
}

// Statements by their text, each prepared when it is first asked for.
class Statements
{
public:
    explicit Statements(sqlite3* connection) : m_connection(connection) {}
    Statement& of(const char* sql) { return m_statements.try_emplace(sql, m_connection, sql).first->second; }
    [[nodiscard]] bool changedRows() const { return sqlite3_changes(m_connection) != 0; }

private:
    sqlite3* m_connection;
    std::map<const char*, Statement> m_statements;
};

// Runs a statement of one key.
void runWith(Statements& statements, const char* sql, int key)
{
    auto& statement = statements.of(sql);
    statement.bindLong(1, key);
    statement.run();
}

void deleteSite(Statements& statements, int key)
{
    runWith(statements, "DELETE FROM kvr_geo WHERE geo_key = ?", key);
    runWith(statements, "DELETE FROM kvr_geo_pt WHERE geo_key = ?", key);
}

// All but the row, the site and the target.
void deleteRest(Statements& statements, int key, bool receivers)
{
    if (receivers) {
        runWith(statements,
                "DELETE FROM kvr_geo_pt WHERE geo_key IN (SELECT geo_key FROM kvr_rx WHERE veldakey = ?)",
                key);
        runWith(statements,
                "DELETE FROM kvr_geo WHERE geo_key IN (SELECT geo_key FROM kvr_rx WHERE veldakey = ?)", key);
        runWith(statements, "DELETE FROM kvr_rx WHERE veldakey = ?", key);
    } else {
        runWith(statements,
                "DELETE FROM kvr_geo_pt WHERE geo_key IN (SELECT geo_key FROM kvr_tx WHERE veldakey = ?)",
                key);
        runWith(statements,
                "DELETE FROM kvr_geo WHERE geo_key IN (SELECT geo_key FROM kvr_tx WHERE veldakey = ?)", key);
        runWith(statements, "DELETE FROM kvr_tx WHERE veldakey = ?", key);
    }
    for (const auto* sql :
         {"DELETE FROM kvr_rmks WHERE veldakey = ?", "DELETE FROM kvr_rot WHERE veldakey = ?",
          "DELETE FROM kvr_ant WHERE veldakey = ?", "DELETE FROM kvr_call_sign WHERE veldakey = ?",
          "DELETE FROM kvr_nat_serv WHERE veldakey = ?", "DELETE FROM kvr_op_agcy WHERE veldakey = ?",
          "DELETE FROM kvr_coord WHERE veldakey = ?"})
        runWith(statements, sql, key);
}

struct Keys
{
    int geo = 0, target = 0;
    bool receivers = false;
};

Keys keysOf(Statements& statements, int key)
{
    auto& query = statements.of("SELECT geo_key, target, stn_type FROM kvr_velda WHERE veldakey = ?");
    query.bindLong(1, key);
    if (!query.step())
        throw std::runtime_error("no notice " + std::to_string(key));
    const Keys keys{query.number(0), query.number(1), query.text(2) != "RX"};
    query.reset();
    return keys;
}

void updateRow(Statements& statements, int key, const Notice& notice, int targetKey)
{
    auto& update = statements.of(
        "UPDATE kvr_velda SET fragment = ?, adm = ?, addr_code = ?, freq_assgn = ?, op_hh_fr = "
        "?, op_hh_to = ?, stn_cls = ?, op_cls = ?, emi_cls = ?, bdwdth_cde = ?, freq_carr = ?, "
        "d_inuse = ?, d_adm_ntc = ?, notice_typ = ?, stn_id = ?, stn_type = ?, intent = ?, prov "
        "= ?, adm_ref_id = ?, is_resub = ?, band_pref = ?, freq_dev = ?, energy_dsp = ?, "
        "src_update = ?, d_updated = ?, d_rcv = ?, target = ? WHERE veldakey = ?");
    Writer::bindVelda(update, notice.velda);
    if (targetKey != 0)
        update.bindLong(veldaColumns + 1, targetKey);
    update.bindLong(veldaColumns + 2, key);
    update.run();
}

void updateSite(Statements& statements, int geoKey, const Site& site)
{
    auto& update = statements.of("UPDATE kvr_geo SET geo_type = ?, ctry = ?, site_name = ?, zone_id = ?, "
                                 "radius = ? WHERE geo_key = ?");
    Writer::bindTexts(update, site.columns);
    update.bindLong(siteColumns + 1, geoKey);
    update.run();
    runWith(statements, "DELETE FROM kvr_geo_pt WHERE geo_key = ?", geoKey);
}

// False when there is no row.
bool updateTarget(Statements& statements, int targetKey, const Notice& notice)
{
    auto& update =
        statements.of("UPDATE kvr_target SET trg_freq_assgn = ?, trg_op_hh_fr = ?, trg_op_hh_to = ?, "
                      "trg_stn_cls = ?, trg_op_cls = ?, trg_emi_cls = ?, trg_bdwdth_cde = ?, trg_geo_type = "
                      "?, trg_zone_id = ?, trg_long_deg = ?, trg_long_ew = ?, trg_long_min = ?, trg_long_sec "
                      "= ?, trg_lat_deg = ?, trg_lat_ns = ?, trg_lat_min = ?, trg_lat_sec = ?, "
                      "trg_adm_ref_id = ? WHERE target = ?");
    Writer::bindTexts(update, notice.target);
    update.bindLong(targetColumns + 1, targetKey);
    update.run();
    return statements.changedRows();
}

} // namespace

Notice noticeOf(const Ntc& ntc)
{
    Notice notice;
    take(columns::velda, ntc, notice.velda);
    take(columns::target, ntc.target, notice.target);
    notice.site = siteOf(ntc.geo);
    takeList(ntc.call_sign, notice.callSigns);
    takeList(ntc.nat_srv, notice.natSrv);
    takeList(ntc.op_agcy, notice.opAgcy);
    notice.coordProv = ntc.coord.coord_prov;
    takeList(ntc.coord.adm, notice.coordAdm);
    notice.remarks = ntc.rmk_text;
    for (const auto& antenna : ntc.antenna) {
        if (antenna.present)
            notice.antennas.next() = antennaOf(antenna);
    }
    return notice;
}

struct Updates::State
{
    explicit State(const std::string& database)
        : connection(open(database, false)), writer(connection.get()), statements(connection.get())
    {}

    Connection connection;
    Writer writer;
    Statements statements;
};

Updates::Updates(const std::string& database) : m_state(std::make_unique<State>(database)) {}

Updates::~Updates() = default;

void Updates::update(int key, const Notice& notice, bool withTarget)
{
    auto& [connection, writer, statements] = *m_state;
    writer.begin();
    const auto keys = keysOf(statements, key);
    const bool adds = notice.velda[intent] == "ADD";
    const int target = keys.target == 0 && !adds ? writer.drawTarget() : keys.target;
    updateRow(statements, key, notice, adds ? 0 : target);
    updateSite(statements, keys.geo, notice.site);
    writer.writePoints(notice.site, keys.geo);
    if (keys.target != 0 && !withTarget)
        runWith(statements, "DELETE FROM kvr_target WHERE target = ?", target);
    else if (target != 0 && !updateTarget(statements, target, notice))
        writer.writeTarget(notice, target);
    deleteRest(statements, key, notice.velda[stnType] != "RX");
    writer.writeRest(notice, key);
    writer.end();
}

void updateNotice(const std::string& database, int key, const Notice& notice, bool withTarget)
{
    Updates(database).update(key, notice, withTarget);
}

void deleteNotice(const std::string& database, int key)
{
    const auto connection = open(database, false);
    Statements statements(connection.get());
    execute(connection.get(), "BEGIN IMMEDIATE");
    const auto keys = keysOf(statements, key);
    runWith(statements, "DELETE FROM kvr_velda WHERE veldakey = ?", key);
    deleteSite(statements, keys.geo);
    if (keys.target != 0)
        runWith(statements, "DELETE FROM kvr_target WHERE target = ?", keys.target);
    deleteRest(statements, key, keys.receivers);
    runWith(statements, "DELETE FROM kvr_pub_hist WHERE veldakey = ?", key);
    execute(connection.get(), "COMMIT");
}

} // namespace bare
