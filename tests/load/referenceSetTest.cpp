// The check of site names against sets that are made by rules of their own.
#include "loadFixture.h"

#include "load/checkTarget.h"
#include "tools/noticeGenerator.h"
#include "tools/referenceSet.h"

#include <sstream>

namespace {

constexpr int notices = 1000;

// Takes the filling off every second class of emission.
std::string withShortEmissions(std::string text)
{
    bool shorten = false;
    for (auto at = text.find("t_trg_emi_cls"); at != std::string::npos;
         at = text.find("t_trg_emi_cls", at + 1)) {
        const auto end = text.find("\r\n", at);
        if (shorten && text.compare(end - 2, 2, "--") == 0)
            text.erase(end - 2, 2);
        shorten = !shorten;
    }
    return text;
}

class ReferenceSetCheck : public LoadFixture
{
protected:
    // Loads notices and makes a set that is consistent with them.
    void prepare(bool withIndexes)
    {
        const auto& folder = work.folder();
        noticeGenerator::writeNoticeFile(folder.file("made.txt"), {.count = notices, .seed = 7});
        load(withShortEmissions(folder.read("made.txt")));
        options = {4000, 7, actingNotices::readFile(folder.file("notices.txt"))};
        expected = referenceSet::write(folder.file("set"), options, withIndexes);
        session::workingDbPath = work.path();
        session::referenceDbPath = folder.file("set/VELDABASEBETA.mdb");
    }

    [[nodiscard]] Texts expectedLines() const
    {
        Texts lines;
        for (std::size_t place = 0; place < expected.size(); ++place) {
            const int count = expected[place].count;
            const auto* outcome = count == 0   ? " has no target"
                                  : count == 1 ? " target found"
                                               : " has more than one target";
            lines.push_back("Notice No: " + std::to_string(options.notices[place].number) + outcome);
        }
        lines.emplace_back("DONE");
        return lines;
    }

    // Name and country of each notice that finds one target, with its number.
    [[nodiscard]] Texts expectedSites() const
    {
        const auto shown = [](const std::string& text) { return text.empty() ? "(null)" : text; };
        Texts sites;
        for (std::size_t place = 0; place < expected.size(); ++place) {
            const auto& answer = expected[place];
            if (answer.count == 1)
                sites.push_back(std::to_string(options.notices[place].number) + "|" +
                                shown(answer.site_name) + "|" + shown(answer.ctry));
        }
        return sites;
    }

    // Those that the check stored: a loaded notice that ends an assignment names neither.
    [[nodiscard]] Texts storedSites() const
    {
        Texts stored;
        for (std::size_t place = 0; place < expected.size(); ++place) {
            if (expected[place].count != 1)
                continue;
            const auto rows =
                work.rows("SELECT veldakey, site_name, ctry FROM kvr_velda JOIN kvr_geo USING (geo_key) "
                          "WHERE veldakey = " +
                          std::to_string(options.notices[place].number));
            stored.insert(stored.end(), rows.begin(), rows.end());
        }
        return stored;
    }

    [[nodiscard]] std::ptrdiff_t notNamed(int count) const
    {
        return std::count_if(expected.begin(), expected.end(),
                             [&](const auto& answer) { return answer.count == count; });
    }

    referenceRows::Options options;
    std::vector<referenceRows::Answer> expected;
};

class ReferenceSetCheckEitherWay : public ReferenceSetCheck, public testing::WithParamInterface<bool>
{};

INSTANTIATE_TEST_SUITE_P(Indexes, ReferenceSetCheckEitherWay, testing::Bool(),
                         [](const auto& test) { return test.param ? "With" : "Without"; });

std::string dumpOf(const std::string& folder)
{
    std::ostringstream rows;
    referenceSet::dump(folder, rows);
    return rows.str();
}

using Texts = std::vector<std::string>;

Texts namesIn(const TemporaryFolder& folder)
{
    Texts names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

const std::vector<actingNotices::ActingNotice> noNotices;

} // namespace

TEST_P(ReferenceSetCheckEitherWay, TheCheckFindsWhatTheMakerOfTheSetExpects)
{
    prepare(GetParam());
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.errorLines, expectedLines());
    EXPECT_EQ(storedSites(), expectedSites());
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(ReferenceSetCheck, NoticesFindNoneOneAndSeveralAndNamesAndCountriesThatAreNull)
{
    prepare(true);
    EXPECT_GT(notNamed(0), 10);
    EXPECT_GT(notNamed(1), 10);
    EXPECT_GT(notNamed(2) + notNamed(3), 10);
    const auto sites = expectedSites();
    const auto with = [&](const std::string& end) {
        return std::count_if(sites.begin(), sites.end(),
                             [&](const auto& site) { return site.ends_with(end); });
    };
    EXPECT_GT(with("|(null)"), 1);
    EXPECT_GT(std::count_if(sites.begin(), sites.end(),
                            [](const auto& site) { return site.find("|(null)|") != std::string::npos; }),
              1);
    const auto zones = std::count_if(options.notices.begin(), options.notices.end(),
                                     [](const auto& notice) { return !notice.zone_id.empty(); });
    EXPECT_GT(zones, 1);
}

TEST(MakeReference, ASeedGivesTheSameRowsAndAnotherSeedOthers)
{
    const TemporaryFolder folder;
    for (const auto& [name, seed] : {std::pair("first", 5U), std::pair("again", 5U), std::pair("other", 6U)})
        referenceSet::write(folder.file(name), {50, seed, noNotices}, true);
    EXPECT_EQ(dumpOf(folder.file("first")), dumpOf(folder.file("again")));
    EXPECT_NE(dumpOf(folder.file("first")), dumpOf(folder.file("other")));
}

TEST(MakeReference, TablesHaveTheColumnsOfAWorkingDatabase)
{
    const TemporaryFolder folder;
    referenceSet::write(folder.path().string(), {1, 1, noNotices}, true);
    const WorkingDatabase work;
    for (const auto& [file, table] : {std::pair("VELDABASEBETA.mdb", "kvr_geo"),
                                      {"VELDAKVR1.mdb", "kvr_geo_pt"},
                                      {"VELDAKVR3.mdb", "kvr_velda"}}) {
        const auto columns = "SELECT name, type, pk FROM pragma_table_info('" + std::string(table) + "')";
        EXPECT_EQ(rowsOf(folder.file(file), columns), work.rows(columns)) << table;
    }
}

TEST(MakeReference, TheIndexesStandOnlyWhereTheyAreWanted)
{
    const TemporaryFolder folder;
    const auto indexes = [&](const char* file) {
        return rowsOf(folder.file(file), "SELECT name FROM sqlite_schema WHERE type = 'index' ORDER BY name");
    };
    referenceSet::write(folder.path().string(), {1, 1, noNotices}, true);
    EXPECT_EQ(indexes("VELDAKVR1.mdb"), (Texts{"GeoIndex", "geo_pt_site"}));
    EXPECT_EQ(indexes("VELDAKVR3.mdb"), (Texts{"VeldaIndex"}));
    referenceSet::write(folder.path().string(), {1, 1, noNotices}, false);
    EXPECT_EQ(indexes("VELDAKVR1.mdb"), (Texts{"geo_pt_site"}));
    EXPECT_EQ(indexes("VELDAKVR3.mdb"), Texts());
}

TEST(MakeReference, AFailureLeavesTheSetThatStoodThere)
{
    const TemporaryFolder folder;
    referenceSet::write(folder.path().string(), {20, 1, noNotices}, true);
    const auto before = dumpOf(folder.path().string());
    actingNotices::ActingNotice notice;
    notice.adm = "QVA";
    EXPECT_THROW(referenceSet::write(folder.path().string(), {1, 2, {notice, notice, notice}}, true),
                 std::runtime_error);
    EXPECT_EQ(dumpOf(folder.path().string()), before);
    EXPECT_EQ(namesIn(folder), (Texts{"VELDABASEBETA.mdb", "VELDAKVR1.mdb", "VELDAKVR3.mdb"}));
}

TEST(MakeReference, AFolderInTheWayLeavesTheOtherFilesAsTheyWere)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "VELDABASEBETA.mdb");
    folder.write("VELDAKVR3.mdb", "kept");
    EXPECT_THROW(referenceSet::write(folder.path().string(), {20, 1, noNotices}, true), std::runtime_error);
    EXPECT_EQ(folder.read("VELDAKVR3.mdb"), "kept");
    EXPECT_EQ(namesIn(folder), (Texts{"VELDABASEBETA.mdb", "VELDAKVR3.mdb"}));
}

TEST(MakeReference, AJournalThatALostSetLeftIsNotRolledIntoTheNewOne)
{
    const TemporaryFolder folder;
    folder.write("VELDAKVR3.mdb-journal", "half a transaction");
    referenceSet::write(folder.path().string(), {20, 1, noNotices}, true);
    EXPECT_EQ(namesIn(folder), (Texts{"VELDABASEBETA.mdb", "VELDAKVR1.mdb", "VELDAKVR3.mdb"}));
}

TEST(MakeReference, NothingIsLeftOfAFolderThatCouldNotBeFilled)
{
    const TemporaryFolder folder;
    EXPECT_THROW(referenceSet::write(folder.file("set"), {0, 2, {{}, {}, {}}}, true), std::runtime_error);
    EXPECT_EQ(namesIn(folder), Texts());
}
