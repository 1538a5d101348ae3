#pragma once

#include <filesystem>

namespace dao {

// A file that goes with its scope, unless it has got another name by then.
class FleetingFile
{
public:
    explicit FleetingFile(std::filesystem::path path) : m_path(std::move(path)) {}
    ~FleetingFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    FleetingFile(const FleetingFile&) = delete;
    FleetingFile& operator=(const FleetingFile&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

} // namespace dao
