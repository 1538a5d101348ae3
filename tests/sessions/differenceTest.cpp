#include "sessions/difference.h"
#include "sessions/scriptHead.h"

#include <gtest/gtest.h>

TEST(Difference, IsEmptyForEqualTexts)
{
    EXPECT_EQ(difference("a\nb\n", "a\nb\n"), "");
}

TEST(Difference, ShowsChangedLinesWithThoseAroundThem)
{
    EXPECT_EQ(difference("1\n2\n3\n4\n5\n6\n7\n8\n9\n", "1\n2\n3\n4\nfive\n6\n7\n8\n9\n"),
              "--- expected\n+++ actual\n@@ line 2 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n");
}

TEST(Difference, FarApartShowsTwoParts)
{
    EXPECT_EQ(difference("a\n1\n2\n3\n4\n5\n6\n7\n8\nb\n", "1\n2\n3\n4\n5\n6\n7\n8\nb\nc\n"),
              "--- expected\n+++ actual\n@@ line 1 @@\n-a\n 1\n 2\n 3\n@@ line 8 @@\n 7\n 8\n b\n+c\n");
}

TEST(ScriptHead, HoldsOptionsFilesAndStatus)
{
    const auto head = readHead("#! --user administrator --now \"2026-03-04 05:06:07\"\n#! show work.upd\n"
                               "#! status 3\n#! remove program/a\n#! folder b\n#! copy c d\n# show\nshow\n");
    EXPECT_EQ(head.options,
              (std::vector<std::string>{"--user", "administrator", "--now", "2026-03-04 05:06:07"}));
    EXPECT_EQ(head.shownFiles, std::vector<std::string>{"work.upd"});
    EXPECT_EQ(head.removedFiles, std::vector<std::string>{"program/a"});
    EXPECT_EQ(head.folders, std::vector<std::string>{"b"});
    ASSERT_EQ(head.copies.size(), 1U);
    EXPECT_EQ(head.copies[0].to, "d");
    EXPECT_EQ(head.status, 3);
    EXPECT_THROW(static_cast<void>(readHead("#! nothing\n")), std::runtime_error);
}
