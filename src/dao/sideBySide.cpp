#include "dao/sideBySide.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace dao {

namespace {

using Task = std::function<void()>;

// Each action may need much memory: more of them at a time would cost more than they save.
std::size_t threadsFor(std::size_t count)
{
    const auto processors = static_cast<std::size_t>(std::thread::hardware_concurrency());
    return std::min(count, std::clamp<std::size_t>(processors, 2, 4));
}

// Where the host gives no further thread, those that run do all the work.
void addThreads(std::vector<std::jthread>& threads, std::size_t count, const Task& work)
{
    try {
        while (threads.size() < count)
            threads.emplace_back(work);
    } catch (const std::system_error&) {
        return;
    }
}

void workTogether(std::size_t threads, const Task& work)
{
    std::vector<std::jthread> others;
    if (threads > 1)
        addThreads(others, threads - 1, work);
    work();
}

void workAside(std::size_t threads, const Task& work, const Task& meanwhile)
{
    constexpr auto pause = std::chrono::milliseconds(50);
    std::mutex guard;
    std::condition_variable change;
    std::size_t ended = 0;
    std::vector<std::jthread> others;
    addThreads(others, threads, [&] {
        work();
        const std::lock_guard lock(guard);
        ++ended;
        change.notify_one();
    });
    if (others.empty())
        work();
    std::unique_lock lock(guard);
    while (!change.wait_for(lock, pause, [&] { return ended == others.size(); })) {
        lock.unlock();
        meanwhile();
        lock.lock();
    }
}

} // namespace

void sideBySide(std::size_t count, const std::function<void(std::size_t number)>& action,
                const std::function<void()>& meanwhile)
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
    if (meanwhile)
        workAside(threadsFor(count), work, meanwhile);
    else
        workTogether(threadsFor(count), work);
    for (const auto& failure : failures) {
        if (failure)
            std::rethrow_exception(failure);
    }
}

} // namespace dao
