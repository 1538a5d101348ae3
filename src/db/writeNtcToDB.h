#pragma once

#include "dao/dao.h"
#include "model/Ntc.h"

#include <cstdint>

// The notice record into the working database as a new notice. All rows hang on the session's current keys. A
// failure of insertNtc's own steps rolls the notice back and marks the session; a failure in any other
// routine here shows the message, ends that routine alone, and the rest of the notice is stored.
namespace writeNtcToDB {

using DatabaseRef = dao::Ref<dao::Database>;
using WorkspaceRef = dao::Ref<dao::Workspace>;

// What the stations of an antenna are: "TX" go to kvr_tx, "RX" to kvr_rx.
enum class StationKind : std::uint8_t
{
    TX,
    RX
};

// One transaction: all rows of the notice.
void insertNtc(const Ntc& ntc, const WorkspaceRef& workspace, const DatabaseRef& database);

// The next free key of kvr_keys into the session value of its kind, which a failure leaves as it was.
void drawVeldaKey(const DatabaseRef& database);
void drawGeoKey(const DatabaseRef& database);
void drawTargetKey(const DatabaseRef& database);

void insertTarget(const Ntc& ntc, const DatabaseRef& database);
// The row of insertTarget into rows of kvr_target. A failure is thrown.
void addTarget(const dao::Ref<dao::Recordset>& rows, const NtcTarget& target);
void insertGeo(const NtcGeo& geo, const DatabaseRef& database);
void insertGeoPts(const NtcGeo& geo, const DatabaseRef& database);
void insertCoord(const NtcCoord& coord, const DatabaseRef& database);
void insertRmks(const Ntc& ntc, const DatabaseRef& database);
void insertCallSigns(const Ntc& ntc, const DatabaseRef& database);
void insertNatSrv(const Ntc& ntc, const DatabaseRef& database);
void insertOpAgcy(const Ntc& ntc, const DatabaseRef& database);
// The number is that of the slot, from 1.
void insertAntenna(std::int16_t antennaNumber, const NtcAntenna& antenna, StationKind kind,
                   const DatabaseRef& database);
// insertAntenna for each slot that is present.
void insertAntennas(const Ntc& ntc, StationKind kind, const DatabaseRef& database);

} // namespace writeNtcToDB
