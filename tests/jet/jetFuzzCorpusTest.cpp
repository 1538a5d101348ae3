#include "fuzz/jetFuzz.h"
#include "support/temporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

jetFuzz::Seen replay(const std::filesystem::path& path)
{
    const TemporaryFolder folder;
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    return jetFuzz::run(folder.file("replayed"), bytes);
}

std::vector<std::filesystem::path> corpus()
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(ZEPH_JET_CORPUS))
        if (entry.is_regular_file() && entry.path().filename() != ".gitattributes")
            paths.push_back(entry.path());
    return paths;
}

} // namespace

TEST(JetFuzzCorpus, NoInputThatWasEverOddBreaksTheReader)
{
    std::size_t rows = 0;
    std::size_t links = 0;
    for (const auto& path : corpus()) {
        jetFuzz::Seen seen;
        EXPECT_NO_THROW(seen = replay(path)) << path;
        // The sound ones are read to the end.
        EXPECT_TRUE((seen.isWhole && seen.rows > 0) || !path.filename().string().starts_with("sound-"))
            << path;
        rows += seen.rows;
        links += seen.links;
    }
    EXPECT_GT(corpus().size(), 10U);
    EXPECT_GT(rows, 100U);
    EXPECT_GT(links, 0U);
}

TEST(JetFuzzCorpus, TextThatIsNoUtf8IsNoticed)
{
    EXPECT_TRUE(jetFuzz::isUtf8("plain, é, 漢, \U0001F4E1, \xEF\xBF\xBD"));
    for (const char* bad : {"\xE9", "\xC3", "\xC0\x80", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
                            "\xF4\x90\x80\x80", "\xFF", "\x80", "\xE2\x82"})
        EXPECT_THROW(static_cast<void>(jetFuzz::checkedText(bad)), std::logic_error);
}
