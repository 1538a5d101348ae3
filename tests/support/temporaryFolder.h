#pragma once

#include <filesystem>
#include <string>

// A folder of its own, without a dot in its path, removed with all it holds at the end.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }
    [[nodiscard]] std::string file(const std::string& name) const { return (m_path / name).string(); }
    // Writes the bytes as they stand and gives the path.
    std::string write(const std::string& name, const std::string& bytes) const;
    [[nodiscard]] std::string read(const std::string& name) const;

private:
    std::filesystem::path m_path;
};
