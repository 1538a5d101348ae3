#pragma once

#include "jet/jetFile.h"

#include <functional>
#include <string>

struct sqlite3;

// Corrections of an old file. The file itself is never written: its content goes, with the first write, into
// a file of the engine beside it, which stands for it from then on.
namespace dao {

// Where the corrections of the file at the path stand, when there are any.
[[nodiscard]] std::string correctionPath(const std::string& path);

// What stands for the old file at the path: its corrections, or empty text when it was never corrected.
// Throws 3197 when the old file is not the one any more that was corrected, 3343 when what stands in their
// place are no corrections.
[[nodiscard]] std::string correctionOf(const std::string& path);

// Whether the path has corrections, of whatever file lies there now; false for what only has their name.
[[nodiscard]] bool hasCorrection(const std::string& path);

// Makes the file of the corrections out of the connection's content, which is that of the old file under the
// stamp. Throws 3026 on a full disk, 3027 where no file can be made, 3045 when the old file has changed
// meanwhile or somebody else has made the file first; nothing half made is left.
void makeCorrection(const std::string& path, const jet::Stamp& stamp, sqlite3* content);

// Removes the corrections of a path whose file was replaced. Throws 70 when they can't be removed.
void removeCorrection(const std::string& path);

// A file of the engine with the content of a connection, made whole or not at all, in the place of what
// stands at the target. The change is run on it before it gets its name.
void writeContent(sqlite3* content, const std::string& target, const std::function<void(sqlite3*)>& change);

// What is to be done each time when a file of corrections is made and has not got its name yet.
void setCorrectionWatcher(std::function<void()> watcher);

} // namespace dao
