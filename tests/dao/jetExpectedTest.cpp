// Every row of every sample file, as the engine gives it.
#include "dao/jetFixture.h"
#include "jet/jetFile.h"

#include <fstream>
#include <sstream>

namespace {

namespace fs = std::filesystem;

struct Sample
{
    const char* file;
    const char* expected; // folder
};

class JetSample : public JetFixture, public testing::WithParamInterface<Sample>
{};

std::string contentOf(const fs::path& file)
{
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

// The first line that differs, where the whole is too long to look at.
std::string difference(const std::string& left, const std::string& right)
{
    std::istringstream lefts(left);
    std::istringstream rights(right);
    std::string one;
    std::string other;
    for (int line = 1; std::getline(lefts, one); ++line) {
        if (!std::getline(rights, other) || one != other)
            return "line " + std::to_string(line) + "\n" + one.substr(0, 500) + "\n" + other.substr(0, 500);
    }
    return left.size() == right.size() ? "" : "more lines";
}

} // namespace

TEST_P(JetSample, HasItsRowsByteForByteAsQueryAndAsTable)
{
    const auto database = open(jetSamples::original(GetParam().file).string(), true);
    const std::map<std::string, std::size_t> decimals = {{"azm_max_e", 2}};
    int tables = 0;
    for (const auto& entry : fs::directory_iterator(jetSamples::original(GetParam().expected))) {
        const auto table = entry.path().stem().string();
        SCOPED_TRACE(table);
        const auto expected = contentOf(entry.path());
        const auto query = database->OpenRecordset("SELECT * FROM [" + table + "]", dao::dbOpenDynaset);
        EXPECT_EQ(difference(engineText(query, decimals), expected), "");
        const auto whole = database->OpenRecordset(table, dao::dbOpenTable);
        EXPECT_EQ(difference(engineText(whole, decimals), expected), "");
        ++tables;
    }
    EXPECT_GT(tables, 0);
}

INSTANTIATE_TEST_SUITE_P(Files, JetSample,
                         testing::Values( // clang-format off
        Sample{"jet4/MasterKVR_QRS.mdb", "jet4/expected/MasterKVR_QRS"},
        Sample{"jet4/work200.mdb", "jet4/expected/work200"},
        Sample{"jet4/worktypes.mdb", "jet4/expected/worktypes"},
        Sample{"jet4/ref/VELDABASEBETA.mdb", "jet4/expected/VELDABASEBETA"},
        Sample{"jet4/ref/VELDAKVR1.mdb", "jet4/expected/VELDAKVR1"},
        Sample{"jet4/ref/VELDAKVR3.mdb", "jet4/expected/VELDAKVR3"},
        Sample{"jet4/refnoindex/VELDABASEBETA.mdb", "jet4/expected/VELDABASEBETA"},
        Sample{"jet4/refnoindex/VELDAKVR1.mdb", "jet4/expected/VELDAKVR1"},
        Sample{"jet4/refnoindex/VELDAKVR3.mdb", "jet4/expected/VELDAKVR3"},
        Sample{"jet3/work97_1252.mdb", "jet3/expected/work97_1252"},
        Sample{"jet3/work97_1251.mdb", "jet3/expected/work97_1251"},
        Sample{"jet3/ref/VELDABASEBETA.mdb", "jet3/expected/VELDABASEBETA"},
        Sample{"jet3/ref/VELDAKVR1.mdb", "jet3/expected/VELDAKVR1"},
        Sample{"jet3/ref/VELDAKVR3.mdb", "jet3/expected/VELDAKVR3"}), // clang-format on
                         [](const auto& test) {
                             std::string name = test.param.file;
                             std::replace_if(
                                 name.begin(), name.end(),
                                 [](char sign) {
                                     return std::isalnum(static_cast<unsigned char>(sign)) == 0;
                                 },
                                 '_');
                             return name;
                         });

TEST_F(JetFixture, TheEngineReadsFilesOfTheOriginalEngine)
{
    const auto types = open(jetSamples::original("v1997/testV1997.mdb").string(), true);
    const auto lines = text(types, "SELECT * FROM Table1");
    EXPECT_NE(lines.find("abcdefg\thijklmnop\t2\t222\t333333333\t444.555\t1974-09-21T00:00:00\t3.5\ttrue\n"),
              std::string::npos)
        << lines;
    const auto overflow = open(jetSamples::original("v2000/overflowTestV2000.mdb").string(), true);
    const auto rows = overflow->OpenRecordset("Table1", dao::dbOpenTable)->snapshot();
    EXPECT_EQ(rows->rowCount(), 7U);
    EXPECT_EQ(rows->columnCount(), 9U);
}

TEST_F(JetFixture, TheEngineGivesAsManyRowsOfEachTableAsTheFileTells)
{
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(jetSamples::original(""))) {
        if (entry.path().extension() != ".mdb")
            continue;
        SCOPED_TRACE(entry.path());
        ++files;
        const jet::File file(entry.path());
        const auto database = open(entry.path().string(), true);
        for (const auto& object : file.catalogue()) {
            const auto rows =
                database->OpenRecordset("SELECT * FROM [" + object.name + "]", dao::dbOpenDynaset);
            const auto count = rows->snapshot()->rowCount();
            if (!object.isLink()) {
                EXPECT_EQ(count, file.table(object.name).rowCount) << object.name;
            }
        }
    }
    EXPECT_EQ(files, 19);
}
