#pragma once

#include "model/Ntc.h"

#include <array>
#include <cstdint>
#include <string>

// Which member of the record stands in which column, in the order in which the writers assign them. Reader
// and writers walk the same rows, so that no column is forgotten in one direction.
namespace columns {

// What happens to a value on its way from the column to the record.
enum class Reading : std::uint8_t
{
    Trim,
    Upper, // trimmed and turned to upper case; the inserters turn it to upper case too
    HHMM,  // zeros before a number: the column has lost them
    LongDeg,
    LatDeg,
    MinSec,
};

template <class Record>
struct Row
{
    const char* column = nullptr;
    std::string Record::*member = nullptr;
    Reading reading = Reading::Trim;
};

// clang-format off
inline constexpr std::array<Row<Ntc>, 26> velda = {{
    {"fragment",   &Ntc::fragment},
    {"adm",        &Ntc::adm},
    {"addr_code",  &Ntc::addr_code},
    {"freq_assgn", &Ntc::freq_assgn},
    {"op_hh_fr",   &Ntc::op_hh_fr,   Reading::HHMM},
    {"op_hh_to",   &Ntc::op_hh_to,   Reading::HHMM},
    {"stn_cls",    &Ntc::stn_cls,    Reading::Upper},
    {"op_cls",     &Ntc::op_cls,     Reading::Upper},
    {"emi_cls",    &Ntc::emi_cls},
    {"bdwdth_cde", &Ntc::bdwdth_cde},
    {"freq_carr",  &Ntc::freq_carr},
    {"d_inuse",    &Ntc::d_inuse},
    {"d_adm_ntc",  &Ntc::d_adm_ntc},
    {"notice_typ", &Ntc::notice_typ, Reading::Upper},
    {"stn_id",     &Ntc::stn_id},
    {"stn_type",   &Ntc::stn_type,   Reading::Upper},
    {"intent",     &Ntc::intent,     Reading::Upper},
    {"prov",       &Ntc::prov},
    {"adm_ref_id", &Ntc::adm_ref_id},
    {"is_resub",   &Ntc::is_resub,   Reading::Upper},
    {"band_pref",  &Ntc::band_pref},
    {"freq_dev",   &Ntc::freq_dev},
    {"energy_dsp", &Ntc::energy_dsp},
    {"src_update", &Ntc::src_update},
    {"d_updated",  &Ntc::d_updated},
    {"d_rcv",      &Ntc::d_rcv},
}};

inline constexpr std::array<Row<NtcTarget>, 18> target = {{
    {"trg_freq_assgn", &NtcTarget::trg_freq_assgn},
    {"trg_op_hh_fr",   &NtcTarget::trg_op_hh_fr,  Reading::HHMM},
    {"trg_op_hh_to",   &NtcTarget::trg_op_hh_to,  Reading::HHMM},
    {"trg_stn_cls",    &NtcTarget::trg_stn_cls},
    {"trg_op_cls",     &NtcTarget::trg_op_cls},
    {"trg_emi_cls",    &NtcTarget::trg_emi_cls},
    {"trg_bdwdth_cde", &NtcTarget::trg_bdwdth_cde},
    {"trg_geo_type",   &NtcTarget::trg_geo_type},
    {"trg_zone_id",    &NtcTarget::trg_zone_id},
    {"trg_long_deg",   &NtcTarget::trg_long_deg,  Reading::LongDeg},
    {"trg_long_ew",    &NtcTarget::trg_long_ew},
    {"trg_long_min",   &NtcTarget::trg_long_min,  Reading::MinSec},
    {"trg_long_sec",   &NtcTarget::trg_long_sec,  Reading::MinSec},
    {"trg_lat_deg",    &NtcTarget::trg_lat_deg,   Reading::LatDeg},
    {"trg_lat_ns",     &NtcTarget::trg_lat_ns},
    {"trg_lat_min",    &NtcTarget::trg_lat_min,   Reading::MinSec},
    {"trg_lat_sec",    &NtcTarget::trg_lat_sec,   Reading::MinSec},
    {"trg_adm_ref_id", &NtcTarget::trg_adm_ref_id},
}};

inline constexpr std::array<Row<NtcGeo>, 5> geo = {{
    {"geo_type",  &NtcGeo::geo_type, Reading::Upper},
    {"ctry",      &NtcGeo::ctry},
    {"site_name", &NtcGeo::site_name},
    {"zone_id",   &NtcGeo::zone_id},
    {"radius",    &NtcGeo::radius},
}};

inline constexpr std::array<Row<NtcGeoPt>, 9> geoPt = {{
    {"long_deg", &NtcGeoPt::long_deg, Reading::LongDeg},
    {"long_ew",  &NtcGeoPt::long_ew},
    {"long_min", &NtcGeoPt::long_min, Reading::MinSec},
    {"long_sec", &NtcGeoPt::long_sec, Reading::MinSec},
    {"lat_deg",  &NtcGeoPt::lat_deg,  Reading::LatDeg},
    {"lat_ns",   &NtcGeoPt::lat_ns},
    {"lat_min",  &NtcGeoPt::lat_min,  Reading::MinSec},
    {"lat_sec",  &NtcGeoPt::lat_sec,  Reading::MinSec},
    {"site_alt", &NtcGeoPt::site_alt},
}};

// All but is_rot, which is written also when it is empty and read in a way of its own.
inline constexpr std::array<Row<NtcAntenna>, 15> ant = {{
    {"pwr_xyz",   &NtcAntenna::pwr_xyz},
    {"pwr_ant",   &NtcAntenna::pwr_ant},
    {"pwr_dbw",   &NtcAntenna::pwr_dbw},
    {"pwr_eiv",   &NtcAntenna::pwr_eiv},
    {"ant_dir",   &NtcAntenna::ant_dir},
    {"azm_max_e", &NtcAntenna::azm_max_e},
    {"gain_max",  &NtcAntenna::gain_max},
    {"gain_type", &NtcAntenna::gain_type},
    {"bmwdth",    &NtcAntenna::bmwdth},
    {"ant_ref",   &NtcAntenna::ant_ref},
    {"elev",      &NtcAntenna::elev},
    {"polar",     &NtcAntenna::polar},
    {"hgt_agl",   &NtcAntenna::hgt_agl},
    {"dist_max",  &NtcAntenna::dist_max},
    {"pwr_dens",  &NtcAntenna::pwr_dens},
}};

inline constexpr std::array<Row<NtcRot>, 2> rot = {{
    {"azm_fr", &NtcRot::azm_fr},
    {"azm_to", &NtcRot::azm_to},
}};

inline constexpr std::array<Row<NtcRx>, 1> rx = {{
    {"noise_temp", &NtcRx::noise_temp},
}};
// clang-format on

} // namespace columns
