#pragma once

#include "dao/dao.h"
#include "load/targetValues.h"

#include <string>

// The search for a stored notice that describes the same assignment as a new one. Each routine is true when
// there is one, whose key, the first in the order of insertion, then stands in session::currentVeldaKey.
// Comparison is strict equality, text without regard to case; Null is never equal. A failure is shown, and
// nothing found.
namespace findTarget {

using DatabaseRef = dao::Ref<dao::Database>;
using targetValues::Assignment;
using targetValues::Position;

bool findTargetByPoint(const Assignment& assignment, const Position& position, const DatabaseRef& database);
bool findTargetByPointAndOpCls(const Assignment& assignment, const std::string& op_cls,
                               const Position& position, const DatabaseRef& database);
bool findTargetByZone(const Assignment& assignment, const std::string& zone_id, const DatabaseRef& database);

} // namespace findTarget
