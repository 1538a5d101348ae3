#include "platform/userName.h"

#include <vector>

#ifdef _WIN32
#include <windows.h>

#include <lmcons.h>
#else
#include <cerrno>
#include <pwd.h>
#include <unistd.h>
#endif

namespace platform {

namespace {

std::optional<std::string> givenName;

#ifdef _WIN32

std::string accountName()
{
    wchar_t wide[UNLEN + 1];
    DWORD size = UNLEN + 1;
    if (!GetUserNameW(wide, &size) || size <= 1)
        return {};
    const auto length = static_cast<int>(size) - 1;
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide, length, nullptr, 0, nullptr, nullptr);
    std::string name(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, length, name.data(), bytes, nullptr, nullptr);
    return name;
}

#else

std::string accountName()
{
    constexpr std::size_t largestRecord = 1U << 20U;
    std::vector<char> strings(1024);
    passwd record{};
    passwd* found = nullptr;
    // ERANGE says that the account's strings did not fit.
    while (getpwuid_r(geteuid(), &record, strings.data(), strings.size(), &found) == ERANGE) {
        if (strings.size() >= largestRecord)
            return {};
        strings.resize(strings.size() * 2);
    }
    return found != nullptr && found->pw_name != nullptr ? found->pw_name : std::string();
}

#endif

} // namespace

std::string hostUserName()
{
    if (givenName)
        return *givenName;
    // A load asks for it with each notice, and the account of a process stays.
    static const auto name = accountName();
    return name;
}

void setHostUserName(std::optional<std::string> name)
{
    givenName = std::move(name);
}

} // namespace platform
