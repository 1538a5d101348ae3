#include "elect/electText.h"
#include "elect/writeOneNtcElect.h"
#include "platform/ansiText.h"
#include "platform/hostFormat.h"

#include <gtest/gtest.h>

#include <string>

using namespace electText;
using writeOneNtcElect::noticeBlock;

namespace {

// A notice written, and what a reader makes of that.
class RoundTrip : public testing::Test
{
protected:
    RoundTrip() { platform::setHostLocale("de_DE.UTF-8"); }
    ~RoundTrip() override { platform::setHostLocale(""); }
    RoundTrip(const RoundTrip&) = delete;
    RoundTrip& operator=(const RoundTrip&) = delete;

    static Ntc readBack(const Ntc& ntc)
    {
        const auto outcome = readFile(platform::utf8ToAnsi(noticeBlock(ntc)));
        EXPECT_EQ(outcome.failure, 0);
        EXPECT_EQ(outcome.notices.size(), 1U);
        return outcome.notice(0);
    }
    static Ntc readBack(const std::string& noticeLines) { return readBack(readNotice(noticeLines)); }

    static Ntc addNotice()
    {
        Ntc ntc;
        ntc.intent = "ADD";
        return ntc;
    }
};

const std::string fullAdd = lines({"t_notice_type=T12",
                                   "t_action=ADD",
                                   "t_fragment=NTFD_RR",
                                   "t_addr_code=A",
                                   "t_freq_assgn=7.125",
                                   "t_geo_type=POINT",
                                   "t_site_name=PARIS",
                                   "t_ctry=F",
                                   "t_radius=10",
                                   "t_zone_id=Z",
                                   "t_long=+0021530",
                                   "t_lat=+485130",
                                   "t_site_alt=35",
                                   "t_op_hh_fr=06:30",
                                   "t_op_hh_to=18:00",
                                   "t_stn_cls=FX",
                                   "t_op_cls=A",
                                   "t_emi_cls=F3E",
                                   "t_bdwdth_cde=16K0",
                                   "t_nat_srv=CP",
                                   "t_nat_srv=CO",
                                   "t_freq_carr=7.1",
                                   "t_d_inuse=2003-05-01",
                                   "t_d_adm_ntc=2003-04-01",
                                   "t_call_sign=FAB",
                                   "t_station_id=S1",
                                   "t_adm_ref_id=R1",
                                   "t_is_resub=FALSE",
                                   "t_band_pref=B",
                                   "t_freq_dev=5",
                                   "t_energy_dsp=2",
                                   "t_op_agcy=007",
                                   "t_prov=RR11.2",
                                   "t_remarks=one",
                                   "t_remarks=two",
                                   "<COORD>",
                                   "t_adm=D",
                                   "t_adm=SUI",
                                   "</COORD>",
                                   "<ANTENNA>",
                                   "t_pwr_xyz=Y",
                                   "t_pwr_ant=1.5",
                                   "t_ant_dir=D",
                                   "t_azm_max_e=90",
                                   "<ROTATIONAL>",
                                   "t_azm_fr=10",
                                   "t_azm_to=20",
                                   "</ROTATIONAL>",
                                   "<RX_STATION>",
                                   "t_nois_tmp=290",
                                   "t_geo_type=POINT",
                                   "t_site_name=LYON",
                                   "t_ctry=F",
                                   "t_long=+0045000",
                                   "t_lat=+454500",
                                   "</RX_STATION>",
                                   "</ANTENNA>",
                                   "<ANTENNA>",
                                   "t_polar=V",
                                   "<RX_STATION>",
                                   "t_geo_type=MULTIPOINT",
                                   "<POINT>",
                                   "t_long=+0010101",
                                   "t_lat=-010101",
                                   "</POINT>",
                                   "<POINT>",
                                   "t_long=-0020202",
                                   "t_lat=+020202",
                                   "</POINT>",
                                   "</RX_STATION>",
                                   "</ANTENNA>"});

} // namespace

TEST_F(RoundTrip, ANoticeInItsNormalFormComesBackAsItWas)
{
    const Ntc ntc = readNotice(fullAdd);
    EXPECT_TRUE(readBack(ntc) == ntc);
}

TEST_F(RoundTrip, EveryKeyWithAWrittenFormComesBack)
{
    for (const auto& row : keyCases) {
        SCOPED_TRACE(row.key);
        // An "ADD" has no target, a "MODIFY" has everything; a typed site keeps its first point.
        const auto given = lines({std::string(row.key) + "=" + row.given});
        const Ntc back = readBack("t_action=MODIFY\r\n" + wrapped(row.section, given));
        if (std::string(row.key) == "t_coord_prov")
            EXPECT_EQ(row.member(back), "");
        else
            EXPECT_EQ(row.member(back), row.held);
    }
}

TEST_F(RoundTrip, AWrittenTextReadAndWrittenAgainIsTheSame)
{
    for (const char* action : {"ADD", "MODIFY", "SUPPRESS", "WITHDRAW", "other"}) {
        const auto text = noticeBlock(readNotice(fullAdd + "t_action=" + action + "\r\n"));
        EXPECT_EQ(noticeBlock(readFile(text).notice(0)), text);
    }
}

TEST_F(RoundTrip, ReceiptAndUpdateAreNotInTheFile)
{
    Ntc ntc = addNotice();
    ntc.d_rcv = ntc.src_update = ntc.d_updated = "x";
    const Ntc back = readBack(ntc);
    EXPECT_EQ(back.d_rcv, "");
    EXPECT_EQ(back.src_update, "");
    EXPECT_EQ(back.d_updated, "");
}

TEST_F(RoundTrip, TimesCoordinatesAndAgenciesComeBackPadded)
{
    Ntc ntc = addNotice();
    ntc.op_hh_fr = "5";
    ntc.op_hh_to = "930";
    ntc.op_agcy[0] = "7";
    ntc.geo.present = ntc.geo.pt[0].present = true;
    ntc.geo.pt[0].long_deg = "5";
    ntc.geo.pt[0].long_min = "7";
    ntc.geo.pt[0].lat_deg = "5";
    ntc.geo.pt[0].lat_min = "7";
    ntc.geo.pt[0].lat_sec = "1";
    const Ntc back = readBack(ntc);
    EXPECT_EQ(back.op_hh_fr, "0005");
    EXPECT_EQ(back.op_hh_to, "0930");
    EXPECT_EQ(back.op_agcy[0], "007");
    EXPECT_EQ(back.geo.pt.at(0).long_deg, "005");
    EXPECT_EQ(back.geo.pt.at(0).long_min, "07");
    EXPECT_EQ(back.geo.pt.at(0).long_sec, "");
    EXPECT_EQ(back.geo.pt.at(0).lat_deg, "05");
    EXPECT_EQ(back.geo.pt.at(0).lat_sec, "01");
}

TEST_F(RoundTrip, AnEmptyHemisphereComesBackAsWestAndSouth)
{
    Ntc ntc = addNotice();
    ntc.geo.present = ntc.geo.pt[0].present = true;
    ntc.geo.pt[0].long_deg = ntc.geo.pt[0].lat_deg = "5";
    EXPECT_EQ(readBack(ntc).geo.pt.at(0).long_ew, "W");
    EXPECT_EQ(readBack(ntc).geo.pt.at(0).lat_ns, "S");
}

TEST_F(RoundTrip, DatesComeBackInTheFilesForm)
{
    Ntc ntc = addNotice();
    ntc.d_inuse = "1.5.2003";
    ntc.d_adm_ntc = "31.12.1999";
    EXPECT_EQ(readBack(ntc).d_inuse, "2003-05-01");
    EXPECT_EQ(readBack(ntc).d_adm_ntc, "1999-12-31");
}

TEST_F(RoundTrip, WhatTheReaderRaisesComesBackInUpperCase)
{
    Ntc ntc = addNotice();
    ntc.notice_typ = "t11";
    ntc.stn_cls = "fx";
    ntc.op_cls = "a";
    ntc.is_resub = "true";
    ntc.geo.present = true;
    ntc.geo.geo_type = "point";
    ntc.geo.site_name = "M\u00fcnchen";
    const Ntc back = readBack(ntc);
    EXPECT_EQ(back.notice_typ, "T11");
    EXPECT_EQ(back.stn_cls, "FX");
    EXPECT_EQ(back.op_cls, "A");
    EXPECT_EQ(back.is_resub, "TRUE");
    EXPECT_EQ(back.geo.geo_type, "POINT");
    EXPECT_EQ(back.geo.site_name, "M\u00dcNCHEN");
}

TEST_F(RoundTrip, TheSiteAndItsFirstPointArePresentEvenWhenTheyWereNot)
{
    const Ntc back = readBack(addNotice());
    EXPECT_TRUE(back.geo.present);
    EXPECT_TRUE(back.geo.pt.at(0).present);
}

TEST_F(RoundTrip, ARotatingAntennaWithoutSectorsRotatesNoMore)
{
    Ntc ntc = addNotice();
    ntc.antenna[0].present = true;
    ntc.antenna[0].is_rot = "TRUE";
    EXPECT_EQ(readBack(ntc).antenna.at(0).is_rot, "FALSE");
    ntc.antenna[0].rot[0].present = true;
    ntc.antenna[0].is_rot = "FALSE";
    EXPECT_EQ(readBack(ntc).antenna.at(0).is_rot, "TRUE");
}

TEST_F(RoundTrip, AValueIsCutAtItsCommaAndTheRestIsAnItemOfItsOwn)
{
    Ntc ntc = addNotice();
    ntc.stn_id = "A, B";
    ntc.prov = "a,t_band_pref=b";
    const Ntc back = readBack(ntc);
    EXPECT_EQ(back.stn_id, "A");
    EXPECT_EQ(back.prov, "a");
    EXPECT_EQ(back.band_pref, "b");
}

TEST_F(RoundTrip, ADoubleQuoteBehindAKeyIsAPartOfTheValue)
{
    // The item begins with the key: only an item that begins with a double quote is a quoted one.
    Ntc ntc = addNotice();
    ntc.stn_id = "\"A\"";
    EXPECT_EQ(readBack(ntc).stn_id, "\"A\"");
}

TEST_F(RoundTrip, ADoubleQuoteBehindACommaOpensAQuotedItem)
{
    Ntc ntc = addNotice();
    ntc.stn_id = "A, \"t_prov=b, c\"";
    const Ntc back = readBack(ntc);
    EXPECT_EQ(back.stn_id, "A");
    EXPECT_EQ(back.prov, "b, c");
}

TEST_F(RoundTrip, RemarksComeBackWithTheirLastTwoPiecesAndNoSemicolonAtTheEnd)
{
    const auto back = [](const char* remarks) {
        Ntc ntc = addNotice();
        ntc.rmk_text = remarks;
        return readBack(ntc).rmk_text;
    };
    EXPECT_EQ(back("A;B"), "A;B");
    EXPECT_EQ(back("A;B;C"), "B;C");
    EXPECT_EQ(back("A;B;"), "B");
    EXPECT_EQ(back("A;;B"), "B");
    EXPECT_EQ(back(";"), "");
}

TEST_F(RoundTrip, ANoticeOtherThanAddIsFilledInAgain)
{
    Ntc ntc;
    ntc.intent = "MODIFY";
    ntc.freq_assgn = "5";
    ntc.target.trg_stn_cls = "FX";
    const Ntc back = readBack(ntc);
    EXPECT_TRUE(back.target.present);
    EXPECT_EQ(back.target.trg_freq_assgn, "5");
    EXPECT_EQ(back.stn_cls, "FX");
}

TEST_F(RoundTrip, CoordinatesWithoutDigitsAndEmptyValuesStayEmpty)
{
    Ntc ntc = addNotice();
    ntc.geo.present = ntc.geo.pt[0].present = true;
    ntc.geo.pt[0].long_ew = "E";
    const Ntc back = readBack(ntc);
    EXPECT_EQ(back.geo.pt.at(0).long_deg, "");
    EXPECT_EQ(back.geo.pt.at(0).long_ew, "");
    EXPECT_EQ(back.prov, "");
}

TEST_F(RoundTrip, AModifysTargetTakesTheZoneOfTheNoticeItself)
{
    const Ntc back = readBack(lines({"t_action=MODIFY", "t_trg_zone_id=T", "t_zone_id=N"}));
    EXPECT_EQ(back.geo.zone_id, "N");
    EXPECT_EQ(back.target.trg_zone_id, "N");
}

TEST_F(RoundTrip, ASuppressionsTargetZoneComesBackAsTheZoneOfBoth)
{
    const Ntc back = readBack(lines({"t_action=SUPPRESS", "t_trg_zone_id=T", "t_zone_id=N"}));
    EXPECT_EQ(back.geo.zone_id, "T");
    EXPECT_EQ(back.target.trg_zone_id, "T");
}

TEST_F(RoundTrip, UnknownKeysAreGone)
{
    const auto text = noticeBlock(readNotice(lines({"t_action=ADD", "t_unknown=1", "t_adm=F"})));
    EXPECT_EQ(text, lines({"<NOTICE>", "t_action=ADD", "</NOTICE>"}));
}

TEST_F(RoundTrip, TheProvisionOfACoordinationIsGone)
{
    const Ntc back =
        readBack("t_action=ADD\r\n" + inSection("COORDINATION", lines({"t_coord_prov=P", "t_adm=F"})));
    EXPECT_EQ(back.coord.coord_prov, "");
    EXPECT_EQ(back.coord.adm[0], "F");
    EXPECT_TRUE(back.coord.present);
}

TEST_F(RoundTrip, AStationsAltitudeIsWrittenAndNotReadBack)
{
    Ntc ntc = readNotice(fullAdd);
    ntc.antenna[0].rx[0].geo.pt[0].site_alt = "9";
    EXPECT_NE(noticeBlock(ntc).find("t_site_alt=9"), std::string::npos);
    EXPECT_EQ(readBack(ntc).antenna.at(0).rx.at(0).geo.pt.at(0).site_alt, "");
}

TEST_F(RoundTrip, ASuppressionOrWithdrawalKeepsItsTargetAndNothingOfItsOwn)
{
    for (const char* action : {"SUPPRESS", "WITHDRAW"}) {
        const Ntc back = readBack(fullAdd + lines({std::string("t_action=") + action, "t_trg_freq_assgn=1"}));
        EXPECT_EQ(back.intent, action);
        EXPECT_EQ(back.notice_typ, "T12");
        EXPECT_EQ(back.fragment, "NTFD_RR");
        EXPECT_EQ(back.target.trg_freq_assgn, "1");
        // What comes back of its own it takes from its target.
        EXPECT_EQ(back.freq_assgn, "1");
        EXPECT_EQ(back.prov, "");
        EXPECT_EQ(back.geo.site_name, "");
        EXPECT_EQ(back.call_sign[0], "");
        EXPECT_EQ(back.rmk_text, "");
        EXPECT_FALSE(back.coord.present);
        EXPECT_FALSE(back.antenna.at(0).present);
    }
}

TEST_F(RoundTrip, TheResubmissionOfAT14IsGone)
{
    EXPECT_EQ(readBack(lines({"t_action=ADD", "t_notice_type=T14", "t_is_resub=TRUE"})).is_resub, "");
    EXPECT_EQ(readBack(lines({"t_action=ADD", "t_notice_type=T11", "t_is_resub=TRUE"})).is_resub, "TRUE");
}

TEST_F(RoundTrip, ATargetPositionWithoutSecondsIsGone)
{
    const auto target = readBack(lines({"t_action=SUPPRESS", "t_trg_long=+00102", "t_trg_lat=+0102"})).target;
    EXPECT_EQ(target.trg_long_deg, "");
    EXPECT_EQ(target.trg_lat_deg, "");
}

TEST_F(RoundTrip, AMultipointReceivingStationKeepsItsTypeAndPointsAlone)
{
    const Ntc ntc = readNotice(
        "t_action=ADD\r\n" +
        wrapped(Section::Station,
                lines({"t_geo_type=MULTIPOINT", "t_site_name=a", "t_ctry=F", "t_radius=1", "t_zone_id=z"}) +
                    inSection("POINT", lines({"t_long=+0010203", "t_lat=+010203"}))));
    const auto& before = ntc.antenna.at(0).rx.at(0).geo;
    const auto back = readBack(ntc).antenna.at(0).rx.at(0).geo;
    EXPECT_EQ(before.site_name, "A");
    EXPECT_EQ(back.geo_type, "MULTIPOINT");
    EXPECT_EQ(back.site_name + back.ctry + back.radius + back.zone_id, "");
    EXPECT_TRUE(back.pt == before.pt);
}

TEST_F(RoundTrip, ATransmittingStationLosesItsPointsAndItsNoiseTemperature)
{
    const auto station = lines({"t_nois_tmp=290", "t_geo_type=MULTIPOINT", "t_ctry=F"}) +
                         inSection("POINT", "t_long=+0010203\r\n") +
                         inSection("POINT", "t_long=+0020304\r\n");
    const auto back =
        readBack(lines({"t_action=ADD", "t_notice_type=T13"}) + wrapped(Section::Station, station))
            .antenna.at(0)
            .rx.at(0);
    EXPECT_EQ(back.noise_temp, "");
    EXPECT_EQ(back.geo.ctry, "F");
    // The first point came as the site's own coordinates.
    EXPECT_EQ(back.geo.pt.at(0).long_deg, "001");
    EXPECT_FALSE(back.geo.pt.at(0).present);
    EXPECT_EQ(back.geo.pt.at(1).long_deg, "");
    EXPECT_FALSE(back.geo.pt.at(1).present);
}

TEST_F(RoundTrip, AStationWithoutATypeLosesItsCoordinates)
{
    const Ntc ntc = readNotice("t_action=ADD\r\n" + wrapped(Section::Station, "t_long=+0010203\r\n"));
    EXPECT_EQ(ntc.antenna.at(0).rx.at(0).geo.pt.at(0).long_deg, "001");
    EXPECT_EQ(readBack(ntc).antenna.at(0).rx.at(0).geo.pt.at(0).long_deg, "");
}

TEST_F(RoundTrip, TheStationTagFollowsTheNoticeType)
{
    const auto station = inSection("ANTENNA", inSection("TX_STATION", "t_ctry=F\r\n"));
    EXPECT_NE(noticeBlock(readNotice("t_action=ADD\r\n" + station)).find("<RX_STATION>"), std::string::npos);
    EXPECT_NE(noticeBlock(readNotice("t_action=ADD\r\nt_notice_type=T13\r\n" + station)).find("<TX_STATION>"),
              std::string::npos);
}

TEST_F(RoundTrip, AHoleInAListCloses)
{
    Ntc ntc = addNotice();
    ntc.call_sign = {"", "b", "", "d", "", ""};
    ntc.antenna[3].present = true;
    ntc.antenna[3].polar = "V";
    const Ntc back = readBack(ntc);
    EXPECT_EQ(back.call_sign[0], "b");
    EXPECT_EQ(back.call_sign[1], "d");
    EXPECT_EQ(back.antenna.at(0).polar, "V");
}
