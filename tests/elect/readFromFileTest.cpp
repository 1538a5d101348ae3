#include "elect/electText.h"
#include "elect/readFromFileToNtc.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace electText;
using namespace readFromFileToNtc;
using platform::errInputPastEnd;
using platform::errOverflow;
using platform::errSubscript;

namespace {

// The only antenna, and the only station of it, that a text of antenna lines gives.
NtcAntenna antennaOf(const std::string& text)
{
    return readNotice(inSection("ANTENNA", text)).antenna.at(0);
}

NtcRx stationOf(const std::string& text)
{
    return antennaOf(inSection("RX_STATION", text)).rx.at(0);
}

NtcRot rot(const std::string& from, const std::string& to)
{
    return {from, to, true};
}

} // namespace

TEST(ReadLine, GivesTheNextItemWithoutBlanksAtItsEnds)
{
    const OpenText file("   a b  , c\r\n\r\nd");
    EXPECT_EQ(readLine(), "a b");
    EXPECT_EQ(readLine(), "c");
    EXPECT_EQ(readLine(), "");
    EXPECT_EQ(readLine(), "d");
}

TEST(ReadLine, DoesNotTrimTabs)
{
    const OpenText file("\ta\t\r\n");
    EXPECT_EQ(readLine(), "\ta\t");
}

TEST(ReadLine, FailsAtTheEndOfTheFile)
{
    const OpenText file("a\r\n");
    EXPECT_EQ(readLine(), "a");
    EXPECT_EQ(failureOf([] { (void)readLine(); }), errInputPastEnd);
}

TEST(TabsToBlanks, ReplacesEachTabByOneBlankInTheArgumentToo)
{
    std::string text = "\ta\t\tb\t";
    EXPECT_EQ(tabsToBlanks(text), " a  b ");
    EXPECT_EQ(text, " a  b ");
}

TEST(TabsToBlanks, TakesATabAtPosition32767AndFailsOneBehind)
{
    std::string atTheBound = std::string(32766, 'x') + "\t";
    EXPECT_EQ(tabsToBlanks(atTheBound), std::string(32766, 'x') + " ");
    std::string behind = std::string(32767, 'x') + "\t";
    EXPECT_EQ(failureOf([&] { tabsToBlanks(behind); }), errOverflow);
}

TEST(TabsToBlanks, FailsForALateTabAlsoBehindEarlyOnes)
{
    std::string text = "\t" + std::string(40000, 'x') + "\t";
    EXPECT_EQ(failureOf([&] { tabsToBlanks(text); }), errOverflow);
}

TEST(TabsToBlanks, CountsCharactersAndNotBytes)
{
    std::string text;
    for (int time = 0; time < 32766; ++time)
        text += "\u00e9";
    text += "\t";
    EXPECT_EQ(tabsToBlanks(text).back(), ' ');
    text = "\u00e9" + text.substr(0, text.size() - 1) + "\t";
    EXPECT_EQ(failureOf([&] { tabsToBlanks(text); }), errOverflow);
}

TEST(Advance, LeavesABlankWhereATabStoodBesideTheText)
{
    const OpenText file(" \t<HEAD>\t \r\n");
    advance();
    EXPECT_EQ(currentLine, " <HEAD> ");
}

TEST(SplitKeyValue, CutsAtTheFirstEqualsSignAndTrimsBothParts)
{
    currentLine = "  T_Adm  =  a = b  ";
    std::string key;
    std::string value;
    EXPECT_TRUE(splitKeyValue(key, value));
    EXPECT_EQ(key, "t_adm");
    EXPECT_EQ(value, "a = b");
    EXPECT_EQ(currentLine, "T_Adm  =  a = b");
}

TEST(SplitKeyValue, LeavesKeyAndValueAloneWithoutAnEqualsSign)
{
    currentLine = " <NOTICE> ";
    std::string key = "k";
    std::string value = "v";
    EXPECT_FALSE(splitKeyValue(key, value));
    EXPECT_EQ(key, "k");
    EXPECT_EQ(value, "v");
    EXPECT_EQ(currentLine, "<NOTICE>");
}

TEST(SplitKeyValue, TrimsBeforeItTurnsTabsToBlanks)
{
    currentLine = " \tt_adm\t=\tF\t ";
    std::string key;
    std::string value;
    EXPECT_TRUE(splitKeyValue(key, value));
    EXPECT_EQ(key, "t_adm");
    EXPECT_EQ(value, "F");
    EXPECT_EQ(currentLine, " t_adm = F ");
}

TEST(SplitKeyValue, TakesAnEmptyKeyAndAnEmptyValue)
{
    currentLine = "=";
    std::string key = "k";
    std::string value = "v";
    EXPECT_TRUE(splitKeyValue(key, value));
    EXPECT_EQ(key, "");
    EXPECT_EQ(value, "");
}

TEST(SplitKeyValue, LowersAccentedCapitalsOfAKey)
{
    currentLine = "\u00c9T\u00c9=\u00c9";
    std::string key;
    std::string value;
    EXPECT_TRUE(splitKeyValue(key, value));
    EXPECT_EQ(key, "\u00e9t\u00e9");
    EXPECT_EQ(value, "\u00c9");
}

TEST(SplitKeyValue, TakesAnEqualsSignAtPosition32767AndFailsOneBehind)
{
    std::string key;
    std::string value;
    currentLine = std::string(32766, 'x') + "=v";
    EXPECT_TRUE(splitKeyValue(key, value));
    EXPECT_EQ(value, "v");
    currentLine = std::string(32767, 'x') + "=v";
    EXPECT_EQ(failureOf([&] { (void)splitKeyValue(key, value); }), errOverflow);
}

TEST(SplitKeyValue, CountsThePositionInTheTrimmedLine)
{
    std::string key;
    std::string value;
    currentLine = "  " + std::string(32766, 'x') + "=v";
    EXPECT_TRUE(splitKeyValue(key, value));
}

TEST(SplitKeyValue, TakesALongValueBehindAnEarlyEqualsSign)
{
    std::string key;
    std::string value;
    currentLine = "k=" + std::string(50000, 'v') + "=";
    EXPECT_TRUE(splitKeyValue(key, value));
    EXPECT_EQ(value.size(), 50001U);
}

TEST(CoordinateParts, AreTakenByPosition)
{
    struct Row
    {
        const char *value, *deg, *min, *sec, *hemisphere;
    };
    for (const Row& row : {Row{"+0123045", "012", "30", "45", "E"}, Row{"-01230", "012", "30", "", "W"},
                           Row{"+01230456", "012", "30", "45", "E"}, Row{"+0123", "012", "3", "", "E"},
                           Row{"+012304", "012", "30", "4", "E"}, Row{"0123045", "123", "04", "5", "W"},
                           Row{"x01", "01", "", "", "W"}, Row{"+", "", "", "", "E"}, Row{"", "", "", "", "W"},
                           Row{"+\u00e91\u00e92\u00e934", "\u00e91\u00e9", "2\u00e9", "34", "E"}}) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(longDeg(row.value), row.deg);
        EXPECT_EQ(longMin(row.value), row.min);
        EXPECT_EQ(longSec(row.value), row.sec);
        EXPECT_EQ(longEw(row.value), row.hemisphere);
    }
    for (const Row& row : {Row{"-1230", "12", "30", "", "S"}, Row{"+123045", "12", "30", "45", "N"},
                           Row{"+12304", "12", "30", "4", "N"}, Row{"123045", "23", "04", "5", "N"},
                           Row{"-1", "1", "", "", "S"}, Row{"", "", "", "", "N"}}) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(latDeg(row.value), row.deg);
        EXPECT_EQ(latMin(row.value), row.min);
        EXPECT_EQ(latSec(row.value), row.sec);
        EXPECT_EQ(latNs(row.value), row.hemisphere);
    }
}

TEST(CoordinateParts, HaveAsManySecondsAsStandBehindTheMinutes)
{
    EXPECT_EQ(longSec("+01230"), "");
    EXPECT_EQ(longSec("+012307"), "7");
    EXPECT_EQ(latSec("+1230"), "");
    EXPECT_EQ(latSec("+12307"), "7");
}

TEST(TimeFromFile, DropsTheThirdCharacter)
{
    EXPECT_EQ(timeFromFile("06:30"), "0630");
    EXPECT_EQ(timeFromFile("0630"), "060");
    EXPECT_EQ(timeFromFile("12:30:59"), "1230");
    EXPECT_EQ(timeFromFile("7"), "7");
    EXPECT_EQ(timeFromFile(""), "");
}

TEST(PadOpAgcy, FillsToThreeCharacters)
{
    EXPECT_EQ(padOpAgcy("7"), "007");
    EXPECT_EQ(padOpAgcy("12"), "012");
    EXPECT_EQ(padOpAgcy("123"), "123");
    EXPECT_EQ(padOpAgcy("1234"), "1234");
    EXPECT_EQ(padOpAgcy(""), "");
    EXPECT_EQ(padOpAgcy("\u00e9"), "00\u00e9");
}

TEST(ReadNotice, StoresEveryKeyInItsMember)
{
    for (const auto& row : keyCases) {
        SCOPED_TRACE(row.key);
        const auto line = lines({std::string(row.key) + " = " + row.given});
        EXPECT_EQ(row.member(readNotice(wrapped(row.section, line))), row.held);
    }
}

TEST(ReadNotice, ComparesKeysWithoutRegardToCase)
{
    for (const auto& row : keyCases) {
        std::string key = row.key;
        for (char& letter : key)
            letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
        SCOPED_TRACE(key);
        EXPECT_EQ(row.member(readNotice(wrapped(row.section, lines({key + "=" + row.given})))), row.held);
    }
}

TEST(ReadNotice, TakesTheLaterOfTwoScalarValuesAlsoWhenItIsEmpty)
{
    for (const auto& row : keyCases) {
        const std::string key = row.key;
        if (key == "t_nat_srv" || key == "t_call_sign" || key == "t_op_agcy" || key == "t_adm")
            continue;
        SCOPED_TRACE(key);
        // An action keeps the target from lending its value to an emptied member.
        const auto twice = wrapped(row.section, lines({key + "=other", key + "=" + row.given}));
        EXPECT_EQ(row.member(readNotice("t_action=ADD\r\n" + twice)), row.held);
        const auto emptied = wrapped(row.section, lines({key + "=" + row.given, key + "="}));
        EXPECT_EQ(row.member(readNotice("t_action=ADD\r\n" + emptied)), "");
    }
}

TEST(ReadNotice, TurnsTheActionToUpperCase)
{
    EXPECT_EQ(readNotice("t_action=Modify\r\n").intent, "MODIFY");
}

TEST(ReadNotice, SkipsKeysThatDoNotBelongToANotice)
{
    const Ntc empty = readNotice("t_action=ADD\r\n");
    for (const char* line :
         {"t_adm=F", "t_pwr_xyz=X", "t_azm_fr=1", "t_nois_tmp=1", "t_coord_prov=P", "t_num_notices=1", "x=y",
          "=y", "adm=F", "t_ adm=F", "t_rmk_text=a", "t_stn_type=RX", "t_is_rot=TRUE", "t_d_rcv=1"}) {
        SCOPED_TRACE(line);
        EXPECT_TRUE(readNotice(lines({"t_action=ADD", line})) == empty);
    }
}

TEST(ReadNotice, SetsTheStationTypeByTheNoticeTypeAsGiven)
{
    struct Row
    {
        const char *given, *noticeType, *stationType;
    };
    for (const Row& row : {Row{"T11", "T11", "TX"}, Row{"T13", "T13", "RX"}, Row{"t13", "T13", "TX"},
                           Row{"T14", "T14", "TX"}, Row{"", "", "TX"}}) {
        SCOPED_TRACE(row.given);
        const auto ntc = readNotice(lines({std::string("t_notice_type=") + row.given}));
        EXPECT_EQ(ntc.notice_typ, row.noticeType);
        EXPECT_EQ(ntc.stn_type, row.stationType);
    }
    EXPECT_EQ(readNotice("").stn_type, "");
}

TEST(ReadNotice, MarksItsSiteAndFirstPointPresentWhateverFollows)
{
    const auto ntc = readNotice("");
    EXPECT_TRUE(ntc.geo.present);
    EXPECT_TRUE(ntc.geo.pt.at(0).present);
    EXPECT_FALSE(ntc.geo.pt.at(1).present);
}

TEST(ReadNotice, SplitsItsCoordinatesIntoTheFirstPoint)
{
    const auto point = readNotice(lines({"t_long=+0123045", "t_lat=-1230"})).geo.pt.at(0);
    EXPECT_EQ(point.long_deg, "012");
    EXPECT_EQ(point.long_min, "30");
    EXPECT_EQ(point.long_sec, "45");
    EXPECT_EQ(point.long_ew, "E");
    EXPECT_EQ(point.lat_deg, "12");
    EXPECT_EQ(point.lat_min, "30");
    EXPECT_EQ(point.lat_sec, "");
    EXPECT_EQ(point.lat_ns, "S");
}

TEST(ReadNotice, SplitsTheTargetsCoordinates)
{
    const auto target = readNotice(lines({"t_trg_long=+0123045", "t_trg_lat=-123045"})).target;
    EXPECT_EQ(target.trg_long_deg, "012");
    EXPECT_EQ(target.trg_long_min, "30");
    EXPECT_EQ(target.trg_long_sec, "45");
    EXPECT_EQ(target.trg_long_ew, "E");
    EXPECT_EQ(target.trg_lat_deg, "12");
    EXPECT_EQ(target.trg_lat_min, "30");
    EXPECT_EQ(target.trg_lat_sec, "45");
    EXPECT_EQ(target.trg_lat_ns, "S");
}

TEST(ReadNotice, AnEmptyCoordinateStillSetsItsHemisphere)
{
    const auto point = readNotice(lines({"t_action=ADD", "t_long=", "t_lat="})).geo.pt.at(0);
    EXPECT_EQ(point.long_deg, "");
    EXPECT_EQ(point.long_ew, "W");
    EXPECT_EQ(point.lat_ns, "N");
}

TEST(ReadNotice, JoinsRemarksWithASemicolonOnlyBehindEarlierOnes)
{
    EXPECT_EQ(readNotice(lines({"t_remarks=A", "t_remarks=B"})).rmk_text, "A;B");
    EXPECT_EQ(readNotice(lines({"t_remarks=", "t_remarks=B"})).rmk_text, "B");
    EXPECT_EQ(readNotice(lines({"t_remarks=A", "t_remarks="})).rmk_text, "A;");
    EXPECT_EQ(readNotice(lines({"t_remarks=A", "t_remarks=", "t_remarks=C"})).rmk_text, "A;;C");
}

TEST(ReadNotice, CutsAValueAtACommaAndReadsOn)
{
    const auto ntc = readNotice(lines({"t_remarks = A, B", "t_station_id = x, t_prov = y"}));
    EXPECT_EQ(ntc.rmk_text, "A");
    EXPECT_EQ(ntc.stn_id, "x");
    EXPECT_EQ(ntc.prov, "y");
}

TEST(ReadNotice, FillsListsInTheirOrderWithEmptyValuesToo)
{
    const auto ntc = readNotice(lines({"t_nat_srv=a", "t_nat_srv=", "t_nat_srv=c"}));
    EXPECT_EQ(ntc.nat_srv[0], "a");
    EXPECT_EQ(ntc.nat_srv[1], "");
    EXPECT_EQ(ntc.nat_srv[2], "c");
}

TEST(ReadNotice, HoldsSixValuesOfAListAndFailsAtTheSeventhLine)
{
    for (const char* line : {"t_call_sign=1\r\n", "t_nat_srv=1\r\n", "t_op_agcy=1\r\n"}) {
        SCOPED_TRACE(line);
        EXPECT_EQ(failureOfNotice(repeated(6, line)), 0);
        EXPECT_EQ(failureOfNotice(repeated(7, line)), errSubscript);
    }
    const auto ntc = readNotice(repeated(6, "t_call_sign=1\r\nt_nat_srv=2\r\nt_op_agcy=3\r\n"));
    EXPECT_EQ(ntc.call_sign[5], "1");
    EXPECT_EQ(ntc.nat_srv[5], "2");
    EXPECT_EQ(ntc.op_agcy[5], "003");
}

TEST(ReadNotice, StartsItsListsAnewInEachNotice)
{
    const auto one = inSection("NOTICE", repeated(6, "t_call_sign=1\r\n"));
    EXPECT_EQ(readFile(one + one).failure, 0);
    EXPECT_EQ(readFile(one + one).notices.size(), 2U);
}

TEST(ReadNotice, HoldsFifteenAntennasAndFailsAtTheEndOfTheSixteenth)
{
    const auto antenna = inSection("ANTENNA", "t_polar=V\r\n");
    EXPECT_EQ(readNotice(repeated(15, antenna)).antenna.at(14).polar, "V");
    EXPECT_EQ(failureOfNotice(repeated(16, antenna)), errSubscript);
    // A sixteenth that never ends runs into the end of the file instead.
    const OpenText file(repeated(15, antenna) + "<ANTENNA>\r\n");
    Ntc ntc;
    advance();
    EXPECT_EQ(failureOf([&] { readNtcFromFile(ntc); }), errInputPastEnd);
}

TEST(ReadNotice, EmptiesItsAntennaBetweenSections)
{
    const auto ntc =
        readNotice(inSection("ANTENNA", "t_polar=V\r\n" + inSection("ROTATIONAL", "t_azm_fr=1\r\n") +
                                            inSection("RX_STATION", "t_ctry=F\r\n")) +
                   inSection("ANTENNA", "t_elev=3\r\n"));
    NtcAntenna second;
    second.elev = "3";
    second.present = true;
    EXPECT_EQ(ntc.antenna.at(0).polar, "V");
    EXPECT_TRUE(ntc.antenna.at(1) == second);
}

TEST(ReadNotice, FailsAtTheEndOfTheFileInsideAnySection)
{
    for (const char* text :
         {"t_prov=a\r\n", "", "<COORD>\r\nt_adm=F\r\n", "<ANTENNA>\r\n", "<ANTENNA>\r\n<ROTATIONAL>\r\n",
          "<ANTENNA>\r\n<RX_STATION>\r\n", "<ANTENNA>\r\n<RX_STATION>\r\n<POINT>\r\n", "<ANTENNA>"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(readFile(std::string("<NOTICE>\r\n") + text).failure, errInputPastEnd);
    }
}

TEST(ReadNotice, FailsForATabOrAnEqualsSignFarBehindInAnItem)
{
    const std::string atTheBound(32766, 'x');
    EXPECT_EQ(failureOfNotice(atTheBound + "=v\r\n"), 0);
    EXPECT_EQ(failureOfNotice(atTheBound + "x=v\r\n"), errOverflow);
    EXPECT_EQ(failureOfNotice("t_prov=" + std::string(32759, 'x') + "\ty\r\n"), 0);
    EXPECT_EQ(failureOfNotice("t_prov=" + std::string(32760, 'x') + "\ty\r\n"), errOverflow);
    EXPECT_EQ(readNotice("t_prov=" + std::string(70000, 'x') + "\r\n").prov.size(), 70000U);
}

TEST(ReadNotice, TakesATagOnlyInCapitalsAndAlone)
{
    const Ntc empty = readNotice("");
    for (const char* tag :
         {"<antenna>", "<Antenna>", "<ANTENNA> x", "ANTENNA", "< ANTENNA >", "<ANTENNA>>"}) {
        SCOPED_TRACE(tag);
        EXPECT_TRUE(readNotice(lines({tag})) == empty);
    }
}

TEST(ReadNotice, AClosingTagOfAnotherSectionHasNoEffect)
{
    const auto ntc =
        readNotice(lines({"</HEAD>", "</ANTENNA>", "</COORD>", "</POINT>", "</RX_STATION>", "</ROTATIONAL>",
                          "<NOTICE>", "<HEAD>", "<TAIL>", "</TAIL>", "t_prov=a"}));
    EXPECT_EQ(ntc.prov, "a");
    EXPECT_EQ(antennaOf(lines({"</NOTICE>", "<ANTENNA>", "t_polar=V"})).polar, "V");
    EXPECT_EQ(stationOf(lines({"</ANTENNA>", "<RX_STATION>", "t_ctry=F"})).geo.ctry, "F");
}

TEST(ReadNotice, APointDirectlyInANoticeOverwritesTheNoticesOwnCoordinates)
{
    const auto ntc =
        readNotice("t_long=+0010101\r\nt_lat=+010101\r\n" + inSection("POINT", "t_long=-0020202\r\n"));
    EXPECT_EQ(ntc.geo.pt.at(0).long_deg, "002");
    EXPECT_EQ(ntc.geo.pt.at(0).long_ew, "W");
    EXPECT_EQ(ntc.geo.pt.at(0).lat_deg, "01");
}

TEST(ReadNotice, SectionsOfAnAntennaHaveNoEffectOutsideOfOne)
{
    const auto ntc =
        readNotice(inSection("ROTATIONAL", "t_azm_fr=1\r\n") + inSection("RX_STATION", "t_ctry=D\r\n"));
    EXPECT_TRUE(ntc.antenna.at(0) == NtcAntenna());
    EXPECT_EQ(ntc.geo.ctry, "D");
}

TEST(ReadNotice, AlmostAnythingIsSkippedInSilence)
{
    const Ntc empty = readNotice("");
    EXPECT_TRUE(readNotice(lines({"", "  ", "word", "<UNKNOWN>", "</UNKNOWN>", ",,,", "t_long +01"})) ==
                empty);
}

TEST(ReadNotice, ATabHidesAClosingTagButNoOpeningTagOfASection)
{
    const auto ntc = readNotice("\t<ANTENNA>\t\r\nt_polar=V\r\n\t</ANTENNA>\r\nt_elev=3\r\n"
                                "</ANTENNA>\t\r\nt_prov=a\r\n</ANTENNA>\r\n\t</NOTICE>\r\n"
                                "\t<COORD>\r\nt_adm=F\r\n\t</COORD>\r\nt_adm=D\r\n</COORD>\r\n");
    EXPECT_EQ(ntc.antenna.at(0).polar, "V");
    EXPECT_EQ(ntc.antenna.at(0).elev, "3");
    EXPECT_EQ(ntc.prov, "");
    EXPECT_FALSE(ntc.antenna.at(1).present);
    EXPECT_EQ(ntc.coord.adm[1], "D");
}

TEST(ReadNotice, ALineOfTabsAloneIsSkipped)
{
    EXPECT_EQ(readNotice("\t\r\n \t\t \r\n\t=\t\r\nt_prov=a\r\n").prov, "a");
    EXPECT_TRUE(antennaOf("\t\r\n").present);
}

TEST(ReadNotice, TabsAroundKeyAndValueMeanNothing)
{
    EXPECT_EQ(readNotice("\t t_prov \t=\t a\tb \t\r\n").prov, "a b");
}

TEST(ReadNotice, MarksTheTargetOfAnyActionButAddAndOfNone)
{
    for (const char* action : {"MODIFY", "SUPPRESS", "WITHDRAW", "modify", "", "ADDED", "other"}) {
        SCOPED_TRACE(action);
        const auto ntc = readNotice(lines({std::string("t_action=") + action, "t_prov=a", "t_freq_assgn=5"}));
        EXPECT_TRUE(ntc.target.present);
        EXPECT_EQ(ntc.target.trg_freq_assgn, "5");
    }
    EXPECT_TRUE(readNotice("").target.present);
    const auto added = readNotice(lines({"t_action=add", "t_freq_assgn=5"}));
    EXPECT_FALSE(added.target.present);
    EXPECT_EQ(added.target.trg_freq_assgn, "");
}

TEST(ReadNotice, AnAddKeepsTheTargetKeysThatTheFileGives)
{
    const auto ntc = readNotice(lines({"t_action=ADD", "t_trg_freq_assgn=5"}));
    EXPECT_EQ(ntc.target.trg_freq_assgn, "5");
    EXPECT_EQ(ntc.freq_assgn, "");
}

namespace {

struct GapPair
{
    std::string& (*target)(Ntc&);
    std::string& (*own)(Ntc&);
};

#define TARGET(member) [](Ntc& n) -> std::string& { return n.target.member; }
#define OWN(path) [](Ntc& n) -> std::string& { return n.path; }
const std::vector<GapPair> gapPairs{
    {TARGET(trg_freq_assgn), OWN(freq_assgn)},
    {TARGET(trg_stn_cls), OWN(stn_cls)},
    {TARGET(trg_bdwdth_cde), OWN(bdwdth_cde)},
    {TARGET(trg_emi_cls), OWN(emi_cls)},
    {TARGET(trg_op_hh_fr), OWN(op_hh_fr)},
    {TARGET(trg_op_hh_to), OWN(op_hh_to)},
    {TARGET(trg_op_cls), OWN(op_cls)},
    {TARGET(trg_zone_id), OWN(geo.zone_id)},
    {TARGET(trg_geo_type), OWN(geo.geo_type)},
    {TARGET(trg_long_deg), OWN(geo.pt[0].long_deg)},
    {TARGET(trg_long_min), OWN(geo.pt[0].long_min)},
    {TARGET(trg_long_sec), OWN(geo.pt[0].long_sec)},
    {TARGET(trg_long_ew), OWN(geo.pt[0].long_ew)},
    {TARGET(trg_lat_deg), OWN(geo.pt[0].lat_deg)},
    {TARGET(trg_lat_min), OWN(geo.pt[0].lat_min)},
    {TARGET(trg_lat_sec), OWN(geo.pt[0].lat_sec)},
    {TARGET(trg_lat_ns), OWN(geo.pt[0].lat_ns)},
    {TARGET(trg_adm_ref_id), OWN(adm_ref_id)},
};
#undef TARGET
#undef OWN

} // namespace

TEST(FillNtcFromTarget, ClosesEachGapOnEitherSideAndKeepsWhatDiffers)
{
    for (std::size_t row = 0; row < gapPairs.size(); ++row) {
        SCOPED_TRACE(row);
        const auto& pair = gapPairs[row];
        Ntc ntc;
        pair.target(ntc) = "t";
        fillNtcFromTarget(ntc);
        EXPECT_EQ(pair.own(ntc), "t");

        pair.target(ntc) = "";
        pair.own(ntc) = "n";
        fillNtcFromTarget(ntc);
        EXPECT_EQ(pair.target(ntc), "n");

        pair.target(ntc) = "t";
        fillNtcFromTarget(ntc);
        EXPECT_EQ(pair.target(ntc), "t");
        EXPECT_EQ(pair.own(ntc), "n");
    }
}

TEST(FillNtcFromTarget, LeavesAllElseAlone)
{
    Ntc ntc;
    for (const auto& pair : gapPairs)
        pair.own(ntc) = "n";
    ntc.geo.site_name = ntc.geo.ctry = ntc.geo.radius = "s";
    Ntc expected = ntc;
    for (const auto& pair : gapPairs)
        pair.target(expected) = "n";
    fillNtcFromTarget(ntc);
    EXPECT_TRUE(ntc == expected);
}

TEST(ReadCoord, TakesEitherTagWithEitherClosingTag)
{
    for (const char* opening : {"<COORD>", "<COORDINATION>"}) {
        for (const char* closing : {"</COORD>", "</COORDINATION>"}) {
            SCOPED_TRACE(std::string(opening) + closing);
            const auto ntc = readNotice(lines({opening, "t_adm=F", closing, "t_prov=a"}));
            EXPECT_TRUE(ntc.coord.present);
            EXPECT_EQ(ntc.coord.adm[0], "F");
            EXPECT_EQ(ntc.prov, "a");
        }
    }
}

TEST(ReadCoord, IsPresentAlsoWhenEmpty)
{
    EXPECT_TRUE(readNotice(inSection("COORD", "")).coord.present);
    EXPECT_FALSE(readNotice("").coord.present);
}

TEST(ReadCoord, HoldsElevenAdministrationsAndFailsAtTheTwelfth)
{
    EXPECT_EQ(readNotice(inSection("COORD", repeated(11, "t_adm=F\r\n"))).coord.adm[10], "F");
    EXPECT_EQ(failureOfNotice(inSection("COORD", repeated(12, "t_adm=F\r\n"))), errSubscript);
}

TEST(ReadCoord, ASecondSectionKeepsWhatItDoesNotGiveItself)
{
    const auto first = inSection("COORD", lines({"t_coord_prov=P", "t_adm=A", "t_adm=B", "t_adm=C"}));
    const auto second = readNotice(first + inSection("COORDINATION", "t_adm=X\r\n")).coord;
    EXPECT_EQ(second.coord_prov, "P");
    EXPECT_EQ(second.adm[0], "X");
    EXPECT_EQ(second.adm[1], "B");
    EXPECT_EQ(second.adm[2], "C");
    EXPECT_EQ(readNotice(first + inSection("COORD", "t_coord_prov=Q\r\n")).coord.coord_prov, "Q");
}

TEST(ReadCoord, TheNextNoticeStartsWithAnEmptyList)
{
    const auto outcome =
        readFile(inSection("NOTICE", inSection("COORD", lines({"t_coord_prov=P", "t_adm=A"}))) +
                 inSection("NOTICE", inSection("COORD", "")));
    EXPECT_EQ(outcome.notice(1).coord.coord_prov, "");
    EXPECT_EQ(outcome.notice(1).coord.adm[0], "");
}

TEST(ReadAntenna, IsRotatingWhenARotationalSectionOpens)
{
    EXPECT_EQ(antennaOf("").is_rot, "FALSE");
    EXPECT_EQ(antennaOf(inSection("ROTATIONAL", "")).is_rot, "TRUE");
}

TEST(ReadAntenna, HoldsSixSectorsAndFailsAtTheEndOfTheSeventh)
{
    const auto sector = inSection("ROTATIONAL", lines({"t_azm_fr=1", "t_azm_to=2"}));
    EXPECT_TRUE(antennaOf(repeated(6, sector)).rot.at(5) == rot("1", "2"));
    EXPECT_EQ(failureOfNotice(inSection("ANTENNA", repeated(7, sector))), errSubscript);
    EXPECT_EQ(failureOf([&] {
                  const OpenText file(repeated(6, sector) + "<ROTATIONAL>\r\nt_azm_fr=1\r\n");
                  NtcAntenna antenna;
                  advance();
                  readAntennaFromFile(antenna);
              }),
              errInputPastEnd);
}

TEST(ReadAntenna, ASectorRepeatsWhatItDoesNotGiveItself)
{
    const auto antenna = antennaOf(inSection("ROTATIONAL", lines({"t_azm_fr=10", "t_azm_to=20"})) +
                                   inSection("ROTATIONAL", "t_azm_fr=30\r\n") + inSection("ROTATIONAL", ""));
    EXPECT_TRUE(antenna.rot.at(1) == rot("30", "20"));
    EXPECT_TRUE(antenna.rot.at(2) == rot("30", "20"));
    EXPECT_TRUE(antenna.rot.at(3) == NtcRot());
}

TEST(ReadAntenna, AnExplicitEmptyValueEndsTheRepeating)
{
    const auto antenna = antennaOf(inSection("ROTATIONAL", lines({"t_azm_fr=10", "t_azm_to=20"})) +
                                   inSection("ROTATIONAL", "t_azm_to=\r\n"));
    EXPECT_TRUE(antenna.rot.at(1) == rot("10", ""));
}

TEST(ReadAntenna, TheNextAntennaRepeatsNothing)
{
    const auto ntc =
        readNotice(inSection("ANTENNA", inSection("ROTATIONAL", "t_azm_fr=10\r\n") +
                                            inSection("RX_STATION", "t_ctry=F\r\n")) +
                   inSection("ANTENNA", inSection("ROTATIONAL", "") + inSection("RX_STATION", "")));
    EXPECT_TRUE(ntc.antenna.at(1).rot.at(0) == rot("", ""));
    EXPECT_EQ(ntc.antenna.at(1).rx.at(0).geo.ctry, "");
}

TEST(ReadAntenna, HoldsFifteenStationsOfEitherKindAndFailsAtTheEndOfTheSixteenth)
{
    const auto mixed = inSection("RX_STATION", "t_ctry=F\r\n") + inSection("TX_STATION", "t_ctry=D\r\n");
    const auto fifteen = repeated(7, mixed) + inSection("RX_STATION", "t_ctry=E\r\n");
    EXPECT_EQ(antennaOf(fifteen).rx.at(13).geo.ctry, "D");
    EXPECT_EQ(antennaOf(fifteen).rx.at(14).geo.ctry, "E");
    EXPECT_EQ(failureOfNotice(inSection("ANTENNA", fifteen + inSection("TX_STATION", ""))), errSubscript);
}

TEST(ReadStation, TakesEitherTagWithEitherClosingTagWhateverTheNoticeType)
{
    for (const char* type : {"T12", "T13"}) {
        for (const char* opening : {"<RX_STATION>", "<TX_STATION>"}) {
            for (const char* closing : {"</RX_STATION>", "</TX_STATION>"}) {
                SCOPED_TRACE(std::string(type) + opening + closing);
                const auto ntc = readNotice(lines({std::string("t_notice_type=") + type, "<ANTENNA>", opening,
                                                   "t_ctry=F", closing, "t_polar=V", "</ANTENNA>"}));
                EXPECT_EQ(ntc.antenna.at(0).rx.at(0).geo.ctry, "F");
                EXPECT_EQ(ntc.antenna.at(0).polar, "V");
            }
        }
    }
}

TEST(ReadStation, IsPresentWithItsSite)
{
    const auto station = stationOf("");
    EXPECT_TRUE(station.present);
    EXPECT_TRUE(station.geo.present);
    EXPECT_FALSE(station.geo.pt.at(0).present);
}

TEST(ReadStation, ItsFirstPointIsPresentByAnyTypeButMultipointInAnyOrder)
{
    for (const char* type : {"POINT", "point", "ZONE", "", "x"}) {
        SCOPED_TRACE(type);
        const auto typeLine = std::string("t_geo_type=") + type;
        EXPECT_TRUE(stationOf(lines({typeLine, "t_long=+0010203"})).geo.pt.at(0).present);
        EXPECT_TRUE(stationOf(lines({"t_long=+0010203", typeLine})).geo.pt.at(0).present);
    }
    EXPECT_FALSE(stationOf("t_geo_type=multipoint\r\n").geo.pt.at(0).present);
    const auto untyped = stationOf("t_long=+0010203\r\nt_lat=+0102\r\n");
    EXPECT_FALSE(untyped.geo.pt.at(0).present);
    EXPECT_EQ(untyped.geo.pt.at(0).long_deg, "001");
    EXPECT_EQ(untyped.geo.pt.at(0).lat_min, "02");
}

TEST(ReadStation, AMultipointTypeDoesNotTakeTheFlagBack)
{
    EXPECT_TRUE(stationOf(lines({"t_geo_type=POINT", "t_geo_type=MULTIPOINT"})).geo.pt.at(0).present);
}

TEST(ReadStation, ReadsNoSiteAltitude)
{
    EXPECT_EQ(stationOf("t_site_alt=5\r\n").geo.pt.at(0).site_alt, "");
}

TEST(ReadStation, HoldsSixPointsAndFailsAtTheEndOfTheSeventh)
{
    const auto point = inSection("POINT", "t_long=+0010203\r\n");
    EXPECT_EQ(stationOf(repeated(6, point)).geo.pt.at(5).long_sec, "03");
    EXPECT_EQ(failureOfNotice(wrapped(Section::Station, repeated(7, point))), errSubscript);
}

TEST(ReadStation, APointRepeatsWhatItDoesNotGiveItselfAndTheNextStationsPointsDoNot)
{
    const auto first = inSection("POINT", lines({"t_long=+0010203", "t_lat=-010203"}));
    const auto second = inSection("POINT", "t_long=-0040506\r\n");
    const auto station = stationOf(first + second);
    EXPECT_EQ(station.geo.pt.at(1).long_deg, "004");
    EXPECT_EQ(station.geo.pt.at(1).lat_deg, "01");
    EXPECT_EQ(station.geo.pt.at(1).lat_ns, "S");
    const auto antenna = antennaOf(inSection("RX_STATION", first) + inSection("RX_STATION", second));
    EXPECT_EQ(antenna.rx.at(1).geo.pt.at(0).lat_deg, "");
}

TEST(ReadStation, RepeatsWhatTheStationBeforeGaveAndItDoesNotGiveItself)
{
    const auto antenna = antennaOf(
        inSection("RX_STATION", lines({"t_nois_tmp=290", "t_geo_type=POINT", "t_site_name=a", "t_ctry=F",
                                       "t_zone_id=z", "t_radius=9", "t_long=+0010203", "t_lat=+010203"})) +
        inSection("TX_STATION", "t_ctry=D\r\n"));
    NtcRx expected = antenna.rx.at(0);
    EXPECT_EQ(expected.noise_temp, "290");
    expected.geo.ctry = "D";
    EXPECT_TRUE(antenna.rx.at(1) == expected);
    EXPECT_TRUE(antenna.rx.at(1).geo.pt.at(0).present);
}

TEST(ReadStation, KeepsThePointsBehindItsOwnLastFromTheStationBefore)
{
    const auto first = inSection("RX_STATION", inSection("POINT", "t_long=+0010203\r\n") +
                                                   inSection("POINT", "t_long=+0020304\r\n"));
    const auto second = inSection("RX_STATION", inSection("POINT", "t_long=+0090909\r\n"));
    const auto station = antennaOf(first + second).rx.at(1);
    EXPECT_EQ(station.geo.pt.at(0).long_deg, "009");
    EXPECT_EQ(station.geo.pt.at(1).long_deg, "002");
    EXPECT_TRUE(station.geo.pt.at(1).present);
    EXPECT_FALSE(station.geo.pt.at(2).present);
}

TEST(ReadHead, StoresTheAdministrationAndSkipsOtherKeys)
{
    const auto outcome = readFile(inSection("HEAD", lines({"t_other=x", "T_ADM = f , x", "t_prov=y"})) +
                                  inSection("NOTICE", "t_action=ADD\r\n"));
    EXPECT_EQ(outcome.notice(0).adm, "f");
    EXPECT_EQ(outcome.notice(0).prov, "");
}

TEST(ReadHead, HoldsForAllNoticesUntilTheNextHead)
{
    const auto notice = inSection("NOTICE", "t_adm=X\r\n");
    const auto outcome = readFile(inSection("HEAD", "t_adm=F\r\n") + notice + notice +
                                  inSection("HEAD", "t_adm=D\r\n") + notice + inSection("HEAD", "") + notice);
    ASSERT_EQ(outcome.notices.size(), 4U);
    EXPECT_EQ(outcome.notice(0).adm, "F");
    EXPECT_EQ(outcome.notice(1).adm, "F");
    EXPECT_EQ(outcome.notice(2).adm, "D");
    EXPECT_EQ(outcome.notice(3).adm, "D");
}

TEST(ReadHead, IsLeftOnItsClosingTag)
{
    const OpenText file("t_adm=F\r\n</HEAD>\r\nx\r\n");
    Ntc ntc;
    advance();
    readHeadFromFile(ntc);
    EXPECT_EQ(currentLine, "</HEAD>");
    EXPECT_EQ(ntc.adm, "F");
}

TEST(Sections, AreEachLeftOnTheirClosingTag)
{
    const auto leftOn = [](const std::string& closing, const std::function<void()>& read) {
        const OpenText file("x\r\n" + closing + "\r\ny\r\n");
        advance();
        read();
        return currentLine;
    };
    Ntc ntc;
    NtcAntenna antenna;
    NtcRx rx;
    NtcRot sector;
    NtcGeoPt point;
    NtcCoord coord;
    EXPECT_EQ(leftOn("</NOTICE>", [&] { readNtcFromFile(ntc); }), "</NOTICE>");
    EXPECT_EQ(leftOn("</ANTENNA>", [&] { readAntennaFromFile(antenna); }), "</ANTENNA>");
    EXPECT_EQ(leftOn("</TX_STATION>", [&] { readStationFromFile(rx); }), "</TX_STATION>");
    EXPECT_EQ(leftOn("</ROTATIONAL>", [&] { readRotFromFile(sector); }), "</ROTATIONAL>");
    EXPECT_EQ(leftOn("</POINT>", [&] { readPointFromFile(point); }), "</POINT>");
    EXPECT_EQ(leftOn("</COORD>", [&] { readCoordFromFile(coord); }), "</COORD>");
    EXPECT_TRUE(antenna.present && rx.present && sector.present && point.present && coord.present);
}

TEST(Sections, FillARecordWithoutEmptyingItFirst)
{
    const OpenText file(lines({"t_azm_to=9", "</ROTATIONAL>"}));
    NtcRot sector = rot("1", "2");
    advance();
    readRotFromFile(sector);
    EXPECT_TRUE(sector == rot("1", "9"));
}
