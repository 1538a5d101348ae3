#include "platform/sharedFile.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace platform {

#ifdef _WIN32

namespace {

[[noreturn]] void raiseHostError()
{
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
}

BY_HANDLE_FILE_INFORMATION informationOf(HANDLE handle)
{
    BY_HANDLE_FILE_INFORMATION information{};
    if (GetFileInformationByHandle(handle, &information) == 0)
        raiseHostError();
    return information;
}

std::uint64_t joined(DWORD high, DWORD low)
{
    return (static_cast<std::uint64_t>(high) << 32U) | low;
}

} // namespace

SharedFile::SharedFile(const std::filesystem::path& path)
    : m_handle(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                           nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr))
{
    if (m_handle == INVALID_HANDLE_VALUE)
        raiseHostError();
}

SharedFile::~SharedFile()
{
    CloseHandle(m_handle);
}

std::uint64_t SharedFile::size() const
{
    const auto information = informationOf(m_handle);
    return joined(information.nFileSizeHigh, information.nFileSizeLow);
}

std::int64_t SharedFile::modified() const
{
    constexpr std::uint64_t nanosecondsPerTick = 100;
    const auto time = informationOf(m_handle).ftLastWriteTime;
    return static_cast<std::int64_t>(joined(time.dwHighDateTime, time.dwLowDateTime) * nanosecondsPerTick);
}

std::size_t SharedFile::readAt(std::uint64_t offset, std::span<char> bytes) const
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>(offset + done);
        place.OffsetHigh = static_cast<DWORD>((offset + done) >> 32U);
        DWORD got = 0;
        const auto rest = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, 0x1000000));
        if (ReadFile(m_handle, bytes.data() + done, rest, &got, &place) == 0) {
            if (GetLastError() == ERROR_HANDLE_EOF)
                break;
            raiseHostError();
        }
        if (got == 0)
            break;
        done += got;
    }
    return done;
}

#else

namespace {

[[noreturn]] void raiseHostError(int number)
{
    throw std::system_error(number, std::generic_category());
}

struct stat informationOf(int handle)
{
    struct stat information
    {};
    if (::fstat(handle, &information) != 0)
        raiseHostError(errno);
    return information;
}

// A folder or a pipe is no file that could be read at positions. A pipe is not waited for.
int opened(const char* path)
{
    const int handle = ::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (handle < 0)
        raiseHostError(errno);
    struct stat information
    {};
    if (::fstat(handle, &information) == 0 && S_ISREG(information.st_mode))
        return handle;
    ::close(handle);
    raiseHostError(EACCES);
}

} // namespace

SharedFile::SharedFile(const std::filesystem::path& path) : m_handle(opened(path.c_str())) {}

SharedFile::~SharedFile()
{
    ::close(m_handle);
}

std::uint64_t SharedFile::size() const
{
    return static_cast<std::uint64_t>(informationOf(m_handle).st_size);
}

std::int64_t SharedFile::modified() const
{
    constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
    const auto information = informationOf(m_handle);
    return information.st_mtim.tv_sec * nanosecondsPerSecond + information.st_mtim.tv_nsec;
}

std::size_t SharedFile::readAt(std::uint64_t offset, std::span<char> bytes) const
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const auto got =
            ::pread(m_handle, bytes.data() + done, bytes.size() - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            raiseHostError(errno);
        if (got == 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

#endif

} // namespace platform
