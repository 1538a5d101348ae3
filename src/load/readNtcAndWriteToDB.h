#pragma once

#include "model/Ntc.h"

#include <string>

// Carries one electronic notice file into a working database, notice by notice.
namespace readNtcAndWriteToDB {

// The path of the working database of an electronic file: everything before the first "." of the whole path,
// and ".mdb". Throws RuntimeError 5 for a path without ".".
[[nodiscard]] std::string workingDatabaseOf(const std::string& electronicFile);

// The path of the electronic file that a working database is written to: "upd" in the place of its last three
// characters. Throws RuntimeError 5 for a shorter path.
[[nodiscard]] std::string updateFileOf(const std::string& workingDatabase);
// The same of the report on a load or a check, with "rpt".
[[nodiscard]] std::string reportFileOf(const std::string& workingDatabase);

// Empties adm and opens session::electFileName as file number 1.
void openElectFile(Ntc& ntc);

// The whole load of the open file; closes it. Each notice is a transaction of its own, and a potential target
// is told to the host. Failures of the file and of the record's bounds are thrown; what was stored until then
// stays.
void loadElectFile(Ntc& ntc, const std::string& workingDatabase);

} // namespace readNtcAndWriteToDB
