#pragma once

#include "model/Ntc.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Keys and tags of the electronic notice file, in the order in which they are written; read they may stand in
// any order. A key of these tables is read into the member that it is written from. What only one side knows
// stands at the end.
namespace keyTables {

// The form of a value in the file.
enum class Form : std::uint8_t
{
    Text,  // as it stands
    Upper, // turned to upper case when read, as it stands when written
    Time,  // "hh:mm" in the file, four digits in the record
    Date,  // as it stands when read, "yyyy-mm-dd" when written
};

// Where a run of keys is interrupted by lines of another kind, in the order of writing.
enum class Run : std::uint8_t
{
    First,
    BeforeSite, // from here on for "ADD" and "MODIFY" alone
    BeforeNatSrv,
    BeforeCallSigns,
    AfterCallSigns,
    Resubmission,
    BeforeOpAgcy,
    BeforeRemarks,
    BeforeZone,        // of a target
    BeforeCoordinates, // of a target
    Last,
};

template <class Record>
struct KeyRow
{
    std::string_view key;
    std::string Record::*member;
    Form form = Form::Text;
    Run run = Run::First;
};

// clang-format off
inline constexpr std::array noticeKeys{
    KeyRow<Ntc>{"t_notice_type", &Ntc::notice_typ, Form::Upper, Run::First},
    KeyRow<Ntc>{"t_action",      &Ntc::intent,     Form::Upper, Run::First},
    KeyRow<Ntc>{"t_fragment",    &Ntc::fragment,   Form::Text,  Run::First},
    KeyRow<Ntc>{"t_addr_code",   &Ntc::addr_code,  Form::Text,  Run::BeforeSite},
    KeyRow<Ntc>{"t_freq_assgn",  &Ntc::freq_assgn, Form::Text,  Run::BeforeSite},
    KeyRow<Ntc>{"t_op_hh_fr",    &Ntc::op_hh_fr,   Form::Time,  Run::BeforeNatSrv},
    KeyRow<Ntc>{"t_op_hh_to",    &Ntc::op_hh_to,   Form::Time,  Run::BeforeNatSrv},
    KeyRow<Ntc>{"t_stn_cls",     &Ntc::stn_cls,    Form::Upper, Run::BeforeNatSrv},
    KeyRow<Ntc>{"t_op_cls",      &Ntc::op_cls,     Form::Upper, Run::BeforeNatSrv},
    KeyRow<Ntc>{"t_emi_cls",     &Ntc::emi_cls,    Form::Text,  Run::BeforeNatSrv},
    KeyRow<Ntc>{"t_bdwdth_cde",  &Ntc::bdwdth_cde, Form::Text,  Run::BeforeNatSrv},
    KeyRow<Ntc>{"t_freq_carr",   &Ntc::freq_carr,  Form::Text,  Run::BeforeCallSigns},
    KeyRow<Ntc>{"t_d_inuse",     &Ntc::d_inuse,    Form::Date,  Run::BeforeCallSigns},
    KeyRow<Ntc>{"t_d_adm_ntc",   &Ntc::d_adm_ntc,  Form::Date,  Run::BeforeCallSigns},
    KeyRow<Ntc>{"t_station_id",  &Ntc::stn_id,     Form::Text,  Run::AfterCallSigns},
    KeyRow<Ntc>{"t_adm_ref_id",  &Ntc::adm_ref_id, Form::Text,  Run::AfterCallSigns},
    KeyRow<Ntc>{"t_is_resub",    &Ntc::is_resub,   Form::Upper, Run::Resubmission},
    KeyRow<Ntc>{"t_band_pref",   &Ntc::band_pref,  Form::Text,  Run::BeforeOpAgcy},
    KeyRow<Ntc>{"t_freq_dev",    &Ntc::freq_dev,   Form::Text,  Run::BeforeOpAgcy},
    KeyRow<Ntc>{"t_energy_dsp",  &Ntc::energy_dsp, Form::Text,  Run::BeforeOpAgcy},
    KeyRow<Ntc>{"t_prov",        &Ntc::prov,       Form::Text,  Run::BeforeRemarks},
};

inline constexpr std::array targetKeys{
    KeyRow<NtcTarget>{"t_trg_freq_assgn", &NtcTarget::trg_freq_assgn, Form::Text,  Run::BeforeZone},
    KeyRow<NtcTarget>{"t_trg_stn_cls",    &NtcTarget::trg_stn_cls,    Form::Upper, Run::BeforeZone},
    KeyRow<NtcTarget>{"t_trg_bdwdth_cde", &NtcTarget::trg_bdwdth_cde, Form::Text,  Run::BeforeZone},
    KeyRow<NtcTarget>{"t_trg_emi_cls",    &NtcTarget::trg_emi_cls,    Form::Text,  Run::BeforeZone},
    KeyRow<NtcTarget>{"t_trg_op_hh_fr",   &NtcTarget::trg_op_hh_fr,   Form::Time,  Run::BeforeZone},
    KeyRow<NtcTarget>{"t_trg_op_hh_to",   &NtcTarget::trg_op_hh_to,   Form::Time,  Run::BeforeZone},
    KeyRow<NtcTarget>{"t_trg_op_cls",     &NtcTarget::trg_op_cls,     Form::Upper, Run::BeforeZone},
    KeyRow<NtcTarget>{"t_trg_geo_type",   &NtcTarget::trg_geo_type,   Form::Upper, Run::BeforeCoordinates},
    KeyRow<NtcTarget>{"t_trg_adm_ref_id", &NtcTarget::trg_adm_ref_id, Form::Text,  Run::Last},
};

// Of a notice and of a station.
inline constexpr std::array siteKeys{
    KeyRow<NtcGeo>{"t_geo_type",  &NtcGeo::geo_type,  Form::Upper},
    KeyRow<NtcGeo>{"t_site_name", &NtcGeo::site_name, Form::Upper},
    KeyRow<NtcGeo>{"t_ctry",      &NtcGeo::ctry},
    KeyRow<NtcGeo>{"t_radius",    &NtcGeo::radius},
    KeyRow<NtcGeo>{"t_zone_id",   &NtcGeo::zone_id},
};

inline constexpr std::array antennaKeys{
    KeyRow<NtcAntenna>{"t_pwr_xyz",   &NtcAntenna::pwr_xyz},
    KeyRow<NtcAntenna>{"t_pwr_ant",   &NtcAntenna::pwr_ant},
    KeyRow<NtcAntenna>{"t_pwr_dbw",   &NtcAntenna::pwr_dbw},
    KeyRow<NtcAntenna>{"t_pwr_eiv",   &NtcAntenna::pwr_eiv},
    KeyRow<NtcAntenna>{"t_pwr_dens",  &NtcAntenna::pwr_dens},
    KeyRow<NtcAntenna>{"t_ant_dir",   &NtcAntenna::ant_dir},
    KeyRow<NtcAntenna>{"t_azm_max_e", &NtcAntenna::azm_max_e},
    KeyRow<NtcAntenna>{"t_bmwdth",    &NtcAntenna::bmwdth},
    KeyRow<NtcAntenna>{"t_gain_type", &NtcAntenna::gain_type},
    KeyRow<NtcAntenna>{"t_gain_max",  &NtcAntenna::gain_max},
    KeyRow<NtcAntenna>{"t_ant_ref",   &NtcAntenna::ant_ref},
    KeyRow<NtcAntenna>{"t_elev",      &NtcAntenna::elev},
    KeyRow<NtcAntenna>{"t_polar",     &NtcAntenna::polar},
    KeyRow<NtcAntenna>{"t_hgt_agl",   &NtcAntenna::hgt_agl},
    KeyRow<NtcAntenna>{"t_dist_max",  &NtcAntenna::dist_max},
};

inline constexpr std::array rotKeys{
    KeyRow<NtcRot>{"t_azm_fr", &NtcRot::azm_fr},
    KeyRow<NtcRot>{"t_azm_to", &NtcRot::azm_to},
};
// clang-format on

inline constexpr std::string_view noticeTypeKey = "t_notice_type";
inline constexpr std::string_view geoTypeKey = "t_geo_type";

// Keys whose values are lists, joined, or parts of a coordinate.
inline constexpr std::string_view admKey = "t_adm"; // of the head, and of a coordination section
inline constexpr std::string_view natSrvKey = "t_nat_srv";
inline constexpr std::string_view callSignKey = "t_call_sign";
inline constexpr std::string_view opAgcyKey = "t_op_agcy";
inline constexpr std::string_view longKey = "t_long";
inline constexpr std::string_view latKey = "t_lat";
inline constexpr std::string_view targetLongKey = "t_trg_long";
inline constexpr std::string_view targetLatKey = "t_trg_lat";
inline constexpr std::string_view noiseTempKey = "t_nois_tmp";
inline constexpr std::string_view remarksKey = "t_remarks";

// Read for a notice alone, written for a notice and a station.
inline constexpr std::string_view siteAltKey = "t_site_alt";
// Read and never written.
inline constexpr std::string_view coordProvKey = "t_coord_prov";
// The zone of a target is written with the key of the site's zone, and not read from there.
inline constexpr std::string_view targetZoneReadKey = "t_trg_zone_id";
inline constexpr std::string_view targetZoneWrittenKey = "t_zone_id";

struct Tag
{
    std::string_view opening, closing;
};
inline constexpr Tag headTag{"<HEAD>", "</HEAD>"};
inline constexpr Tag noticeTag{"<NOTICE>", "</NOTICE>"};
inline constexpr Tag tailTag{"<TAIL>", "</TAIL>"}; // written and never looked for
inline constexpr Tag coordTag{"<COORD>", "</COORD>"};
inline constexpr Tag coordinationTag{"<COORDINATION>", "</COORDINATION>"}; // read and never written
inline constexpr Tag antennaTag{"<ANTENNA>", "</ANTENNA>"};
inline constexpr Tag rotTag{"<ROTATIONAL>", "</ROTATIONAL>"};
inline constexpr Tag txStationTag{"<TX_STATION>", "</TX_STATION>"};
inline constexpr Tag rxStationTag{"<RX_STATION>", "</RX_STATION>"};
inline constexpr Tag pointTag{"<POINT>", "</POINT>"};

inline constexpr std::string_view multipoint = "MULTIPOINT";
inline constexpr std::string_view transmittingStations = "T13"; // the type whose own station receives

} // namespace keyTables
