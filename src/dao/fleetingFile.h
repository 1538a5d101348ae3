#pragma once

#include <filesystem>

// Files that are made whole under another name before they get their own.
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

// A name beside the target that nobody else uses.
[[nodiscard]] std::filesystem::path unfinishedName(const std::filesystem::path& target);

// Whether a file bears such a name and is so old that whoever made it was killed.
[[nodiscard]] bool isLeftover(const std::filesystem::path& path, std::filesystem::file_time_type lastWrite);

// Puts a file on the disk. Throws 3026 on a full one, 3043 otherwise.
void flush(const std::filesystem::path& file);

} // namespace dao
