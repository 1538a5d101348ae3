#include "model/InitializeNtc.h"

namespace InitializeNtc {

namespace {

// Cleared and not assigned: a string keeps its room for the next notice of a load.
template <class... Strings>
void clearAll(Strings&... strings)
{
    (strings.clear(), ...);
}

template <std::size_t Size>
void clearEach(std::array<std::string, Size>& strings)
{
    for (auto& text : strings)
        text.clear();
}

void clearLists(Ntc& ntc)
{
    clearEach(ntc.call_sign);
    clearEach(ntc.nat_srv);
    clearEach(ntc.op_agcy);
}

} // namespace

void clearNtcAdm(Ntc& ntc)
{
    ntc.adm.clear();
}

void clearNtcRcvDate(Ntc& ntc)
{
    ntc.d_rcv.clear();
}

void initRot(NtcRot& rot)
{
    clearAll(rot.azm_fr, rot.azm_to);
    rot.present = false;
}

void initGeoPt(NtcGeoPt& point)
{
    clearAll(point.long_deg, point.long_ew, point.long_min, point.long_sec);
    clearAll(point.lat_deg, point.lat_ns, point.lat_min, point.lat_sec, point.site_alt);
    point.present = false;
}

void initGeo(NtcGeo& geo)
{
    clearAll(geo.geo_type, geo.ctry, geo.site_name, geo.zone_id, geo.radius);
    geo.pt.emptyTouched(initGeoPt);
    geo.present = false;
}

void initRx(NtcRx& rx)
{
    rx.noise_temp.clear();
    rx.present = false;
    initGeo(rx.geo);
}

void initAntenna(NtcAntenna& antenna)
{
    clearAll(antenna.pwr_xyz, antenna.pwr_ant, antenna.pwr_dbw, antenna.pwr_eiv, antenna.ant_dir);
    clearAll(antenna.azm_max_e, antenna.gain_max, antenna.gain_type, antenna.bmwdth, antenna.ant_ref);
    clearAll(antenna.elev, antenna.polar, antenna.hgt_agl, antenna.dist_max, antenna.pwr_dens);
    antenna.is_rot = "FALSE";
    antenna.present = false;
    antenna.rot.emptyTouched(initRot);
    antenna.rx.emptyTouched(initRx);
}

void initCoord(NtcCoord& coord)
{
    coord.coord_prov.clear();
    clearEach(coord.adm);
    coord.present = false;
}

void initTarget(NtcTarget& target)
{
    target.present = false;
    clearAll(target.trg_freq_assgn, target.trg_op_hh_fr, target.trg_op_hh_to, target.trg_stn_cls);
    clearAll(target.trg_op_cls, target.trg_emi_cls, target.trg_bdwdth_cde, target.trg_geo_type);
    clearAll(target.trg_zone_id, target.trg_adm_ref_id);
    clearAll(target.trg_long_deg, target.trg_long_min, target.trg_long_sec, target.trg_long_ew);
    clearAll(target.trg_lat_deg, target.trg_lat_min, target.trg_lat_sec, target.trg_lat_ns);
}

void initNtcScalars(Ntc& ntc)
{
    clearAll(ntc.fragment, ntc.addr_code, ntc.freq_assgn, ntc.op_hh_fr, ntc.op_hh_to, ntc.stn_cls,
             ntc.op_cls);
    clearAll(ntc.emi_cls, ntc.bdwdth_cde, ntc.freq_carr, ntc.d_inuse, ntc.stn_id, ntc.intent, ntc.prov);
    clearAll(ntc.is_resub, ntc.adm_ref_id, ntc.d_adm_ntc, ntc.band_pref, ntc.freq_dev, ntc.energy_dsp);
    clearAll(ntc.src_update, ntc.d_updated, ntc.rmk_text);
}

void initNtcExceptAntennas(Ntc& ntc)
{
    initNtcScalars(ntc);
    initTarget(ntc.target);
    clearLists(ntc);
    initGeo(ntc.geo);
    initCoord(ntc.coord);
}

void initNtc(Ntc& ntc)
{
    initNtcExceptAntennas(ntc);
    clearAll(ntc.notice_typ, ntc.stn_type);
    ntc.antenna.emptyTouched(initAntenna);
}

} // namespace InitializeNtc
