#pragma once

#include "model/Ntc.h"
#include "screens/screenType.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

// Which member of the record stands in which control. Filling and reading walk the same rows, so that no
// field is forgotten in one direction. Controls are named without the index of an array.
namespace screens::fields {

inline constexpr ScreenSet withCallSign = onT11 | onT12;
inline constexpr ScreenSet withSite = onT11 | onT12 | onT13;
inline constexpr ScreenSet withRotation = onT11 | onT12;

// Text that stands as the record holds it.
template <class Record>
struct TextRow
{
    const char* control = nullptr;
    std::string Record::*member = nullptr;
    ScreenSet screens = onAll;
};

// A value of the notice and the same value of the assignment that the notice acts on. Both are frequencies
// where units are named. `fallsBack`: an empty target takes the notice's value.
template <class Record>
struct PairRow
{
    const char* control = nullptr;
    std::string Record::*member = nullptr;
    const char* target = nullptr;
    std::string NtcTarget::*targetMember = nullptr;
    ScreenSet screens = onAll;
    const char* unit = nullptr;
    const char* targetUnit = nullptr;
    bool fallsBack = true;
};

// Text in MHz, shown with the unit in a control of its own.
struct FrequencyRow
{
    const char* control = nullptr;
    const char* unit = nullptr;
    std::string Ntc::*member = nullptr;
};

// A date in three controls.
struct DateRow
{
    const char* day = nullptr;
    const char* month = nullptr;
    const char* year = nullptr;
    std::string Ntc::*member = nullptr;
};

// The entries of a multi-value box in the slots of an array.
struct ListRow
{
    const char* control = nullptr;
    std::array<std::string, 6> Ntc::*member = nullptr;
    ScreenSet screens = onAll;
};

// An option button and the word that it stands for.
struct OptionRow
{
    const char* control = nullptr;
    const char* word = nullptr;
    ScreenSet screens = onAll;
};

// An option of the provision: the values that select it, of which an empty one selects nothing, and those
// that it stores.
struct ProvisionRow
{
    ScreenSet screens = onAll;
    const char* control = nullptr;
    std::array<std::string_view, 2> shownFragments;
    std::array<std::string_view, 2> shownProvisions;
    const char* fragment = nullptr;
    const char* provision = nullptr;
};

// The part of a name that a field of a position has on every row of points and in the circle.
struct PositionRow
{
    const char* name = nullptr;
    std::string NtcGeoPt::*member = nullptr;
};

// clang-format off
inline constexpr std::array<OptionRow, 4> intents = {{
    {"Int_Add",   "ADD"},
    {"Int_Mod",   "MODIFY"},
    {"Int_Sup",   "SUPPRESS"},
    {"Int_Wdraw", "WITHDRAW"},
}};

inline constexpr std::array<OptionRow, 2> resubmissions = {{
    {"FirstNtf", "FALSE"},
    {"Re_Sub",   "TRUE", withSite},
}};

// The first row that fits is the one that is shown, or stored. A T13 notice is shown by the older words alone,
// although the newer ones are what is stored.
inline constexpr std::array<ProvisionRow, 6> provisions = {{
    {onT11 | onT12, "Prov1", {"NTFD_RR"},            {"S11.2", "RR11.2"}, "NTFD_RR",  "RR11.2"},
    {onT11 | onT12, "Prov2", {"Req_agrt", "RR9.21"}, {"S9.21"},           "Req_agrt", "RR9.21"},
    {onT12,         "prov4", {"GE85N"},              {"GE85N"},           "GE85N",    "GE85N"},
    {onT13,         "Prov1", {"NTFD_RR"},            {"S11.9"},           "NTFD_RR",  "RR11.9"},
    {onT13,         "Prov2", {"Req_agrt"},           {"S9.21"},           "Req_agrt", "RR9.21"},
    {onT14,         "Prov1", {"NTFD_RR"},            {"S11.17"},          "NTFD_RR",  "RR11.17"},
}};

inline constexpr std::array<TextRow<Ntc>, 5> noticeTexts = {{
    {"nAdm",     &Ntc::adm},
    {"freqDev",  &Ntc::freq_dev,   onT11},
    {"engDisp",  &Ntc::energy_dsp, onT11},
    {"stateID",  &Ntc::stn_id,     withCallSign},
    {"addr_cde", &Ntc::addr_code},
}};

inline constexpr std::array<PairRow<Ntc>, 8> assignmentPairs = {{
    {"admRefID", &Ntc::adm_ref_id, "trgadmRefID", &NtcTarget::trg_adm_ref_id, onAll, nullptr, nullptr, false},
    {"freq",     &Ntc::freq_assgn, "trgFreq",     &NtcTarget::trg_freq_assgn, onAll, "Units1", "Unit"},
    {"stnCls",   &Ntc::stn_cls,    "trgStnCls",   &NtcTarget::trg_stn_cls},
    {"emi",      &Ntc::emi_cls,    "trgEmi",      &NtcTarget::trg_emi_cls},
    {"bdwdth",   &Ntc::bdwdth_cde, "trgBdwdth",   &NtcTarget::trg_bdwdth_cde},
    {"clsOp",    &Ntc::op_cls,     "trgOpCls",    &NtcTarget::trg_op_cls,     onT11},
    {"ophhFr",   &Ntc::op_hh_fr,   "trgOphhFr",   &NtcTarget::trg_op_hh_fr},
    {"ophhTo",   &Ntc::op_hh_to,   "trgOphhTo",   &NtcTarget::trg_op_hh_to},
}};

inline constexpr std::array<PairRow<NtcGeoPt>, 8> positionPairs = {{
    {"deg",  &NtcGeoPt::long_deg, "trgDeg",  &NtcTarget::trg_long_deg},
    {"min",  &NtcGeoPt::long_min, "trgMin",  &NtcTarget::trg_long_min},
    {"sec",  &NtcGeoPt::long_sec, "trgsec",  &NtcTarget::trg_long_sec},
    {"EW1",  &NtcGeoPt::long_ew,  "EW",      &NtcTarget::trg_long_ew},
    {"Ldeg", &NtcGeoPt::lat_deg,  "trgLdeg", &NtcTarget::trg_lat_deg},
    {"LMin", &NtcGeoPt::lat_min,  "trgLMin", &NtcTarget::trg_lat_min},
    {"Lsec", &NtcGeoPt::lat_sec,  "trgLsec", &NtcTarget::trg_lat_sec},
    {"NS1",  &NtcGeoPt::lat_ns,   "NS",      &NtcTarget::trg_lat_ns},
}};

inline constexpr std::array<PairRow<NtcGeo>, 1> zonePairs = {{
    {"zoneID", &NtcGeo::zone_id, "trgZoneID", &NtcTarget::trg_zone_id, onT14},
}};

inline constexpr std::array<TextRow<NtcGeo>, 3> siteTexts = {{
    {"siteName", &NtcGeo::site_name, withSite},
    {"ctry",     &NtcGeo::ctry,      withSite},
    {"radius",   &NtcGeo::radius,    onT14},
}};

inline constexpr std::array<TextRow<NtcGeoPt>, 1> sitePointTexts = {{
    {"st_Alt", &NtcGeoPt::site_alt, onT11 | onT12},
}};

inline constexpr std::array<FrequencyRow, 1> frequencies = {{
    {"freqCarr", "Units2", &Ntc::freq_carr},
}};

inline constexpr std::array<DateRow, 2> dates = {{
    {"dNtcDD", "dNtcMM", "dNtcYY", &Ntc::d_adm_ntc},
    {"dUseDD", "dUseMM", "dUseYY", &Ntc::d_inuse},
}};

inline constexpr std::array<ListRow, 3> lists = {{
    {"natsrv",   &Ntc::nat_srv,   onAll},
    {"callSign", &Ntc::call_sign, withCallSign},
    {"opAgcy",   &Ntc::op_agcy,   onAll},
}};

inline constexpr std::array<TextRow<NtcAntenna>, 15> antennaTexts = {{
    {"pwrtype",  &NtcAntenna::pwr_xyz},
    {"pwrant",   &NtcAntenna::pwr_ant},
    {"radiated", &NtcAntenna::pwr_dbw},
    {"pwr_eiv",  &NtcAntenna::pwr_eiv},
    {"pwrDens",  &NtcAntenna::pwr_dens,  onT11},
    {"antDir",   &NtcAntenna::ant_dir,   withRotation},
    {"azmMax",   &NtcAntenna::azm_max_e, withRotation},
    {"beamwdth", &NtcAntenna::bmwdth,    withRotation},
    {"gainType", &NtcAntenna::gain_type, withRotation | onT14},
    {"gainMax",  &NtcAntenna::gain_max,  withRotation | onT14},
    {"antRef",   &NtcAntenna::ant_ref,   withRotation},
    {"elev",     &NtcAntenna::elev,      withRotation},
    {"polar",    &NtcAntenna::polar,     onT11},
    {"hgtAgl",   &NtcAntenna::hgt_agl,   withRotation},
    {"distMax",  &NtcAntenna::dist_max,  withRotation},
}};

inline constexpr std::array<OptionRow, 2> stationOptions = {{
    {"Rpoint",  "POINT",      onT11},
    {"multipt", "MULTIPOINT", onT11},
}};

inline constexpr std::array<OptionRow, 4> areaOptions = {{
    {"multipt", "MULTIPOINT", onT12},
    {"Rcircle", "CIRCLE",     onT12},
    {"Tcircle", "CIRCLE",     onT13},
    {"zone",    "ZONE",       onT12 | onT13},
}};

inline constexpr std::array<PositionRow, 8> positions = {{
    {"Deg",  &NtcGeoPt::long_deg},
    {"Min",  &NtcGeoPt::long_min},
    {"sec",  &NtcGeoPt::long_sec},
    {"EW",   &NtcGeoPt::long_ew},
    {"Ldeg", &NtcGeoPt::lat_deg},
    {"LMin", &NtcGeoPt::lat_min},
    {"Lsec", &NtcGeoPt::lat_sec},
    {"NS",   &NtcGeoPt::lat_ns},
}};
// clang-format on

inline constexpr int coordinationBoxes = 13; // on the screen
inline constexpr int coordinationsKept = 10; // of them stored
inline constexpr int zoneBoxes = 24;         // on the screen
inline constexpr int zonesKept = 15;         // of them stored: stations of the record
inline constexpr int pointRows = 6;
static_assert(coordinationsKept <= std::tuple_size_v<decltype(NtcCoord::adm)>);
static_assert(pointRows == decltype(NtcGeo::pt)::size() && pointRows <= decltype(NtcAntenna::rx)::size());

// "cAdm1", "Rzone1", "RDeg1", "RCDeg", numbered from 1.
[[nodiscard]] std::string coordinationControl(int number);
[[nodiscard]] std::string zoneControl(int number);
[[nodiscard]] std::string pointControl(const PositionRow& row, int number);
[[nodiscard]] std::string circleControl(const PositionRow& row);
// "noisTmp1", "Rsite1", "Rctry1".
[[nodiscard]] std::string noiseControl(int number);
[[nodiscard]] std::string siteControl(int number);
[[nodiscard]] std::string countryControl(int number);

// The names of all controls of a kind that the screen has.
[[nodiscard]] std::vector<std::string> noticeControls(ScreenType type);
[[nodiscard]] std::vector<std::string> targetControls(ScreenType type);
[[nodiscard]] std::vector<std::string> antennaControls(ScreenType type);

// Those that no notice keeps.
[[nodiscard]] std::vector<std::string> controlsNotStored(ScreenType type);

[[nodiscard]] std::vector<std::string> pointRowControls();
[[nodiscard]] std::vector<std::string> zoneControls();
[[nodiscard]] std::vector<std::string> circleControls();
// Site names and countries of all rows, noise temperatures from the second row on: what stations that are
// points of one area have not.
[[nodiscard]] std::vector<std::string> stationOnlyControls();

} // namespace screens::fields
