#pragma once

#include "support/temporaryFolder.h"

#include <filesystem>
#include <string>

// Sample files of the original engine's kind, copied into a folder of the test so that it may do with them
// what it likes.
namespace jetSamples {

[[nodiscard]] inline std::filesystem::path original(const std::string& name)
{
    return std::filesystem::path(ZEPH_TEST_DIR) / "data" / "jet" / name;
}

// "jet4/work200.mdb" as work200.mdb; the path of the copy.
inline std::string copyTo(const TemporaryFolder& folder, const std::string& name)
{
    const auto from = original(name);
    const auto onto = folder.file(from.filename().string());
    std::filesystem::copy_file(from, onto, std::filesystem::copy_options::overwrite_existing);
    return onto;
}

} // namespace jetSamples
