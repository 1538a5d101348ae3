#include "dao/sideBySide.h"

#include "support/waiting.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

std::string failureOf(std::size_t count, const std::function<void(std::size_t)>& action)
{
    try {
        dao::sideBySide(count, action);
    } catch (const std::runtime_error& failure) {
        return failure.what();
    }
    return {};
}

} // namespace

TEST(SideBySide, DoesEachNumberOnce)
{
    for (const std::size_t count : {0U, 1U, 2U, 5U, 100U}) {
        std::vector<std::atomic<int>> times(count);
        dao::sideBySide(count, [&](std::size_t number) { ++times[number]; });
        for (const auto& time : times)
            EXPECT_EQ(time, 1);
    }
}

TEST(SideBySide, HasTwoUnderWayAtTheSameTime)
{
    std::atomic<int> arrived = 0;
    std::atomic<int> met = 0;
    dao::sideBySide(2, [&](std::size_t) {
        ++arrived;
        met += waitUntil([&] { return arrived == 2; }) ? 1 : 0;
    });
    EXPECT_EQ(met, 2);
}

TEST(SideBySide, DoesTheOtherNumbersAfterAFailureAndTellsTheFirstOne)
{
    std::atomic<int> done = 0;
    EXPECT_EQ(failureOf(20,
                        [&](std::size_t number) {
                            ++done;
                            if (number == 7 || number == 3 || number == 12)
                                throw std::runtime_error(std::to_string(number));
                        }),
              "3");
    EXPECT_EQ(done, 20);
}

TEST(SideBySide, WithOneNumberStaysOnTheThreadOfTheCaller)
{
    std::thread::id thread;
    dao::sideBySide(1, [&](std::size_t) { thread = std::this_thread::get_id(); });
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST(SideBySide, GivesTheCallersThreadToWhatIsDoneMeanwhile)
{
    const auto caller = std::this_thread::get_id();
    std::atomic<int> turns = 0;
    std::atomic<int> done = 0;
    dao::sideBySide(
        3,
        [&](std::size_t) {
            EXPECT_NE(std::this_thread::get_id(), caller);
            waitUntil([&] { return turns >= 2; });
            ++done;
        },
        [&] {
            EXPECT_EQ(std::this_thread::get_id(), caller);
            ++turns;
        });
    EXPECT_GE(turns, 2);
    EXPECT_EQ(done, 3);
}

TEST(SideBySide, WaitsForAllWhenWhatIsDoneMeanwhileFails)
{
    std::atomic<bool> hasFailed = false;
    std::atomic<int> done = 0;
    EXPECT_THROW(dao::sideBySide(
                     2,
                     [&](std::size_t) {
                         waitUntil([&] { return hasFailed.load(); });
                         ++done;
                     },
                     [&] {
                         hasFailed = true;
                         throw std::runtime_error("meanwhile");
                     }),
                 std::runtime_error);
    EXPECT_EQ(done, 2);
}
