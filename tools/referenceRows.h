#pragma once

#include "tools/actingNotices.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace invention {
class Random;
}

// What a reference set holds: recorded assignments and pending notices, some of which answer the notices that
// end an assignment. Shares nothing with the program that looks for them, so that a slip of its look-up can't
// hide here.
namespace referenceRows {

using actingNotices::ActingNotice;

// In a row a text that is empty and a number that is unset are Null.
struct Point
{
    std::optional<int> longDeg, longMin, longSec;
    std::string long_ew;
    std::optional<int> latDeg, latMin, latSec;
    std::string lat_ns;
    std::string site_alt;
};

struct Assignment
{
    int veldakey = 0, geoKey = 0;
    std::string adm;
    std::optional<double> frequency; // MHz
    std::optional<int> hourFrom, hourTo;
    std::string stn_cls, op_cls, emi_cls, bdwdth_cde;
    std::string is_notice;
    std::string fragment, addr_code, freq_carr, d_inuse, d_adm_ntc, notice_typ, stn_id, stn_type, intent,
        prov, adm_ref_id, is_resub, band_pref, freq_dev, energy_dsp, src_update, d_updated, d_rcv;
    std::string geo_type, ctry, site_name, zone_id, radius;
    std::vector<Point> points; // six at most
};

// Whether an assignment is what a notice acts on.
[[nodiscard]] bool answers(const Assignment& assignment, const ActingNotice& notice);

struct Options
{
    int assignments = 0;
    std::uint64_t seed = 0;
    std::vector<ActingNotice> notices;
    bool eachOnce = false; // each notice is answered, and by one assignment
};

// What a notice finds.
struct Answer
{
    int count = 0;
    std::string site_name, ctry; // of the one
};

// Gives the assignments in the order of their keys, one at a time.
class Rows
{
public:
    // Throws std::runtime_error when the assignments are too few for the notices.
    explicit Rows(const Options& options);

    // The next one; false behind the last. It stays until the next call.
    [[nodiscard]] bool next();
    [[nodiscard]] const Assignment& current() const { return m_current; }

    // For each notice, as far as the assignments were given.
    [[nodiscard]] const std::vector<Answer>& expected() const { return m_expected; }

private:
    void planAnswers(std::size_t place, invention::Random& random);
    void planNearMisses(std::size_t place, invention::Random& random);
    [[nodiscard]] std::vector<std::size_t> answered(const Assignment& assignment) const;
    [[nodiscard]] bool isPlanned(int key) const;
    void drawCurrent(int key);

    Options m_options;
    std::unordered_multimap<double, std::size_t> m_byFrequency; // places of notices
    std::vector<Assignment> m_planned;
    std::vector<bool> m_isAnswered; // by what was planned so far
    std::size_t m_plannedGiven = 0;
    int m_given = 0;
    Assignment m_current;
    std::vector<Answer> m_expected;
};

} // namespace referenceRows
