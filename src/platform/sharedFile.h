#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace platform {

// A file that is read at positions of choice while others may read, write, shorten and replace it. Failures
// are std::system_error with the host's code.
class SharedFile
{
public:
    explicit SharedFile(const std::filesystem::path& path);
    ~SharedFile();
    SharedFile(const SharedFile&) = delete;
    SharedFile& operator=(const SharedFile&) = delete;

    [[nodiscard]] std::uint64_t size() const;
    // When it was last written, in nanoseconds of the host's clock of files.
    [[nodiscard]] std::int64_t modified() const;
    // Number of bytes read; fewer than asked for at the end of the file only.
    [[nodiscard]] std::size_t readAt(std::uint64_t offset, std::span<char> bytes) const;

private:
#ifdef _WIN32
    void* m_handle;
#else
    int m_handle;
#endif
};

} // namespace platform
