#include "elect/electText.h"
#include "elect/writeOneNtcElect.h"
#include "platform/hostFormat.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace electText;
using namespace writeOneNtcElect;

namespace {

// Every date of these tests is read by one host's habits.
class WriteNotice : public testing::Test
{
protected:
    WriteNotice() { platform::setHostLocale("de_DE.UTF-8"); }
    ~WriteNotice() override { platform::setHostLocale(""); }
    WriteNotice(const WriteNotice&) = delete;
    WriteNotice& operator=(const WriteNotice&) = delete;
};

bool holdsLine(const std::string& text, const std::string& line)
{
    return ("\r\n" + text).find("\r\n" + line + "\r\n") != std::string::npos;
}

std::string withoutFrame(const std::string& block)
{
    const std::string opening = "<NOTICE>\r\n";
    const std::string closing = "</NOTICE>\r\n";
    EXPECT_TRUE(block.starts_with(opening) && block.ends_with(closing)) << block;
    return block.substr(opening.size(), block.size() - opening.size() - closing.size());
}

Ntc modifyNotice()
{
    Ntc ntc;
    ntc.intent = "MODIFY";
    ntc.target.present = true;
    ntc.geo.present = true;
    ntc.geo.pt[0].present = true;
    ntc.coord.present = true;
    NtcAntenna& antenna = ntc.antenna[0];
    antenna.present = antenna.rot[0].present = antenna.rx[0].present = antenna.rx[0].geo.present = true;
    return ntc;
}

NtcGeoPt point(const std::string& deg)
{
    NtcGeoPt made;
    made.long_deg = deg;
    made.long_min = "1";
    made.long_ew = "E";
    made.present = true;
    return made;
}

// The member of a record under construction, whose slots modifyNotice has touched.
std::string& memberOf(const KeyCase& row, Ntc& ntc)
{
    return const_cast<std::string&>(row.member(ntc));
}

} // namespace

TEST_F(WriteNotice, WritesEveryKeyFromItsMember)
{
    for (const auto& row : keyCases) {
        SCOPED_TRACE(row.key);
        Ntc ntc = modifyNotice();
        memberOf(row, ntc) = row.held;
        const auto text = noticeBlock(ntc);
        if (row.written != nullptr)
            EXPECT_TRUE(holdsLine(text, std::string(row.key) + "=" + row.written)) << text;
        else
            EXPECT_EQ(text.find(std::string(row.key) + "="), std::string::npos) << text;
    }
}

TEST_F(WriteNotice, WritesNoKeyForAnEmptyMember)
{
    Ntc ntc = modifyNotice();
    EXPECT_EQ(noticeBlock(ntc),
              lines({"<NOTICE>", "t_action=MODIFY", "<COORD>", "</COORD>", "<ANTENNA>", "<ROTATIONAL>",
                     "</ROTATIONAL>", "<RX_STATION>", "</RX_STATION>", "</ANTENNA>", "</NOTICE>"}));
}

TEST_F(WriteNotice, WritesTextWithoutChangingItsCase)
{
    Ntc ntc = modifyNotice();
    ntc.stn_cls = "fx";
    ntc.geo.site_name = "Paris, Nord";
    EXPECT_TRUE(holdsLine(noticeBlock(ntc), "t_stn_cls=fx"));
    EXPECT_TRUE(holdsLine(noticeBlock(ntc), "t_site_name=Paris, Nord"));
}

TEST_F(WriteNotice, KeepsTheOrderOfTheKeys)
{
    Ntc ntc = modifyNotice();
    for (const auto& row : keyCases)
        memberOf(row, ntc) = row.held;
    ntc.intent = "MODIFY";
    ntc.call_sign[5] = "last";
    ntc.rmk_text = "A;B";
    ntc.target.trg_long_deg = "1";
    ntc.target.trg_long_min = "2";
    ntc.target.trg_long_sec = "3";
    ntc.target.trg_long_ew = "E";
    ntc.target.trg_lat_deg = "4";
    ntc.target.trg_lat_min = "5";
    ntc.target.trg_lat_sec = "6";
    ntc.target.trg_lat_ns = "S";
    for (auto* pt : {&ntc.geo.pt[0], &ntc.antenna[0].rx[0].geo.pt[0]}) {
        pt->present = true;
        pt->long_deg = "7";
        pt->lat_deg = "8";
        pt->site_alt = "120";
    }
    const auto expected = lines(
        {"<NOTICE>", "t_notice_type=T12", "t_action=MODIFY", "t_fragment=ntFd",
         // target
         "t_trg_freq_assgn=0.7", "t_trg_stn_cls=FB", "t_trg_bdwdth_cde=8k", "t_trg_emi_cls=a3e",
         "t_trg_op_hh_fr=01:02", "t_trg_op_hh_to=03:04", "t_trg_op_cls=C", "t_zone_id=zz",
         "t_trg_geo_type=ZONE", "t_trg_long=+0010203", "t_trg_lat=-040506", "t_trg_adm_ref_id=old",
         // the notice's own
         "t_addr_code=a1", "t_freq_assgn=0.5", "t_geo_type=POINT", "t_site_name=PARIS", "t_ctry=f",
         "t_radius=30", "t_zone_id=ax", "t_long=-007", "t_lat=-08", "t_site_alt=120", "t_op_hh_fr=06:30",
         "t_op_hh_to=18:45", "t_stn_cls=FX", "t_op_cls=A", "t_emi_cls=f3e--", "t_bdwdth_cde=16k0",
         "t_nat_srv=cp", "t_freq_carr=5.1", "t_d_inuse=2003-05-01", "t_d_adm_ntc=1999-12-31",
         "t_call_sign=foxtrot", "t_call_sign=last", "t_station_id=id x", "t_adm_ref_id=r7", "t_is_resub=TRUE",
         "t_band_pref=b", "t_freq_dev=2.5", "t_energy_dsp=4", "t_op_agcy=007", "t_prov=rr11", "t_remarks = A",
         "t_remarks = B", "<COORD>", "t_adm=d", "</COORD>",
         // antenna
         "<ANTENNA>", "t_pwr_xyz=x", "t_pwr_ant=1.5", "t_pwr_dbw=-3", "t_pwr_eiv=e", "t_pwr_dens=-60",
         "t_ant_dir=nd", "t_azm_max_e=270", "t_bmwdth=15", "t_gain_type=i", "t_gain_max=12", "t_ant_ref=ref",
         "t_elev=3", "t_polar=v", "t_hgt_agl=40", "t_dist_max=500", "<ROTATIONAL>", "t_azm_fr=10",
         "t_azm_to=20", "</ROTATIONAL>", "<RX_STATION>", "t_nois_tmp=290", "t_geo_type=CIRCLE",
         "t_site_name=LYON", "t_ctry=sui", "t_radius=9", "t_zone_id=q", "t_long=-007", "t_lat=-08",
         "t_site_alt=120", "</RX_STATION>", "</ANTENNA>", "</NOTICE>"});
    EXPECT_EQ(noticeBlock(ntc), expected);
}

TEST_F(WriteNotice, AnAddHasNoTargetKeys)
{
    Ntc ntc = modifyNotice();
    ntc.intent = "ADD";
    ntc.fragment = "f";
    ntc.target.trg_freq_assgn = "5";
    ntc.freq_assgn = "6";
    const auto text = noticeBlock(ntc);
    EXPECT_TRUE(withoutFrame(text).starts_with(lines({"t_action=ADD", "t_fragment=f", "t_freq_assgn=6"})));
    EXPECT_EQ(text.find("trg"), std::string::npos);
}

TEST_F(WriteNotice, AnyOtherActionHasTheTargetAloneBehindItsFirstKeys)
{
    for (const char* action : {"SUPPRESS", "WITHDRAW", "modify", "other", ""}) {
        SCOPED_TRACE(action);
        Ntc ntc = modifyNotice();
        for (const auto& row : keyCases)
            memberOf(row, ntc) = row.held;
        ntc.intent = action;
        ntc.rmk_text = "A";
        const std::string actionLine = *action == 0 ? "" : std::string("t_action=") + action + "\r\n";
        EXPECT_EQ(withoutFrame(noticeBlock(ntc)),
                  "t_notice_type=T12\r\n" + actionLine + "t_fragment=ntFd\r\n" + targetBlock(ntc.target));
    }
}

TEST_F(WriteNotice, ATargetThatIsNotPresentIsWrittenAllTheSame)
{
    Ntc ntc = modifyNotice();
    ntc.target.present = false;
    ntc.target.trg_freq_assgn = "5";
    EXPECT_TRUE(holdsLine(noticeBlock(ntc), "t_trg_freq_assgn=5"));
}

TEST_F(WriteNotice, AModifyHasItsTargetsZoneAsAFirstZoneAndItsOwnLater)
{
    Ntc ntc = modifyNotice();
    ntc.target.trg_zone_id = "T";
    ntc.geo.zone_id = "N";
    const auto text = noticeBlock(ntc);
    EXPECT_LT(text.find("t_zone_id=T\r\n"), text.find("t_zone_id=N\r\n"));
    EXPECT_NE(text.find("t_zone_id=N\r\n"), std::string::npos);
    EXPECT_EQ(text.find("t_trg_zone_id"), std::string::npos);
}

TEST_F(WriteNotice, ATargetsPositionWithAnyEmptyPartDisappears)
{
    NtcTarget full;
    full.trg_long_deg = full.trg_long_min = full.trg_long_sec = "1";
    full.trg_long_ew = "E";
    full.trg_lat_deg = full.trg_lat_min = full.trg_lat_sec = "2";
    full.trg_lat_ns = "N";
    EXPECT_EQ(targetBlock(full), lines({"t_trg_long=+0010101", "t_trg_lat=+020202"}));
    for (auto part : {&NtcTarget::trg_long_deg, &NtcTarget::trg_long_min, &NtcTarget::trg_long_sec,
                      &NtcTarget::trg_long_ew}) {
        NtcTarget target = full;
        target.*part = "";
        EXPECT_EQ(targetBlock(target), lines({"t_trg_lat=+020202"}));
    }
    for (auto part : {&NtcTarget::trg_lat_deg, &NtcTarget::trg_lat_min, &NtcTarget::trg_lat_sec,
                      &NtcTarget::trg_lat_ns}) {
        NtcTarget target = full;
        target.*part = "";
        EXPECT_EQ(targetBlock(target), lines({"t_trg_long=+0010101"}));
    }
}

TEST_F(WriteNotice, AT14NeverSaysThatItIsAResubmission)
{
    Ntc ntc = modifyNotice();
    ntc.is_resub = "TRUE";
    for (const char* type : {"T11", "T12", "T13", ""}) {
        ntc.notice_typ = type;
        EXPECT_TRUE(holdsLine(noticeBlock(ntc), "t_is_resub=TRUE")) << type;
    }
    ntc.notice_typ = "T14";
    EXPECT_EQ(noticeBlock(ntc).find("t_is_resub"), std::string::npos);
}

TEST_F(WriteNotice, ASiteThatIsNotPresentIsLeftOut)
{
    Ntc ntc = modifyNotice();
    ntc.geo.ctry = "F";
    EXPECT_TRUE(holdsLine(noticeBlock(ntc), "t_ctry=F"));
    ntc.geo.present = false;
    EXPECT_EQ(noticeBlock(ntc).find("t_ctry"), std::string::npos);
}

TEST_F(WriteNotice, ACoordinationListThatIsNotPresentIsLeftOut)
{
    Ntc ntc = modifyNotice();
    ntc.coord.adm[0] = "D";
    ntc.coord.present = false;
    EXPECT_EQ(noticeBlock(ntc).find("COORD"), std::string::npos);
}

TEST_F(WriteNotice, AntennasThatAreNotPresentAreLeftOutAndTheLaterOnesNot)
{
    Ntc ntc = modifyNotice();
    ntc.antenna[0].present = false;
    ntc.antenna[0].polar = "X";
    ntc.antenna[14].present = true;
    ntc.antenna[14].polar = "V";
    EXPECT_EQ(noticeBlock(ntc).find("t_polar=X"), std::string::npos);
    EXPECT_TRUE(holdsLine(noticeBlock(ntc), "t_polar=V"));
}

TEST_F(WriteNotice, DatesInTheHostsFormAndInTheFilesFormComeOutAlike)
{
    for (const char* date : {"2003-05-01", "01.05.2003", "1.5.2003"}) {
        Ntc ntc = modifyNotice();
        ntc.d_inuse = date;
        EXPECT_TRUE(holdsLine(noticeBlock(ntc), "t_d_inuse=2003-05-01")) << date;
    }
}

TEST_F(WriteNotice, ADateThatIsNoneAndHasNotTwoDotsIsAFailure)
{
    for (auto date : {&Ntc::d_inuse, &Ntc::d_adm_ntc}) {
        for (const char* text : {"soon", "in.2003", " "}) {
            Ntc ntc = modifyNotice();
            ntc.*date = text;
            EXPECT_EQ(failureOf([&] { (void)noticeBlock(ntc); }), platform::errInvalidCall) << text;
            ntc.intent = "SUPPRESS";
            EXPECT_EQ(failureOf([&] { (void)noticeBlock(ntc); }), 0) << text;
        }
    }
}

TEST(TimeToFile, PadsByItsLength)
{
    EXPECT_EQ(timeToFile("5"), "00:05");
    EXPECT_EQ(timeToFile("30"), "00:30");
    EXPECT_EQ(timeToFile("930"), "09:30");
    EXPECT_EQ(timeToFile("0930"), "09:30");
    EXPECT_EQ(timeToFile(""), "");
    EXPECT_EQ(timeToFile("09300"), "");
    EXPECT_EQ(timeToFile("\u00e9"), "00:0\u00e9");
}

TEST(DateToFile, TurnsDayMonthYearRound)
{
    EXPECT_EQ(dateToFile("01.05.2003"), "2003-05-01");
    EXPECT_EQ(dateToFile(" 1.5.3.x "), "3.x-5-1");
    EXPECT_EQ(failureOf([] { (void)dateToFile("01.05"); }), platform::errInvalidCall);
    EXPECT_EQ(failureOf([] { (void)dateToFile(""); }), platform::errInvalidCall);
}

TEST(LongToFile, PadsDegreesToThreeAndTheRestToTwoDigits)
{
    EXPECT_EQ(longToFile("E", "5", "7", ""), "+00507");
    EXPECT_EQ(longToFile("W", "12", "30", "4"), "-0123004");
    EXPECT_EQ(longToFile("E", "123", "30", "45"), "+1233045");
    EXPECT_EQ(longToFile("E", "", "", "9"), "+09");
    EXPECT_EQ(longToFile("E", "1", "234", "567"), "+001234567");
}

TEST(LongToFile, LeavesOutDegreesOfMoreThanThreeDigits)
{
    EXPECT_EQ(longToFile("E", "1234", "30", ""), "+30");
    EXPECT_EQ(longToFile("E", "1234", "", ""), "");
}

TEST(LongToFile, IsWestForAnythingButACapitalE)
{
    for (const char* ew : {"W", "e", "", "EE"})
        EXPECT_EQ(longToFile(ew, "1", "2", ""), "-00102") << ew;
}

TEST(LongToFile, IsNothingWithoutDigits)
{
    EXPECT_EQ(longToFile("E", "", "", ""), "");
}

TEST(LatToFile, PadsEachPartOfOneDigit)
{
    EXPECT_EQ(latToFile("S", "5", "7", "1"), "-050701");
    EXPECT_EQ(latToFile("N", "45", "30", ""), "+4530");
    EXPECT_EQ(latToFile("N", "1234", "567", "8"), "+123456708");
    EXPECT_EQ(latToFile("N", "", "", ""), "");
    for (const char* ns : {"S", "n", "", "NN"})
        EXPECT_EQ(latToFile(ns, "1", "2", ""), "-0102") << ns;
}

TEST(HeadBlock, HoldsTheAdministrationUnlessItIsEmpty)
{
    Ntc ntc;
    EXPECT_EQ(headBlock(ntc), lines({"<HEAD>", "</HEAD>"}));
    ntc.adm = "F";
    EXPECT_EQ(headBlock(ntc), lines({"<HEAD>", "t_adm=F", "</HEAD>"}));
}

TEST(TailBlock, LeavesABlankInThePlaceOfAPlusSign)
{
    EXPECT_EQ(tailBlock(5), lines({"<TAIL>", "t_num_notices =  5", "</TAIL>"}));
    EXPECT_EQ(tailBlock(0), lines({"<TAIL>", "t_num_notices =  0", "</TAIL>"}));
    EXPECT_EQ(tailBlock(32767), lines({"<TAIL>", "t_num_notices =  32767", "</TAIL>"}));
}

TEST(SiteBlock, WritesTheFirstPointAloneAndOnlyWhenItIsPresent)
{
    NtcGeo geo;
    geo.ctry = "F";
    geo.pt[0] = point("5");
    geo.pt[0].site_alt = "9";
    geo.pt[1] = point("6");
    EXPECT_EQ(siteBlock(geo), lines({"t_ctry=F", "t_long=+00501", "t_site_alt=9"}));
    geo.pt[0].present = false;
    EXPECT_EQ(siteBlock(geo), "t_ctry=F\r\n");
}

TEST(SiteBlock, APresentPointWithoutCoordinatesGivesNoKey)
{
    NtcGeo geo;
    geo.pt[0].present = true;
    geo.pt[0].long_ew = "E";
    geo.pt[0].lat_ns = "N";
    EXPECT_EQ(siteBlock(geo), "");
}

TEST(ListLines, SkipEmptySlotsAndGoOn)
{
    Ntc ntc;
    ntc.nat_srv = {"", "b", "", "d", "", "f"};
    ntc.call_sign = {"1", "", "", "", "", "6"};
    ntc.op_agcy = {"7", "", "x", "", "", ""};
    EXPECT_EQ(natSrvLines(ntc), lines({"t_nat_srv=b", "t_nat_srv=d", "t_nat_srv=f"}));
    EXPECT_EQ(callSignLines(ntc), lines({"t_call_sign=1", "t_call_sign=6"}));
    EXPECT_EQ(opAgcyLines(ntc), lines({"t_op_agcy=7", "t_op_agcy=x"}));
}

TEST(CoordBlock, WritesEachGivenAdministrationAndNoProvision)
{
    NtcCoord coord;
    coord.coord_prov = "P";
    coord.adm[1] = "D";
    coord.adm[10] = "F";
    EXPECT_EQ(coordBlock(coord), lines({"<COORD>", "t_adm=D", "t_adm=F", "</COORD>"}));
}

TEST(AntennaBlock, WritesPresentSectorsWhateverIsRotSays)
{
    NtcAntenna antenna;
    antenna.rot[5].present = true;
    antenna.rot[5].azm_to = "20";
    antenna.rot[0].azm_fr = "10";
    EXPECT_EQ(antennaBlock(antenna, "T11"),
              lines({"<ANTENNA>", "<ROTATIONAL>", "t_azm_to=20", "</ROTATIONAL>", "</ANTENNA>"}));
    antenna = {};
    antenna.is_rot = "TRUE";
    EXPECT_EQ(antennaBlock(antenna, "T11"), lines({"<ANTENNA>", "</ANTENNA>"}));
}

TEST(AntennaBlock, WritesTransmittingStationsForAT13Alone)
{
    NtcAntenna antenna;
    antenna.rx[14].present = antenna.rx[14].geo.present = true;
    antenna.rx[3].geo.present = true;
    for (const char* type : {"T11", "T12", "T14", "t13", ""})
        EXPECT_EQ(antennaBlock(antenna, type),
                  lines({"<ANTENNA>", "<RX_STATION>", "</RX_STATION>", "</ANTENNA>"}))
            << type;
    EXPECT_EQ(antennaBlock(antenna, "T13"),
              lines({"<ANTENNA>", "<TX_STATION>", "</TX_STATION>", "</ANTENNA>"}));
}

TEST(RxStationBlock, WritesItsSiteWhetherThatIsPresentOrNot)
{
    NtcRx rx;
    EXPECT_EQ(rxStationBlock(rx), lines({"<RX_STATION>", "</RX_STATION>"}));
    rx.noise_temp = "290";
    rx.geo.ctry = "F";
    EXPECT_EQ(rxStationBlock(rx), lines({"<RX_STATION>", "t_nois_tmp=290", "t_ctry=F", "</RX_STATION>"}));
}

TEST(RxStationBlock, AMultipointSiteHasItsTypeAndPointsAlone)
{
    NtcRx rx;
    rx.geo.geo_type = "MULTIPOINT";
    rx.geo.ctry = rx.geo.site_name = rx.geo.radius = rx.geo.zone_id = "x";
    rx.geo.pt[1] = point("5");
    rx.geo.pt[1].site_alt = "9";
    rx.geo.pt[2] = point("6");
    rx.geo.pt[2].present = false;
    rx.geo.pt[5].present = true;
    EXPECT_EQ(rxStationBlock(rx), lines({"<RX_STATION>", "t_geo_type=MULTIPOINT", "<POINT>", "t_long=+00501",
                                         "</POINT>", "<POINT>", "</POINT>", "</RX_STATION>"}));
}

TEST(TxStationBlock, IsSkippedInSilenceWithoutASite)
{
    NtcRx rx;
    rx.geo.ctry = "F";
    EXPECT_EQ(txStationBlock(rx), "");
}

TEST(TxStationBlock, HasItsSiteKeysAlsoForMultipointAndNoNoiseTemperature)
{
    NtcRx rx;
    rx.noise_temp = "290";
    rx.geo.present = true;
    rx.geo.geo_type = "MULTIPOINT";
    rx.geo.ctry = "F";
    rx.geo.pt[0] = point("5");
    rx.geo.pt[1] = point("6");
    EXPECT_EQ(txStationBlock(rx),
              lines({"<TX_STATION>", "t_geo_type=MULTIPOINT", "t_ctry=F", "t_long=+00501", "</TX_STATION>"}));
}

TEST_F(WriteNotice, AT13SkipsStationsWithoutASiteAndAT12WritesTheirTags)
{
    Ntc ntc = modifyNotice();
    ntc.antenna[0].rx[0].geo.present = false;
    ntc.notice_typ = "T13";
    EXPECT_EQ(noticeBlock(ntc).find("STATION"), std::string::npos);
    ntc.notice_typ = "T12";
    EXPECT_TRUE(holdsLine(noticeBlock(ntc), "<RX_STATION>\r\n</RX_STATION>"));
}

TEST_F(WriteNotice, WritesTheLastTwoRemarksAlone)
{
    const auto remarksOf = [](const char* text) {
        Ntc ntc;
        ntc.intent = "ADD";
        ntc.rmk_text = text;
        const auto block = withoutFrame(noticeBlock(ntc));
        EXPECT_EQ(ntc.rmk_text, text);
        return block.substr(std::string("t_action=ADD\r\n").size());
    };
    EXPECT_EQ(remarksOf(""), "");
    EXPECT_EQ(remarksOf("A"), lines({"t_remarks = A"}));
    EXPECT_EQ(remarksOf("A;B"), lines({"t_remarks = A", "t_remarks = B"}));
    EXPECT_EQ(remarksOf("A;B;C"), lines({"t_remarks = B", "t_remarks = C"}));
    EXPECT_EQ(remarksOf("A;"), lines({"t_remarks = A"}));
    EXPECT_EQ(remarksOf("A;B;"), lines({"t_remarks = B"}));
    EXPECT_EQ(remarksOf("A;;B"), lines({"t_remarks = ", "t_remarks = B"}));
}

TEST_F(WriteNotice, AnEmptyRecordGivesItsTagsAlone)
{
    Ntc ntc;
    EXPECT_EQ(noticeBlock(ntc), lines({"<NOTICE>", "</NOTICE>"}));
}
