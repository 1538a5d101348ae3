#include "db/readDBToNtc.h"

#include "db/columns.h"
#include "support/noticeDatabase.h"

namespace {

using Texts = std::vector<std::string>;
using ReadDBToNtc = NoticeDatabase;

} // namespace

class EveryType : public NoticeDatabase,
                  public testing::WithParamInterface<std::tuple<const char*, const char*>>
{};

INSTANTIATE_TEST_SUITE_P(AndIntent, EveryType,
                         testing::Combine(testing::Values("T11", "T12", "T13", "T14"),
                                          testing::Values("ADD", "MODIFY", "SUPPRESS", "WITHDRAW")));

TEST_P(EveryType, WhatIsStoredReadsBackAsTheSameRecord)
{
    const auto& [type, intent] = GetParam();
    const auto ntc = aNotice(type, intent).withAntennas(15, 6, 15).withPoints(6).build();
    const auto key = insert(ntc);
    EXPECT_SAME_NOTICE(read(key), ntc);
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(session::dbStatus, "");
}

TEST_F(ReadDBToNtc, AKeyThatDoesNotExistReturnsFalseAndLeavesTheRecord)
{
    auto ntc = aNotice().build();
    const auto before = ntc;
    EXPECT_FALSE(readDBToNtc::readNtc(77, ntc, database));
    EXPECT_SAME_NOTICE(ntc, before);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(ReadDBToNtc, ANullLeavesTheFieldUntouched)
{
    work.execute("INSERT INTO kvr_velda (veldakey, adm) VALUES (1, 'XYZ')");
    auto ntc = aNotice().build();
    const auto before = ntc;
    ASSERT_TRUE(readDBToNtc::readNtc(1, ntc, database));
    EXPECT_EQ(ntc.adm, "XYZ");
    EXPECT_EQ(ntc.stn_cls, before.stn_cls);
    EXPECT_EQ(ntc.geo, before.geo);
    EXPECT_EQ(ntc.call_sign, before.call_sign);
}

TEST_F(ReadDBToNtc, WhatTheNumericColumnsLoseIsPadded)
{
    auto ntc = aNotice().build();
    ntc.op_hh_fr = "0030";
    ntc.op_hh_to = "2400";
    ntc.geo.pt[0].long_deg = "7";
    ntc.geo.pt[0].lat_deg = "7";
    ntc.geo.pt[0].long_min = "0";
    ntc.geo.pt[0].lat_sec = "";
    const auto back = read(insert(ntc));
    EXPECT_EQ(back.op_hh_fr, "0030");
    EXPECT_EQ(back.op_hh_to, "2400");
    EXPECT_EQ(back.geo.pt.at(0).long_deg, "007");
    EXPECT_EQ(back.geo.pt.at(0).lat_deg, "07");
    EXPECT_EQ(back.geo.pt.at(0).long_min, "00");
    EXPECT_EQ(back.geo.pt.at(0).lat_sec, "");
}

TEST_F(ReadDBToNtc, AMissingTimeStaysEmpty)
{
    auto ntc = aNotice().build();
    ntc.op_hh_fr.clear();
    EXPECT_EQ(read(insert(ntc)).op_hh_fr, "");
}

struct Padding
{
    std::string (*pad)(std::string_view);
    const char* given;
    const char* expected;
};

TEST(ReadDBToNtcPadding, ZerosComeBeforeAShortTextAndAnEmptyOneStays)
{
    using namespace readDBToNtc;
    for (const auto& [pad, given, expected] :
         {Padding{padHHMM, "", ""}, Padding{padHHMM, "5", "0005"}, Padding{padHHMM, "30", "0030"},
          Padding{padHHMM, "930", "0930"}, Padding{padHHMM, "2400", "2400"},
          Padding{padHHMM, "12345", "12345"}, Padding{padLongDeg, "", ""}, Padding{padLongDeg, "7", "007"},
          Padding{padLongDeg, "70", "070"}, Padding{padLongDeg, "170", "170"},
          Padding{padLongDeg, "1700", "1700"}, Padding{padLatDeg, "", ""}, Padding{padLatDeg, "7", "07"},
          Padding{padLatDeg, "70", "70"}, Padding{padLatDeg, "170", "170"}, Padding{padMinSec, "", ""},
          Padding{padMinSec, "5", "05"}, Padding{padMinSec, "55", "55"}, Padding{padMinSec, " ", "0 "}})
        EXPECT_EQ(pad(given), expected);
}

TEST_F(ReadDBToNtc, TextIsTrimmedAndWhatIsFixedInUpperCaseBecomesSo)
{
    insert(aNotice("T12", "MODIFY").build());
    work.execute("UPDATE kvr_velda SET emi_cls = ' f3e ', stn_cls = ' fx ', is_resub = 'true'");
    work.execute("UPDATE kvr_target SET trg_stn_cls = ' fx ', trg_op_hh_fr = ' 5'");
    work.execute("UPDATE kvr_geo SET geo_type = 'point', ctry = ' f '");
    const auto back = read(1);
    EXPECT_EQ(back.emi_cls, "f3e");
    EXPECT_EQ(back.stn_cls, "FX");
    EXPECT_EQ(back.is_resub, "TRUE");
    EXPECT_EQ(back.target.trg_stn_cls, "fx") << "of the target nothing is turned to upper case";
    EXPECT_EQ(back.target.trg_op_hh_fr, "00 5") << "what is padded is not trimmed";
    EXPECT_EQ(back.geo.geo_type, "POINT");
    EXPECT_EQ(back.geo.ctry, "f");
}

TEST_F(ReadDBToNtc, AStationTypeThatDoesNotFitTheNoticeTypeReadsNoStationsAndTheRowsStay)
{
    auto ntc = aNotice("T13").withAntennas(1, 0, 2).build();
    ntc.stn_type = "TX";
    const auto key = insert(ntc);
    EXPECT_FALSE(read(key).antenna.at(0).rx.at(0).present);
    work.execute("UPDATE kvr_velda SET stn_type = NULL");
    EXPECT_FALSE(read(key).antenna.at(0).rx.at(0).present);
    EXPECT_EQ(work.count("kvr_tx"), 2);
}

TEST_F(ReadDBToNtc, AfterAHoleInTheSlotsStationsAreLookedForUnderThePackedNumbers)
{
    auto ntc = aNotice().withAntennas(4, 1, 1).build();
    ntc.antenna[0].present = false;
    ntc.antenna[2].elev = "of the third";
    const auto back = read(insert(ntc)); // antennas 2, 3, 4 come back in slots 0, 1, 2 and ask for 1, 2, 3
    EXPECT_EQ(back.antenna.at(1).elev, "of the third");
    EXPECT_FALSE(back.antenna.at(0).rx.at(0).present) << "number 1 has no stations";
    EXPECT_EQ(back.antenna.at(1).rx.at(0).geo.site_name, "site_name 1.0") << "those of number 2";
    EXPECT_EQ(back.antenna.at(2).rx.at(0).geo.site_name, "site_name 2.0") << "those of number 3";
    EXPECT_FALSE(back.antenna.at(3).present);
}

TEST_F(ReadDBToNtc, SectorsAreReadOnlyWhenIsRotIsTrue)
{
    const auto key = insert(aNotice().withAntennas(1, 2, 0).build());
    work.execute("UPDATE kvr_ant SET is_rot = 'true'");
    EXPECT_FALSE(read(key).antenna.at(0).rot.at(0).present);
    EXPECT_EQ(read(key).antenna.at(0).is_rot, "FALSE");
    work.execute("UPDATE kvr_ant SET is_rot = NULL");
    EXPECT_EQ(read(key).antenna.at(0).is_rot, "FALSE");
}

TEST_F(ReadDBToNtc, PointsComeInTheOrderOfTheirRowsWhateverTheirNumbers)
{
    const auto key = insert(aNotice().withPoints(3).build());
    work.execute("UPDATE kvr_geo_pt SET geo_pt = 9 - geo_pt");
    EXPECT_EQ(read(key).geo.pt.at(0).long_deg, "010");
    EXPECT_EQ(read(key).geo.pt.at(2).long_deg, "012");
}

TEST_F(ReadDBToNtc, ASiteWithoutARowIsNotPresentAndItsPointsAreReadAllTheSame)
{
    const auto key = insert(aNotice().withPoints(2).build());
    work.execute("DELETE FROM kvr_geo");
    const auto back = read(key);
    EXPECT_FALSE(back.geo.present);
    EXPECT_TRUE(back.geo.pt.at(1).present);
}

TEST_F(ReadDBToNtc, ATargetKeyWithoutARowLeavesTheTargetAsItWas)
{
    const auto key = insert(aNotice("T12", "MODIFY").build());
    work.execute("DELETE FROM kvr_target");
    Ntc ntc;
    ntc.target.trg_adm_ref_id = "kept";
    ASSERT_TRUE(readDBToNtc::readNtc(key, ntc, database));
    EXPECT_FALSE(ntc.target.present);
    EXPECT_EQ(ntc.target.trg_adm_ref_id, "kept");
}

TEST_F(ReadDBToNtc, TenCoordinationRowsWithThreeNullsFillSevenSlots)
{
    work.execute("INSERT INTO kvr_velda (veldakey) VALUES (1)");
    for (int number = 0; number < 10; ++number) {
        const auto adm = number % 3 == 1 ? "NULL" : "'A" + std::to_string(number) + "'";
        work.execute("INSERT INTO kvr_coord VALUES (1, 'P" + std::to_string(number) + "', " + adm + ")");
    }
    const auto back = read(1);
    EXPECT_TRUE(back.coord.present);
    EXPECT_EQ(back.coord.coord_prov, "P0") << "of the first row alone";
    EXPECT_EQ(back.coord.adm[6], "A9");
    EXPECT_EQ(back.coord.adm[7], "");
}

TEST_F(ReadDBToNtc, OfSeveralRemarkRowsTheFirstIsRead)
{
    const auto key = insert(aNotice().build());
    work.execute("INSERT INTO kvr_rmks VALUES (1, 'later')");
    EXPECT_EQ(read(key).rmk_text, "first;second");
}

TEST_F(ReadDBToNtc, AStationWhoseSiteGivesLessKeepsWhatTheOneBeforeItGave)
{
    auto ntc = aNotice().withAntennas(1, 0, 2).build();
    auto& stations = ntc.antenna[0].rx;
    stations[0].geo.pt[1] = aPoint(7);
    stations[1].geo.radius.clear();
    const auto back = read(insert(ntc));
    const auto& second = back.antenna.at(0).rx.at(1);
    EXPECT_EQ(second.geo.radius, stations[0].geo.radius);
    EXPECT_EQ(second.geo.pt.at(1), aPoint(7)) << "its second point is the first station's";
    EXPECT_EQ(second.geo.site_name, stations[1].geo.site_name);
    EXPECT_EQ(second.noise_temp, "291") << "only the site is carried over";
}

TEST_F(ReadDBToNtc, AStationOfAT13CarriesOverTheSame)
{
    auto ntc = aNotice("T13").withAntennas(1, 0, 2).build();
    ntc.antenna[0].rx[1].geo.radius.clear();
    EXPECT_EQ(read(insert(ntc)).antenna.at(0).rx.at(1).geo.radius, ntc.antenna.at(0).rx.at(0).geo.radius);
}

struct Bound
{
    const char* name;
    const char* sql; // one row too many for a notice that has all the rows the record can hold
};

class OneRowTooMany : public NoticeDatabase, public testing::WithParamInterface<Bound>
{};

INSTANTIATE_TEST_SUITE_P(
    In, OneRowTooMany,
    testing::Values(Bound{"points",
                          "INSERT INTO kvr_geo_pt SELECT * FROM kvr_geo_pt WHERE geo_key = 1 LIMIT 1"},
                    Bound{"antennas", "INSERT INTO kvr_ant SELECT * FROM kvr_ant LIMIT 1"},
                    Bound{"sectors", "INSERT INTO kvr_rot SELECT * FROM kvr_rot LIMIT 1"},
                    Bound{"stations", "INSERT INTO kvr_rx SELECT * FROM kvr_rx LIMIT 1"},
                    Bound{"callSigns", "INSERT INTO kvr_call_sign SELECT * FROM kvr_call_sign LIMIT 1"},
                    Bound{"natSrv", "INSERT INTO kvr_nat_serv SELECT * FROM kvr_nat_serv LIMIT 1"},
                    Bound{"opAgcy", "INSERT INTO kvr_op_agcy SELECT * FROM kvr_op_agcy LIMIT 1"},
                    Bound{"coordination", "INSERT INTO kvr_coord SELECT * FROM kvr_coord LIMIT 1"}),
    [](const auto& row) { return row.param.name; });

TEST_P(OneRowTooMany, IsABoxAndWhatWasReadBeforeStays)
{
    const auto ntc = aNotice().withAntennas(15, 6, 15).withPoints(6).build();
    const auto key = insert(ntc);
    work.execute(GetParam().sql);
    auto back = read(key);
    EXPECT_EQ(host.messages, Texts{"Error 9 : Subscript out of range"});
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    if (std::string(GetParam().name) == "antennas") {
        EXPECT_TRUE(back.antenna.at(14).present);
        EXPECT_FALSE(back.antenna.at(0).rx.at(0).present) << "the second pass is not reached";
        for (std::size_t slot = 0; slot < 15; ++slot) {
            back.antenna[slot].rot = ntc.antenna.at(slot).rot;
            back.antenna[slot].rx = ntc.antenna.at(slot).rx;
        }
    }
    EXPECT_SAME_NOTICE(back, ntc);
}

struct Missing
{
    const char* table;
    bool found; // what readNtc still returns
};

class ReadWithout : public NoticeDatabase, public testing::WithParamInterface<Missing>
{};

INSTANTIATE_TEST_SUITE_P(Table, ReadWithout,
                         testing::Values(Missing{"kvr_velda", false}, Missing{"kvr_geo", true},
                                         Missing{"kvr_geo_pt", true}, Missing{"kvr_target", true},
                                         Missing{"kvr_rmks", true}, Missing{"kvr_ant", true},
                                         Missing{"kvr_rot", true}, Missing{"kvr_rx", true},
                                         Missing{"kvr_call_sign", true}, Missing{"kvr_nat_serv", true},
                                         Missing{"kvr_op_agcy", true}, Missing{"kvr_coord", true}),
                         [](const auto& row) { return row.param.table; });

TEST_P(ReadWithout, ItsRoutineFailsWithItsMessageAndTheOthersGoOn)
{
    const auto key = insert(aNotice("T12", "MODIFY").withAntennas(1, 1, 0).build());
    work.execute(std::string("DROP TABLE ") + GetParam().table);
    Ntc ntc;
    EXPECT_EQ(readDBToNtc::readNtc(key, ntc, database), GetParam().found);
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0].substr(0, 13), "Error 3078 : ");
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(ntc.coord.present, GetParam().found && std::string(GetParam().table) != "kvr_coord");
}

TEST_F(ReadDBToNtc, ANullSiteKeyOfAStationIsAFailureOfThatReading)
{
    const auto key = insert(aNotice().withAntennas(1, 0, 2).build());
    work.execute("UPDATE kvr_rx SET geo_key = NULL WHERE geo_key = 3");
    const auto back = read(key);
    EXPECT_EQ(host.messages, Texts{"Error 94 : Invalid use of Null"});
    EXPECT_TRUE(back.antenna.at(0).rx.at(0).present);
    EXPECT_FALSE(back.antenna.at(0).rx.at(1).present);
    EXPECT_TRUE(back.coord.present);
}
