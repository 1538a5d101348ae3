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

// A path of the host in UTF-8, as libraries take it that know no wide characters.
[[nodiscard]] std::string utf8Path(const std::filesystem::path& path);

// Puts a file's content on the disk and its folder entry too, where the host can.
void flushToDisk(const std::filesystem::path& file);

} // namespace platform
