#pragma once

#include "dao/dao.h"
#include "load/targetValues.h"
#include "model/Ntc.h"

#include <cstdint>
#include <string>
#include <vector>

// The check of site names: finds the recorded assignment or pending notice that a notice acts on in the
// reference database, and copies its site name and country into the notice.
namespace checkTarget {

using DatabaseRef = dao::Ref<dao::Database>;
using targetValues::Assignment;
using targetValues::Position;

// What a look-up gives instead of a site name.
inline constexpr const char* noTarget = "ERROR_0";
inline constexpr const char* severalTargets = "ERROR_N";

// All notices with intent "SUPPRESS" or "WITHDRAW" of session::workingDbPath against
// session::referenceDbPath; what was found is told to the host, a line a notice. Each notice that is stored
// is a transaction of its own.
void checkAllNtc();
// One notice of any intent.
void checkOneNtc(std::int32_t veldakey);

// The keys that the last check went through; apart from session::keyArray.
[[nodiscard]] const std::vector<std::int32_t>& checkKeys();
// Fills them from a query and returns their number; a failure is shown and marks the session.
std::int16_t loadCheckKeys(const std::string& query, const DatabaseRef& database);

// The site name of the one assignment that answers the notice's own characteristics, trimmed as `ctry` is;
// noTarget or severalTargets otherwise. A failure is shown, and the name then empty.
[[nodiscard]] std::string lookUpTargetSite(const Ntc& ntc, const DatabaseRef& reference, std::string& ctry);
[[nodiscard]] std::string siteByPoint(const Assignment& assignment, const Position& position,
                                      const std::string& intent, const DatabaseRef& reference,
                                      std::string& ctry);
[[nodiscard]] std::string siteByPointAndOpCls(const Assignment& assignment, const std::string& op_cls,
                                              const Position& position, const std::string& intent,
                                              const DatabaseRef& reference, std::string& ctry);
[[nodiscard]] std::string siteByZone(const Assignment& assignment, const std::string& zone_id,
                                     const std::string& intent, const DatabaseRef& reference,
                                     std::string& ctry);

// The class of emission with "-" up to five characters.
[[nodiscard]] std::string padEmission(const std::string& emi_cls);

} // namespace checkTarget
