// The check of site names on working databases and reference sets of old files, all of whose rows are known.
#include "loadFixture.h"

#include "load/checkTarget.h"
#include "load/targetQueries.h"
#include "platform/ansiText.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;

const fs::path samples = fs::path(ZEPH_TEST_DIR) / "data/jet";

using Row = std::map<std::string, std::string>;
using Texts = std::vector<std::string>;

// Null is "\N" and stays so.
std::string unescaped(const std::string& text)
{
    static const std::map<char, char> meanings = {{'t', '\t'}, {'r', '\r'}, {'n', '\n'}, {'\\', '\\'}};
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool escapes = text[at] == '\\' && at + 1 < text.size() && meanings.contains(text[at + 1]);
        plain += escapes ? meanings.at(text[++at]) : text[at];
    }
    return plain;
}

std::vector<std::string> split(const std::string& line)
{
    std::vector<std::string> values;
    std::istringstream stream(line + '\t');
    for (std::string value; std::getline(stream, value, '\t');)
        values.push_back(unescaped(value));
    return values;
}

// The rows of a table that is told as text.
std::vector<Row> toldRows(const std::string& name)
{
    std::ifstream file(samples / name, std::ios::binary);
    std::string line;
    std::getline(file, line);
    const auto columns = split(line);
    std::vector<Row> rows;
    while (std::getline(file, line)) {
        const auto values = split(line);
        Row& row = rows.emplace_back();
        for (std::size_t place = 0; place < columns.size(); ++place)
            row[columns[place]] = values.at(place);
    }
    return rows;
}

// For each notice that acts on another: how many assignments of the set answer it, and the site and country
// of the one.
struct Match
{
    std::int32_t key;
    int found;
    std::string site, ctry;
};

std::vector<Match> toldMatches()
{
    std::vector<Match> matches;
    for (auto& row : toldRows("jet4/expected/matches.tsv"))
        matches.push_back(
            {std::stoi(row["veldakey"]), std::stoi(row["found"]), row["site_name"], row["ctry"]});
    return matches;
}

// As it comes out of a file whose code page is 1252.
std::string inCodePage(const std::string& text)
{
    return platform::ansiToUtf8(platform::utf8ToAnsi(text));
}

// A copy of a working database, and a copy of a reference set beside it.
struct Files
{
    const char *name, *work, *set;
    bool setHasCodePage;
};

class JetCheck : public LoadFixture, public testing::WithParamInterface<Files>
{
protected:
    JetCheck()
    {
        fs::copy_file(samples / GetParam().work, workPath);
        fs::copy(samples / GetParam().set, folder.path() / "set");
        session::workingDbPath = workPath;
        session::referenceDbPath = folder.file("set/VELDABASEBETA.mdb");
    }
    void TearDown() override
    {
        session::refDb.reset();
        session::workingDbPath.clear();
        session::referenceDbPath.clear();
    }

    [[nodiscard]] static std::string siteFrom(const std::string& name)
    {
        return GetParam().setHasCodePage ? inCodePage(name) : name;
    }

    [[nodiscard]] static Ntc noticeOf(std::int32_t key, const dao::Ref<dao::Database>& from)
    {
        Ntc ntc;
        InitializeNtc::clearNtcAdm(ntc);
        InitializeNtc::initNtc(ntc);
        session::currentVeldaKey = key;
        EXPECT_TRUE(readDBToNtc::readNtc(key, ntc, from)) << key;
        return ntc;
    }

    using Sites = std::map<std::int32_t, std::string>;

    [[nodiscard]] static Sites sitesAfterCheck(Sites sites)
    {
        for (const auto& match : toldMatches()) {
            if (match.found == 1)
                sites[match.key] = siteFrom(match.site) + '|' + match.ctry;
        }
        return sites;
    }

    // What the look-up of a notice that is answered so often gives.
    [[nodiscard]] static std::string siteOf(const Match& match)
    {
        return match.found == 0   ? checkTarget::noTarget
               : match.found == 1 ? siteFrom(match.site)
                                  : checkTarget::severalTargets;
    }

    [[nodiscard]] std::string bytes(const std::string& name) const { return folder.read(name); }

    TemporaryFolder folder;
    std::string workPath = folder.file("old.mdb");
};

std::string nameOf(const testing::TestParamInfo<Files>& files)
{
    return files.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Of, JetCheck,
    testing::Values(Files{"Jet4InJet4", "jet4/work200.mdb", "jet4/ref", false},
                    Files{"Jet4InJet4WithoutIndexes", "jet4/work200.mdb", "jet4/refnoindex", false},
                    Files{"Jet4InJet3", "jet4/work200.mdb", "jet3/ref", true},
                    Files{"Jet3InJet3", "jet3/work97_1252.mdb", "jet3/ref", true},
                    Files{"CyrillicJet3InJet4", "jet3/work97_1251.mdb", "jet4/ref", false}),
    nameOf);

// How many assignments answer a notice; the check itself tells one, none and several apart only.
int countOf(const Ntc& ntc, const dao::Ref<dao::Database>& set)
{
    using targetQueries::Among;
    const auto assignment = targetValues::assignmentOf(ntc);
    const bool inZone = !ntc.geo.zone_id.empty();
    const bool hasOpCls = !inZone && !ntc.op_cls.empty();
    const auto query = set->CreateQueryDef("", inZone     ? targetQueries::byZone(Among::References)
                                               : hasOpCls ? targetQueries::byPointAndOpCls(Among::References)
                                                          : targetQueries::byPoint(Among::References));
    auto padded = assignment;
    padded.emi_cls = checkTarget::padEmission(assignment.emi_cls);
    targetQueries::setAssignment(query, padded);
    targetQueries::set(query, "IsNotice", ntc.intent == "SUPPRESS" ? "FALSE" : "TRUE");
    if (inZone)
        targetQueries::set(query, "ZoneID", ntc.geo.zone_id);
    else
        targetQueries::setPosition(query, targetValues::positionOf(ntc.geo.pt[0]));
    if (hasOpCls)
        targetQueries::set(query, "OpCls", ntc.op_cls);
    const auto rows = query->OpenRecordset(dao::dbOpenDynaset);
    if (rows->RecordCount() > 0)
        rows->MoveLast();
    return rows->RecordCount();
}

void expectAnswer(const Match& match, const Ntc& ntc, const dao::Ref<dao::Database>& set,
                  const std::string& site)
{
    std::string ctry;
    EXPECT_EQ(checkTarget::lookUpTargetSite(ntc, set, ctry), site) << match.key;
    EXPECT_EQ(countOf(ntc, set), match.found) << match.key;
    EXPECT_TRUE(match.found != 1 || ctry == match.ctry) << match.key << ": " << ctry;
}

} // namespace

TEST_P(JetCheck, EachNoticeFindsWhatAnswersIt)
{
    const auto matches = toldMatches();
    ASSERT_EQ(matches.size(), 101U);
    const auto from = dao::DBEngine::OpenDatabase(workPath, false, true);
    const auto set = dao::DBEngine::OpenDatabase(session::referenceDbPath, false, true);
    for (const auto& match : matches)
        expectAnswer(match, noticeOf(match.key, from), set, siteOf(match));
    EXPECT_EQ(host.messages, Texts{});
}

namespace {

Texts toldLines()
{
    Texts lines;
    for (const auto& match : toldMatches()) {
        const auto* outcome = match.found == 0   ? " has no target"
                              : match.found == 1 ? " target found"
                                                 : " has more than one target";
        lines.push_back("Notice No: " + std::to_string(match.key) + outcome);
    }
    lines.emplace_back("DONE");
    return lines;
}

// A column of the notices' rows, in the order of the database.
std::vector<dao::Value> column(const std::string& path, const char* name)
{
    const auto database = dao::DBEngine::OpenDatabase(path, false, true);
    std::vector<dao::Value> values;
    for (const auto rows = database->OpenRecordset("SELECT * FROM kvr_velda", dao::dbOpenDynaset);
         !rows->EOF_(); rows->MoveNext())
        values.push_back(rows->Fields(name));
    return values;
}

// Every notice's site name and country, through the engine.
std::map<std::int32_t, std::string> sitesOf(const std::string& path)
{
    const auto shown = [](const dao::Value& value) { return value.isNull() ? "(null)" : value.text(); };
    const auto database = dao::DBEngine::OpenDatabase(path, false, true);
    const auto rows = database->OpenRecordset(
        "SELECT kvr_velda.veldakey, kvr_geo.site_name, kvr_geo.ctry FROM kvr_geo INNER JOIN kvr_velda ON "
        "kvr_geo.geo_key = kvr_velda.geo_key",
        dao::dbOpenDynaset);
    std::map<std::int32_t, std::string> sites;
    for (; !rows->EOF_(); rows->MoveNext())
        sites[rows->Fields("veldakey").toLong()] =
            shown(rows->Fields("site_name")) + '|' + shown(rows->Fields("ctry"));
    return sites;
}

// What is said of each notice that gets a name while one of its stations has no row for its site.
Texts toldFailures()
{
    const std::string told = "jet4/expected/work200/";
    std::set<std::string> sites;
    std::set<std::string> incomplete;
    for (auto& row : toldRows(told + "kvr_geo.tsv"))
        sites.insert(row["geo_key"]);
    for (const char* table : {"kvr_rx.tsv", "kvr_tx.tsv"}) {
        for (auto& row : toldRows(told + table)) {
            if (!sites.contains(row["geo_key"]))
                incomplete.insert(row["veldakey"]);
        }
    }
    Texts failures;
    for (const auto& match : toldMatches()) {
        if (match.found == 1 && incomplete.contains(std::to_string(match.key)))
            failures.emplace_back("Error 3021 : No current record.");
    }
    return failures;
}

} // namespace

TEST_P(JetCheck, TheCheckOfAllTellsEachNoticeAndStoresWhatItFoundBesideTheOldFile)
{
    const auto original = bytes("old.mdb");
    const auto expected = sitesAfterCheck(sitesOf(workPath));
    ASSERT_EQ(expected.size(), 192U); // eight notices have no row for their site
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.errorLines, toldLines());
    EXPECT_EQ(host.messages, toldFailures());
    EXPECT_EQ(sitesOf(workPath), expected);
    EXPECT_TRUE(bytes("old.mdb") == original);
    EXPECT_TRUE(fs::exists(workPath + ".corrected"));
}

TEST_P(JetCheck, TheSetIsNotWritten)
{
    const auto before = [&] {
        return bytes("set/VELDABASEBETA.mdb") + bytes("set/VELDAKVR1.mdb") + bytes("set/VELDAKVR3.mdb");
    };
    const auto original = before();
    checkTarget::checkAllNtc();
    EXPECT_TRUE(before() == original);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path() / "set"), {}), 3);
}

TEST_P(JetCheck, ACheckedNoticeKeepsAllDigitsOfItsFrequency)
{
    std::vector<double> told;
    for (auto& row : toldRows("jet4/expected/work200/kvr_velda.tsv"))
        told.push_back(row["freq_assgn"] == "\\N" ? -1 : std::stod(row["freq_assgn"]));
    checkTarget::checkAllNtc();
    std::vector<double> stored;
    for (const auto& value : column(workPath, "freq_assgn"))
        stored.push_back(value.isNull() ? -1 : std::get<double>(value.variant()));
    EXPECT_EQ(stored, told);
    EXPECT_EQ(stored.at(0), 2.3333333333333335);
}
