#pragma once

#include "bareNotice.h"

#include <bit>

// Which key of a notice file goes to which column: the tables of the floor's tokenizer.
namespace bare {

enum class Kind : std::uint8_t
{
    Velda,
    VeldaUpper,
    VeldaTime,
    NoticeType,
    Target,
    TargetUpper,
    TargetTime,
    TargetLong,
    TargetLat,
    Site,
    SiteUpper,
    Long,
    Lat,
    SiteAlt,
    CallSign,
    NatSrv,
    OpAgcy,
    Remarks,
    NoiseTemp,
    Antenna,
};

struct Rule
{
    Text key;
    Kind kind;
    std::uint8_t column = 0;
};

inline constexpr std::array noticeRules = {
    Rule{"t_notice_type", Kind::NoticeType},
    Rule{"t_action", Kind::VeldaUpper, intent},
    Rule{"t_fragment", Kind::Velda, fragment},
    Rule{"t_addr_code", Kind::Velda, addrCode},
    Rule{"t_freq_assgn", Kind::Velda, freqAssgn},
    Rule{"t_op_hh_fr", Kind::VeldaTime, opHhFr},
    Rule{"t_op_hh_to", Kind::VeldaTime, opHhTo},
    Rule{"t_stn_cls", Kind::VeldaUpper, stnCls},
    Rule{"t_op_cls", Kind::VeldaUpper, opCls},
    Rule{"t_emi_cls", Kind::Velda, emiCls},
    Rule{"t_bdwdth_cde", Kind::Velda, bdwdthCde},
    Rule{"t_freq_carr", Kind::Velda, freqCarr},
    Rule{"t_d_inuse", Kind::Velda, dInuse},
    Rule{"t_d_adm_ntc", Kind::Velda, dAdmNtc},
    Rule{"t_station_id", Kind::Velda, stnId},
    Rule{"t_adm_ref_id", Kind::Velda, admRefId},
    Rule{"t_is_resub", Kind::VeldaUpper, isResub},
    Rule{"t_band_pref", Kind::Velda, bandPref},
    Rule{"t_freq_dev", Kind::Velda, freqDev},
    Rule{"t_energy_dsp", Kind::Velda, energyDsp},
    Rule{"t_prov", Kind::Velda, prov},
    Rule{"t_geo_type", Kind::SiteUpper, geoType},
    Rule{"t_site_name", Kind::SiteUpper, siteName},
    Rule{"t_ctry", Kind::Site, ctry},
    Rule{"t_radius", Kind::Site, radius},
    Rule{"t_zone_id", Kind::Site, zoneId},
    Rule{"t_long", Kind::Long},
    Rule{"t_lat", Kind::Lat},
    Rule{"t_site_alt", Kind::SiteAlt},
    Rule{"t_trg_freq_assgn", Kind::Target, trgFreqAssgn},
    Rule{"t_trg_stn_cls", Kind::TargetUpper, trgStnCls},
    Rule{"t_trg_bdwdth_cde", Kind::Target, trgBdwdthCde},
    Rule{"t_trg_emi_cls", Kind::Target, trgEmiCls},
    Rule{"t_trg_op_hh_fr", Kind::TargetTime, trgOpHhFr},
    Rule{"t_trg_op_hh_to", Kind::TargetTime, trgOpHhTo},
    Rule{"t_trg_op_cls", Kind::TargetUpper, trgOpCls},
    Rule{"t_trg_zone_id", Kind::Target, trgZoneId},
    Rule{"t_trg_geo_type", Kind::TargetUpper, trgGeoType},
    Rule{"t_trg_long", Kind::TargetLong},
    Rule{"t_trg_lat", Kind::TargetLat},
    Rule{"t_trg_adm_ref_id", Kind::Target, trgAdmRefId},
    Rule{"t_nat_srv", Kind::NatSrv},
    Rule{"t_call_sign", Kind::CallSign},
    Rule{"t_op_agcy", Kind::OpAgcy},
    Rule{"t_remarks", Kind::Remarks},
};

inline constexpr std::array stationRules = {
    Rule{"t_nois_tmp", Kind::NoiseTemp},
    Rule{"t_geo_type", Kind::SiteUpper, geoType},
    Rule{"t_site_name", Kind::SiteUpper, siteName},
    Rule{"t_ctry", Kind::Site, ctry},
    Rule{"t_radius", Kind::Site, radius},
    Rule{"t_zone_id", Kind::Site, zoneId},
    Rule{"t_long", Kind::Long},
    Rule{"t_lat", Kind::Lat},
};

inline constexpr std::array antennaRules = {
    Rule{"t_pwr_xyz", Kind::Antenna, 0},   Rule{"t_pwr_ant", Kind::Antenna, 1},
    Rule{"t_pwr_dbw", Kind::Antenna, 2},   Rule{"t_pwr_eiv", Kind::Antenna, 3},
    Rule{"t_ant_dir", Kind::Antenna, 4},   Rule{"t_azm_max_e", Kind::Antenna, 5},
    Rule{"t_gain_max", Kind::Antenna, 6},  Rule{"t_gain_type", Kind::Antenna, 7},
    Rule{"t_bmwdth", Kind::Antenna, 8},    Rule{"t_ant_ref", Kind::Antenna, 9},
    Rule{"t_elev", Kind::Antenna, 10},     Rule{"t_polar", Kind::Antenna, 11},
    Rule{"t_hgt_agl", Kind::Antenna, 12},  Rule{"t_dist_max", Kind::Antenna, 13},
    Rule{"t_pwr_dens", Kind::Antenna, 14},
};

constexpr std::uint32_t hashOf(Text key)
{
    std::uint32_t hash = 2166136261U;
    for (const char letter : key)
        hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
    return hash ^ (hash >> 15U);
}

// Finds a rule by its key.
template <std::size_t N>
class Rules
{
public:
    explicit constexpr Rules(const std::array<Rule, N>& rules) : m_rules(&rules)
    {
        for (std::size_t rule = 0; rule < N; ++rule) {
            auto slot = hashOf(rules[rule].key) % slots;
            while (m_places[slot] != 0)
                slot = (slot + 1) % slots;
            m_places[slot] = static_cast<std::uint8_t>(rule + 1);
        }
    }

    [[nodiscard]] const Rule* find(Text key) const
    {
        for (auto slot = hashOf(key) % slots; m_places[slot] != 0; slot = (slot + 1) % slots) {
            const auto& rule = (*m_rules)[m_places[slot] - 1U];
            if (rule.key == key)
                return &rule;
        }
        return nullptr;
    }

private:
    static constexpr std::size_t slots = std::bit_ceil(4 * N);
    const std::array<Rule, N>* m_rules;
    std::array<std::uint8_t, slots> m_places{};
};

inline constexpr Rules noticeIndex(noticeRules);
inline constexpr Rules stationIndex(stationRules);
inline constexpr Rules antennaIndex(antennaRules);

} // namespace bare
