#include "load/refDatabases.h"

#include "model/session.h"
#include "platform/hostFormat.h"
#include "platform/paths.h"
#include "support/failures.h"
#include "support/fakeHost.h"
#include "support/referenceSet.h"

#include <algorithm>
#include <optional>

namespace {

using Steps = std::vector<std::string>;

class RefDatabasesTest : public testing::Test
{
protected:
    RefDatabasesTest()
    {
        session::referenceDbPath = reference.path();
        platform::setHostLocale("de_DE.UTF-8");
        platform::setClock(platform::LocalTime{2026, 3, 9, 14, 5, 7});
    }
    void TearDown() override
    {
        session::referenceDbPath.clear();
        platform::setHostLocale("");
        platform::setClock(std::nullopt);
    }

    void addBothIndexes() const
    {
        reference.addGeoIndex();
        reference.addVeldaIndex();
    }

    // An index more, which counts for nothing but as a change of the table's definition.
    void addIndex(const char* file, const char* table) const
    {
        const auto database = dao::DBEngine::OpenDatabase(reference.file(file), false, false);
        const auto index = dao::TableDef::CreateIndex("Another");
        index->Fields().Append(dao::Index::CreateField("geo_key"));
        database->TableDefs(table)->Indexes().Append(index);
        database->Close();
    }

    [[nodiscard]] static std::string infoOfALink()
    {
        refDatabases::RefDatabases fresh;
        fresh.checkRefIndexes();
        return fresh.indexInfo();
    }

    // Whether this process has a file of the set open.
    [[nodiscard]] bool isOpen(const char* name) const
    {
        namespace fs = std::filesystem;
        std::error_code ignored;
        return std::ranges::any_of(fs::directory_iterator("/proc/self/fd"), [&](const auto& entry) {
            return fs::equivalent(entry.path(), reference.file(name), ignored);
        });
    }
    [[nodiscard]] bool nothingIsOpen() const
    {
        return !isOpen(ReferenceSet::kvr1) && !isOpen(ReferenceSet::kvr3) && !isOpen(ReferenceSet::beta);
    }

    [[nodiscard]] Steps allIndexes() const
    {
        auto names = reference.indexes(ReferenceSet::kvr1);
        for (const auto& name : reference.indexes(ReferenceSet::kvr3))
            names.push_back(name);
        return names;
    }

    FakeHost host;
    ReferenceSet reference;
    refDatabases::RefDatabases databases;
};

constexpr const char* updated = "Indexes on VeldaKvr1 and VeldaKvr3 were updated on ";
const Steps both = {"GeoIndex", "VeldaIndex"};

} // namespace

// The check of a link.

TEST_F(RefDatabasesTest, IndexesThatAreThereAreToldWithTheDateOfTheirTable)
{
    addBothIndexes();
    databases.checkRefIndexes();
    EXPECT_EQ(databases.indexInfo().substr(0, std::string(updated).size()), updated);
    EXPECT_GT(databases.indexInfo().size(), std::string(updated).size());
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(nothingIsOpen());
}

TEST_F(RefDatabasesTest, TheDateIsThatOfTheLastChangeOfTheDefinitionOfOneTable)
{
    host.waitingLoads = true;
    host.answers = {platform::Answer::Yes};
    databases.checkRefIndexes();
    platform::setClock(platform::LocalTime{2027, 1, 2, 3, 4, 5});
    reference.add(Ntc()); // rows are not the definition
    addIndex(ReferenceSet::kvr1, "kvr_geo_pt");
    EXPECT_EQ(infoOfALink(), std::string(updated) + "09.03.2026 14:05:07");
    addIndex(ReferenceSet::kvr3, "kvr_velda");
    EXPECT_EQ(infoOfALink(), std::string(updated) + "02.01.2027 03:04:05");
}

TEST_F(RefDatabasesTest, WithTheFirstIndexAloneBothAreToldAndNoneIsOffered)
{
    reference.addGeoIndex();
    databases.checkRefIndexes();
    EXPECT_EQ(databases.indexInfo().substr(0, std::string(updated).size()), updated);
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(allIndexes(), Steps{"GeoIndex"});
}

TEST_F(RefDatabasesTest, WithoutTheFirstIndexBothAreOffered)
{
    reference.addVeldaIndex();
    host.answers = {platform::Answer::No};
    databases.checkRefIndexes();
    EXPECT_EQ(host.boxes,
              (std::vector<FakeHost::Box>{{"Create index", "Index not available, do you want to create now ?",
                                           platform::Icon::None, platform::Buttons::YesNo}}));
    EXPECT_EQ(databases.indexInfo(), "No index available");
    EXPECT_TRUE(nothingIsOpen());
    EXPECT_EQ(allIndexes(), Steps{"VeldaIndex"});
}

TEST_F(RefDatabasesTest, AWindowThatCannotBeLoadedEndsTheOfferWithBothDatabasesOpenAndNoIndexMade)
{
    host.answers = {platform::Answer::Yes};
    EXPECT_EQ(failureOf([&] { databases.checkRefIndexes(); }), 424);
    EXPECT_TRUE(isOpen(ReferenceSet::kvr1));
    EXPECT_TRUE(isOpen(ReferenceSet::kvr3));
    EXPECT_EQ(databases.indexInfo(), "");
    EXPECT_EQ(allIndexes(), Steps{});
    EXPECT_TRUE(host.checkSteps.empty());
}

TEST_F(RefDatabasesTest, AnotherLinkWorksAfterOneThatEndedWithTheDatabasesOpen)
{
    host.answers = {platform::Answer::Yes, platform::Answer::No};
    EXPECT_EQ(failureOf([&] { databases.checkRefIndexes(); }), 424);
    databases.checkRefIndexes();
    EXPECT_EQ(databases.indexInfo(), "No index available");
    EXPECT_TRUE(nothingIsOpen());
}

TEST_F(RefDatabasesTest, AnOfferThatIsTakenMakesBothIndexesUnderTheWaitingWindow)
{
    host.waitingLoads = true;
    host.answers = {platform::Answer::Yes};
    databases.checkRefIndexes();
    EXPECT_EQ(allIndexes(), both);
    EXPECT_EQ(reference.rows(ReferenceSet::kvr1, "SELECT name FROM pragma_index_info('GeoIndex')"),
              (Steps{"geo_key", "long_deg", "long_min", "long_sec", "long_ew", "lat_deg", "lat_min",
                     "lat_sec", "lat_ns"}));
    EXPECT_EQ(reference.rows(ReferenceSet::kvr3, "SELECT name FROM pragma_index_info('VeldaIndex')"),
              (Steps{"freq_assgn", "op_hh_fr", "op_hh_to", "op_cls", "emi_cls", "bdwdth_cde", "stn_cls",
                     "is_notice"}));
    EXPECT_EQ(host.checkSteps, (Steps{"show waiting", "paint waiting", "paint waiting", "paint waiting",
                                      "paint waiting", "paint waiting", "close waiting"}));
    EXPECT_EQ(databases.indexInfo(), std::string(updated) + "09.03.2026 14:05:07");
    EXPECT_TRUE(nothingIsOpen());
}

TEST_F(RefDatabasesTest, IndexesMadeAtMidnightAreToldWithTheDateAlone)
{
    platform::setClock(platform::LocalTime{2026, 3, 9, 0, 0, 0});
    host.waitingLoads = true;
    host.answers = {platform::Answer::Yes};
    databases.checkRefIndexes();
    EXPECT_EQ(databases.indexInfo(), std::string(updated) + "09.03.2026");
}

// Create.

TEST_F(RefDatabasesTest, CreatingDropsBothIndexesAndThenEndsWithTheWindowThatCannotBeLoaded)
{
    addBothIndexes();
    EXPECT_EQ(failureOf([&] { databases.createRefIndexes(); }), 424);
    EXPECT_EQ(allIndexes(), Steps{});
    EXPECT_EQ(databases.indexInfo(), "No indexes on VeldaKvr1 and VeldaKvr3");
    EXPECT_TRUE(isOpen(ReferenceSet::kvr1));
    EXPECT_TRUE(isOpen(ReferenceSet::kvr3));
}

TEST_F(RefDatabasesTest, CreatingMakesBothAnewWhereTheWindowLoads)
{
    addBothIndexes();
    host.waitingLoads = true;
    databases.createRefIndexes();
    EXPECT_EQ(allIndexes(), both);
    EXPECT_EQ(databases.indexInfo(), std::string(updated) + "09.03.2026 14:05:07");
    EXPECT_TRUE(nothingIsOpen());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(RefDatabasesTest, CreatingMakesBothWhereThereWereNone)
{
    host.waitingLoads = true;
    databases.createRefIndexes();
    EXPECT_EQ(allIndexes(), both);
}

// Delete.

TEST_F(RefDatabasesTest, DeletingTakesBoth)
{
    addBothIndexes();
    databases.deleteRefIndexesIfAny();
    EXPECT_EQ(allIndexes(), Steps{});
    EXPECT_EQ(databases.indexInfo(), "No indexes on VeldaKvr1 and VeldaKvr3");
    EXPECT_TRUE(nothingIsOpen());
}

TEST_F(RefDatabasesTest, DeletingWithoutAnyChangesNothing)
{
    databases.deleteRefIndexesIfAny();
    EXPECT_EQ(databases.indexInfo(), "");
    EXPECT_TRUE(nothingIsOpen());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(RefDatabasesTest, DeletingWithTheSecondAloneFailsAtTheFirstAndKeepsIt)
{
    reference.addVeldaIndex();
    EXPECT_EQ(failureOf([&] { databases.deleteRefIndexesIfAny(); }), 3265);
    EXPECT_EQ(allIndexes(), Steps{"VeldaIndex"});
    EXPECT_EQ(databases.indexInfo(), "");
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(failureOf([&] { databases.createRefIndexes(); }), 3265);
    EXPECT_EQ(allIndexes(), Steps{"VeldaIndex"});
}

TEST_F(RefDatabasesTest, DeletingWithTheFirstAloneTakesItAndFailsAtTheSecond)
{
    reference.addGeoIndex();
    EXPECT_EQ(failureOf([&] { databases.deleteRefIndexesIfAny(); }), 3265);
    EXPECT_EQ(allIndexes(), Steps{});
    EXPECT_EQ(databases.indexInfo(), "");
}

// The paths of the two files.

TEST_F(RefDatabasesTest, AFileOfAnotherNameLeadsToAFileThatIsNotThere)
{
    session::referenceDbPath = reference.file("VELDABASEBETA-2.mdb"); // two characters longer
    EXPECT_EQ(failureOf([&] { databases.checkRefIndexes(); }), 91);
    ASSERT_EQ(host.messages.size(), 2U);
    EXPECT_EQ(host.messages[0].substr(0, 13), "Error 3024 : ");
    EXPECT_NE(host.messages[0].find(reference.file("VEVELDAKVR3.mdb")), std::string::npos)
        << host.messages[0];
    EXPECT_NE(host.messages[1].find(reference.file("VEVELDAKVR1.mdb")), std::string::npos)
        << host.messages[1];
}

TEST_F(RefDatabasesTest, AFileOfAnotherNameOfTheSameLengthIsAsGood)
{
    reference.addGeoIndex();
    session::referenceDbPath = reference.file("something-els.mdb");
    databases.checkRefIndexes();
    EXPECT_NE(databases.indexInfo(), "");
}

TEST_F(RefDatabasesTest, APathThatIsShorterThanTheNameFails)
{
    for (const char* path : {"", "short.mdb", "ELDABASEBETA.mdb"}) {
        session::referenceDbPath = path;
        EXPECT_EQ(failureOf([&] { databases.checkRefIndexes(); }), 5);
    }
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(RefDatabasesTest, CharactersAreCutAndNotBytes)
{
    reference.addGeoIndex();
    session::referenceDbPath = reference.file("V\xC3\x84LDABASEB\xC3\x8BTA.mdb");
    databases.checkRefIndexes();
    EXPECT_NE(databases.indexInfo(), "");
}

TEST_F(RefDatabasesTest, TheFilesAreFoundWhateverTheCaseOfTheirNames)
{
    reference.addGeoIndex();
    std::filesystem::rename(reference.file(ReferenceSet::kvr1), reference.file("veldakvr1.MDB"));
    std::filesystem::rename(reference.file(ReferenceSet::kvr3), reference.file("VeldaKvr3.mdb"));
    databases.checkRefIndexes();
    EXPECT_NE(databases.indexInfo(), "");
    EXPECT_TRUE(host.boxes.empty());
}

struct LostFile
{
    const char* name;
    const char* file;
};

class EachFile : public RefDatabasesTest, public testing::WithParamInterface<LostFile>
{};

INSTANTIATE_TEST_SUITE_P(Of, EachFile,
                         testing::Values(LostFile{"kvr1", ReferenceSet::kvr1},
                                         LostFile{"kvr3", ReferenceSet::kvr3}),
                         [](const auto& row) { return row.param.name; });

TEST_P(EachFile, ThatIsMissingIsToldByItsNameAndThenTheHandleIsNotSet)
{
    addBothIndexes();
    const auto path = reference.file(GetParam().file);
    std::filesystem::remove(path);
    EXPECT_EQ(failureOf([&] { databases.checkRefIndexes(); }), 91);
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0].substr(0, 13), "Error 3024 : ");
    EXPECT_NE(host.messages[0].find(path), std::string::npos) << host.messages[0];
}

TEST_P(EachFile, ThatIsNoDatabaseIsRefused)
{
    std::filesystem::copy_file(platform::programDirectory() + "/load_test", reference.file(GetParam().file),
                               std::filesystem::copy_options::overwrite_existing);
    EXPECT_EQ(failureOf([&] { databases.deleteRefIndexesIfAny(); }), 91);
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0].substr(0, 13), "Error 3343 : ");
}

TEST_P(EachFile, WithoutItsTableFailsWithTheEnginesItemNotFound)
{
    reference.execute(GetParam().file,
                      std::string("DROP TABLE ") +
                          (GetParam().file == ReferenceSet::kvr1 ? "kvr_geo_pt" : "kvr_velda"));
    EXPECT_EQ(failureOf([&] { databases.checkRefIndexes(); }), 3265);
    EXPECT_TRUE(host.boxes.empty());
}
