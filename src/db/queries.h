#pragma once

// The queries over one notice, as the engine gets them: for a reading, and with the columns that a change of
// a stored row needs besides.
namespace queries {

inline constexpr const char* notice =
    "PARAMETERS [Key] Long;SELECT fragment, adm, addr_code, freq_assgn, op_hh_fr, op_hh_to, stn_cls, "
    "op_cls, emi_cls, bdwdth_cde, freq_carr, d_inuse, notice_typ, stn_id, stn_type, intent, prov, "
    "is_resub, adm_ref_id, geo_key, d_adm_ntc, target, band_pref, freq_dev, energy_dsp, target, d_rcv, "
    "d_updated, src_update FROM kvr_velda WHERE veldakey = [Key]";
inline constexpr const char* storedNotice =
    "PARAMETERS [Key] Long;SELECT fragment, adm, addr_code, freq_assgn, op_hh_fr, op_hh_to, stn_cls, "
    "op_cls, emi_cls, bdwdth_cde, freq_carr, d_inuse, notice_typ, stn_id, stn_type, intent, prov, "
    "is_resub, adm_ref_id, geo_key, d_adm_ntc, band_pref, freq_dev, energy_dsp, target, d_rcv, "
    "d_updated, src_update FROM kvr_velda WHERE veldakey = [Key]";
inline constexpr const char* site =
    "PARAMETERS [Key] Long;SELECT geo_type, ctry, site_name, zone_id, radius FROM kvr_geo WHERE geo_key "
    "= [Key]";
inline constexpr const char* points =
    "PARAMETERS [Key] Long;SELECT long_deg, long_min, long_sec, long_ew, lat_deg, lat_min, lat_sec, "
    "lat_ns, site_alt FROM kvr_geo_pt WHERE geo_key = [Key]";
inline constexpr const char* target =
    "PARAMETERS [Key] Long;SELECT trg_freq_assgn, trg_op_hh_fr, trg_op_hh_to, trg_stn_cls, trg_op_cls, "
    "trg_emi_cls, trg_bdwdth_cde, trg_adm_ref_id, trg_geo_type, trg_zone_id, trg_long_deg, trg_long_min, "
    "trg_long_sec, trg_long_ew, trg_lat_deg, trg_lat_min, trg_lat_sec, trg_lat_ns FROM kvr_target WHERE "
    "target = [Key]";
inline constexpr const char* storedTarget =
    "PARAMETERS [Key] Long;SELECT trg_freq_assgn, trg_op_hh_fr, trg_op_hh_to, trg_stn_cls, trg_op_cls, "
    "trg_emi_cls, trg_bdwdth_cde, trg_adm_ref_id, trg_geo_type, trg_zone_id, trg_long_deg, trg_long_min, "
    "trg_long_sec, trg_long_ew, trg_lat_deg, trg_lat_min, trg_lat_sec, trg_lat_ns, target FROM "
    "kvr_target WHERE target = [Key]";
inline constexpr const char* remarks =
    "PARAMETERS [Key] Long;SELECT rmk_text FROM kvr_rmks WHERE veldakey = [Key]";
inline constexpr const char* antennas =
    "PARAMETERS [Key] Long;SELECT pwr_xyz, pwr_ant, pwr_dbw, pwr_eiv, ant_dir, azm_max_e, gain_max, "
    "gain_type, bmwdth, ant_ref, elev, polar, hgt_agl, dist_max, is_rot, pwr_dens FROM kvr_ant WHERE "
    "veldakey = [Key]";
inline constexpr const char* storedAntennas =
    "PARAMETERS [Key] Long;SELECT pwr_xyz, pwr_ant, pwr_dbw, pwr_eiv, ant_dir, azm_max_e, gain_max, "
    "gain_type, bmwdth, ant_ref, elev, ant_key, polar, hgt_agl, dist_max, is_rot, pwr_dens FROM kvr_ant "
    "WHERE veldakey = [Key]";
inline constexpr const char* sectors =
    "PARAMETERS [Key] Long, [AntNb] Integer;SELECT azm_fr, azm_to FROM kvr_rot WHERE ((veldakey = [Key]) "
    "and (ant_key = [AntNb]))";
inline constexpr const char* receivers =
    "PARAMETERS [Key] Long, [AntNb] Integer;SELECT geo_key, noise_temp FROM kvr_rx WHERE ((veldakey = "
    "[Key]) and (ant_key = [AntNb]))";
inline constexpr const char* transmitters =
    "PARAMETERS [Key] Long, [AntNb] Integer;SELECT geo_key FROM kvr_tx WHERE ((veldakey = [Key]) and "
    "(ant_key = [AntNb]))";
inline constexpr const char* callSigns =
    "PARAMETERS [Key] Long;SELECT call_sign FROM kvr_call_sign WHERE veldakey = [Key]";
inline constexpr const char* natSrv =
    "PARAMETERS [Key] Long;SELECT nat_srv FROM kvr_nat_serv WHERE veldakey = [Key]";
inline constexpr const char* opAgcy =
    "PARAMETERS [Key] Long;SELECT op_agcy FROM kvr_op_agcy WHERE veldakey = [Key]";
inline constexpr const char* coord =
    "PARAMETERS [Key] Long;SELECT coord_prov, adm FROM kvr_coord WHERE veldakey = [Key]";
inline constexpr const char* publications =
    "PARAMETERS [Key] Long;SELECT veldakey, pub_no FROM kvr_pub_hist WHERE veldakey = [Key]";

} // namespace queries
