// Every rule that a file can break, broken on purpose.
#include "jet/victim.h"

#include <gtest/gtest.h>

#include <functional>
#include <iomanip>
#include <ostream>

using namespace jetWriter;

namespace {

struct Damage
{
    std::string name;
    std::function<void(Victim&)> inflict;
};

void PrintTo(const Damage& damage, std::ostream* out)
{
    *out << damage.name;
}

std::uint32_t elsewhere(const Victim& victim)
{
    return victim.otherPage << 8U; // a row of another table
}

void toBoth(Victim& v, std::size_t at, std::uint64_t value)
{
    v.put(at, value, v.version == Version::Jet3 ? 1 : 2);
}

// Numbers of the row's end: of variable columns, and of offset i of the two of T.
std::size_t variablesAt(const Victim& v, RowPointer row)
{
    return v.rowEnd(row) - 1 - (v.version == Version::Jet3 ? 1 : 2);
}

std::size_t offsetAt(const Victim& v, RowPointer row, std::size_t i)
{
    const bool isFirst = v.version == Version::Jet3;
    return variablesAt(v, row) - (i + 1) * (isFirst ? 1 : 2);
}

const std::vector<Damage> damages{
    // The file and its page numbers.
    {"FirstPageOfTheCatalogueIsData", [](Victim& v) { v.put(v.pageAt(2), 1, 1); }},
    {"TableBehindTheEnd",
     [](Victim& v) {
         v.put(v.rowAt(v.catalogueRow) + (v.version == Version::Jet3 ? 1 : 2), v.pageCount(), 4);
     }},
    {"TableOnTheHeader",
     [](Victim& v) { v.put(v.rowAt(v.catalogueRow) + (v.version == Version::Jet3 ? 1 : 2), 0, 4); }},
    {"TableBelowZero",
     [](Victim& v) { v.put(v.rowAt(v.catalogueRow) + (v.version == Version::Jet3 ? 1 : 2), 0xFFFFFFFF, 4); }},
    {"TableOnADataPage",
     [](Victim& v) { v.put(v.rowAt(v.catalogueRow) + (v.version == Version::Jet3 ? 1 : 2), v.dataPage, 4); }},
    {"MapBehindTheEnd", [](Victim& v) { v.put(v.definitionAt(35, 55), v.pageCount() << 8U, 4); }},
    {"MapOnTheHeader", [](Victim& v) { v.put(v.definitionAt(35, 55), 0, 4); }},
    {"MapOnTheLastNumber", [](Victim& v) { v.put(v.definitionAt(35, 55), 0xFFFFFFFF, 4); }},
    {"MapOfNoRow", [](Victim& v) { v.put(v.definitionAt(35, 55), v.map | 0xFFU, 4); }},
    {"MapOnAPageOfRows", [](Victim& v) { v.put(v.definitionAt(35, 55), elsewhere(v), 4); }},
    {"MapOnADefinition", [](Victim& v) { v.put(v.definitionAt(35, 55), v.definition << 8U, 4); }},
    // The map's own bytes.
    {"MapOfAnotherKind", [](Victim& v) { v.put(v.mapAt(), 2, 1); }},
    {"MapOfKind1NamesAPageOfRows",
     [](Victim& v) {
         v.put(v.mapAt(), 1, 1);
         v.put(v.mapAt() + 1, v.dataPage, 4);
     }},
    {"MapOfKind1NamesAPageBehindTheEnd",
     [](Victim& v) {
         v.put(v.mapAt(), 1, 1);
         v.put(v.mapAt() + 1, v.pageCount(), 4);
     }},
    {"EmptyMap",
     [](Victim& v) {
         v.shorten({v.map >> 8U, 0}, 0);
     }},
    {"MapOfFourBytes",
     [](Victim& v) {
         v.shorten({v.map >> 8U, 0}, 4);
         v.put(v.mapAt(), 0, 4);
     }},
    // Directories.
    {"MoreRowsThanThePageHolds",
     [](Victim& v) {
         v.put(v.entryAt({v.dataPage, 0}) - 2, 0xFFFF, 2);
     }},
    {"RowBeginsInTheDirectory", [](Victim& v) { v.put(v.entryAt(v.chainMemo), 4, 2); }},
    {"RowBeginsBehindThePage", [](Victim& v) { v.put(v.entryAt(v.plain), 0x1FFF, 2); }},
    {"RowBeginsBehindItsEnd",
     [](Victim& v) { v.put(v.entryAt(v.singleMemo), numberAt(v.bytes, v.entryAt(v.plain), 2) + 1, 2); }},
    // Definitions.
    {"DefinitionOfAnotherType", [](Victim& v) { v.put(v.pageAt(v.definition), 1, 1); }},
    {"DefinitionShorterThanItsHead", [](Victim& v) { v.put(v.definitionAt(8, 8), 20, 4); }},
    {"DefinitionOfLengthZero", [](Victim& v) { v.put(v.definitionAt(8, 8), 0, 4); }},
    {"DefinitionCutInItsColumns", [](Victim& v) { v.put(v.definitionAt(8, 8), 80, 4); }},
    {"Columns256", [](Victim& v) { v.put(v.definitionAt(25, 45), 256, 2); }},
    {"Columns65535", [](Victim& v) { v.put(v.definitionAt(25, 45), 65535, 2); }},
    {"FarTooManyLogicalIndexes", [](Victim& v) { v.put(v.definitionAt(27, 47), 0xFFFFFFFF, 4); }},
    {"MoreLogicalIndexesThanThereAre", [](Victim& v) { v.put(v.definitionAt(27, 47), 1000, 4); }},
    {"FarTooManyRealIndexes", [](Victim& v) { v.put(v.definitionAt(31, 51), 0x20000000, 4); }},
    {"RealIndexesThatOverflow", [](Victim& v) { v.put(v.definitionAt(31, 51), 0xFFFFFFFF, 4); }},
    {"NameBehindTheEnd", [](Victim& v) { toBoth(v, v.columnAt(3, 0, 0), 0xFFFF); }},
    {"LogicalIndexOfNoRealOne",
     [](Victim& v) { v.put(v.columnAt(3, 3 * 2 + 39 + 4, 3 * 4 + 52 + 8), 1, 4); }},
    {"ContinuationOfAnotherType", [](Victim& v) { v.put(v.pageAt(v.wideContinuation), 1, 1); }},
    {"ContinuationBehindTheEnd", [](Victim& v) { v.put(v.pageAt(v.wideDefinition) + 4, v.pageCount(), 4); }},
    {"ContinuationMissing", [](Victim& v) { v.put(v.pageAt(v.wideDefinition) + 4, 0, 4); }},
    {"FixedColumnShorterThanItsType", [](Victim& v) { v.put(v.columnAt(0, 16, 23), 3, 2); }},
    // Rows.
    {"EmptyRow", [](Victim& v) { v.shorten(v.plain, 0); }},
    {"RowOfItsMaskOnly", [](Victim& v) { v.shorten(v.plain, 1); }},
    {"RowWithoutItsFixedArea",
     [](Victim& v) {
         v.shorten(v.plain, 5);
         v.put(v.rowAt(v.plain), 3, v.version == Version::Jet3 ? 1 : 2);
     }},
    {"RowOfMoreColumnsThanItCanHold",
     [](Victim& v) {
         v.put(v.rowAt(v.plain), v.version == Version::Jet3 ? 255 : 65535,
               v.version == Version::Jet3 ? 1 : 2);
     }},
    {"FixedOffsetBehindTheRow", [](Victim& v) { v.put(v.columnAt(0, 14, 21), 60000, 2); }},
    {"FixedOffsetThatOverflows", [](Victim& v) { v.put(v.columnAt(0, 14, 21), 65535, 2); }},
    {"MoreVariableColumnsThanTheRowHolds",
     [](Victim& v) { toBoth(v, variablesAt(v, v.plain), v.version == Version::Jet3 ? 255 : 65535); }},
    {"OffsetsThatFall", [](Victim& v) { toBoth(v, offsetAt(v, v.inlineMemo, 1), 2); }},
    {"OffsetBehindTheData", [](Victim& v) { toBoth(v, offsetAt(v, v.plain, 1), 0xF0); }},
    {"EndBehindTheData", [](Victim& v) { toBoth(v, offsetAt(v, v.inlineMemo, 2), 0xFF); }},
    {"OffsetBeforeTheData", [](Victim& v) { toBoth(v, offsetAt(v, v.plain, 0), 0); }},
    // Moved rows.
    {"StubOfThreeBytes", [](Victim& v) { v.shorten(v.stub, 3); }},
    {"StubBehindTheEnd", [](Victim& v) { v.put(v.rowAt(v.stub), v.pageCount() << 8U, 4); }},
    {"StubToTheHeader", [](Victim& v) { v.put(v.rowAt(v.stub), 0, 4); }},
    {"StubToAnotherTable", [](Victim& v) { v.put(v.rowAt(v.stub), elsewhere(v), 4); }},
    {"StubToADefinition", [](Victim& v) { v.put(v.rowAt(v.stub), v.definition << 8U, 4); }},
    {"StubToNoRow", [](Victim& v) { v.put(v.rowAt(v.stub), v.target.page << 8U | 200U, 4); }},
    {"StubToItself", [](Victim& v) { v.put(v.rowAt(v.stub), v.stub.packed(), 4); }},
    // Long values.
    {"HeaderOfElevenBytes",
     [](Victim& v) {
         toBoth(v, offsetAt(v, v.singleMemo, 2), v.headerAt(v.singleMemo) - v.rowAt(v.singleMemo) + 11);
     }},
    {"InlineLongerThanItsField", [](Victim& v) { v.put(v.headerAt(v.inlineMemo), 0x80000000 | 7, 4); }},
    {"InlineOfAGigabyte", [](Victim& v) { v.put(v.headerAt(v.inlineMemo), 0xBFFFFFFF, 4); }},
    {"BothFlags", [](Victim& v) { v.put(v.headerAt(v.singleMemo), 0xC0000000 | 10, 4); }},
    {"SingleRowTooShort", [](Victim& v) { v.put(v.headerAt(v.singleMemo), 0x40000000 | 11, 4); }},
    {"SingleRowOfAnotherOwner", [](Victim& v) { v.put(v.headerAt(v.singleMemo) + 4, v.plain.packed(), 4); }},
    {"SingleRowBehindTheEnd", [](Victim& v) { v.put(v.headerAt(v.singleMemo) + 4, 0xFFFFFF00, 4); }},
    {"SingleRowThatIsNone",
     [](Victim& v) { v.put(v.headerAt(v.singleMemo) + 4, v.singleRow.packed() | 0xFEU, 4); }},
    {"ChainLongerThanTheFile", [](Victim& v) { v.put(v.headerAt(v.chainMemo), 0x3FFFFFFF, 4); }},
    {"ChainEndsEarly", [](Victim& v) { v.put(v.rowAt(v.chainFirst), 0, 4); }},
    {"ChainToAnotherOwner", [](Victim& v) { v.put(v.rowAt(v.chainFirst), v.plain.packed(), 4); }},
    {"ChainBehindTheEnd", [](Victim& v) { v.put(v.rowAt(v.chainFirst), v.pageCount() << 8U, 4); }},
    {"ChainPartOfThreeBytes", [](Victim& v) { v.shorten(v.chainFirst, 3); }},
    {"ChainPartWithoutData",
     [](Victim& v) {
         v.shorten(v.chainFirst, 4);
         v.put(v.rowAt(v.chainFirst), v.chainFirst.packed(), 4);
     }},
    {"ChainThroughADeletedRow",
     [](Victim& v) {
         v.put(v.entryAt(v.chainLast), numberAt(v.bytes, v.entryAt(v.chainLast), 2) | 0x8000U, 2);
     }},
};

class Hostile : public testing::TestWithParam<std::tuple<Version, Damage>>
{};

INSTANTIATE_TEST_SUITE_P(Each, Hostile,
                         testing::Combine(testing::Values(Version::Jet3, Version::Jet4),
                                          testing::ValuesIn(damages)),
                         [](const auto& test) {
                             const bool isFirst = std::get<0>(test.param) == Version::Jet3;
                             return std::get<1>(test.param).name + (isFirst ? "InJet3" : "InJet4");
                         });

} // namespace

TEST_P(Hostile, DamageIsAnErrorThatNamesThePage)
{
    const auto& [version, damage] = GetParam();
    Victim victim(version);
    ASSERT_FALSE(firstError(victim.bytes));
    const auto before = victim.bytes;
    damage.inflict(victim);
    ASSERT_NE(victim.bytes, before);
    const auto error = firstError(victim.bytes);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->fault(), jet::Fault::Damaged);
    EXPECT_NE(std::string(error->what()).find_first_of("0123456789"), std::string::npos) << error->what();
}
