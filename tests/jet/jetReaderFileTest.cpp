#include "jet/jetFile.h"
#include "jet/rc4.h"
#include "jet/secondLook.h"
#include "support/jetText.h"
#include "support/temporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <span>
#include <utility>
#include <vector>

// The file around the rows: what is refused, what is encoded, and what changes while it is read.
namespace {

std::string sampleBytes(const std::string& name)
{
    std::ifstream stream(std::filesystem::path(ZEPH_TEST_DIR) / "data/jet" / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string sampleText(const std::string& name, const std::string& table)
{
    return jetTableText(jet::File(std::filesystem::path(ZEPH_TEST_DIR) / "data/jet" / name), table);
}

template <class Action>
jet::Fault faultOf(Action action)
{
    try {
        action();
    } catch (const jet::Error& error) {
        return error.fault();
    }
    throw std::logic_error("nothing was wrong");
}

jet::Fault openingFault(const std::filesystem::path& path)
{
    return faultOf([&] { const jet::File file(path); });
}

// As the original engine encodes: the header names the key, each page after it has a key of its own.
std::string encoded(std::string bytes, std::size_t pageSize, std::uint32_t key)
{
    const std::span<char> all(bytes);
    const auto header = all.subspan(0x18, 126);
    jet::applyKeyStream(0x6B39DAC7, header);
    for (std::size_t i = 0; i < 4; ++i)
        bytes[0x3E + i] = static_cast<char>(key >> (8 * i));
    jet::applyKeyStream(0x6B39DAC7, header);
    for (std::size_t page = 1; page < bytes.size() / pageSize; ++page)
        jet::applyKeyStream(key ^ static_cast<std::uint32_t>(page), all.subspan(page * pageSize, pageSize));
    return bytes;
}

TEST(JetFile, thatIsEncodedGivesTheSameRows)
{
    const std::vector<std::pair<std::string, std::size_t>> files = {{"jet4/work200.mdb", 4096},
                                                                    {"jet3/work97_1251.mdb", 2048}};
    for (const auto& [name, pageSize] : files) {
        const TemporaryFolder folder;
        const auto bytes = encoded(sampleBytes(name), pageSize, 0x89ABCDEF);
        ASSERT_NE(bytes.substr(2 * pageSize, pageSize), sampleBytes(name).substr(2 * pageSize, pageSize));
        const jet::File file(folder.write("encoded.mdb", bytes));
        for (const auto& entry : file.catalogue())
            EXPECT_EQ(jetTableText(file, entry.name), sampleText(name, entry.name)) << entry.name;
        EXPECT_EQ(file.catalogue().size(), 15U);
    }
}

TEST(JetFile, thatIsMissingOrNoFileIsToldApart)
{
    const TemporaryFolder folder;
    EXPECT_EQ(openingFault(folder.file("none.mdb")), jet::Fault::Missing);
    EXPECT_EQ(openingFault(folder.path() / "none" / "none.mdb"), jet::Fault::Missing);
    EXPECT_EQ(openingFault(folder.path()), jet::Fault::NoPermission);
    EXPECT_FALSE(jet::File::hasMark(folder.file("none.mdb")));
    EXPECT_FALSE(jet::File::hasMark(folder.path()));
}

TEST(JetFile, ofAnotherKindIsRefused)
{
    const TemporaryFolder folder;
    const auto good = sampleBytes("v1997/testV1997.mdb");
    auto otherName = good;
    otherName[13] = 'X';
    auto otherStart = good;
    otherStart[1] = 0;
    for (const auto& bytes : {std::string(), good.substr(0, 20), otherName, otherStart,
                              std::string("Notices of the year, in plain words.\n")}) {
        const auto path = folder.write("other.mdb", bytes);
        EXPECT_FALSE(jet::File::hasMark(path));
        EXPECT_EQ(openingFault(path), jet::Fault::Unrecognized);
    }
}

TEST(JetFile, ofANewerVersionHasTheMarkAndIsRefused)
{
    const TemporaryFolder folder;
    auto bytes = sampleBytes("v2000/overflowTestV2000.mdb");
    for (const int version : {2, 3, 5, 255}) {
        bytes[20] = static_cast<char>(version);
        const auto path = folder.write("newer.mdb", bytes);
        EXPECT_TRUE(jet::File::hasMark(path));
        EXPECT_EQ(openingFault(path), jet::Fault::Unrecognized);
    }
}

TEST(JetFile, thatEndsBeforeItsCatalogueIsDamaged)
{
    const TemporaryFolder folder;
    const auto bytes = sampleBytes("v1997/testV1997.mdb");
    for (const std::size_t size : {21, 64, 2048, 6143})
        EXPECT_EQ(openingFault(folder.write("short.mdb", bytes.substr(0, size))), jet::Fault::Damaged);
}

// What is wrong with the file, nothing when its table is read as it should be.
std::string damageOf(const std::filesystem::path& path, const std::string& table, const std::string& wanted)
{
    try {
        return jetTableText(jet::File(path), table) == wanted ? "" : "other rows";
    } catch (const jet::Error& error) {
        return error.fault() == jet::Fault::Damaged ? error.what() : "another fault";
    }
}

TEST(JetFile, cutAnywhereIsReadOrDamagedAndNothingElse)
{
    const TemporaryFolder folder;
    const auto bytes = sampleBytes("v1997/indexTestV1997.mdb");
    const auto whole = sampleText("v1997/indexTestV1997.mdb", "Table1");
    constexpr std::size_t threePages = 6144;
    int damaged = 0;
    for (std::size_t size = threePages; size < bytes.size(); size += 1024) {
        const auto damage = damageOf(folder.write("cut.mdb", bytes.substr(0, size)), "Table1", whole);
        EXPECT_TRUE(damage.empty() || damage.find("page ") != std::string::npos) << damage;
        damaged += damage.empty() ? 0 : 1;
    }
    EXPECT_GT(damaged, 10);
}

TEST(JetFile, stampTellsSizeTimeAndCommitsApart)
{
    const TemporaryFolder folder;
    auto bytes = sampleBytes("v1997/testV1997.mdb");
    const std::filesystem::path path = folder.write("file.mdb", bytes);
    const auto time = std::filesystem::last_write_time(path);
    const jet::File file(path);
    const auto first = file.stamp();
    EXPECT_EQ(first.size, bytes.size());
    EXPECT_EQ(first.commitBytes[2], 0x14); // the second slot
    EXPECT_EQ(first.commitBytes[3], 0x01);
    EXPECT_EQ(file.stamp(), first);

    bytes[0x602] = 0x15;
    static_cast<void>(folder.write("file.mdb", bytes));
    std::filesystem::last_write_time(path, time);
    const auto committed = file.stamp();
    EXPECT_EQ(committed.modified, first.modified);
    EXPECT_NE(committed, first);

    std::filesystem::last_write_time(path, time + std::chrono::nanoseconds(1000));
    EXPECT_EQ(file.stamp().modified, first.modified + 1000);
}

TEST(JetFile, stampOfTheNewerVersionHasTheLastBytesOfItsLongerPage)
{
    const auto bytes = sampleBytes("jet4/work200.mdb");
    const TemporaryFolder folder;
    const auto stamp = jet::File(folder.write("file.mdb", bytes)).stamp();
    for (std::size_t i = 0; i < stamp.commitBytes.size(); ++i)
        EXPECT_EQ(stamp.commitBytes[i], static_cast<std::uint8_t>(bytes[0xE00 + i]));
}

TEST(JetFile, thatBecomesShorterWhileItsRowsAreReadIsDamaged)
{
    const TemporaryFolder folder;
    const auto bytes = sampleBytes("jet3/ref/VELDAKVR3.mdb");
    const auto path = folder.write("file.mdb", bytes);
    const jet::File file(path);
    const auto table = file.table("kvr_velda");
    auto rows = file.rows(table);
    ASSERT_TRUE(rows.next());
    std::filesystem::resize_file(path, bytes.size() / 2 + 100);
    EXPECT_EQ(faultOf([&] {
                  while (rows.next()) {
                  }
              }),
              jet::Fault::Damaged);
}

TEST(JetFile, goesOnWhereItStoodOnceTheDamageIsMended)
{
    const TemporaryFolder folder;
    const auto bytes = sampleBytes("jet3/ref/VELDAKVR3.mdb");
    const auto path = folder.write("file.mdb", bytes);
    const jet::File file(path);
    const auto table = file.table("kvr_velda");
    const auto keysFrom = [](jet::Rows& rows, std::vector<int> keys = {}) {
        while (rows.next())
            keys.push_back(rows.integer(0));
        return keys;
    };
    auto undisturbed = file.rows(table);
    const auto wanted = keysFrom(undisturbed);

    auto rows = file.rows(table);
    std::filesystem::resize_file(path, bytes.size() / 2);
    std::vector<int> keys;
    const auto readOn = [&] {
        while (rows.next())
            keys.push_back(rows.integer(0));
    };
    EXPECT_EQ(faultOf(readOn), jet::Fault::Damaged);
    EXPECT_GT(keys.size(), 0U);
    EXPECT_LT(keys.size(), 2000U);
    static_cast<void>(folder.write("file.mdb", bytes));
    EXPECT_EQ(keysFrom(rows, keys), wanted);
}

TEST(JetFile, thatIsReplacedStaysTheOneThatWasOpened)
{
    const TemporaryFolder folder;
    const auto path = folder.write("file.mdb", sampleBytes("v1997/testV1997.mdb"));
    const jet::File file(path);
    const auto before = file.stamp();
    const auto other = folder.write("other.mdb", sampleBytes("jet4/work200.mdb"));
    std::filesystem::rename(other, path);
    EXPECT_EQ(file.stamp(), before);
    EXPECT_EQ(jetTableText(file, "Table1"), sampleText("v1997/testV1997.mdb", "Table1"));
}

[[noreturn]] void raise(jet::Fault fault)
{
    throw jet::Error(fault, "wrong");
}

TEST(JetSecondLook, isTakenOnceAtDamage)
{
    int looks = 0;
    bool isForgotten = false;
    const auto good = jet::withSecondLook(
        [&] {
            if (++looks == 1)
                raise(jet::Fault::Damaged);
            return isForgotten;
        },
        [&] { isForgotten = true; });
    EXPECT_TRUE(good);
    EXPECT_EQ(looks, 2);
}

TEST(JetSecondLook, isTheLastOneAndOnlyForDamage)
{
    for (const auto& [fault, wanted] : {std::pair(jet::Fault::Damaged, 2), std::pair(jet::Fault::Disk, 1)}) {
        int looks = 0;
        const auto look = [&looks, fault = fault]() -> int {
            ++looks;
            raise(fault);
        };
        EXPECT_EQ(faultOf([&] { jet::withSecondLook(look, [] {}); }), fault);
        EXPECT_EQ(looks, wanted);
    }
}

} // namespace
