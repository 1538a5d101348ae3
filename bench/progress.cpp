#include "progress.h"

#include <ctime>
#include <stdexcept>

namespace progress {

namespace {

struct Mark
{
    int notice = 0;
    double seconds = 0;
};

int firstWatched = 0;
Mark first, last;

double cpuSeconds()
{
    std::timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

} // namespace

void watch(int noticeNumber)
{
    firstWatched = noticeNumber;
    first = last = {};
}

void tell(int noticeNumber)
{
    if (noticeNumber < firstWatched)
        return;
    last = {noticeNumber, cpuSeconds()};
    if (first.notice == 0)
        first = last;
}

double secondsPerThousand()
{
    if (last.notice - first.notice < 500)
        throw std::runtime_error("too few notices that an earlier one was found for");
    return (last.seconds - first.seconds) * 1000 / (last.notice - first.notice);
}

} // namespace progress
