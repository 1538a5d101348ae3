#include "play/copyFault.h"

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#endif

namespace play {

namespace {

bool inForce = false;

#ifdef _WIN32

constexpr bool hasLimit = false;

void forbidWriting(bool) {}

#else

constexpr bool hasLimit = true;

// Only the soft limit moves, so that it can be raised again.
void forbidWriting(bool forbidden)
{
    std::signal(SIGXFSZ, SIG_IGN); // the write itself shall fail, not the process
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = forbidden ? 0 : limit.rlim_max;
    setrlimit(RLIMIT_FSIZE, &limit);
}

#endif

} // namespace

bool CopyFault::isAvailable()
{
    return hasLimit;
}

void CopyFault::copyIsNext()
{
    if (!m_armed)
        return;
    m_armed = false;
    inForce = true;
    forbidWriting(true);
}

void CopyFault::over()
{
    if (!inForce)
        return;
    inForce = false;
    forbidWriting(false);
}

CopyFault::Pause::Pause()
{
    if (inForce)
        forbidWriting(false);
}

CopyFault::Pause::~Pause()
{
    if (inForce)
        forbidWriting(true);
}

} // namespace play
