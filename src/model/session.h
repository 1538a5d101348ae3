#pragma once

#include "dao/dao.h"
#include "model/Ntc.h"

#include <cstdint>
#include <string>
#include <vector>

// The session values: they live as long as the process, and one thread uses them. Empty, zero or unset at
// start.
namespace session {

inline constexpr std::int32_t deletedKey = -10; // an entry of keyArray whose notice was deleted

extern Ntc notice;                         // the one notice in memory
extern std::vector<std::int32_t> keyArray; // veldakey of every row of the list, in list order
extern std::int32_t keyCount;              // entries in keyArray
extern std::int32_t currentIndex;          // position of currentVeldaKey in keyArray
extern std::int32_t currentVeldaKey;       // key of the notice in hand, last drawn or found
extern std::int32_t currentGeoKey;         // last geo_key drawn or read
extern std::int32_t currentTargetKey;      // last target key drawn or read
extern std::int32_t firstKey, lastKey;     // ends of keyArray
extern std::string electFileName;          // electronic file picked last
extern std::string workingDbPath;          // working database
extern std::string referenceDbPath;        // reference database picked last
extern dao::Ref<dao::Database> db, refDb;  // opened, used and closed around each piece of work
extern dao::Ref<dao::Workspace> ws;        // the default workspace
extern std::string dbStatus;               // "ERROR_DB" after any database failure; nothing clears it
extern bool ntcChanged;                    // asks for the save offer and for a rebuild of keyArray
extern std::string currentScreenType;      // "T11" to "T14", the notice screen that loaded last
extern std::string language;               // "F" French, "S" Spanish, anything else English

// The entry of keyArray at a position. Throws RuntimeError 9 where there is none: the position is that of the
// notice shown, which the list behind it may have left since.
[[nodiscard]] std::int32_t& keyAt(std::int32_t position);

inline constexpr const char* errorDb = "ERROR_DB";

// The name of the user, at most eight characters; "Unknown" when the host has none.
[[nodiscard]] std::string getUserName();

// Appends date, time, the event's text and the user's name to the fixed log file. Throws RuntimeError when it
// can't be reached; the log never disturbs the operator, so callers pass over that.
void writeLogLine(const std::string& eventText);

} // namespace session
