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
    ASSERT_EQ(head.shownFiles.size(), 1U);
    EXPECT_EQ(head.shownFiles[0].file, "work.upd");
    EXPECT_EQ(head.removedFiles, std::vector<std::string>{"program/a"});
    EXPECT_EQ(head.folders, std::vector<std::string>{"b"});
    ASSERT_EQ(head.copies.size(), 1U);
    EXPECT_EQ(head.copies[0].to, "d");
    EXPECT_EQ(head.status, 3);
    EXPECT_THROW(static_cast<void>(readHead("#! nothing\n")), std::runtime_error);
}

TEST(ScriptHead, TellsWhatIsDoneToFilesAndWhatOfThemIsShown)
{
    const auto head =
        readHead("#! show a \"t b\"\n#! cut c 12\n#! byte d 3 165\n#! unchanged e\n#! query f SELECT\n");
    EXPECT_EQ(head.shownFiles.at(0).text, "t b");
    EXPECT_EQ(head.cuts.at(0).size, 12U);
    EXPECT_EQ(head.changedBytes.at(0).place, 3U);
    EXPECT_EQ(head.changedBytes.at(0).value, '\xA5');
    EXPECT_EQ(head.unchangedFiles, std::vector<std::string>{"e"});
    EXPECT_EQ(head.queries.at(0).text, "SELECT");
}

TEST(ScriptHead, AScriptMayHoldSeveralSessions)
{
    EXPECT_EQ(sessionsOf("a\nb\n"), (std::vector<std::string>{"a\nb\n"}));
    EXPECT_EQ(sessionsOf("a\n#! again\n#! show b\nc"), (std::vector<std::string>{"a\n", "#! show b\nc\n"}));
}
