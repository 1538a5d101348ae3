// Values of every type, written and read back.
#include "jet/writtenFile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace jetWriter;

namespace {

using namespace std::string_literals;

constexpr std::size_t most3 = 2032; // bytes of a part of a chain in Jet 3
constexpr std::size_t most4 = 4076;

class WrittenValues : public testing::TestWithParam<Version>
{
protected:
    [[nodiscard]] static FileForm form()
    {
        FileForm fileForm;
        fileForm.version = GetParam();
        return fileForm;
    }
    [[nodiscard]] static Bytes text(std::string_view ascii) { return asciiText(GetParam(), ascii); }
    [[nodiscard]] static std::size_t most() { return GetParam() == Version::Jet3 ? most3 : most4; }
};

INSTANTIATE_TEST_SUITE_P(Both, WrittenValues, testing::Values(Version::Jet3, Version::Jet4), versionName);

Table oneColumn(Type type, std::uint16_t length = 0)
{
    Table table;
    table.name = "T";
    table.add("v", type, length);
    return table;
}

std::vector<std::vector<Cell>> oneEach(const std::vector<Cell>& values)
{
    std::vector<std::vector<Cell>> rows;
    rows.reserve(values.size());
    for (const auto& value : values)
        rows.push_back({value});
    return rows;
}

Lines textsOf4(const std::vector<Cell>& values)
{
    FileForm form;
    form.version = Version::Jet4;
    return ReadBack(fileOfRows(form, oneColumn(Type::Text, 510), oneEach(values))).rows("T");
}

struct TypedValue
{
    Type type;
    Bytes bytes;
    std::string shown;
};

const std::vector<TypedValue> typedValues{
    {Type::Byte, byteValue(255), "255"},
    {Type::Integer, integerValue(-32768), "-32768"},
    {Type::Long, longValue(std::numeric_limits<std::int32_t>::min()), "-2147483648"},
    {Type::Currency, currencyValue(35000), "3.5"},
    {Type::Currency, currencyValue(-1), "-0.0001"},
    {Type::Currency, currencyValue(std::numeric_limits<std::int64_t>::min()), "-922337203685477.5808"},
    {Type::Single, singleValue(0.1F), "0.100000001"},
    {Type::Double, doubleValue(2.3333333333333335), "2.3333333333333335"},
    {Type::Double, doubleValue(std::numeric_limits<double>::infinity()), "inf"},
    {Type::DateTime, doubleValue(0), "1899-12-30T00:00:00"},
    {Type::DateTime, doubleValue(-1.25), "1899-12-29T06:00:00"},
    {Type::DateTime, doubleValue(36326.354224537036), "1999-06-15T08:30:05"},
    {Type::DateTime, doubleValue(2958465.999988426), "9999-12-31T23:59:59"},
    {Type::Guid, guidValue(0x01234567, 0x89AB, 0xCDEF, "\x01\x23\x45\x67\x89\xAB\xCD\xEF"),
     "{01234567-89AB-CDEF-0123-456789ABCDEF}"},
};

} // namespace

TEST_P(WrittenValues, EveryTypeOfFixedSizeComesBackFixedAndVariable)
{
    Table table;
    table.name = "T";
    std::vector<Cell> cells;
    std::string shown;
    for (const auto& value : typedValues)
        for (const bool isFixed : {true, false}) {
            const auto name = "c" + std::to_string(cells.size());
            const auto size = static_cast<std::uint16_t>(value.bytes.size());
            isFixed ? table.addFixed(name, value.type, size) : table.addVariable(name, value.type, size);
            shown += (cells.empty() ? "" : "|") + value.shown;
            cells.emplace_back(value.bytes);
        }
    const ReadBack back(fileOfRows(form(), table, {std::vector<Cell>(cells.size()), cells}));
    const auto rows = back.rows("T");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].find_first_not_of("\\N|"), std::string::npos); // the junk is not shown
    EXPECT_EQ(rows[1], shown);
}

TEST_P(WrittenValues, ABooleanIsItsBit)
{
    const ReadBack back(fileOfRows(form(), oneColumn(Type::Boolean), oneEach({Bytes(), std::nullopt})));
    EXPECT_EQ(back.rows("T"), (Lines{"true", "false"}));
}

TEST_P(WrittenValues, ADecimalHasTheScaleOfItsColumn)
{
    Table table;
    table.name = "T";
    for (const auto scale : {0, 2, 20}) {
        auto& column = table.add("d" + std::to_string(scale), Type::Decimal);
        column.precision = 28;
        column.scale = static_cast<std::uint8_t>(scale);
    }
    const auto all = [](const Bytes& value) { return std::vector<Cell>{value, value, value}; };
    const ReadBack back(
        fileOfRows(form(), table,
                   {all(decimalValue(false, 0xA91)), all(decimalValue(true, 5)), all(decimalValue(false, 0)),
                    all(decimalValue(true, 10000000000000000000U))}));
    EXPECT_EQ(back.rows("T"), (Lines{"2705|27.05|0.00000000000000002705", "-5|-0.05|-0.00000000000000000005",
                                     "0|0|0", "-10000000000000000000|-100000000000000000|-0.1"}));
}

TEST_P(WrittenValues, ADecimalMayFillAllItsWords)
{
    Table table = oneColumn(Type::Decimal);
    table.columns[0].scale = 1;
    const ReadBack back(fileOfRows(form(), table, {{Bytes(1, '\0') + Bytes(16, '\xFF')}}));
    EXPECT_EQ(back.rows("T"), Lines{"34028236692093846346337460743176821145.5"});
}

TEST_P(WrittenValues, BinaryIsFixedOrVariableAndHoldsAnyByte)
{
    Table table;
    table.name = "T";
    table.addFixed("fixed", Type::Binary, 4);
    table.addVariable("variable", Type::Binary, 255);
    table.addFixed("unknown", Type::Unknown, 3);
    const ReadBack back(fileOfRows(form(), table, {{"\x00\x01\xFE\xFF"s, "\x00\x00"s, "\x01\x02\x03"s}}));
    EXPECT_EQ(back.rows("T"), Lines{"0001feff|0000|010203"});
}

TEST_P(WrittenValues, NullAndEmptyTextAreTwoThings)
{
    const ReadBack back(fileOfRows(form(), oneColumn(Type::Text, 100), oneEach({Bytes(), std::nullopt})));
    EXPECT_EQ(back.rows("T"), (Lines{"", "\\N"}));
    const ReadBack memo(
        fileOfRows(form(), oneColumn(Type::Memo), oneEach({FileWriter::inlineValue(""), std::nullopt})));
    EXPECT_EQ(memo.rows("T"), (Lines{"", "\\N"}));
}

TEST_P(WrittenValues, BlanksAtBothEndsAndZeroCharactersStay)
{
    const ReadBack back(fileOfRows(form(), oneColumn(Type::Text, 100),
                                   oneEach({text("  a  "), text("a\0b\0"s), text("\0"s)})));
    EXPECT_EQ(back.rows("T"), (Lines{"  a  ", "a\0b\0"s, "\0"s}));
}

TEST_P(WrittenValues, LongValuesOfEveryLengthAndPlaceComeBack)
{
    Lines expected;
    const ReadBack back(fileBytes(form(), [&](FileWriter& writer) {
        auto& table = writer.addTable(oneColumn(Type::Ole));
        const auto add = [&](const Bytes& cell, const std::string& value) {
            table.add({cell});
            std::string shown;
            for (const char byte : value)
                shown += byte == 'x' ? "78" : "79";
            expected.push_back(shown);
        };
        for (const std::size_t length : {0UL, 1UL, 64UL, 1000UL})
            add(FileWriter::inlineValue(Bytes(length, 'x')), std::string(length, 'x'));
        for (const std::size_t length : {0UL, 1UL, 1000UL, most(), most() + 4})
            add(writer.singleRowValue(Bytes(length, 'x')), std::string(length, 'x'));
        for (const std::size_t length : {0UL, 1UL, most() - 1, most(), most() + 1, 4 * most(), 100000UL})
            add(writer.chainValue(Bytes(length, 'x') + "y"), std::string(length, 'x') + "y");
    }));
    EXPECT_EQ(back.rows("T"), expected);
}

TEST_P(WrittenValues, AMemoIsDecodedWhenAllItsPartsAreTogether)
{
    const std::u16string memo = u"Łódź 漢字 \U0001F4E1 ";
    std::u16string wide;
    while (wide.size() < 3000)
        wide += memo;
    const bool isNarrow = GetParam() == Version::Jet3;
    const Bytes bytes = isNarrow ? Bytes(9000, '\xE9') : plainText(wide);
    const ReadBack back(fileBytes(form(), [&](FileWriter& writer) {
        auto& table = writer.addTable(oneColumn(Type::Memo));
        for (const std::size_t part : {1UL, 3UL, 7UL, 1001UL, 0UL}) // odd parts cut characters
            table.add({writer.chainValue(part == 1 || part == 3 ? bytes.substr(0, 252) : bytes, part)});
    }));
    const auto rows = back.rows("T");
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[0], rows[1]);
    EXPECT_TRUE(rows[2] == rows[3]); // too long to be printed
    EXPECT_TRUE(rows[3] == rows[4]);
    EXPECT_TRUE(rows[2].starts_with(rows[0]));
    EXPECT_EQ(rows[0].substr(0, 8), isNarrow ? "éééé" : "Łódź ");
    EXPECT_EQ(rows[4].size(), isNarrow ? 18000U : wide.size() / memo.size() * 20);
}

TEST(WrittenText4, IsCompressedOrPlainByItsOwnBytes)
{
    EXPECT_EQ(textsOf4({compressedText(u"grün"), plainText(u"grün"), plainText(u"Мир"),
                        plainText(u"\U0001F4E1"), compressedText(u"")}),
              (Lines{"grün", "grün", "Мир", "\U0001F4E1", ""}));
}

TEST(WrittenText4, SwitchesInItsMiddle)
{
    EXPECT_EQ(
        textsOf4({compressedText({{true, u"A"}, {false, u"Ми"}, {true, u"B"}}),
                  compressedText({{false, u"Мир"}}), compressedText({{false, u"漢字"}, {true, u" kanji"}}),
                  compressedText({{true, u"é"}, {false, u"\U0001F4E1Ж"}, {true, u"é"}, {false, u"Ж"}})}),
        (Lines{"AМиB", "Мир", "漢字 kanji", "é\U0001F4E1ЖéЖ"}));
}

TEST(WrittenText4, ASwitchWithNothingBehindItIsNoCharacter)
{
    EXPECT_EQ(textsOf4({"\xFF\xFE\x41\x00"s, "\xFF\xFE\x41\x00\x00"s, "\xFF\xFE\x00\x1C"s}),
              (Lines{"A", "A", ""}));
}

TEST(WrittenText4, ALastOddByteIsDroppedAndASingleSurrogateReplaced)
{
    EXPECT_EQ(textsOf4({"\x41\x00\x42"s, plainText(u"\xD800") + plainText(u"a"), plainText(u"\xDC00")}),
              (Lines{"A", "\uFFFDa", "\uFFFD"}));
}

TEST(WrittenText3, HasTheCodePageOfItsColumnThenOfTheFileThen1252)
{
    struct Case
    {
        std::uint16_t ofColumn, ofFile;
        const char *bytes, *shown;
    };
    const std::vector<Case> cases{
        {1251, 1252, "\xCC\xE8\xF0", "Мир"},
        {1252, 1251, "\xCC\xE8\xF0", "Ìèð"},
        {0, 1251, "\xCC\xE8\xF0", "Мир"},
        {0, 0, "\xCC\xE8\xF0\x80", "Ìèð€"},
        {60000, 1251, "\xCC", "Ì"}, // an unknown one
        {1250, 0, "\xA3\xF3\x64\x9F", "Łódź"},
        {1253, 0, "\xC1\xE8", "Αθ"},
        {1252, 0, "\x81\x8D\x8F\x90\x9D", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& [ofColumn, ofFile, bytes, shown] : cases) {
        Table table = oneColumn(Type::Text, 50);
        table.columns[0].codePage = ofColumn;
        FileForm form;
        form.codePage = ofFile;
        EXPECT_EQ(ReadBack(fileOfRows(form, table, {{Bytes(bytes)}})).rows("T"), Lines{shown});
    }
}
