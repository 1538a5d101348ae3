#include "bareNoticeQueries.h"

namespace bare {

namespace {

constexpr std::array<const char*, NoticeQueries::count> texts = {
    "SELECT fragment, adm, addr_code, freq_assgn, op_hh_fr, op_hh_to, stn_cls, op_cls, emi_cls, bdwdth_cde, "
    "freq_carr, d_inuse, notice_typ, stn_id, stn_type, intent, prov, is_resub, adm_ref_id, geo_key, "
    "d_adm_ntc, "
    "target, band_pref, freq_dev, energy_dsp, target, d_rcv, d_updated, src_update, rowid FROM kvr_velda "
    "WHERE "
    "veldakey = ?1 ORDER BY rowid",
    "SELECT geo_type, ctry, site_name, zone_id, radius, rowid FROM kvr_geo WHERE geo_key = ?1 ORDER BY rowid",
    "SELECT long_deg, long_min, long_sec, long_ew, lat_deg, lat_min, lat_sec, lat_ns, site_alt, rowid FROM "
    "kvr_geo_pt WHERE geo_key = ?1 ORDER BY rowid",
    "SELECT trg_freq_assgn, trg_op_hh_fr, trg_op_hh_to, trg_stn_cls, trg_op_cls, trg_emi_cls, "
    "trg_bdwdth_cde, "
    "trg_adm_ref_id, trg_geo_type, trg_zone_id, trg_long_deg, trg_long_min, trg_long_sec, trg_long_ew, "
    "trg_lat_deg, trg_lat_min, trg_lat_sec, trg_lat_ns, rowid FROM kvr_target WHERE target = ?1 ORDER BY "
    "rowid",
    "SELECT rmk_text, rowid FROM kvr_rmks WHERE veldakey = ?1 ORDER BY rowid",
    "SELECT pwr_xyz, pwr_ant, pwr_dbw, pwr_eiv, ant_dir, azm_max_e, gain_max, gain_type, bmwdth, ant_ref, "
    "elev, "
    "polar, hgt_agl, dist_max, is_rot, pwr_dens, rowid FROM kvr_ant WHERE veldakey = ?1 ORDER BY rowid",
    "SELECT azm_fr, azm_to, rowid FROM kvr_rot WHERE ((veldakey = ?1) and (ant_key = ?2)) ORDER BY rowid",
    "SELECT geo_key, noise_temp, rowid FROM kvr_rx WHERE ((veldakey = ?1) and (ant_key = ?2)) ORDER BY rowid",
    "SELECT geo_key, rowid FROM kvr_tx WHERE ((veldakey = ?1) and (ant_key = ?2)) ORDER BY rowid",
    "SELECT call_sign, rowid FROM kvr_call_sign WHERE veldakey = ?1 ORDER BY rowid",
    "SELECT nat_srv, rowid FROM kvr_nat_serv WHERE veldakey = ?1 ORDER BY rowid",
    "SELECT op_agcy, rowid FROM kvr_op_agcy WHERE veldakey = ?1 ORDER BY rowid",
    "SELECT coord_prov, adm, rowid FROM kvr_coord WHERE veldakey = ?1 ORDER BY rowid",
};

using Query = NoticeQueries::Query;

std::size_t bytesOfRow(const Statement& statement)
{
    std::size_t bytes = 0;
    for (int column = sqlite3_data_count(statement.get()) - 1; column >= 0; --column)
        bytes += statement.text(column).size();
    return bytes;
}

std::size_t bytesOfRows(Statement& statement)
{
    std::size_t bytes = 0;
    while (statement.step())
        bytes += bytesOfRow(statement);
    return bytes;
}

std::size_t readSite(NoticeQueries& queries, int key)
{
    return bytesOfRows(queries.start(Query::Site, key)) + bytesOfRows(queries.start(Query::Points, key));
}

std::size_t readAntenna(NoticeQueries& queries, int key, int number, bool rotational, bool transmits)
{
    std::size_t bytes = 0;
    if (rotational)
        bytes += bytesOfRows(queries.start(Query::Sectors, key, number));
    auto& stations = queries.start(transmits ? Query::Receivers : Query::Transmitters, key, number);
    while (stations.step())
        bytes += readSite(queries, stations.number(0)) + bytesOfRow(stations);
    return bytes;
}

} // namespace

Statement& NoticeQueries::start(Query query, int key)
{
    auto& statement = m_statements[query];
    if (!statement)
        statement.emplace(m_connection, texts[query]);
    statement->reset();
    statement->bindLong(1, key);
    return *statement;
}

Statement& NoticeQueries::start(Query query, int key, int antennaNumber)
{
    auto& statement = start(query, key);
    statement.bindLong(2, antennaNumber);
    return statement;
}

std::size_t readNotice(NoticeQueries& queries, int key)
{
    auto& velda = queries.start(Query::Velda, key);
    if (!velda.step())
        throw std::runtime_error("no notice " + std::to_string(key));
    auto bytes = bytesOfRow(velda);
    const bool transmits = velda.text(14) == "TX";
    bytes += readSite(queries, velda.number(19));
    if (!velda.isNull(21))
        bytes += bytesOfRows(queries.start(Query::Target, velda.number(21)));
    bytes += bytesOfRows(queries.start(Query::Remarks, key));
    int number = 0;
    auto& antennas = queries.start(Query::Antennas, key);
    while (antennas.step())
        bytes += readAntenna(queries, key, ++number, antennas.text(14) == "TRUE", transmits) +
                 bytesOfRow(antennas);
    for (const auto list : {Query::CallSigns, Query::NatSrv, Query::OpAgcy, Query::Coord})
        bytes += bytesOfRows(queries.start(list, key));
    return bytes;
}

} // namespace bare
