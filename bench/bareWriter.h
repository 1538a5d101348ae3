#pragma once

#include "bareNotice.h"

#include <cstdint>

namespace bare {

// The rows of one notice. Keys are read once at the start of its transaction and written once at its end.
class Writer
{
public:
    explicit Writer(sqlite3* db)
        : m_begin(db, "BEGIN IMMEDIATE"),
          m_commit(db, "COMMIT"),
          m_readKeys(db, "SELECT veldakey, geo_key, Target FROM kvr_keys"),
          m_writeKeys(db, "UPDATE kvr_keys SET veldakey = ?, geo_key = ?, Target = ? WHERE rowid = 1"),
          m_velda(
              db,
              "INSERT INTO kvr_velda (fragment, adm, addr_code, freq_assgn, op_hh_fr, op_hh_to, stn_cls, "
              "op_cls, emi_cls, bdwdth_cde, freq_carr, d_inuse, d_adm_ntc, notice_typ, stn_id, stn_type, "
              "intent, prov, adm_ref_id, is_resub, band_pref, freq_dev, energy_dsp, src_update, d_updated, "
              "d_rcv, veldakey, geo_key, target) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
              "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
          m_target(
              db,
              "INSERT INTO kvr_target (trg_freq_assgn, trg_op_hh_fr, trg_op_hh_to, trg_stn_cls, trg_op_cls, "
              "trg_emi_cls, trg_bdwdth_cde, trg_geo_type, trg_zone_id, trg_long_deg, trg_long_ew, "
              "trg_long_min, "
              "trg_long_sec, trg_lat_deg, trg_lat_ns, trg_lat_min, trg_lat_sec, trg_adm_ref_id, target) "
              "VALUES "
              "(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
          m_geo(
              db,
              "INSERT INTO kvr_geo (geo_type, ctry, site_name, zone_id, radius, geo_key) VALUES (?, ?, ?, ?, "
              "?, ?)"),
          m_point(db,
                  "INSERT INTO kvr_geo_pt (long_deg, long_ew, long_min, long_sec, lat_deg, lat_ns, lat_min, "
                  "lat_sec, site_alt, geo_key, geo_pt) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
          m_antenna(db,
                    "INSERT INTO kvr_ant (pwr_xyz, pwr_ant, pwr_dbw, pwr_eiv, ant_dir, azm_max_e, gain_max, "
                    "gain_type, bmwdth, ant_ref, elev, polar, hgt_agl, dist_max, pwr_dens, is_rot, veldakey, "
                    "ant_key) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
          m_sector(db, "INSERT INTO kvr_rot (azm_fr, azm_to, veldakey, ant_key) VALUES (?, ?, ?, ?)"),
          m_rx(db, "INSERT INTO kvr_rx (veldakey, ant_key, geo_key, noise_temp) VALUES (?, ?, ?, ?)"),
          m_tx(db, "INSERT INTO kvr_tx (veldakey, ant_key, geo_key) VALUES (?, ?, ?)"),
          m_coord(db, "INSERT INTO kvr_coord (veldakey, coord_prov, adm) VALUES (?, ?, ?)"),
          m_callSign(db, "INSERT INTO kvr_call_sign (veldakey, call_sign) VALUES (?, ?)"),
          m_natSrv(db, "INSERT INTO kvr_nat_serv (veldakey, nat_srv) VALUES (?, ?)"),
          m_opAgcy(db, "INSERT INTO kvr_op_agcy (veldakey, op_agcy) VALUES (?, ?)"),
          m_remarks(db, "INSERT INTO kvr_rmks (veldakey, rmk_text) VALUES (?, ?)")
    {}

    void write(const Notice& notice)
    {
        begin();
        writeNotice(notice);
        end();
    }

    // The transaction of one notice.
    void begin()
    {
        m_begin.run();
        readKeys();
    }
    void end()
    {
        writeKeys();
        m_commit.run();
    }

    // Parts of a notice that stands already.
    int drawTarget() { return draw(m_nextTarget); }
    void writeTarget(const Notice& notice, int targetKey)
    {
        bindTexts(m_target, notice.target);
        m_target.bindLong(targetColumns + 1, targetKey);
        insert(m_target);
    }
    void writePoints(const Site& site, int geoKey)
    {
        for (std::size_t slot = 0; slot < site.points.size(); ++slot) {
            if (site.points[slot].present)
                writePoint(site.points[slot], geoKey, static_cast<int>(slot) + 1);
        }
    }
    // All but its row, its target and its site.
    void writeRest(const Notice& notice, int key)
    {
        m_key = key;
        for (const auto& adm : notice.coordAdm) {
            m_coord.bindText(2, notice.coordProv.empty() ? Text("") : notice.coordProv);
            writeValue(m_coord, 3, adm);
        }
        if (!notice.remarks.empty())
            writeValue(m_remarks, 2, notice.remarks);
        for (const auto& value : notice.callSigns)
            writeValue(m_callSign, 2, value);
        for (const auto& value : notice.natSrv)
            writeValue(m_natSrv, 2, value);
        for (const auto& value : notice.opAgcy)
            writeValue(m_opAgcy, 2, value);
        int number = 0;
        for (const auto& antenna : notice.antennas)
            writeAntenna(antenna, ++number, notice.velda[noticeTyp] != "T13");
    }

    template <std::size_t N>
    static void bindTexts(Statement& statement, const std::array<Text, N>& texts)
    {
        for (std::size_t column = 0; column < N; ++column) {
            if (!texts[column].empty())
                statement.bindText(static_cast<int>(column) + 1, texts[column]);
        }
    }

    static void bindVelda(Statement& statement, const std::array<Text, veldaColumns>& velda)
    {
        bindTexts(statement, velda);
        if (!velda[freqAssgn].empty())
            statement.bindDouble(freqAssgn + 1, numberOf<double>(velda[freqAssgn]));
        for (const int column : {opHhFr, opHhTo}) {
            const auto& hours = velda[static_cast<std::size_t>(column)];
            if (!hours.empty())
                statement.bindLong(column + 1, numberOf<int>(hours));
        }
    }

    // Rows written and keys drawn: what the product counts for its statistics.
    [[nodiscard]] std::int64_t written() const { return m_written; }

private:
    void readKeys()
    {
        if (!m_readKeys.step())
            throw std::runtime_error("no counters");
        m_nextVelda = m_readKeys.number(0);
        m_nextGeo = m_readKeys.number(1);
        m_nextTarget = m_readKeys.number(2);
        m_readKeys.reset();
    }

    void writeKeys()
    {
        m_writeKeys.bindLong(1, m_nextVelda);
        m_writeKeys.bindLong(2, m_nextGeo);
        m_writeKeys.bindLong(3, m_nextTarget);
        m_writeKeys.run();
    }

    int draw(int& next)
    {
        ++m_written;
        return next++;
    }

    void insert(Statement& statement)
    {
        statement.run();
        ++m_written;
    }

    void writeNotice(const Notice& notice)
    {
        m_key = draw(m_nextVelda);
        const int geoKey = draw(m_nextGeo);
        const bool adds = notice.velda[intent] == "ADD";
        const int targetKey = adds ? 0 : draw(m_nextTarget);
        writeVelda(notice, geoKey, targetKey);
        if (!adds)
            writeTarget(notice, targetKey);
        writeSite(notice.site, geoKey);
        writeRest(notice, m_key);
    }

    void writeVelda(const Notice& notice, int geoKey, int targetKey)
    {
        bindVelda(m_velda, notice.velda);
        m_velda.bindLong(veldaColumns + 1, m_key);
        m_velda.bindLong(veldaColumns + 2, geoKey);
        if (targetKey != 0)
            m_velda.bindLong(veldaColumns + 3, targetKey);
        insert(m_velda);
    }

    void writeValue(Statement& statement, int place, Text value)
    {
        if (value.empty())
            return;
        statement.bindLong(1, m_key);
        statement.bindText(place, value);
        insert(statement);
    }

    void writeSite(const Site& site, int geoKey)
    {
        bindTexts(m_geo, site.columns);
        m_geo.bindLong(siteColumns + 1, geoKey);
        insert(m_geo);
        writePoints(site, geoKey);
    }

    void writePoint(const Point& point, int geoKey, int number)
    {
        for (int column = 0; column < pointColumns; ++column) {
            const auto& text = point.columns[static_cast<std::size_t>(column)];
            if (text.empty())
                continue;
            if (column == longEw || column == latNs || column == siteAlt)
                m_point.bindText(column + 1, text);
            else
                m_point.bindLong(column + 1, numberOf<int>(text));
        }
        m_point.bindLong(pointColumns + 1, geoKey);
        m_point.bindLong(pointColumns + 2, number);
        insert(m_point);
    }

    void writeAntenna(const Antenna& antenna, int number, bool receivers)
    {
        bindTexts(m_antenna, antenna.columns);
        m_antenna.bindText(16, antenna.rotational ? "TRUE" : "FALSE");
        m_antenna.bindLong(17, m_key);
        m_antenna.bindLong(18, number);
        insert(m_antenna);
        for (const auto& sector : antenna.sectors) {
            bindTexts(m_sector, sector.columns);
            m_sector.bindLong(3, m_key);
            m_sector.bindLong(4, number);
            insert(m_sector);
        }
        for (const auto& station : antenna.stations)
            writeStation(station, number, receivers);
    }

    void writeStation(const Station& station, int number, bool receivers)
    {
        auto& table = receivers ? m_rx : m_tx;
        const int geoKey = draw(m_nextGeo);
        table.bindLong(1, m_key);
        table.bindLong(2, number);
        table.bindLong(3, geoKey);
        if (receivers && !station.noiseTemp.empty())
            table.bindText(4, station.noiseTemp);
        insert(table);
        writeSite(station.site, geoKey);
    }

    Statement m_begin, m_commit, m_readKeys, m_writeKeys;
    Statement m_velda, m_target, m_geo, m_point, m_antenna, m_sector, m_rx, m_tx, m_coord;
    Statement m_callSign, m_natSrv, m_opAgcy, m_remarks;
    int m_nextVelda = 0, m_nextGeo = 0, m_nextTarget = 0;
    int m_key = 0; // of the notice being written
    std::int64_t m_written = 0;
};

} // namespace bare
