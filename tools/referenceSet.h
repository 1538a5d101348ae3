#pragma once

#include "tools/referenceRows.h"

#include <iosfwd>
#include <string>

// A reference set as files: VELDABASEBETA.mdb, which holds the sites and links to the tables of the other
// two, VELDAKVR1.mdb with the points of the sites, and VELDAKVR3.mdb with the assignments.
namespace referenceSet {

// Makes the three files in a folder, which is made too, and replaces those that are there. One assignment at
// a time is in memory. Gives what each notice finds. On failure the folder is left as it was: throws
// std::runtime_error, or the failure of the engine.
std::vector<referenceRows::Answer> write(const std::string& folder, const referenceRows::Options& options,
                                         bool withIndexes);

// Every row of the three tables as text, a line each, in the order of insertion.
void dump(const std::string& folder, std::ostream& output);

} // namespace referenceSet
