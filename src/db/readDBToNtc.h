#pragma once

#include "dao/dao.h"
#include "model/Ntc.h"

#include <cstdint>
#include <string>
#include <string_view>

// One notice from the working database into the record, which the caller has emptied: a Null or a missing row
// leaves the record as it was. A failure sets session::dbStatus, shows the general message and ends the
// routine that it happened in.
namespace readDBToNtc {

using DatabaseRef = dao::Ref<dao::Database>;

// True when the notice exists.
bool readNtc(std::int32_t key, Ntc& ntc, const DatabaseRef& database);

void readGeo(std::int32_t geoKey, NtcGeo& geo, const DatabaseRef& database);
void readTarget(std::int32_t targetKey, Ntc& ntc, const DatabaseRef& database);
void readRmks(std::int32_t key, Ntc& ntc, const DatabaseRef& database);
void readAntennas(std::int32_t key, const std::string& stationType, Ntc& ntc, const DatabaseRef& database);
void readRot(std::int32_t key, std::int16_t antennaNumber, NtcAntenna& antenna, const DatabaseRef& database);
void readRx(std::int32_t key, std::int16_t antennaNumber, NtcAntenna& antenna, const DatabaseRef& database);
void readTx(std::int32_t key, std::int16_t antennaNumber, NtcAntenna& antenna, const DatabaseRef& database);
void readCallSigns(std::int32_t key, Ntc& ntc, const DatabaseRef& database);
void readNatSrv(std::int32_t key, Ntc& ntc, const DatabaseRef& database);
void readOpAgcy(std::int32_t key, Ntc& ntc, const DatabaseRef& database);
void readCoord(std::int32_t key, Ntc& ntc, const DatabaseRef& database);

// Zeros before a short text; an empty one stays.
[[nodiscard]] std::string padHHMM(std::string_view text);
[[nodiscard]] std::string padLongDeg(std::string_view text);
[[nodiscard]] std::string padLatDeg(std::string_view text);
[[nodiscard]] std::string padMinSec(std::string_view text);

} // namespace readDBToNtc
