#pragma once

#include "dao/dao.h"

#include <cstdint>
#include <string>

// A notice of the working database, removed with all that hangs on it: the database has no cascades of its
// own. A failure of deleteNtc's own steps rolls everything back; a failure in any other routine here ends
// that routine alone, the notice is gone all the same, and what it left behind stays in its table. Each shows
// its message and marks the session.
namespace deleteNtcFromDB {

using DatabaseRef = dao::Ref<dao::Database>;
using WorkspaceRef = dao::Ref<dao::Workspace>;

// One transaction: all rows of the notice. Where it has no target, the session's currentTargetKey keeps the
// value of whatever was done before, and the target of that key goes.
void deleteNtc(std::int32_t key, const WorkspaceRef& workspace, const DatabaseRef& database);

void deleteTarget(std::int32_t targetKey, const DatabaseRef& database);
void deleteAntennas(std::int32_t key, const std::string& stationType, const DatabaseRef& database);
void deleteCallSigns(std::int32_t key, const DatabaseRef& database);
void deleteNatSrv(std::int32_t key, const DatabaseRef& database);
void deleteOpAgcy(std::int32_t key, const DatabaseRef& database);
void deleteCoord(std::int32_t key, const DatabaseRef& database);
// Both: the first row alone.
void deleteRmks(std::int32_t key, const DatabaseRef& database);
void deletePubHist(std::int32_t key, const DatabaseRef& database);

} // namespace deleteNtcFromDB
