#pragma once

#include "dao/dao.h"

#include <string>

namespace writeNtcToElect {

// Writes the notices of session::keyArray, in its order, to an electronic file, which is replaced without a
// question. The session's notice is emptied afterwards but for adm and d_rcv. Throws what the files and the
// date of a notice throw; what was printed then stays in the file.
void writeElectFile(const std::string& fileName, const dao::Ref<dao::Database>& database);

} // namespace writeNtcToElect
