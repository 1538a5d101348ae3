#pragma once

#include "dao/dao.h"
#include "model/Ntc.h"

#include <cstdint>
#include <string>

// The notice record over a notice of the working database. The notice's own row, its site and its target are
// edited in place and keep their keys; all its other rows are deleted and inserted again under the session's
// current keys. A failure of updateNtc's own steps rolls the notice back; a failure in any other routine here
// ends that routine alone, and the rest of the notice is stored. Each shows its message and marks the
// session; what the inserters of writeNtcToDB fail in only shows its message.
namespace updateNtcInDB {

using DatabaseRef = dao::Ref<dao::Database>;
using WorkspaceRef = dao::Ref<dao::Workspace>;

// One transaction: all rows of the notice, whose key is the session's current one. The record gets the user's
// name and today's date.
void updateNtc(std::int32_t key, Ntc& ntc, const WorkspaceRef& workspace, const DatabaseRef& database);

// The points are inserted under the session's currentGeoKey.
void updateGeo(std::int32_t geoKey, const NtcGeo& geo, const DatabaseRef& database);
// Adds the row, edits it, or deletes it when the record has no target.
void updateTarget(std::int32_t targetKey, const Ntc& ntc, const DatabaseRef& database);
void updateRmks(std::int32_t key, const Ntc& ntc, const DatabaseRef& database);
void updateCallSigns(std::int32_t key, const Ntc& ntc, const DatabaseRef& database);
void updateNatSrv(std::int32_t key, const Ntc& ntc, const DatabaseRef& database);
void updateOpAgcy(std::int32_t key, const Ntc& ntc, const DatabaseRef& database);
void updateCoord(std::int32_t key, const NtcCoord& coord, const DatabaseRef& database);
void updateAntennas(std::int32_t key, const std::string& stationType, const Ntc& ntc,
                    const DatabaseRef& database);

// The antennas of a notice with all that hangs on them. A failure of its own steps is thrown: it is a part of
// updating and of deleting the antennas.
void removeAntennas(std::int32_t key, const std::string& stationType, const DatabaseRef& database);
// The stations of an antenna with their sites: those of kvr_tx when the station type is "RX", otherwise those
// of kvr_rx.
void deleteRxTx(std::int32_t key, std::int16_t antennaNumber, const std::string& stationType,
                const DatabaseRef& database);
void deleteRot(std::int32_t key, std::int16_t antennaNumber, const DatabaseRef& database);
// A site and its points, which stay when the site has no row.
void deleteGeo(std::int32_t geoKey, const DatabaseRef& database);

} // namespace updateNtcInDB
