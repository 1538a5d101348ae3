#pragma once

#include "model/Ntc.h"

#include <cstdint>
#include <string>
#include <string_view>

// One notice as the text of an electronic notice file. Each routine gives whole lines, each ended by CR LF,
// and leaves out what is empty or not present.
namespace writeOneNtcElect {

[[nodiscard]] std::string
timeToFile(std::string_view time); // HHMM to "hh:mm", empty for any other length than 1 to 4
// "dd.mm.yyyy" to "yyyy-mm-dd". Throws RuntimeError 5 without two dots.
[[nodiscard]] std::string dateToFile(std::string_view date);
// Sign, degrees, minutes, seconds; empty without any digits.
[[nodiscard]] std::string longToFile(std::string_view ew, std::string_view deg, std::string_view min,
                                     std::string_view sec);
[[nodiscard]] std::string latToFile(std::string_view ns, std::string_view deg, std::string_view min,
                                    std::string_view sec);

[[nodiscard]] std::string headBlock(const Ntc& ntc);
[[nodiscard]] std::string tailBlock(std::int16_t count);
[[nodiscard]] std::string noticeBlock(const Ntc& ntc);
[[nodiscard]] std::string targetBlock(const NtcTarget& target);
[[nodiscard]] std::string siteBlock(const NtcGeo& geo);
[[nodiscard]] std::string natSrvLines(const Ntc& ntc);
[[nodiscard]] std::string callSignLines(const Ntc& ntc);
[[nodiscard]] std::string opAgcyLines(const Ntc& ntc);
[[nodiscard]] std::string coordBlock(const NtcCoord& coord);
[[nodiscard]] std::string antennaBlock(const NtcAntenna& antenna, std::string_view noticeType);
[[nodiscard]] std::string rxStationBlock(const NtcRx& rx);
[[nodiscard]] std::string txStationBlock(const NtcRx& rx);
[[nodiscard]] std::string pointBlocks(const NtcGeo& geo);

} // namespace writeOneNtcElect
