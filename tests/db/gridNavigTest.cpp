#include "db/GridNavig.h"

#include "model/session.h"
#include "support/failures.h"

#include <gtest/gtest.h>

namespace {

void setKeys(std::vector<std::int32_t> keys)
{
    session::keyArray = std::move(keys);
    session::keyCount = static_cast<std::int32_t>(session::keyArray.size());
}

constexpr auto deleted = session::deletedKey;

} // namespace

TEST(GridNavig, StepsToTheNeighboursAndPastDeletedNotices)
{
    setKeys({5, deleted, deleted, 7, 8});
    std::int32_t index = 0;
    EXPECT_TRUE(GridNavig::nextNoticeIndex(index));
    EXPECT_EQ(index, 3);
    EXPECT_TRUE(GridNavig::nextNoticeIndex(index));
    EXPECT_EQ(index, 4);
    EXPECT_TRUE(GridNavig::prevNoticeIndex(index));
    EXPECT_TRUE(GridNavig::prevNoticeIndex(index));
    EXPECT_EQ(index, 0);
}

TEST(GridNavig, AtTheEndsItReturnsFalseAndLeavesTheIndex)
{
    setKeys({5, 6});
    std::int32_t index = 1;
    EXPECT_FALSE(GridNavig::nextNoticeIndex(index));
    EXPECT_EQ(index, 1);
    index = 0;
    EXPECT_FALSE(GridNavig::prevNoticeIndex(index));
    EXPECT_EQ(index, 0);
}

TEST(GridNavig, WhenAllLaterEntriesAreDeletedThereIsNoNext)
{
    setKeys({5, deleted, deleted});
    std::int32_t index = 0;
    EXPECT_FALSE(GridNavig::nextNoticeIndex(index));
    EXPECT_EQ(index, 0);
}

TEST(GridNavig, BesideTheListThereAreNoNeighbours)
{
    setKeys({5, 6});
    std::int32_t index = -7;
    EXPECT_FALSE(GridNavig::nextNoticeIndex(index));
    EXPECT_FALSE(GridNavig::prevNoticeIndex(index));
    EXPECT_EQ(index, -7);
    index = 7;
    EXPECT_FALSE(GridNavig::nextNoticeIndex(index));
    EXPECT_FALSE(GridNavig::prevNoticeIndex(index));
    EXPECT_EQ(index, 7);
}

TEST(GridNavig, FailsWhereTheCountTellsOfMoreKeysThanThereAre)
{
    setKeys({5, deleted});
    session::keyCount = 4;
    std::int32_t index = 0;
    EXPECT_FAILURE(platform::errSubscript, static_cast<void>(GridNavig::nextNoticeIndex(index)));
    EXPECT_EQ(index, 0);
    index = 4;
    EXPECT_FAILURE(platform::errSubscript, static_cast<void>(GridNavig::prevNoticeIndex(index)));
    EXPECT_EQ(index, 4);
}

TEST(GridNavig, AnEmptyListHasNoNeighbours)
{
    setKeys({});
    std::int32_t index = 0;
    EXPECT_FALSE(GridNavig::nextNoticeIndex(index));
    EXPECT_FALSE(GridNavig::prevNoticeIndex(index));
}
