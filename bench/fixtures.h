#pragma once

#include "tools/noticeGenerator.h"

#include <cstdint>
#include <string>
#include <vector>

// Files and databases that the benchmarks work on. They live in a folder of the process, which is removed at
// the end, but for the large ones, which are kept for the next run.
namespace fixtures {

using noticeGenerator::Shape;

inline constexpr int fullFile = 32'767; // notices: as many as a file can have
inline constexpr int large = 200'000;   // notices
inline constexpr const char* dateOfReceipt = "02.03.2026";

// Whether the large database is wanted: it takes a while to make.
[[nodiscard]] bool withLarge();

[[nodiscard]] std::string path(const std::string& name);

// Notices from number `start` on; made when first asked for.
[[nodiscard]] std::string noticeFile(Shape shape, int start, int count);

// A fresh copy of the master database, or of another one.
std::string emptyDatabase(const std::string& name);
std::string copyDatabase(const std::string& database, const std::string& name);

// The first `count` notices of a shape, loaded by the product when first asked for. Not to be written.
[[nodiscard]] std::string loadedDatabase(Shape shape, int count);

// Loads by the product; gives the number of notices that an earlier one was found for. Throws when the
// product showed any message.
int loadByProduct(const std::string& noticeFile, const std::string& database);

// The first `count` notices that end an assignment, and nothing else.
[[nodiscard]] std::string actingNotices(int count);

// The folder of a reference set in which each of the notices finds one assignment; kept for the next run.
[[nodiscard]] std::string referenceSetFor(const std::string& noticeFile, int assignments, bool withIndexes);

// The folder of such a set for the first 1,000 notices that end an assignment, as files of the original
// engine; kept too. The sizes that are measured, in assignments: the last only where the large database is.
[[nodiscard]] std::string oldReferenceSet(int assignments);
[[nodiscard]] std::vector<int> oldSetSizes();

// Where what is made of old files goes: beside the reference sets, for it is large. Removed at the end.
[[nodiscard]] std::string cacheFolder();

// The check of all notices by the product; gives the number of lines about notices. The routine of the link
// by the product. Throw when it showed any message.
int checkByProduct(const std::string& database, const std::string& reference);
void linkByProduct(const std::string& reference);

// The keys of all notices in the order of the list.
[[nodiscard]] std::vector<std::int32_t> keysOf(const std::string& database);

// Removes the folder of the process.
void removeAll();

} // namespace fixtures
