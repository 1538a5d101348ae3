#pragma once

#include "model/Ntc.h"

#include <cstdint>
#include <string>

// What a notice is compared by when an assignment is looked for.
namespace targetValues {

// Strings as they stand in the record; frequency in MHz, hours as the number HHMM.
struct Assignment
{
    std::string adm;
    double frequency = 0;
    std::string stn_cls, emi_cls, bdwdth_cde;
    std::int32_t hourFrom = 0, hourTo = 0;
};

struct Position
{
    std::int32_t longDeg = 0, longMin = 0, longSec = 0;
    std::string long_ew;
    std::int32_t latDeg = 0, latMin = 0, latSec = 0;
    std::string lat_ns;
};

// Empty text gives 0, hours and parts of a position are rounded. Throw RuntimeError 6 for a number too large.
[[nodiscard]] Assignment assignmentOf(const Ntc& ntc);
[[nodiscard]] Position positionOf(const NtcGeoPt& point);

} // namespace targetValues
