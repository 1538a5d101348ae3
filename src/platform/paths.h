#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Paths of the system and paths of the host.
namespace platform {

// The folder of the running program, where the master database lies; without a separator at its end.
[[nodiscard]] std::string programDirectory();
// Another folder in its place; empty for the program's own.
void setProgramDirectory(std::string_view path);

// Where the host keeps what the system names so. On a host without drive letters a path "m:\a\b" leads into
// the folder "drives/m" of the program's directory when somebody made or linked one there. A backslash always
// parts names, so that none ever gets into one. Throws RuntimeError 76 for a drive that is not there. On
// Windows the path itself.
[[nodiscard]] std::filesystem::path hostPath(std::string_view path);

// The path itself where something stands there; otherwise the file of the same folder whose name differs in
// case alone, the first in the order of names; otherwise the path unchanged.
[[nodiscard]] std::filesystem::path anyCasePath(const std::filesystem::path& path);

// A path of the host in UTF-8, as libraries take it that know no wide characters.
[[nodiscard]] std::string utf8Path(const std::filesystem::path& path);

// Where the system keeps what it can make anew at any time; in a folder of the user's own, or among the
// host's temporary files where the user has none. It need not be there yet.
[[nodiscard]] std::filesystem::path userCacheDirectory();
// Another folder in its place; empty for the user's own.
void setUserCacheDirectory(const std::filesystem::path& folder);

// Puts a file's content on the disk and its folder entry too, where the host can.
void flushToDisk(const std::filesystem::path& file);

} // namespace platform
