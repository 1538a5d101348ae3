#pragma once

#include "jet/jetFile.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct sqlite3;

// The content of old files as files of the engine, kept in the user's cache directory from one use to the
// next.
namespace dao {

// The path of the file with the content of an old file as it stands now; it is made when there is none. It is
// there to be read, by many at once, and may go with the next call for another file. Throws the engine's
// failures: 3024 without the old file, 3026 when the disk is full, 3045 when the old file keeps changing,
// 3049 when it is damaged, 3051 when the cache can't be written.
[[nodiscard]] std::string cacheOf(const std::string& path);

// The same for several old files; those that are to be made are made at the same time. None of them makes
// another one go. Throws the failure of one of them.
[[nodiscard]] std::vector<std::string> cachesOf(const std::vector<std::string>& paths);

// What the old file was when the cache that is open was made of it.
[[nodiscard]] jet::Stamp stampOfCache(sqlite3* cache);

// How many bytes the files may take together; the oldest go first, never those just asked for.
inline constexpr std::uintmax_t usualCacheLimit = std::uintmax_t{8} << 30U;
void setCacheLimit(std::uintmax_t bytes);

// How somebody who waits for old files to be read is told of it: `show` is called again and again meanwhile,
// but not for those that take no time, and `hide` after the last of them. Both are called on the thread that
// asked for the files, and the files are then read on others. They must not ask for an old file, and `hide`
// must not throw.
struct ReadingSign
{
    std::function<void(const std::vector<std::string>& paths)> show;
    std::function<void()> hide;
};
void setReadingSign(ReadingSign sign); // two empty functions: nobody is told

// What is to be done each time an old file has been read and before it is looked whether it has changed
// meanwhile; nothing when empty. It is done on the thread that has read the file: for several files at the
// same time.
void setConversionWatcher(std::function<void()> watcher);

} // namespace dao
