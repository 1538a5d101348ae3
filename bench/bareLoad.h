#pragma once

#include <string>

// The floor of the load: the rows and the searches of the product's load with nothing between file and
// engine.
namespace bare {

struct LoadSettings
{
    // The journal and what else the product sets for a load.
    const char* pragmas = "PRAGMA synchronous=OFF; PRAGMA journal_mode=PERSIST; PRAGMA cache_size=-262144; "
                          "PRAGMA analysis_limit=1000";
    bool renewStatistics = true;
};

// Adds the notices of the file to the database, each in a transaction of its own. Gives the number of notices
// that an earlier one was found for.
int load(const std::string& noticeFile, const std::string& database, const std::string& dateOfReceipt,
         const LoadSettings& settings = {});

} // namespace bare
