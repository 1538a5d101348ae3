#include <cstdlib>
#include <filesystem>
#include <string>

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

// A cache directory of its own for each test program and for the programs that it starts, so that none ever
// looks into the user's. It comes into being when somebody uses it, and goes with the program.
namespace {

class CacheOfTests
{
public:
    CacheOfTests()
    {
#ifdef _WIN32
        m_folder = std::filesystem::temp_directory_path() / ("zeph-cache-" + std::to_string(_getpid()));
        _wputenv_s(L"LOCALAPPDATA", m_folder.c_str());
#else
        m_folder = std::filesystem::temp_directory_path() / ("zeph-cache-" + std::to_string(getpid()));
        setenv("XDG_CACHE_HOME", m_folder.c_str(), 1);
#endif
    }
    ~CacheOfTests()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    CacheOfTests(const CacheOfTests&) = delete;
    CacheOfTests& operator=(const CacheOfTests&) = delete;

private:
    std::filesystem::path m_folder;
};

const CacheOfTests cacheOfTests;

} // namespace
