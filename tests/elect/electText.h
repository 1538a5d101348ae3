#pragma once

#include "elect/noticeLoop.h"
#include "platform/runtimeError.h"
#include "support/failures.h"
#include "support/temporaryFolder.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

// What the tests of the electronic notice files share: texts as files, and the keys with their members.
namespace electText {

inline std::string lines(std::initializer_list<std::string> items)
{
    std::string text;
    for (const auto& item : items)
        text += item + "\r\n";
    return text;
}

inline std::string repeated(int times, const std::string& text)
{
    std::string all;
    for (int time = 0; time < times; ++time)
        all += text;
    return all;
}

inline std::string inSection(const std::string& name, const std::string& text)
{
    return "<" + name + ">\r\n" + text + "</" + name + ">\r\n";
}

// A text of ANSI bytes as file number 1, open for input.
class OpenText
{
public:
    explicit OpenText(const std::string& bytes)
    {
        platform::closeFile(1);
        platform::openForInput(1, m_folder.write("notices.txt", bytes));
    }
    ~OpenText() { platform::closeFile(1); }
    OpenText(const OpenText&) = delete;
    OpenText& operator=(const OpenText&) = delete;

private:
    TemporaryFolder m_folder;
};

// What a whole file gave: its notices up to the end or up to the failure that stopped it.
struct Outcome
{
    std::vector<std::unique_ptr<Ntc>> notices;
    int failure = 0;
    std::string lastAdm;

    [[nodiscard]] const Ntc& notice(std::size_t number) const { return *notices.at(number); }
};

inline Outcome readFile(const std::string& bytes)
{
    Outcome outcome;
    const OpenText file(bytes);
    const auto ntc = std::make_unique<Ntc>();
    outcome.failure = failureOf([&] {
        walkNotices(*ntc, [&](const Ntc& read) { outcome.notices.push_back(std::make_unique<Ntc>(read)); });
    });
    outcome.lastAdm = ntc->adm;
    return outcome;
}

// The notice of the lines between its tags. Throws what the reader throws.
inline Ntc readNotice(const std::string& text)
{
    const OpenText file(text + "</NOTICE>\r\n");
    Ntc ntc;
    readFromFileToNtc::advance();
    readFromFileToNtc::readNtcFromFile(ntc);
    return ntc;
}

inline int failureOfNotice(const std::string& text)
{
    return failureOf([&] { readNotice(text); });
}

enum class Section
{
    Notice,
    Antenna,
    Rot,
    Station,
    Coord,
};

// The text put into its section, as lines of a notice.
inline std::string wrapped(Section section, const std::string& text)
{
    switch (section) {
    case Section::Antenna:
        return inSection("ANTENNA", text);
    case Section::Rot:
        return inSection("ANTENNA", inSection("ROTATIONAL", text));
    case Section::Station:
        return inSection("ANTENNA", inSection("RX_STATION", text));
    case Section::Coord:
        return inSection("COORD", text);
    case Section::Notice:
        break;
    }
    return text;
}

// A key with one member: the value as a file gives it, as the record holds it, and as it is written; nothing
// written for null.
struct KeyCase
{
    const char* key;
    Section section;
    const std::string& (*member)(const Ntc&);
    const char* given;
    const char* held;
    const char* written;
};

// clang-format off
#define MEMBER(path) [](const Ntc& n) -> const std::string& { return n.path; }
inline const std::vector<KeyCase> keyCases{
    {"t_notice_type",    Section::Notice,  MEMBER(notice_typ),             "t12", "T12", "T12"},
    {"t_fragment",       Section::Notice,  MEMBER(fragment),               "ntFd", "ntFd", "ntFd"},
    {"t_addr_code",      Section::Notice,  MEMBER(addr_code),              "a1", "a1", "a1"},
    {"t_freq_assgn",     Section::Notice,  MEMBER(freq_assgn),             "0.5", "0.5", "0.5"},
    {"t_op_hh_fr",       Section::Notice,  MEMBER(op_hh_fr),               "06:30", "0630", "06:30"},
    {"t_op_hh_to",       Section::Notice,  MEMBER(op_hh_to),               "18:45", "1845", "18:45"},
    {"t_stn_cls",        Section::Notice,  MEMBER(stn_cls),                "fx", "FX", "FX"},
    {"t_op_cls",         Section::Notice,  MEMBER(op_cls),                 "a", "A", "A"},
    {"t_emi_cls",        Section::Notice,  MEMBER(emi_cls),                "f3e--", "f3e--", "f3e--"},
    {"t_bdwdth_cde",     Section::Notice,  MEMBER(bdwdth_cde),             "16k0", "16k0", "16k0"},
    {"t_freq_carr",      Section::Notice,  MEMBER(freq_carr),              "5.1", "5.1", "5.1"},
    {"t_d_inuse",        Section::Notice,  MEMBER(d_inuse),                "2003-05-01", "2003-05-01", "2003-05-01"},
    {"t_d_adm_ntc",      Section::Notice,  MEMBER(d_adm_ntc),              "1999-12-31", "1999-12-31", "1999-12-31"},
    {"t_station_id",     Section::Notice,  MEMBER(stn_id),                 "id x", "id x", "id x"},
    {"t_adm_ref_id",     Section::Notice,  MEMBER(adm_ref_id),             "r7", "r7", "r7"},
    {"t_is_resub",       Section::Notice,  MEMBER(is_resub),               "true", "TRUE", "TRUE"},
    {"t_band_pref",      Section::Notice,  MEMBER(band_pref),              "b", "b", "b"},
    {"t_freq_dev",       Section::Notice,  MEMBER(freq_dev),               "2.5", "2.5", "2.5"},
    {"t_energy_dsp",     Section::Notice,  MEMBER(energy_dsp),             "4", "4", "4"},
    {"t_prov",           Section::Notice,  MEMBER(prov),                   "rr11", "rr11", "rr11"},
    {"t_nat_srv",        Section::Notice,  MEMBER(nat_srv[0]),             "cp", "cp", "cp"},
    {"t_call_sign",      Section::Notice,  MEMBER(call_sign[0]),           "foxtrot", "foxtrot", "foxtrot"},
    {"t_op_agcy",        Section::Notice,  MEMBER(op_agcy[0]),             "7", "007", "007"},
    {"t_geo_type",       Section::Notice,  MEMBER(geo.geo_type),           "point", "POINT", "POINT"},
    {"t_site_name",      Section::Notice,  MEMBER(geo.site_name),          "Paris", "PARIS", "PARIS"},
    {"t_ctry",           Section::Notice,  MEMBER(geo.ctry),               "f", "f", "f"},
    {"t_radius",         Section::Notice,  MEMBER(geo.radius),             "30", "30", "30"},
    {"t_zone_id",        Section::Notice,  MEMBER(geo.zone_id),            "ax", "ax", "ax"},
    {"t_site_alt",       Section::Notice,  MEMBER(geo.pt.at(0).site_alt),  "120", "120", "120"},
    {"t_trg_freq_assgn", Section::Notice,  MEMBER(target.trg_freq_assgn),  "0.7", "0.7", "0.7"},
    {"t_trg_stn_cls",    Section::Notice,  MEMBER(target.trg_stn_cls),     "fb", "FB", "FB"},
    {"t_trg_bdwdth_cde", Section::Notice,  MEMBER(target.trg_bdwdth_cde),  "8k", "8k", "8k"},
    {"t_trg_emi_cls",    Section::Notice,  MEMBER(target.trg_emi_cls),     "a3e", "a3e", "a3e"},
    {"t_trg_op_hh_fr",   Section::Notice,  MEMBER(target.trg_op_hh_fr),    "01:02", "0102", "01:02"},
    {"t_trg_op_hh_to",   Section::Notice,  MEMBER(target.trg_op_hh_to),    "03:04", "0304", "03:04"},
    {"t_trg_op_cls",     Section::Notice,  MEMBER(target.trg_op_cls),      "c", "C", "C"},
    {"t_trg_zone_id",    Section::Notice,  MEMBER(target.trg_zone_id),     "zz", "zz", nullptr},
    {"t_trg_geo_type",   Section::Notice,  MEMBER(target.trg_geo_type),    "zone", "ZONE", "ZONE"},
    {"t_trg_adm_ref_id", Section::Notice,  MEMBER(target.trg_adm_ref_id),  "old", "old", "old"},
    {"t_coord_prov",     Section::Coord,   MEMBER(coord.coord_prov),       "rr1610", "rr1610", nullptr},
    {"t_adm",            Section::Coord,   MEMBER(coord.adm[0]),           "d", "d", "d"},
    {"t_pwr_xyz",        Section::Antenna, MEMBER(antenna.at(0).pwr_xyz),  "x", "x", "x"},
    {"t_pwr_ant",        Section::Antenna, MEMBER(antenna.at(0).pwr_ant),  "1.5", "1.5", "1.5"},
    {"t_pwr_dbw",        Section::Antenna, MEMBER(antenna.at(0).pwr_dbw),  "-3", "-3", "-3"},
    {"t_pwr_eiv",        Section::Antenna, MEMBER(antenna.at(0).pwr_eiv),  "e", "e", "e"},
    {"t_pwr_dens",       Section::Antenna, MEMBER(antenna.at(0).pwr_dens), "-60", "-60", "-60"},
    {"t_ant_dir",        Section::Antenna, MEMBER(antenna.at(0).ant_dir),  "nd", "nd", "nd"},
    {"t_azm_max_e",      Section::Antenna, MEMBER(antenna.at(0).azm_max_e), "270", "270", "270"},
    {"t_bmwdth",         Section::Antenna, MEMBER(antenna.at(0).bmwdth),   "15", "15", "15"},
    {"t_gain_type",      Section::Antenna, MEMBER(antenna.at(0).gain_type), "i", "i", "i"},
    {"t_gain_max",       Section::Antenna, MEMBER(antenna.at(0).gain_max), "12", "12", "12"},
    {"t_ant_ref",        Section::Antenna, MEMBER(antenna.at(0).ant_ref),  "ref", "ref", "ref"},
    {"t_elev",           Section::Antenna, MEMBER(antenna.at(0).elev),     "3", "3", "3"},
    {"t_polar",          Section::Antenna, MEMBER(antenna.at(0).polar),    "v", "v", "v"},
    {"t_hgt_agl",        Section::Antenna, MEMBER(antenna.at(0).hgt_agl),  "40", "40", "40"},
    {"t_dist_max",       Section::Antenna, MEMBER(antenna.at(0).dist_max), "500", "500", "500"},
    {"t_azm_fr",         Section::Rot,     MEMBER(antenna.at(0).rot.at(0).azm_fr), "10", "10", "10"},
    {"t_azm_to",         Section::Rot,     MEMBER(antenna.at(0).rot.at(0).azm_to), "20", "20", "20"},
    {"t_nois_tmp",       Section::Station, MEMBER(antenna.at(0).rx.at(0).noise_temp), "290", "290", "290"},
    {"t_geo_type",       Section::Station, MEMBER(antenna.at(0).rx.at(0).geo.geo_type), "circle", "CIRCLE", "CIRCLE"},
    {"t_site_name",      Section::Station, MEMBER(antenna.at(0).rx.at(0).geo.site_name), "Lyon", "LYON", "LYON"},
    {"t_ctry",           Section::Station, MEMBER(antenna.at(0).rx.at(0).geo.ctry), "sui", "sui", "sui"},
    {"t_radius",         Section::Station, MEMBER(antenna.at(0).rx.at(0).geo.radius), "9", "9", "9"},
    {"t_zone_id",        Section::Station, MEMBER(antenna.at(0).rx.at(0).geo.zone_id), "q", "q", "q"},
};
#undef MEMBER
// clang-format on

} // namespace electText
