#include "platform/paths.h"

#include "platform/ansiText.h"
#include "platform/runtimeError.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <optional>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace platform {

namespace {

std::string givenDirectory;
std::filesystem::path givenCache;

constexpr auto cacheName = "zeph_rvis";

std::string withoutLastSeparator(std::string_view path)
{
    while (path.size() > 1 && (path.back() == '/' || path.back() == '\\'))
        path.remove_suffix(1);
    return std::string(path);
}

#ifdef _WIN32

std::filesystem::path usersCache()
{
    const wchar_t* folder = _wgetenv(L"LOCALAPPDATA");
    return folder != nullptr ? folder : L"";
}

// The temporary folder is the user's own.
std::filesystem::path temporaryCache()
{
    return std::filesystem::temp_directory_path() / cacheName;
}

std::filesystem::path programFile()
{
    std::wstring name(32768, L'\0'); // the longest path that the host knows
    name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    return name;
}

void flushFile(const std::filesystem::path& file)
{
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        raise(errPathFileAccess);
    const bool done = FlushFileBuffers(handle) != 0;
    CloseHandle(handle);
    if (!done)
        raise(errDeviceIo);
}

// The host keeps folder entries by itself.
void flushFolder(const std::filesystem::path&) {}

#else

// A folder that the environment names; a relative one would be another one from each folder.
std::filesystem::path folderOf(const char* variable)
{
    const char* folder = std::getenv(variable);
    return folder != nullptr && *folder == '/' ? folder : "";
}

std::filesystem::path usersCache()
{
    if (auto folder = folderOf("XDG_CACHE_HOME"); !folder.empty())
        return folder;
    const auto home = folderOf("HOME");
    return home.empty() ? home : home / ".cache";
}

// Others have theirs beside it.
std::filesystem::path temporaryCache()
{
    return std::filesystem::temp_directory_path() / (cacheName + ("-" + std::to_string(geteuid())));
}

std::filesystem::path programFile()
{
    std::error_code failure;
    auto file = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (failure)
        raise(errPathNotFound);
    return file;
}

bool isDriveLetter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isSeparator(char character)
{
    return character == '\\' || character == '/';
}

bool hasDrive(std::string_view path)
{
    return path.size() >= 3 && isDriveLetter(path[0]) && path[1] == ':' && isSeparator(path[2]);
}

std::filesystem::path driveFolder(char letter)
{
    const auto lower = static_cast<char>(letter | 0x20);
    auto folder = std::filesystem::path(programDirectory()) / "drives" / std::string(1, lower);
    std::error_code notThere;
    if (!std::filesystem::is_directory(folder, notThere))
        raise(errPathNotFound);
    return folder;
}

std::filesystem::path pathOnDrive(std::string_view path)
{
    auto result = driveFolder(path[0]);
    path.remove_prefix(3);
    while (!path.empty()) {
        const auto end = path.find_first_of("\\/");
        const auto name = path.substr(0, end);
        // A drive is closed: no name leads out of its folder.
        if (name == "." || name == "..")
            raise(errPathNotFound);
        if (!name.empty())
            result /= name;
        path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
    }
    return result;
}

// A file or folder of the host that is open for reading alone.
class ReadHandle
{
public:
    ReadHandle(const std::filesystem::path& path, int flags) : m_handle(open(path.c_str(), flags | O_CLOEXEC))
    {}
    ~ReadHandle()
    {
        if (isOpen())
            close(m_handle);
    }
    ReadHandle(const ReadHandle&) = delete;
    ReadHandle& operator=(const ReadHandle&) = delete;

    [[nodiscard]] bool isOpen() const { return m_handle >= 0; }
    // False when the disk failed; what the host can't put on a disk at all, a pipe say, counts as done.
    [[nodiscard]] bool sync() const { return fsync(m_handle) == 0 || errno == EINVAL || errno == ENOTSUP; }

private:
    int m_handle;
};

[[noreturn]] void raiseSyncFailure()
{
    raise(errno == ENOSPC || errno == EDQUOT ? errDiskFull : errDeviceIo);
}

void flushFile(const std::filesystem::path& file)
{
    const ReadHandle handle(file, O_RDONLY);
    if (!handle.isOpen())
        raise(errno == ENOENT || errno == ENOTDIR ? errFileNotFound : errPathFileAccess);
    if (!handle.sync())
        raiseSyncFailure();
}

void flushFolder(const std::filesystem::path& folder)
{
    const ReadHandle handle(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    // A folder may be written without leave to list it; its entry then can't be flushed.
    if (handle.isOpen() && !handle.sync())
        raiseSyncFailure();
}

#endif

} // namespace

std::string programDirectory()
{
    if (!givenDirectory.empty())
        return givenDirectory;
    static const std::string ownDirectory = programFile().parent_path().string();
    return ownDirectory;
}

void setProgramDirectory(std::string_view path)
{
    givenDirectory = withoutLastSeparator(path);
}

std::filesystem::path hostPath(std::string_view path)
{
#ifdef _WIN32
    return std::filesystem::path(std::u8string(path.begin(), path.end()));
#else
    if (hasDrive(path))
        return pathOnDrive(path);
    std::string local(path);
    std::replace(local.begin(), local.end(), '\\', '/');
    return local;
#endif
}

std::filesystem::path anyCasePath(const std::filesystem::path& path)
{
    namespace fs = std::filesystem;
    std::error_code failure;
    if (fs::exists(path, failure))
        return path;
    const auto wanted = utf8Path(path.filename());
    const auto folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    std::optional<fs::path> found;
    // A folder that can't be listed holds no such file for us.
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        auto name = entry->path().filename();
        std::error_code ignored;
        if (!entry->is_directory(ignored) && equalNoCase(utf8Path(name), wanted) && (!found || name < *found))
            found = std::move(name);
    }
    return found ? path.parent_path() / *found : path;
}

std::filesystem::path userCacheDirectory()
{
    if (!givenCache.empty())
        return givenCache;
    const auto folder = usersCache();
    return folder.empty() ? temporaryCache() : folder / cacheName;
}

void setUserCacheDirectory(const std::filesystem::path& folder)
{
    givenCache = folder;
}

std::string utf8Path(const std::filesystem::path& path)
{
    const auto text = path.u8string();
    return {text.begin(), text.end()};
}

void flushToDisk(const std::filesystem::path& file)
{
    flushFile(file);
    flushFolder(file.parent_path());
}

} // namespace platform
