-- The master database: the tables of a working database, empty, with one row of counters.
--
-- INTEGER is a 32-bit and SMALLINT a 16-bit signed integer, DOUBLE a 64-bit float. TEXT is compared without
-- regard to case. Every column but a key may be Null: Null is what an empty field of a notice becomes.

-- One row is one notice.
CREATE TABLE kvr_velda (
    veldakey   INTEGER PRIMARY KEY,
    fragment   TEXT COLLATE NOCASE,
    adm        TEXT COLLATE NOCASE,
    addr_code  TEXT COLLATE NOCASE,
    freq_assgn DOUBLE,
    op_hh_fr   INTEGER,
    op_hh_to   INTEGER,
    stn_cls    TEXT COLLATE NOCASE,
    op_cls     TEXT COLLATE NOCASE,
    emi_cls    TEXT COLLATE NOCASE,
    bdwdth_cde TEXT COLLATE NOCASE,
    freq_carr  TEXT COLLATE NOCASE,
    d_inuse    TEXT COLLATE NOCASE,
    d_adm_ntc  TEXT COLLATE NOCASE,
    notice_typ TEXT COLLATE NOCASE,
    stn_id     TEXT COLLATE NOCASE,
    stn_type   TEXT COLLATE NOCASE,
    intent     TEXT COLLATE NOCASE,
    prov       TEXT COLLATE NOCASE,
    adm_ref_id TEXT COLLATE NOCASE,
    is_resub   TEXT COLLATE NOCASE,
    band_pref  TEXT COLLATE NOCASE,
    freq_dev   TEXT COLLATE NOCASE,
    energy_dsp TEXT COLLATE NOCASE,
    src_update TEXT COLLATE NOCASE,
    d_updated  TEXT COLLATE NOCASE,
    d_rcv      TEXT COLLATE NOCASE,
    geo_key    INTEGER,
    target     INTEGER,
    is_notice  TEXT COLLATE NOCASE
);
-- What a search compares exactly and as numbers.
CREATE INDEX velda_freq ON kvr_velda (freq_assgn, op_hh_fr, op_hh_to);
CREATE INDEX velda_geo ON kvr_velda (geo_key);

-- One row is one site or area, of a notice or of a station.
CREATE TABLE kvr_geo (
    geo_key   INTEGER PRIMARY KEY,
    geo_type  TEXT COLLATE NOCASE,
    ctry      TEXT COLLATE NOCASE,
    site_name TEXT COLLATE NOCASE,
    zone_id   TEXT COLLATE NOCASE,
    radius    TEXT COLLATE NOCASE
);
-- The one index on text. Other tools compare letters beyond ASCII with regard to case: where a zone has such letters,
-- which the codes of zones do not, their check of the file reports this index, and they should not write the file.
CREATE INDEX geo_zone ON kvr_geo (zone_id) WHERE zone_id IS NOT NULL;

-- One row is one point of a site.
CREATE TABLE kvr_geo_pt (
    geo_key  INTEGER,
    geo_pt   SMALLINT,
    long_deg INTEGER,
    long_min INTEGER,
    long_sec INTEGER,
    long_ew  TEXT COLLATE NOCASE,
    lat_deg  INTEGER,
    lat_min  INTEGER,
    lat_sec  INTEGER,
    lat_ns   TEXT COLLATE NOCASE,
    site_alt TEXT COLLATE NOCASE
);
CREATE INDEX geo_pt_geo ON kvr_geo_pt (geo_key);
-- Seconds and minutes first: they differ most from one position to the next. A point without seconds is never equal
-- to any, and many of them would make the others look alike.
CREATE INDEX geo_pt_position ON kvr_geo_pt (lat_sec, long_sec, lat_min, long_min)
    WHERE lat_sec IS NOT NULL AND long_sec IS NOT NULL;

-- One row is one antenna section of a notice, numbered from 1.
CREATE TABLE kvr_ant (
    veldakey  INTEGER,
    ant_key   SMALLINT,
    pwr_xyz   TEXT COLLATE NOCASE,
    pwr_ant   TEXT COLLATE NOCASE,
    pwr_dbw   TEXT COLLATE NOCASE,
    pwr_eiv   TEXT COLLATE NOCASE,
    ant_dir   TEXT COLLATE NOCASE,
    azm_max_e TEXT COLLATE NOCASE,
    gain_max  TEXT COLLATE NOCASE,
    gain_type TEXT COLLATE NOCASE,
    bmwdth    TEXT COLLATE NOCASE,
    ant_ref   TEXT COLLATE NOCASE,
    elev      TEXT COLLATE NOCASE,
    polar     TEXT COLLATE NOCASE,
    hgt_agl   TEXT COLLATE NOCASE,
    dist_max  TEXT COLLATE NOCASE,
    pwr_dens  TEXT COLLATE NOCASE,
    is_rot    TEXT COLLATE NOCASE
);
CREATE INDEX ant_velda ON kvr_ant (veldakey);

-- One row is one rotational sector of an antenna.
CREATE TABLE kvr_rot (
    veldakey INTEGER,
    ant_key  SMALLINT,
    azm_fr   TEXT COLLATE NOCASE,
    azm_to   TEXT COLLATE NOCASE
);
CREATE INDEX rot_ant ON kvr_rot (veldakey, ant_key);

-- One row is one receiving station of an antenna.
CREATE TABLE kvr_rx (
    veldakey   INTEGER,
    ant_key    SMALLINT,
    geo_key    INTEGER,
    noise_temp TEXT COLLATE NOCASE
);
CREATE INDEX rx_ant ON kvr_rx (veldakey, ant_key);

-- One row is one transmitting station of an antenna, of a notice of type T13.
CREATE TABLE kvr_tx (
    veldakey INTEGER,
    ant_key  SMALLINT,
    geo_key  INTEGER
);
CREATE INDEX tx_ant ON kvr_tx (veldakey, ant_key);

-- One row is one administration with which coordination was completed.
CREATE TABLE kvr_coord (
    veldakey   INTEGER,
    coord_prov TEXT COLLATE NOCASE,
    adm        TEXT COLLATE NOCASE
);
CREATE INDEX coord_velda ON kvr_coord (veldakey);

CREATE TABLE kvr_call_sign (veldakey INTEGER, call_sign TEXT COLLATE NOCASE);
CREATE INDEX call_sign_velda ON kvr_call_sign (veldakey);

CREATE TABLE kvr_nat_serv (veldakey INTEGER, nat_srv TEXT COLLATE NOCASE);
CREATE INDEX nat_serv_velda ON kvr_nat_serv (veldakey);

CREATE TABLE kvr_op_agcy (veldakey INTEGER, op_agcy TEXT COLLATE NOCASE);
CREATE INDEX op_agcy_velda ON kvr_op_agcy (veldakey);

-- One row holds all the remarks of a notice.
CREATE TABLE kvr_rmks (veldakey INTEGER, rmk_text TEXT COLLATE NOCASE);
CREATE INDEX rmks_velda ON kvr_rmks (veldakey);

-- One row describes the assignment that a notice modifies, suppresses or withdraws.
CREATE TABLE kvr_target (
    target         INTEGER PRIMARY KEY,
    trg_freq_assgn TEXT COLLATE NOCASE,
    trg_op_hh_fr   TEXT COLLATE NOCASE,
    trg_op_hh_to   TEXT COLLATE NOCASE,
    trg_stn_cls    TEXT COLLATE NOCASE,
    trg_op_cls     TEXT COLLATE NOCASE,
    trg_emi_cls    TEXT COLLATE NOCASE,
    trg_bdwdth_cde TEXT COLLATE NOCASE,
    trg_geo_type   TEXT COLLATE NOCASE,
    trg_zone_id    TEXT COLLATE NOCASE,
    trg_long_deg   TEXT COLLATE NOCASE,
    trg_long_min   TEXT COLLATE NOCASE,
    trg_long_sec   TEXT COLLATE NOCASE,
    trg_long_ew    TEXT COLLATE NOCASE,
    trg_lat_deg    TEXT COLLATE NOCASE,
    trg_lat_min    TEXT COLLATE NOCASE,
    trg_lat_sec    TEXT COLLATE NOCASE,
    trg_lat_ns     TEXT COLLATE NOCASE,
    trg_adm_ref_id TEXT COLLATE NOCASE
);

-- One row is one publication of a notice.
CREATE TABLE kvr_pub_hist (veldakey INTEGER, pub_no TEXT COLLATE NOCASE);
CREATE INDEX pub_hist_velda ON kvr_pub_hist (veldakey);

-- The next free key of each kind; the one row.
CREATE TABLE kvr_keys (geo_key INTEGER, veldakey INTEGER, Target INTEGER);
INSERT INTO kvr_keys VALUES (1, 1, 1);

-- What the engine may expect of each index before it has seen any notice: the number of rows, then how many rows
-- share the first column, the first two, and so on. A load renews the figures of the notices, sites and points as they
-- come in.
ANALYZE;
DELETE FROM sqlite_stat1;
INSERT INTO sqlite_stat1 (tbl, idx, stat) VALUES
    ('kvr_velda', 'velda_freq', '10000 3 2 2'),
    ('kvr_velda', 'velda_geo', '10000 1'),
    ('kvr_geo', 'geo_zone', '1000 20'),
    ('kvr_geo', NULL, '60000'),
    ('kvr_geo_pt', 'geo_pt_geo', '80000 2'),
    ('kvr_geo_pt', 'geo_pt_position', '80000 1300 25 4 3'),
    ('kvr_ant', 'ant_velda', '25000 3'),
    ('kvr_rot', 'rot_ant', '30000 3 2'),
    ('kvr_rx', 'rx_ant', '50000 5 2'),
    ('kvr_tx', 'tx_ant', '15000 5 2'),
    ('kvr_coord', 'coord_velda', '20000 3'),
    ('kvr_call_sign', 'call_sign_velda', '15000 2'),
    ('kvr_nat_serv', 'nat_serv_velda', '15000 2'),
    ('kvr_op_agcy', 'op_agcy_velda', '15000 2'),
    ('kvr_rmks', 'rmks_velda', '10000 1'),
    ('kvr_pub_hist', 'pub_hist_velda', '1000 1');
