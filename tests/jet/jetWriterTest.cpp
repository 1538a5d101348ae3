// The writer against bytes put together by hand, so that a round trip proves the reader and not that the two
// agree on a mistake.
#include "jet/writtenFile.h"

#include <gtest/gtest.h>

using namespace jetWriter;

namespace {

using namespace std::string_literals;

Table textsAfterALong(int texts)
{
    Table table;
    table.name = "T";
    table.add("n", Type::Long);
    for (int i = 0; i < texts; ++i)
        table.add("t" + std::to_string(i), Type::Text, 255);
    return table;
}

std::string row3(std::size_t first, std::size_t second, std::size_t third)
{
    return rowBytes(Version::Jet3, textsAfterALong(3),
                    {longValue(1), Bytes(first, 'a'), Bytes(second, 'b'), Bytes(third, 'c')});
}

} // namespace

TEST(JetWriter, WritesTheJumpOfARowOfMoreThan255Bytes)
{
    const auto row = row3(200, 100, 5);
    EXPECT_EQ(row.size(), 317U);
    EXPECT_EQ(row.substr(310), "\x36\x31\xCD\x05\x02\x03\x0F"s);
}

TEST(JetWriter, WritesTwoJumpsAtTheSameText)
{
    const auto row = row3(250, 250, 50);
    EXPECT_EQ(row.size(), 563U);
    EXPECT_EQ(row.substr(555), "\x2B\xF9\xFF\x05\x03\x02\x03\x0F"s);
}

TEST(JetWriter, LeavesAJumpThatNothingNeedsAt255)
{
    // The data end at 255, the row behind 256.
    const auto row = rowBytes(Version::Jet3, textsAfterALong(1), {longValue(1), Bytes(250, 'a')});
    EXPECT_EQ(row.substr(255), "\xFF\x05\xFF\x01\x03"s);
}

TEST(JetWriter, WritesARowOfTheSecondVersion)
{
    Table table;
    table.add("a", Type::Text, 100);
    table.add("b", Type::Text, 100);
    table.skipVariable();
    const auto row =
        rowBytes(Version::Jet4, table, {compressedText(u"row1col1"), compressedText(u"row1col2")});
    EXPECT_EQ(row, "\x03\x00\xFF\xFErow1col1\xFF\xFErow1col2\x16\x00\x16\x00\x0C\x00\x02\x00\x03\x00\x03"s);
}

TEST(JetWriter, KnowsTheKeyStreamOfTheHeader)
{
    EXPECT_EQ(coded(Bytes(16, '\0'), 0x6B39DAC7),
              "\xB5\x6F\x03\x62\x61\x08\xC2\x55\xEB\xA9\x67\x72\x43\x3F\x00\x9C"s);
}

TEST(JetWriter, SwitchesBetweenCompressedAndPlain)
{
    EXPECT_EQ(compressedText({{true, u"A"}, {false, u"Ми"}, {true, u"B"}}),
              "\xFF\xFE\x41\x00\x1C\x04\x38\x04\x00\x42"s);
}

TEST(JetWriter, KeepsAllPagesInTheFile)
{
    for (const auto version : {Version::Jet3, Version::Jet4}) {
        FileForm form;
        form.version = version;
        const auto bytes = fileOfRows(form, textsAfterALong(1), {{longValue(1), asciiText(version, "x")}});
        EXPECT_EQ(bytes.size() % pageSize(version), 0U);
        EXPECT_EQ(numberAt(bytes, 2 * pageSize(version), 1), 2U); // the definition of the catalogue
    }
}
