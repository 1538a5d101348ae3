// Files that are none, that are cut, that change under the reader's hands, that would keep it busy for ever,
// and thousands with bytes changed at random.
#include "fuzz/fuzzFile.h"
#include "fuzz/jetFuzz.h"
#include "jet/victim.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>

using namespace jetWriter;

namespace {

using namespace std::string_literals;

class HostileFile : public testing::TestWithParam<Version>
{
protected:
    HostileFile() : victim(GetParam()) {}

    [[nodiscard]] static std::size_t page() { return pageSize(GetParam()); }

    Victim victim;
};

INSTANTIATE_TEST_SUITE_P(Both, HostileFile, testing::Values(Version::Jet3, Version::Jet4), versionName);

std::optional<jet::Fault> faultOf(const std::string& bytes)
{
    const auto error = firstError(bytes);
    return error ? std::optional(error->fault()) : std::nullopt;
}

// Reads all of it, however damaged, and gives it some seconds, which are many on a slow host.
jetFuzz::Seen readInTime(const std::string& bytes)
{
    const TemporaryFolder folder;
    const auto start = std::chrono::steady_clock::now();
    const auto seen = jetFuzz::run(folder.file("hostile.mdb"), bytes);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    return seen;
}

Table oneColumn(const char* name, Type type)
{
    Table table;
    table.name = name;
    table.add("v", type);
    return table;
}

FileForm formOf(Version version)
{
    FileForm form;
    form.version = version;
    return form;
}

std::string bytesOf(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// The same numbers on every host.
class Changes
{
public:
    explicit Changes(std::uint32_t seed) : m_random(seed) {}

    // Some bytes anywhere, or where the pages keep their numbers.
    std::string changed(std::string bytes)
    {
        const std::size_t size = bytes.at(0x14) == 0 ? 2048 : 4096;
        for (auto left = 1 + below(12); left > 0; --left) {
            const bool isHead = below(2) == 0;
            const auto at = isHead ? below(bytes.size() / size) * size + below(96) : below(bytes.size());
            bytes[at] = value(bytes[at]);
        }
        return bytes;
    }

private:
    std::size_t below(std::size_t bound) { return m_random() % bound; }
    char value(char before)
    {
        static constexpr std::array<unsigned char, 6> odd{0, 1, 0x7F, 0x80, 0xFE, 0xFF};
        switch (below(3)) {
        case 0:
            return static_cast<char>(odd.at(below(odd.size())));
        case 1:
            return static_cast<char>(before + (below(2) == 0 ? 1 : -1));
        default:
            return static_cast<char>(below(256));
        }
    }

    std::mt19937 m_random;
};

// More than one for a long run by hand.
std::size_t timesAsMany()
{
    const char* text = std::getenv("ZEPH_JET_VARIANTS");
    return text ? std::max<std::size_t>(1, std::strtoul(text, nullptr, 10)) : 1;
}

// How often the reader came through one of the changed files as if nothing were wrong.
std::size_t readVariants(const std::string& bytes, std::size_t count)
{
    const TemporaryFolder folder;
    Changes changes(20000);
    std::size_t whole = 0;
    for (std::size_t i = 0; i < count * timesAsMany(); ++i) {
        const auto start = std::chrono::steady_clock::now();
        whole += jetFuzz::run(folder.file("variant.mdb"), changes.changed(bytes)).isWhole ? 1 : 0;
        const auto passed = std::chrono::steady_clock::now() - start;
        EXPECT_LT(passed, std::chrono::seconds(20)) << "variant " << i;
    }
    return whole;
}

} // namespace

TEST(HostileFiles, WhatIsNoFileOfTheseVersionsIsUnrecognized)
{
    const auto sound = Victim(Version::Jet4).bytes;
    EXPECT_EQ(faultOf(""), jet::Fault::Unrecognized);
    EXPECT_EQ(faultOf(sound.substr(0, 20)), jet::Fault::Unrecognized);
    EXPECT_EQ(faultOf("<HEAD>\r\nt_char=ISO-8859-1\r\n</HEAD>\r\n"), jet::Fault::Unrecognized);
    EXPECT_EQ(faultOf(std::string(100000, 'x')), jet::Fault::Unrecognized);
    EXPECT_EQ(faultOf(std::string(100000, '\0')), jet::Fault::Unrecognized);
    for (const int version : {2, 3, 4, 5, 127, 255}) {
        auto later = sound;
        putNumber(later, 0x14, static_cast<std::uint64_t>(version), 1);
        EXPECT_EQ(faultOf(later), jet::Fault::Unrecognized) << version;
    }
    auto other = sound;
    other.replace(4, 15, "Standard ACE DB");
    EXPECT_EQ(faultOf(other), jet::Fault::Unrecognized);
    other.replace(4, 16, "Standard Jet DBs");
    EXPECT_EQ(faultOf(other), jet::Fault::Unrecognized);
    auto start = sound;
    putNumber(start, 1, 0, 1);
    EXPECT_EQ(faultOf(start), jet::Fault::Unrecognized);
}

TEST(HostileFiles, WhatIsNotThereOrAFolderIsAnErrorOfItsOwn)
{
    const TemporaryFolder folder;
    EXPECT_THROW(jet::File(folder.file("missing.mdb")), jet::Error);
    EXPECT_THROW(jet::File{folder.path()}, jet::Error);
    EXPECT_FALSE(jet::File::hasMark(folder.file("missing.mdb")));
    EXPECT_FALSE(jet::File::hasMark(folder.path()));
}

TEST_P(HostileFile, CutAnywhereItGivesRowsOrAnError)
{
    for (std::size_t at = 0; at < victim.bytes.size(); at += page())
        for (const std::size_t length : {at, at + 1, at + page() / 2, at + page() - 1}) {
            const bool hasAll = length >= victim.bytes.size() - page(); // nobody needs the last page
            EXPECT_EQ(readInTime(victim.bytes.substr(0, length)).isWhole, hasAll) << length;
        }
}

TEST_P(HostileFile, EachPageOfNothingGivesRowsOrAnError)
{
    for (std::size_t at = page(); at < victim.bytes.size(); at += page())
        for (const char filler : {'\0', '\1', '\2', '\5', '\xFF'}) {
            auto bytes = victim.bytes;
            bytes.replace(at, page(), page(), filler);
            readInTime(bytes);
        }
}

TEST_P(HostileFile, ThatShrinksAfterItWasOpenedIsAnError)
{
    const TemporaryFolder folder;
    for (std::size_t size = 0; size < victim.pageAt(victim.dataPage + 1); size += page() / 2) {
        SCOPED_TRACE(size);
        const jet::File file(folder.write("shrinking.mdb", victim.bytes));
        const auto table = file.table("T");
        std::filesystem::resize_file(folder.file("shrinking.mdb"), size);
        EXPECT_THROW(for (auto rows = file.rows(table); rows.next();) static_cast<void>(rows.integer(0)),
                     jet::Error);
    }
}

TEST_P(HostileFile, ThatIsOverwrittenWhileItIsReadGivesRowsOrAnError)
{
    const TemporaryFolder folder;
    const auto path = folder.write("changing.mdb", victim.bytes);
    const jet::File file(path);
    const auto table = file.table("T");
    auto rows = file.rows(table);
    ASSERT_TRUE(rows.next());
    const auto other = GetParam() == Version::Jet3 ? Version::Jet4 : Version::Jet3;
    fuzzFile::write(path, Victim(other).bytes);
    jetFuzz::Seen seen;
    try {
        while (rows.next())
            jetFuzz::readRow(table, rows, seen);
    } catch (const jet::Error&) {
        seen.isWhole = false;
    }
    EXPECT_EQ(file.stamp().size, std::filesystem::file_size(path));
}

TEST_P(HostileFile, DefinitionPagesInACircleEnd)
{
    for (const auto next : {victim.wideContinuation, victim.wideDefinition}) {
        auto circle = victim;
        circle.put(circle.pageAt(circle.wideContinuation) + 4, next, 4);
        readInTime(circle.bytes);
        circle.put(circle.pageAt(circle.wideDefinition) + 8, 0x7FFFFFFF, 4);
        readInTime(circle.bytes);
    }
}

TEST_P(HostileFile, StubsThatPointToOneAnotherAreDamage)
{
    victim.put(victim.rowAt(victim.target), victim.stub.packed(), 4);
    victim.put(victim.entryAt(victim.target),
               numberAt(victim.bytes, victim.entryAt(victim.target), 2) | 0xC000U, 2);
    EXPECT_EQ(faultOf(victim.bytes), jet::Fault::Damaged);
}

TEST_P(HostileFile, AChainInACircleEndsWithItsLength)
{
    victim.put(victim.rowAt(victim.chainLast), victim.chainFirst.packed(), 4);
    victim.put(victim.headerAt(victim.chainMemo), victim.bytes.size() - 1, 4);
    readInTime(victim.bytes);
    victim.put(victim.headerAt(victim.chainMemo), victim.bytes.size() + 1, 4);
    EXPECT_EQ(faultOf(victim.bytes), jet::Fault::Damaged);
}

TEST_P(HostileFile, OneLongValueInThousandsOfRowsIsReadOnDemand)
{
    const auto bytes = fileBytes(formOf(GetParam()), [](FileWriter& writer) {
        auto& table = writer.addTable(oneColumn("T", Type::Ole));
        const auto cell = writer.chainValue(Bytes(1000000, 'x'));
        for (int i = 0; i < 20000; ++i)
            table.add({cell});
    });
    const ReadBack back(bytes);
    const auto table = back.file().table("T");
    std::size_t count = 0;
    for (auto rows = back.file().rows(table); rows.next(); ++count)
        ASSERT_FALSE(rows.isNull(0));
    EXPECT_EQ(count, 20000U);
    EXPECT_GE(readInTime(bytes).bytes, jetFuzz::Seen::enough);
}

TEST_P(HostileFile, AMapThatNamesOnePageManyTimesGivesEachRowOnce)
{
    std::uint32_t map = 0;
    auto bytes = fileBytes(formOf(GetParam()), [&](FileWriter& writer) {
        TableForm form;
        form.map = MapKind::Pages;
        auto& table = writer.addTable(oneColumn("T", Type::Long), form);
        for (int i = 0; i < 3; ++i)
            table.add({longValue(i)});
        writer.finish();
        map = table.places().map;
    });
    const std::size_t start =
        (map >> 8U) * page() + numberAt(bytes, (map >> 8U) * page() + page() / 2048 * 4 + 6, 2); // row 0
    ASSERT_EQ(map & 0xFFU, 0U);
    const auto mapPage = numberAt(bytes, start + 1, 4);
    for (std::size_t i = 1; i < (GetParam() == Version::Jet3 ? 33U : 17U); ++i)
        putNumber(bytes, start + 1 + 4 * i, mapPage, 4);
    EXPECT_EQ(ReadBack(bytes).rows("T"), (Lines{"0", "1", "2"}));
}

TEST_P(HostileFile, ThousandsOfNamesForOneTableEnd)
{
    std::vector<std::string> names;
    const auto bytes = fileBytes(formOf(GetParam()), [](FileWriter& writer) {
        auto& table = writer.addTable(oneColumn("T", Type::Long));
        table.add({longValue(1)});
        Object object;
        object.id = static_cast<std::int32_t>(table.definitionPages().at(0));
        for (int i = 0; i < 5000; ++i) {
            object.name = "T" + std::to_string(i);
            writer.addObject(object);
        }
    });
    EXPECT_EQ(readInTime(bytes).tables, 5001U);
}

TEST_P(HostileFile, ThousandsOfStubsWithOneTargetEnd)
{
    const auto bytes = fileBytes(formOf(GetParam()), [](FileWriter& writer) {
        auto& table = writer.addTable(oneColumn("T", Type::Long));
        const auto target =
            table.addBytesElsewhere(rowBytes(GetParam(), table.table(), {longValue(7)}), skippedRow);
        for (int i = 0; i < 50000; ++i)
            table.addBytes(number(target.packed(), 4), movedRow);
    });
    EXPECT_EQ(readInTime(bytes).rows, 50000U);
}

TEST_P(HostileFile, ACatalogueWithoutAColumnOrWithOneOfAnotherTypeIsDamage)
{
    const std::size_t head = GetParam() == Version::Jet3 ? 43 + 2 * 8 : 63 + 2 * 12;
    const std::size_t entry = GetParam() == Version::Jet3 ? 18 : 25;
    const auto at = victim.pageAt(2) + head;
    for (const std::string name : {"Id", "Name", "Type", "Flags"}) {
        SCOPED_TRACE(name);
        const Bytes stored = asciiText(GetParam(), name);
        const auto found = victim.bytes.find(
            number(stored.size(), GetParam() == Version::Jet3 ? 1 : 2) + stored, at + 17 * entry);
        ASSERT_NE(found, std::string::npos);
        auto renamed = victim.bytes;
        renamed[found + (GetParam() == Version::Jet3 ? 1 : 2)] = 'X';
        EXPECT_EQ(faultOf(renamed), jet::Fault::Damaged);
    }
    for (std::size_t column = 0; column < 17; ++column)
        for (const int type : {0, 1, 4, 10, 12, 17, 255}) {
            auto retyped = victim.bytes;
            putNumber(retyped, at + column * entry, static_cast<std::uint64_t>(type), 1);
            readInTime(retyped);
        }
}

TEST_P(HostileFile, EveryByteOfItsDefinitionMayBeAnyOfSome)
{
    const auto at = victim.pageAt(victim.definition);
    const TemporaryFolder folder;
    for (std::size_t i = 0; i < 300; ++i)
        for (const char value : {'\0', '\1', '\x7F', '\x80', '\xFF'}) {
            auto bytes = victim.bytes;
            bytes[at + i] = value;
            jetFuzz::run(folder.file("byte.mdb"), bytes);
        }
}

TEST_P(HostileFile, ThousandsOfSmallVariantsGiveRowsOrAnError)
{
    const auto whole = readVariants(victim.bytes, 3000);
    EXPECT_GT(whole, 0U); // both happen
    EXPECT_LT(whole, 3000U * timesAsMany());
}

TEST_P(HostileFile, VariantsOfAnEncodedFileGiveRowsOrAnError)
{
    readVariants(encodedFile(victim.bytes, 0x1234567), 300);
}

namespace {

class HostileVariants : public testing::TestWithParam<const char*>
{};

INSTANTIATE_TEST_SUITE_P(
    Of, HostileVariants,
    testing::Values("jet3/ref/VELDABASEBETA.mdb", "jet3/ref/VELDAKVR1.mdb", "jet3/ref/VELDAKVR3.mdb",
                    "jet3/work97_1251.mdb", "jet3/work97_1252.mdb", "jet4/MasterKVR_QRS.mdb",
                    "jet4/ref/VELDABASEBETA.mdb", "jet4/ref/VELDAKVR1.mdb", "jet4/ref/VELDAKVR3.mdb",
                    "jet4/work200.mdb", "jet4/worktypes.mdb", "v1997/compIndexTestV1997.mdb",
                    "v1997/indexTestV1997.mdb", "v1997/testV1997.mdb", "v2000/overflowTestV2000.mdb",
                    "v2000/testUnicodeCompV2003.mdb"),
    [](const auto& test) {
        std::string name = test.param;
        std::replace_if(
            name.begin(), name.end(), [](char letter) { return !std::isalnum(letter); }, '_');
        return name;
    });

} // namespace

TEST_P(HostileVariants, GiveRowsOrAnError)
{
    const auto bytes = bytesOf(std::filesystem::path(ZEPH_TEST_DIR) / "data/jet" / GetParam());
    ASSERT_FALSE(bytes.empty());
    readVariants(bytes, 200);
}
