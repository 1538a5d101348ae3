#include "dao/sideBySide.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <system_error>
#include <thread>
#include <vector>

namespace dao {

namespace {

// Each action may need much memory: more of them at a time would cost more than they save.
std::size_t threadsFor(std::size_t count)
{
    const auto processors = static_cast<std::size_t>(std::thread::hardware_concurrency());
    return std::min(count, std::clamp<std::size_t>(processors, 2, 4));
}

// Where the host gives no further thread, those that run do all the work.
void addThreads(std::vector<std::jthread>& threads, std::size_t count, const std::function<void()>& work)
{
    try {
        while (threads.size() < count)
            threads.emplace_back(work);
    } catch (const std::system_error&) {
        return;
    }
}

} // namespace

void sideBySide(std::size_t count, const std::function<void(std::size_t number)>& action)
{
    std::vector<std::exception_ptr> failures(count);
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (auto number = next++; number < count; number = next++) {
            try {
                action(number);
            } catch (...) {
                failures[number] = std::current_exception();
            }
        }
    };
    {
        std::vector<std::jthread> others;
        if (count > 1)
            addThreads(others, threadsFor(count) - 1, work);
        work();
    }
    for (const auto& failure : failures) {
        if (failure)
            std::rethrow_exception(failure);
    }
}

} // namespace dao
