#include "load/targetValues.h"

#include "platform/numberText.h"

namespace targetValues {

namespace {

std::int32_t wholeNumber(const std::string& text)
{
    return platform::roundToLong(platform::readNumber(text));
}

} // namespace

Assignment assignmentOf(const Ntc& ntc)
{
    return {ntc.adm,
            platform::readNumber(ntc.freq_assgn),
            ntc.stn_cls,
            ntc.emi_cls,
            ntc.bdwdth_cde,
            wholeNumber(ntc.op_hh_fr),
            wholeNumber(ntc.op_hh_to)};
}

Position positionOf(const NtcGeoPt& point)
{
    return {
        wholeNumber(point.long_deg), wholeNumber(point.long_min), wholeNumber(point.long_sec), point.long_ew,
        wholeNumber(point.lat_deg),  wholeNumber(point.lat_min),  wholeNumber(point.lat_sec),  point.lat_ns};
}

} // namespace targetValues
