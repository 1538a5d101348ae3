#pragma once

#include <optional>
#include <string>
#include <vector>

// The notices of an electronic notice file that end an assignment, with intent SUPPRESS or WITHDRAW, as the
// makers of sample data need them. A reading of its own for files as makeNotices writes them: what it says of
// a notice is what the program's answers are compared with.
namespace actingNotices {

// A part that the notice lacks is 0.
struct Position
{
    int longDeg = 0, longMin = 0, longSec = 0;
    std::string long_ew;
    int latDeg = 0, latMin = 0, latSec = 0;
    std::string lat_ns;
    bool operator==(const Position&) const = default;
};

struct ActingNotice
{
    int number = 0; // in the file, from 1
    bool withdraws = false;
    std::string type; // "T11" to "T14"
    std::string adm;  // of the head
    double frequency = 0;
    int hourFrom = 0, hourTo = 0; // HHMM
    std::string stn_cls, op_cls, emi_cls, bdwdth_cde;
    std::string zone_id; // empty: the position counts
    Position position;
};

// Throws std::runtime_error when the file can't be read, or for a number that is none.
[[nodiscard]] std::vector<ActingNotice> readFile(const std::string& path);

} // namespace actingNotices
