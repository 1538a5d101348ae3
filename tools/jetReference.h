#pragma once

#include "tools/referenceRows.h"

#include <filesystem>
#include <vector>

// A reference set as files of the original engine's third version, as such sets are handed out:
// VELDABASEBETA.mdb with the sites and with links to the other two by the path of another machine,
// VELDAKVR1.mdb with their points, VELDAKVR3.mdb with the assignments.
namespace jetReference {

// Makes the three files in a folder, which is made too, one assignment at a time. Gives what each notice
// finds.
std::vector<referenceRows::Answer> write(const std::filesystem::path& folder,
                                         const referenceRows::Options& options, bool withIndexes);

} // namespace jetReference
