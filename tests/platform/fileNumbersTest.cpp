#include "platform/fileNumbers.h"

#include "platform/paths.h"
#include "platform/runtimeError.h"
#include "support/failures.h"
#include "support/temporaryFolder.h"

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

using namespace platform;

constexpr std::size_t largeSize = 64 * 1024; // of what is read from a file at once

class FileNumbers : public testing::Test
{
protected:
    void TearDown() override { closeAllFiles(); }

    // All items of a file with these bytes.
    std::vector<std::string> itemsOf(const std::string& bytes) const
    {
        openForInput(1, folder.write("items.txt", bytes));
        std::vector<std::string> items;
        while (!endOfFile(1))
            items.push_back(inputItem(1));
        closeFile(1);
        return items;
    }

    int failureOfOpening(const std::string& path) const
    {
        return failureOf([&] { openForInput(1, path); });
    }

    TemporaryFolder folder;
};

using Items = std::vector<std::string>;

TEST_F(FileNumbers, partItemsAtCommasAndLineEnds)
{
    const struct
    {
        const char* name;
        std::string bytes;
        Items items;
    } rows[] = {
        {"an empty file has no item", "", {}},
        {"the last line needs no end", "a\r\nb", {"a", "b"}},
        {"CR LF, CR and LF each end a line", "a\r\nb\rc\nd\r\n", {"a", "b", "c", "d"}},
        {"LF CR are two line ends", "a\n\rb", {"a", "", "b"}},
        {"an empty line is an empty item", "a\r\n\r\nb", {"a", "", "b"}},
        {"a comma cuts a value", "t_remarks = A, B\r\n", {"t_remarks = A", "B"}},
        {"a comma behind a comma", "a,,b", {"a", "", "b"}},
        {"a comma at the line's end", "a,\r\nb", {"a", "", "b"}},
        {"leading blanks go, trailing blanks stay", "   a b  \r\n  c ,d", {"a b  ", "c ", "d"}},
        {"a line of blanks is empty", "   \r\nb", {"", "b"}},
        {"blanks at the end of the file are an item", "a\r\n   ", {"a", ""}},
        {"a tab is no blank", "\ta\t\r\n", {"\ta\t"}},
        {"codes 0 and 26 are plain", std::string("a\0b\032c\r\nd", 8), {std::string("a\0b\032c", 5), "d"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(itemsOf(row.bytes), row.items) << row.name;
}

TEST_F(FileNumbers, readAQuotedItemOverCommasAndLineEnds)
{
    const struct
    {
        const char* name;
        std::string bytes;
        Items items;
    } rows[] = {
        {"quotes don't belong to the item", "\"a\"\r\nb", {"a", "b"}},
        {"a comma inside", "\"a,b\",c", {"a,b", "c"}},
        {"a line end inside", "\"a\r\nb\"\r\nc", {"a\r\nb", "c"}},
        {"blanks inside stay", "  \" a \"\r\nc", {" a ", "c"}},
        {"blanks and a comma behind", "\"a\"  ,b", {"a", "b"}},
        {"blanks and a line end behind", "\"a\"  \r\nb", {"a", "b"}},
        {"one comma only", "\"a\",,b", {"a", "", "b"}},
        {"one line end only", "\"a\"\r\n\r\nb", {"a", "", "b"}},
        {"anything else begins the next item", "\"a\"  b,c", {"a", "b", "c"}},
        {"a tab begins the next item", "\"a\"\t,b", {"a", "\t", "b"}},
        {"a second quoted item", "\"a\"\"b\"", {"a", "b"}},
        {"an empty one", "\"\",b", {"", "b"}},
        {"never closed: to the file's end", "\"a,b\r\nc", {"a,b\r\nc"}},
        {"a lone quote at the end", "a\r\n\"", {"a", ""}},
        {"blanks up to the file's end", "\"a\"   ", {"a"}},
        {"a quote that is not the first character is plain", "a=\"A,B\"\r\n", {"a=\"A", "B\""}},
        {"a quote behind a tab is plain", "\t\"a,b\"", {"\t\"a", "b\""}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(itemsOf(row.bytes), row.items) << row.name;
}

TEST_F(FileNumbers, readTheCodePageAsCharacters)
{
    EXPECT_EQ(itemsOf("\xE9\x80\r\n\"\x8F,\xFF\"\r\n"), (Items{"é€", "\xC2\x8F,ÿ"}));
}

TEST_F(FileNumbers, readItemsThatCrossTheBuffer)
{
    for (std::size_t before = largeSize - 3; before <= largeSize + 3; ++before) {
        const std::string filler(before, 'x');
        EXPECT_EQ(itemsOf(filler + "\r\nb"), (Items{filler, "b"})) << before;
        EXPECT_EQ(itemsOf(filler + "\r\n\"b\" \r\nc"), (Items{filler, "b", "c"})) << before;
        EXPECT_EQ(itemsOf('"' + filler + "\",\"b"), (Items{filler, "b"})) << before;
        EXPECT_EQ(itemsOf(filler), (Items{filler})) << before;
    }
}

TEST_F(FileNumbers, reuseTheStringOfTheCaller)
{
    openForInput(1, folder.write("two.txt", "long enough,b"));
    std::string item = "left over";
    inputItem(1, item);
    EXPECT_EQ(item, "long enough");
    inputItem(1, item);
    EXPECT_EQ(item, "b");
}

TEST_F(FileNumbers, readWholeLines)
{
    const struct
    {
        const char* name;
        std::string bytes;
        Items lines;
    } rows[] = {
        {"an empty file has no line", "", {}},
        {"the last line needs no end", "a\r\nb", {"a", "b"}},
        {"CR LF, CR and LF each end a line", "a\r\nb\rc\nd\r\n", {"a", "b", "c", "d"}},
        {"LF CR are two line ends", "a\n\rb", {"a", "", "b"}},
        {"blanks, commas and quotes are plain", "  a , \"b\r\n\", c  \r\n", {"  a , \"b", "\", c  "}},
        {"the code page is read as characters", "\xE9\x80\n", {"é€"}},
        {"a line crosses the buffer",
         std::string(largeSize, 'x') + "\r\ny",
         {std::string(largeSize, 'x'), "y"}},
        {"a line's end crosses the buffer",
         std::string(largeSize - 1, 'x') + "\r\ny",
         {std::string(largeSize - 1, 'x'), "y"}},
    };
    for (const auto& row : rows) {
        openForInput(1, folder.write("lines.txt", row.bytes));
        Items lines;
        while (!endOfFile(1))
            lines.push_back(inputLine(1));
        EXPECT_EQ(lines, row.lines) << row.name;
        EXPECT_EQ(failureOf([] { static_cast<void>(inputLine(1)); }), 62) << row.name;
        closeFile(1);
    }
    EXPECT_EQ(failureOf([] { static_cast<void>(inputLine(1)); }), 52);
}

TEST_F(FileNumbers, failAtInputPastTheEnd)
{
    openForInput(1, folder.write("one.txt", "a\r\n"));
    EXPECT_FALSE(endOfFile(1));
    EXPECT_EQ(inputItem(1), "a");
    EXPECT_TRUE(endOfFile(1));
    EXPECT_EQ(failureOf([] { static_cast<void>(inputItem(1)); }), 62);
    EXPECT_EQ(failureOf([] { static_cast<void>(inputItem(1)); }), 62);
}

TEST_F(FileNumbers, openNothingThatIsNotThere)
{
    EXPECT_EQ(failureOfOpening(folder.file("missing.txt")), 53);
    EXPECT_EQ(failureOfOpening(folder.file("missing/a.txt")), 76);
    EXPECT_EQ(failureOfOpening(folder.write("file.txt", "") + "/a.txt"), 76);
    EXPECT_EQ(failureOfOpening("m:\\no\\such\\drive.txt"), 76);
    EXPECT_EQ(failureOf([&] { openForOutput(1, folder.file("missing/a.txt")); }), 76);
    EXPECT_EQ(failureOf([&] { openForAppend(1, folder.file("missing/a.txt")); }), 76);
    EXPECT_FALSE(std::filesystem::exists(folder.file("missing"))) << "folders are not created";
}

TEST_F(FileNumbers, openNoFolder)
{
    EXPECT_EQ(failureOfOpening(folder.path().string()), 75);
    EXPECT_EQ(failureOf([&] { openForOutput(1, folder.path().string()); }), 75);
    EXPECT_EQ(failureOf([&] { openForAppend(1, folder.path().string()); }), 75);
}

#ifndef _WIN32

// Nothing is forbidden to the administrator's account, so another one takes its place for a while.
class OrdinaryAccount
{
public:
    OrdinaryAccount()
    {
        if (m_own == 0 && seteuid(nobody) != 0)
            ADD_FAILURE() << "the account can't be changed";
    }
    ~OrdinaryAccount()
    {
        if (m_own == 0 && seteuid(m_own) != 0)
            ADD_FAILURE() << "the account can't be changed back";
    }
    OrdinaryAccount(const OrdinaryAccount&) = delete;
    OrdinaryAccount& operator=(const OrdinaryAccount&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    uid_t m_own = geteuid();
};

TEST_F(FileNumbers, openNothingWithoutPermission)
{
    const auto path = folder.write("secret.txt", "a");
    std::filesystem::permissions(path, std::filesystem::perms::none);
    const OrdinaryAccount account;
    EXPECT_EQ(failureOfOpening(path), 75);
    EXPECT_EQ(failureOf([&] { openForOutput(1, path); }), 75);
    EXPECT_EQ(failureOf([&] { openForAppend(1, path); }), 75);
    EXPECT_EQ(failureOf([&] { testReadable(path); }), 75);
}

#endif

TEST_F(FileNumbers, leaveTheNumberFreeWhenOpeningFails)
{
    EXPECT_EQ(failureOfOpening(folder.file("missing.txt")), 53);
    EXPECT_EQ(failureOf([&] { openForInput(1, folder.write("a.txt", "a")); }), 0);
}

TEST_F(FileNumbers, refuseANumberInUse)
{
    const auto path = folder.write("a.txt", "a");
    openForInput(1, path);
    EXPECT_EQ(failureOfOpening(path), 55);
    EXPECT_EQ(failureOf([&] { openForOutput(1, folder.file("b.txt")); }), 55);
    EXPECT_FALSE(std::filesystem::exists(folder.file("b.txt")));
    EXPECT_EQ(inputItem(1), "a");
}

TEST_F(FileNumbers, runFromOneToFiveHundredAndEleven)
{
    const auto path = folder.write("a.txt", "a");
    for (const int number : {1, 511})
        EXPECT_EQ(failureOf([&] { openForInput(number, path); }), 0) << number;
    for (const int number : {-1, 0, 512}) {
        EXPECT_EQ(failureOf([&] { openForInput(number, path); }), 52) << number;
        EXPECT_EQ(failureOf([&] { static_cast<void>(endOfFile(number)); }), 52) << number;
    }
}

TEST_F(FileNumbers, refuseANumberThatIsNotOpenOrOpenTheOtherWay)
{
    EXPECT_EQ(failureOf([] { static_cast<void>(inputItem(1)); }), 52);
    EXPECT_EQ(failureOf([] { static_cast<void>(endOfFile(1)); }), 52);
    EXPECT_EQ(failureOf([] { printLine(1, "a"); }), 52);

    openForInput(1, folder.write("in.txt", "a"));
    EXPECT_EQ(failureOf([] { printLine(1, "a"); }), 52);
    openForOutput(2, folder.file("out.txt"));
    EXPECT_EQ(failureOf([] { static_cast<void>(inputItem(2)); }), 52);
    EXPECT_EQ(failureOf([] { static_cast<void>(endOfFile(2)); }), 52);
    openForAppend(3, folder.file("log.txt"));
    EXPECT_EQ(failureOf([] { static_cast<void>(inputItem(3)); }), 52);
}

TEST_F(FileNumbers, printLinesInTheCodePage)
{
    openForOutput(2, folder.write("out.txt", "older and longer than what follows"));
    printLine(2, "é€");
    printLine(2, "");
    printLine(2, "日, \"x\"");
    closeFile(2);
    EXPECT_EQ(folder.read("out.txt"), "\xE9\x80\r\n\r\n?, \"x\"\r\n");
}

TEST_F(FileNumbers, appendBehindWhatTheFileHolds)
{
    const auto path = folder.write("log.txt", "a\r\n");
    for (const char* line : {"b", "c"}) {
        openForAppend(2, path);
        printLine(2, line);
        closeFile(2);
    }
    EXPECT_EQ(folder.read("log.txt"), "a\r\nb\r\nc\r\n");
    openForAppend(2, folder.file("new.txt"));
    printLine(2, "d");
    closeFile(2);
    EXPECT_EQ(folder.read("new.txt"), "d\r\n");
}

TEST_F(FileNumbers, closeWhatIsOpenAndNothingElse)
{
    EXPECT_EQ(failureOf([] { closeFile(1); }), 0);
    openForInput(1, folder.write("a.txt", "a"));
    openForOutput(511, folder.file("out.txt"));
    printLine(511, "x");
    closeAllFiles();
    EXPECT_EQ(folder.read("out.txt"), "x\r\n");
    EXPECT_EQ(failureOf([] { static_cast<void>(endOfFile(1)); }), 52);
    EXPECT_EQ(failureOf([] { printLine(511, "x"); }), 52);
}

TEST_F(FileNumbers, testWhetherAFileIsReadableAsOpeningWould)
{
    EXPECT_EQ(failureOf([&] { testReadable(folder.write("a.txt", "a")); }), 0);
    EXPECT_EQ(failureOf([&] { testReadable(folder.file("missing.txt")); }), 53);
    EXPECT_EQ(failureOf([&] { testReadable(folder.file("missing/a.txt")); }), 76);
    EXPECT_EQ(failureOf([&] { testReadable(folder.path().string()); }), 75);
}

// A device on which every write finds the disk full.
constexpr const char* fullDevice = "/dev/full";

class FullDisk : public FileNumbers
{
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(fullDevice))
            GTEST_SKIP() << "the host has no such device";
    }
};

TEST_F(FullDisk, isToldAtTheLatestWhenTheFileIsClosed)
{
    openForOutput(2, fullDevice);
    EXPECT_EQ(failureOf([] {
                  printLine(2, "a");
                  closeFile(2);
              }),
              61);
    EXPECT_EQ(failureOf([] { printLine(2, "a"); }), 52) << "the number is closed";
}

TEST_F(FullDisk, isToldWhilePrintingMoreThanABufferHolds)
{
    openForOutput(2, fullDevice);
    const std::string line(2 * largeSize, 'x');
    EXPECT_EQ(failureOf([&] { printLine(2, line); }), 61);
    EXPECT_EQ(failureOf([&] { printLine(2, line); }), 52) << "the number is closed";
    EXPECT_EQ(failureOf([] { closeFile(2); }), 0);
}

TEST_F(FullDisk, doesNotKeepTheOtherFilesFromBeingClosed)
{
    openForOutput(2, fullDevice);
    printLine(2, "a");
    openForOutput(3, folder.file("out.txt"));
    printLine(3, "b");
    EXPECT_EQ(failureOf([] { closeAllFiles(); }), 61);
    EXPECT_EQ(folder.read("out.txt"), "b\r\n");
    EXPECT_EQ(failureOf([] { printLine(2, "a"); }), 52);
    EXPECT_EQ(failureOf([] { printLine(3, "a"); }), 52);
}

} // namespace
