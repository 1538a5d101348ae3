#include "elect/electText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>
#include <vector>

using namespace electText;

namespace {

std::string bytesOf(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream) << path;
    return {std::istreambuf_iterator<char>(stream), {}};
}

// An odd file: how many notices it gives, the failure that stops it behind them, and what else is to be seen.
struct OddFile
{
    const char* name;
    std::size_t notices;
    int failure;
    std::function<void(const Outcome&)> look;
};

void PrintTo(const OddFile& file, std::ostream* stream)
{
    *stream << file.name;
}

void seeNothing(const Outcome&) {}

const std::vector<OddFile> oddFiles{
    {"quotedItem", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).adm, "F, G");
         EXPECT_EQ(outcome.notice(0).rmk_text, "A, B");
         EXPECT_EQ(outcome.notice(0).prov, "p");
         EXPECT_EQ(outcome.notice(0).stn_id, "x y");
     }},
    {"quoteInsideValue", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).stn_id, "\"PARIS");
         EXPECT_EQ(outcome.notice(0).prov, "a\"b");
     }},
    // The open quote swallows the closing tag and all behind it.
    {"quoteToEndOfFile", 1, platform::errInputPastEnd, seeNothing},
    {"quoteOverLines", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).rmk_text, "first\r\nsecond");
         EXPECT_EQ(outcome.notice(0).prov, "p");
     }},
    {"doubledQuotes", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).rmk_text, "A");
         EXPECT_EQ(outcome.notice(0).prov, "B");
     }},
    {"emptyQuotes", 1, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(0).prov, "p"); }},
    {"commas", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).rmk_text, "A");
         EXPECT_EQ(outcome.notice(0).antenna.at(0).polar, "V");
         EXPECT_EQ(outcome.notice(0).antenna.at(0).elev, "3");
     }},
    {"emptyItems", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).adm, "F");
         EXPECT_EQ(outcome.notice(0).prov, "p");
     }},
    {"loneCarriageReturns", 1, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(0).prov, "one"); }},
    {"loneLineFeeds", 1, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(0).prov, "one"); }},
    {"mixedLineEnds", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).adm, "F");
         EXPECT_EQ(outcome.notice(0).prov, "p");
     }},
    // A tab becomes a blank behind the trimming, and the tag with its blank is no tag.
    {"tabBesideHead", 1, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(0).adm, ""); }},
    {"tabBesideEndOfHead", 1, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(0).adm, "G"); }},
    {"tabBesideNotice", 1, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(0).prov, "one"); }},
    {"tabBesideEndOfNotice", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).prov, "one");
         EXPECT_EQ(outcome.notice(0).stn_id, "two");
     }},
    // Inside a section the line is trimmed once more before its opening tags are looked at.
    {"tabBesideSectionTags", 1, 0,
     [](const Outcome& outcome) {
         const auto& ntc = outcome.notice(0);
         EXPECT_EQ(ntc.coord.adm[0], "D");
         EXPECT_EQ(ntc.coord.adm[1], "E");
         EXPECT_EQ(ntc.antenna.at(0).polar, "V");
         EXPECT_EQ(ntc.antenna.at(0).rot.at(0).azm_fr, "1");
         EXPECT_EQ(ntc.antenna.at(0).rx.at(0).geo.pt.at(0).long_sec, "03");
     }},
    {"tabBeforeTheEndOfTheFile", 0, platform::errInputPastEnd, seeNothing},
    {"tabsAroundKey", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).intent, "ADD");
         EXPECT_EQ(outcome.notice(0).prov, "a b");
     }},
    {"tabsAlone", 1, 0, [](const Outcome& outcome) { EXPECT_TRUE(outcome.notice(0).antenna.at(0).present); }},
    {"tabInsideTag", 1, 0,
     [](const Outcome& outcome) { EXPECT_FALSE(outcome.notice(0).antenna.at(0).present); }},
    {"codes0And26", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).prov, std::string("a\0b", 3));
         EXPECT_EQ(outcome.notice(0).stn_id, "c\x1a"
                                             "d");
     }},
    {"bytesAbove127", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).prov, "\u20ac\u0081\u008d\u008f\u0090\u009d\u00ff");
         EXPECT_EQ(outcome.notice(0).geo.site_name, "\u00c9\u00dc\u00df\u0160\u0152\u017d\u0178\u00f7\u00b5");
         EXPECT_EQ(outcome.notice(0).stn_cls, "\u00a0X\u00a0");
     }},
    {"noHead", 1, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(0).adm, ""); }},
    {"noTail", 1, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(0).adm, "F"); }},
    {"twoHeads", 3, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).adm, "F");
         EXPECT_EQ(outcome.notice(1).adm, "G");
         EXPECT_EQ(outcome.notice(2).adm, "G");
     }},
    {"headInNotice", 2, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(1).adm, "F"); }},
    {"noticeInHead", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).adm, "F");
         EXPECT_EQ(outcome.notice(0).prov, "one");
     }},
    {"headNotClosed", 0, platform::errInputPastEnd,
     [](const Outcome& outcome) { EXPECT_EQ(outcome.lastAdm, "F"); }},
    // The first closing tag ends the notice; what follows stands outside.
    {"noticeInNotice", 1, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(0).prov, "two"); }},
    {"coordPairings", 4, 0,
     [](const Outcome& outcome) {
         for (std::size_t number = 0; number < 4; ++number) {
             EXPECT_TRUE(outcome.notice(number).coord.present);
             EXPECT_EQ(outcome.notice(number).coord.adm[0], "D");
             EXPECT_EQ(outcome.notice(number).prov, "p");
         }
     }},
    {"stationPairings", 1, 0,
     [](const Outcome& outcome) {
         const auto& stations = outcome.notice(0).antenna.at(0).rx;
         for (std::size_t number = 0; number < 4; ++number)
             EXPECT_EQ(stations.at(number).geo.ctry, std::to_string(number));
         EXPECT_FALSE(stations.at(4).present);
     }},
    {"wrongTags", 1, 0,
     [](const Outcome& outcome) {
         const auto& ntc = outcome.notice(0);
         EXPECT_EQ(ntc.geo.ctry, "D");
         EXPECT_EQ(ntc.coord.adm[0], "D");
         EXPECT_EQ(ntc.coord.adm[1], "E");
         EXPECT_EQ(ntc.coord.adm[2], "");
         EXPECT_EQ(ntc.antenna.at(0).polar, "V");
         EXPECT_FALSE(ntc.antenna.at(0).rot.at(0).present);
         EXPECT_FALSE(ntc.antenna.at(1).present);
         EXPECT_EQ(ntc.geo.pt.at(0).long_deg, "");
         EXPECT_EQ(ntc.prov, "p");
     }},
    {"pointInNotice", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).geo.pt.at(0).long_deg, "009");
         EXPECT_EQ(outcome.notice(0).geo.pt.at(0).lat_deg, "01");
         EXPECT_FALSE(outcome.notice(0).geo.pt.at(1).present);
     }},
    {"truncatedInAntenna", 1, platform::errInputPastEnd, seeNothing},
    {"truncatedInTag", 1, platform::errInputPastEnd, seeNothing},
    {"lastLineWithoutEnd", 1, 0, seeNothing},
    {"lastTailLineWithoutEnd", 1, 0, seeNothing},
    {"empty", 0, 0, seeNothing},
    {"blankLines", 0, 0, seeNothing},
    {"onlyProse", 0, 0, seeNothing},
    {"keysOutside", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).adm, "");
         EXPECT_EQ(outcome.notice(0).prov, "one");
     }},
    {"commentsBeforeHead", 1, 0, [](const Outcome& outcome) { EXPECT_EQ(outcome.notice(0).adm, "F"); }},
    {"lowerCaseTags", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).adm, "");
         EXPECT_EQ(outcome.notice(0).prov, "one");
     }},
    {"lowerCaseType", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).notice_typ, "T13");
         EXPECT_EQ(outcome.notice(0).stn_type, "TX");
         EXPECT_EQ(outcome.notice(0).intent, "ADD");
         EXPECT_FALSE(outcome.notice(0).target.present);
     }},
    {"capitalKeys", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).adm, "F");
         EXPECT_EQ(outcome.notice(0).op_hh_fr, "0630");
     }},
    {"tagWithEqualsSign", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_FALSE(outcome.notice(0).antenna.at(0).present);
         EXPECT_EQ(outcome.notice(0).prov, "p");
     }},
    {"equalsSigns", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).prov, "=a=b=");
         EXPECT_EQ(outcome.notice(0).stn_id, "");
     }},
    {"blanksAroundTags", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).adm, "F");
         EXPECT_EQ(outcome.notice(0).antenna.at(0).polar, "V");
     }},
    {"sevenCallSigns", 1, platform::errSubscript, seeNothing},
    {"carriedOver", 1, 0,
     [](const Outcome& outcome) {
         const auto& antenna = outcome.notice(0).antenna.at(0);
         EXPECT_EQ(antenna.rot.at(1).azm_fr, "30");
         EXPECT_EQ(antenna.rot.at(1).azm_to, "20");
         const auto& second = antenna.rx.at(1);
         EXPECT_EQ(second.noise_temp, "290");
         EXPECT_EQ(second.geo.geo_type, "MULTIPOINT");
         EXPECT_EQ(second.geo.pt.at(0).long_deg, "009");
         EXPECT_EQ(second.geo.pt.at(0).lat_deg, "");
         EXPECT_EQ(second.geo.pt.at(1).long_deg, "001");
         EXPECT_EQ(second.geo.pt.at(1).lat_deg, "01");
         EXPECT_EQ(outcome.notice(0).coord.coord_prov, "P");
         EXPECT_EQ(outcome.notice(0).coord.adm[0], "G");
         EXPECT_EQ(outcome.notice(0).coord.adm[1], "E");
     }},
    {"unsignedCoordinates", 1, 0,
     [](const Outcome& outcome) {
         const auto& point = outcome.notice(0).geo.pt.at(0);
         EXPECT_EQ(point.long_deg, "021");
         EXPECT_EQ(point.long_min, "53");
         EXPECT_EQ(point.long_sec, "0");
         EXPECT_EQ(point.long_ew, "W");
         EXPECT_EQ(point.lat_deg, "85");
         EXPECT_EQ(point.lat_min, "13");
         EXPECT_EQ(point.lat_sec, "0");
         EXPECT_EQ(point.lat_ns, "N");
     }},
    {"unknownKeys", 1, 0,
     [](const Outcome& outcome) {
         EXPECT_EQ(outcome.notice(0).adm, "F");
         EXPECT_EQ(outcome.notice(0).prov, "p");
     }},
};

class OddFiles : public testing::TestWithParam<OddFile>
{};

} // namespace

TEST_P(OddFiles, GivesItsNoticesAndItsFailure)
{
    const auto& odd = GetParam();
    const auto outcome =
        readFile(bytesOf(std::filesystem::path(ZEPH_ODD_FILES) / (std::string(odd.name) + ".txt")));
    EXPECT_EQ(outcome.failure, odd.failure);
    ASSERT_EQ(outcome.notices.size(), odd.notices);
    odd.look(outcome);
}

INSTANTIATE_TEST_SUITE_P(Each, OddFiles, testing::ValuesIn(oddFiles),
                         [](const auto& file) { return std::string(file.param.name); });

TEST(OddFilesFolder, HoldsNoFileWithoutAnExpectation)
{
    std::set<std::string> expected;
    for (const auto& odd : oddFiles)
        expected.insert(std::string(odd.name) + ".txt");
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(ZEPH_ODD_FILES)) {
        if (entry.path().extension() == ".txt")
            found.insert(entry.path().filename().string());
    }
    EXPECT_EQ(found, expected);
}
