#include "fuzz/readerFuzz.h"
#include "platform/hostFormat.h"
#include "support/temporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

// How many files of the folder were replayed.
std::size_t replay(const char* folder)
{
    const TemporaryFolder temporary;
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (!entry.is_regular_file() || entry.path().filename() == ".gitattributes")
            continue;
        SCOPED_TRACE(entry.path().filename());
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        EXPECT_NO_THROW(readerFuzz::run(temporary.file("replayed"), bytes));
        ++count;
    }
    return count;
}

class FuzzCorpus : public testing::Test
{
protected:
    FuzzCorpus() { platform::setHostLocale("de_DE.UTF-8"); }
    ~FuzzCorpus() override { platform::setHostLocale(""); }
    FuzzCorpus(const FuzzCorpus&) = delete;
    FuzzCorpus& operator=(const FuzzCorpus&) = delete;
};

} // namespace

TEST_F(FuzzCorpus, NoInputThatWasEverOddBreaksReaderOrWriter)
{
    EXPECT_GT(replay(ZEPH_CORPUS), 0U);
    EXPECT_GT(replay(ZEPH_ODD_FILES), 0U);
}

TEST_F(FuzzCorpus, ANoticeThatComesBackAsTwoIsNoticed)
{
    const TemporaryFolder temporary;
    EXPECT_NO_THROW(
        readerFuzz::checkSettles(temporary.file("a"), "<NOTICE>\r\nt_action=ADD\r\n</NOTICE>\r\n"));
    EXPECT_THROW(readerFuzz::checkSettles(temporary.file("a"), "<NOTICE>\r\n</NOTICE>\r\n"
                                                               "<NOTICE>\r\n</NOTICE>\r\n"),
                 std::logic_error);
}

TEST_F(FuzzCorpus, AnUnexpectedFailureComesOut)
{
    EXPECT_THROW(readerFuzz::run("no such folder/file", ""), std::runtime_error);
    EXPECT_FALSE(readerFuzz::isExpected(platform::RuntimeError(platform::errFileNotFound, "")));
    EXPECT_TRUE(readerFuzz::isExpected(platform::RuntimeError(platform::errSubscript, "")));
}
