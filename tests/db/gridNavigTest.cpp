#include "db/GridNavig.h"

#include "model/session.h"

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

TEST(GridNavig, AnEmptyListHasNoNeighbours)
{
    setKeys({});
    std::int32_t index = 0;
    EXPECT_FALSE(GridNavig::nextNoticeIndex(index));
    EXPECT_FALSE(GridNavig::prevNoticeIndex(index));
}
