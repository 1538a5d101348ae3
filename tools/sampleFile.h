#pragma once

#include <string>

// A file of twelve notices chosen by hand: each type, each action, and three pairs that describe one
// assignment twice, one for each way in which the load looks for such pairs.
namespace sampleFile {

[[nodiscard]] std::string text(); // Windows-1252, CR LF

// Replaces the file. Throws std::runtime_error when it can't be written.
void write(const std::string& path);

} // namespace sampleFile
