#include "model/InitializeNtc.h"

#include <gtest/gtest.h>

namespace {

using namespace InitializeNtc;

void fill(NtcRot& rot)
{
    rot = {"10", "20", true};
}

void fill(NtcGeoPt& point)
{
    point = {"001", "E", "02", "03", "04", "N", "05", "06", "7", true};
}

void fill(NtcGeo& geo)
{
    geo.geo_type = geo.ctry = geo.site_name = geo.zone_id = geo.radius = "x";
    geo.present = true;
    for (std::size_t i = 0; i < geo.pt.size(); ++i)
        fill(geo.pt[i]);
}

void fill(NtcRx& rx)
{
    rx.noise_temp = "100";
    rx.present = true;
    fill(rx.geo);
}

void fill(NtcAntenna& antenna)
{
    for (auto* text :
         {&antenna.pwr_xyz, &antenna.pwr_ant, &antenna.pwr_dbw, &antenna.pwr_eiv, &antenna.ant_dir,
          &antenna.azm_max_e, &antenna.gain_max, &antenna.gain_type, &antenna.bmwdth, &antenna.ant_ref,
          &antenna.elev, &antenna.polar, &antenna.hgt_agl, &antenna.dist_max, &antenna.pwr_dens})
        *text = "x";
    antenna.is_rot = "TRUE";
    antenna.present = true;
    for (std::size_t i = 0; i < antenna.rot.size(); ++i)
        fill(antenna.rot[i]);
    for (std::size_t i = 0; i < antenna.rx.size(); ++i)
        fill(antenna.rx[i]);
}

void fill(NtcCoord& coord)
{
    coord.coord_prov = "x";
    coord.adm.fill("F");
    coord.present = true;
}

void fill(NtcTarget& target)
{
    target.present = true;
    for (auto* text : {&target.trg_freq_assgn, &target.trg_op_hh_fr, &target.trg_op_hh_to,
                       &target.trg_stn_cls, &target.trg_op_cls, &target.trg_emi_cls, &target.trg_bdwdth_cde,
                       &target.trg_geo_type, &target.trg_zone_id, &target.trg_long_deg, &target.trg_long_min,
                       &target.trg_long_sec, &target.trg_long_ew, &target.trg_lat_deg, &target.trg_lat_min,
                       &target.trg_lat_sec, &target.trg_lat_ns, &target.trg_adm_ref_id})
        *text = "x";
}

void fillScalars(Ntc& ntc)
{
    for (auto* text :
         {&ntc.fragment, &ntc.addr_code,  &ntc.freq_assgn, &ntc.op_hh_fr,   &ntc.op_hh_to,  &ntc.stn_cls,
          &ntc.op_cls,   &ntc.emi_cls,    &ntc.bdwdth_cde, &ntc.freq_carr,  &ntc.d_inuse,   &ntc.stn_id,
          &ntc.intent,   &ntc.prov,       &ntc.is_resub,   &ntc.adm_ref_id, &ntc.d_adm_ntc, &ntc.band_pref,
          &ntc.freq_dev, &ntc.energy_dsp, &ntc.src_update, &ntc.d_updated,  &ntc.rmk_text})
        *text = "x";
    ntc.adm = "F";
    ntc.d_rcv = "05.03.2024";
    ntc.notice_typ = "T13";
    ntc.stn_type = "RX";
}

// A notice that holds something everywhere.
Ntc fullNotice()
{
    Ntc ntc;
    fillScalars(ntc);
    fill(ntc.target);
    fill(ntc.geo);
    fill(ntc.coord);
    ntc.call_sign.fill("x");
    ntc.nat_srv.fill("x");
    ntc.op_agcy.fill("001");
    for (std::size_t i = 0; i < ntc.antenna.size(); ++i)
        fill(ntc.antenna[i]);
    return ntc;
}

template <class Record>
Record emptied(void (*init)(Record&))
{
    Record record;
    fill(record);
    EXPECT_NE(record, Record());
    init(record);
    return record;
}

TEST(Emptying, leavesNothingOfASubRecord)
{
    EXPECT_EQ(emptied(initRot), NtcRot());
    EXPECT_EQ(emptied(initGeoPt), NtcGeoPt());
    EXPECT_EQ(emptied(initGeo), NtcGeo());
    EXPECT_EQ(emptied(initRx), NtcRx());
    EXPECT_EQ(emptied(initAntenna), NtcAntenna());
    EXPECT_EQ(emptied(initCoord), NtcCoord());
    EXPECT_EQ(emptied(initTarget), NtcTarget());
}

TEST(Emptying, givesAnAntennaItsOneInitialValue)
{
    EXPECT_EQ(emptied(initAntenna).is_rot, "FALSE");
}

TEST(Emptying, reachesValuesOfASlotThatIsNotPresent)
{
    NtcAntenna antenna;
    antenna.rx[14].geo.pt[5].site_alt = "100";
    antenna.rot[5].azm_to = "90";
    initAntenna(antenna);
    EXPECT_EQ(antenna, NtcAntenna());
}

TEST(Emptying, theAdministrationTouchesNothingElse)
{
    auto ntc = fullNotice();
    clearNtcAdm(ntc);
    auto expected = fullNotice();
    expected.adm = "";
    EXPECT_EQ(ntc, expected);
}

TEST(Emptying, theDateOfReceiptTouchesNothingElse)
{
    auto ntc = fullNotice();
    clearNtcRcvDate(ntc);
    auto expected = fullNotice();
    expected.d_rcv = "";
    EXPECT_EQ(ntc, expected);
}

TEST(Emptying, theScalarsKeepsFourOfThemAndAllElse)
{
    auto ntc = fullNotice();
    initNtcScalars(ntc);
    Ntc expected;
    expected.adm = "F";
    expected.d_rcv = "05.03.2024";
    expected.notice_typ = "T13";
    expected.stn_type = "RX";
    const auto full = fullNotice();
    expected.target = full.target;
    expected.geo = full.geo;
    expected.coord = full.coord;
    expected.call_sign = full.call_sign;
    expected.nat_srv = full.nat_srv;
    expected.op_agcy = full.op_agcy;
    expected.antenna = full.antenna;
    EXPECT_EQ(ntc, expected);
}

TEST(Emptying, allButTheAntennasKeepsTheNoticeType)
{
    auto ntc = fullNotice();
    initNtcExceptAntennas(ntc);
    Ntc expected;
    expected.adm = "F";
    expected.d_rcv = "05.03.2024";
    expected.notice_typ = "T13";
    expected.stn_type = "RX";
    expected.antenna = fullNotice().antenna;
    EXPECT_EQ(ntc, expected);
    EXPECT_EQ(ntc.notice_typ, "T13");
}

TEST(Emptying, aNoticeLeavesNothingButTheAdministrationAndTheDateOfReceipt)
{
    auto ntc = fullNotice();
    initNtc(ntc);
    Ntc expected;
    expected.adm = "F";
    expected.d_rcv = "05.03.2024";
    EXPECT_EQ(ntc, expected);
}

TEST(Emptying, aNoticeSetsIsRotOfAllFifteenAntennasToFalse)
{
    auto ntc = fullNotice();
    initNtc(ntc);
    EXPECT_EQ(ntc.antenna.size(), 15U);
    for (const auto& antenna : ntc.antenna)
        EXPECT_EQ(antenna.is_rot, "FALSE");
}

TEST(Emptying, betweenTwoNoticesKeepsTheAdministrationOfTheHead)
{
    Ntc ntc;
    ntc.adm = "F";
    initNtc(ntc);
    ntc.notice_typ = "T11";
    initNtc(ntc);
    EXPECT_EQ(ntc.adm, "F");
    EXPECT_EQ(ntc.notice_typ, "");
}

TEST(ANotice, hasItsFixedBounds)
{
    EXPECT_EQ(NtcAntenna().rot.size(), 6U);
    EXPECT_EQ(NtcAntenna().rx.size(), 15U);
    EXPECT_EQ(NtcGeo().pt.size(), 6U);
    EXPECT_EQ(NtcCoord().adm.size(), 11U);
    EXPECT_EQ(Ntc().call_sign.size(), 6U);
    EXPECT_EQ(Ntc().nat_srv.size(), 6U);
    EXPECT_EQ(Ntc().op_agcy.size(), 6U);
}

} // namespace
