#pragma once

#include "model/slots.h"

#include <array>
#include <string>

// The notice record: the one complete form of a notice in memory. All values are text in the form in which
// they were last read or typed, and an empty string means that a value is not given. `present` tells that a
// slot holds something; a slot that is not present may hold values all the same. Nothing grows.

// One point of a site. Degrees, minutes, seconds as digits; hemispheres "E"/"W", "N"/"S".
struct NtcGeoPt
{
    std::string long_deg, long_ew, long_min, long_sec;
    std::string lat_deg, lat_ns, lat_min, lat_sec;
    std::string site_alt; // metres above sea level
    bool present = false;
    bool operator==(const NtcGeoPt&) const = default;
};

// A site or area. geo_type is "POINT", "MULTIPOINT", "CIRCLE" or "ZONE"; a single site uses the first point.
struct NtcGeo
{
    std::string geo_type, ctry, site_name, zone_id, radius;
    Slots<NtcGeoPt, 6> pt;
    bool present = false;
    bool operator==(const NtcGeo&) const = default;
};

// The coordination list.
struct NtcCoord
{
    std::string coord_prov;
    std::array<std::string, 11> adm;
    bool present = false;
    bool operator==(const NtcCoord&) const = default;
};

// One rotational sector of an antenna, degrees.
struct NtcRot
{
    std::string azm_fr, azm_to;
    bool present = false;
    bool operator==(const NtcRot&) const = default;
};

// One station at the other end of the link: receiving, or transmitting for a notice of type "T13".
struct NtcRx
{
    NtcGeo geo;
    std::string noise_temp;
    bool present = false;
    bool operator==(const NtcRx&) const = default;
};

// One antenna section.
struct NtcAntenna
{
    std::string pwr_xyz, pwr_ant, pwr_dbw, pwr_eiv;
    std::string ant_dir, azm_max_e, gain_max, gain_type, bmwdth, ant_ref, elev, polar;
    std::string hgt_agl, dist_max, pwr_dens;
    std::string is_rot = "FALSE"; // "TRUE" or "FALSE", the one value that does not start empty
    Slots<NtcRot, 6> rot;
    Slots<NtcRx, 15> rx;
    bool present = false;
    bool operator==(const NtcAntenna&) const = default;
};

// The assignment that a notice other than "ADD" acts on.
struct NtcTarget
{
    bool present = false;
    std::string trg_freq_assgn, trg_op_hh_fr, trg_op_hh_to, trg_stn_cls, trg_op_cls, trg_emi_cls;
    std::string trg_bdwdth_cde, trg_geo_type, trg_zone_id;
    std::string trg_long_deg, trg_long_min, trg_long_sec, trg_long_ew;
    std::string trg_lat_deg, trg_lat_min, trg_lat_sec, trg_lat_ns;
    std::string trg_adm_ref_id;
    bool operator==(const NtcTarget&) const = default;
};

// A notice. Frequencies are decimal text in MHz, hours four digits HHMM. Its keys are session values.
struct Ntc
{
    std::string fragment, adm, addr_code, freq_assgn, op_hh_fr, op_hh_to;
    std::string stn_cls, op_cls, emi_cls, bdwdth_cde, freq_carr, d_inuse;
    std::string notice_typ; // "T11" to "T14"
    std::string stn_id;
    std::string stn_type; // "RX" for "T13", otherwise "TX"
    std::string intent;   // "ADD", "MODIFY", "SUPPRESS", "WITHDRAW"
    std::string prov, is_resub, adm_ref_id, d_adm_ntc, band_pref, freq_dev, energy_dsp;
    std::string d_rcv, src_update, d_updated;
    NtcTarget target;
    NtcGeo geo;
    NtcCoord coord;
    std::array<std::string, 6> call_sign, nat_srv, op_agcy;
    Slots<NtcAntenna, 15> antenna;
    std::string rmk_text; // all remark lines, separated by ";"
    bool operator==(const Ntc&) const = default;
};
