#include "loadFixture.h"

#include "load/findTarget.h"

namespace {

class FindTarget : public LoadFixture
{
protected:
    FindTarget() { database = work.open(); }

    std::int32_t store(const Ntc& ntc) { return insert(ntc); }

    // The key found, 0 for none.
    std::int32_t foundBy(bool found) { return found ? session::currentVeldaKey : 0; }
    std::int32_t byPoint(const Ntc& ntc)
    {
        return foundBy(findTarget::findTargetByPoint(targetValues::assignmentOf(ntc),
                                                     targetValues::positionOf(ntc.geo.pt.at(0)), database));
    }
    std::int32_t byPointAndOpCls(const Ntc& ntc)
    {
        return foundBy(findTarget::findTargetByPointAndOpCls(targetValues::assignmentOf(ntc), ntc.op_cls,
                                                             targetValues::positionOf(ntc.geo.pt.at(0)),
                                                             database));
    }
    std::int32_t byZone(const Ntc& ntc)
    {
        return foundBy(
            findTarget::findTargetByZone(targetValues::assignmentOf(ntc), ntc.geo.zone_id, database));
    }
};

} // namespace

TEST_F(FindTarget, TheSameAssignmentIsFoundByEachShape)
{
    const auto ntc = aNotice().build();
    const auto key = store(ntc);
    EXPECT_EQ(byPoint(ntc), key);
    EXPECT_EQ(byPointAndOpCls(ntc), key);
    EXPECT_EQ(byZone(ntc), key);
}

TEST_F(FindTarget, OnNoMatchTheCurrentKeyIsLeftAlone)
{
    session::currentVeldaKey = 77;
    EXPECT_EQ(byPoint(aNotice().build()), 0);
    EXPECT_EQ(session::currentVeldaKey, 77);
}

TEST_F(FindTarget, OfSeveralMatchesTheFirstInTheOrderOfInsertionIsReported)
{
    const auto ntc = aNotice().build();
    for (int number = 0; number < 40; ++number)
        store(ntc);
    EXPECT_EQ(byPoint(ntc), 1);
    EXPECT_EQ(byZone(ntc), 1);
    work.execute("DELETE FROM kvr_velda WHERE veldakey < 5; ANALYZE");
    EXPECT_EQ(byPoint(ntc), 5);
    EXPECT_EQ(byZone(ntc), 5);
}

struct Difference
{
    const char* name;
    void (*change)(Ntc&);
};

class EachDifference : public FindTarget, public testing::WithParamInterface<Difference>
{};

INSTANTIATE_TEST_SUITE_P(
    Of, EachDifference,
    testing::Values(Difference{"administration", [](Ntc& ntc) { ntc.adm = "other"; }},
                    Difference{"frequency", [](Ntc& ntc) { ntc.freq_assgn = "151.33750001"; }},
                    Difference{"stationClass", [](Ntc& ntc) { ntc.stn_cls = "FX"; }},
                    Difference{"emission", [](Ntc& ntc) { ntc.emi_cls = "G3E"; }},
                    Difference{"bandwidth", [](Ntc& ntc) { ntc.bdwdth_cde = "16K0"; }},
                    Difference{"hourFrom", [](Ntc& ntc) { ntc.op_hh_fr = "0631"; }},
                    Difference{"hourTo", [](Ntc& ntc) { ntc.op_hh_to = "0629"; }},
                    Difference{"longitudeDegrees", [](Ntc& ntc) { ntc.geo.pt[0].long_deg = "011"; }},
                    Difference{"longitudeMinutes", [](Ntc& ntc) { ntc.geo.pt[0].long_min = "21"; }},
                    Difference{"longitudeSeconds", [](Ntc& ntc) { ntc.geo.pt[0].long_sec = "02"; }},
                    Difference{"eastOrWest", [](Ntc& ntc) { ntc.geo.pt[0].long_ew = "W"; }},
                    Difference{"latitudeDegrees", [](Ntc& ntc) { ntc.geo.pt[0].lat_deg = "41"; }},
                    Difference{"latitudeMinutes", [](Ntc& ntc) { ntc.geo.pt[0].lat_min = "03"; }},
                    Difference{"latitudeSeconds", [](Ntc& ntc) { ntc.geo.pt[0].lat_sec = "51"; }},
                    Difference{"northOrSouth", [](Ntc& ntc) { ntc.geo.pt[0].lat_ns = "S"; }}),
    [](const auto& row) { return row.param.name; });

TEST_P(EachDifference, IsNoMatch)
{
    auto ntc = aNotice().build();
    store(ntc);
    GetParam().change(ntc);
    EXPECT_EQ(byPoint(ntc), 0);
    EXPECT_EQ(byPointAndOpCls(ntc), 0);
    const bool ofThePosition = ntc.geo.pt.at(0) != aNotice().build().geo.pt.at(0);
    EXPECT_EQ(byZone(ntc), ofThePosition ? 1 : 0);
}

TEST_F(FindTarget, AnotherZoneIsNoMatchByZone)
{
    auto ntc = aNotice().build();
    store(ntc);
    ntc.geo.zone_id = "other";
    EXPECT_EQ(byZone(ntc), 0);
    EXPECT_EQ(byPoint(ntc), 1);
}

TEST_F(FindTarget, TypeIntentAndProvisionPlayNoPart)
{
    auto ntc = aNotice("T12", "ADD").build();
    const auto key = store(ntc);
    ntc.notice_typ = "T11";
    ntc.intent = "WITHDRAW";
    ntc.prov = "other";
    EXPECT_EQ(byPoint(ntc), key);
}

TEST_F(FindTarget, StringsCompareWithoutRegardToCase)
{
    auto ntc = aNotice().build();
    const auto key = store(ntc);
    ntc.adm = "ADM 0";
    ntc.emi_cls = "EMI_CLS 0";
    ntc.geo.pt[0].long_ew = "e";
    EXPECT_EQ(byPoint(ntc), key);
}

TEST_F(FindTarget, AHitOnAnyPointOfASiteIsAHitButOnlyTheFirstOfTheNewNoticeIsLookedFor)
{
    auto ntc = aNotice().withPoints(4).build();
    const auto key = store(ntc);
    ntc.geo.pt[0] = aPoint(3);
    EXPECT_EQ(byPoint(ntc), key);
    ntc.geo.pt[0] = aPoint(5);
    EXPECT_EQ(byPoint(ntc), 0);
}

TEST_F(FindTarget, WithoutItsSiteRowANoticeCannotBeFound)
{
    auto ntc = aNotice().build();
    store(ntc);
    work.execute("DELETE FROM kvr_geo");
    EXPECT_EQ(byPoint(ntc), 0);
    EXPECT_EQ(byZone(ntc), 0);
}

TEST_F(FindTarget, AFailureIsShownDoesNotMarkTheSessionAndFindsNothing)
{
    work.execute("DROP TABLE kvr_geo");
    EXPECT_EQ(byZone(aNotice().build()), 0);
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0].substr(0, 13), "Error 3078 : ");
    EXPECT_EQ(session::dbStatus, "");
}

TEST_F(FindTarget, ValuesAreReadAsNumbersAndRoundedToWholeOnes)
{
    Ntc ntc;
    ntc.freq_assgn = "151.3375x";
    ntc.op_hh_fr = "0630";
    ntc.geo.pt[0].long_deg = "12.5";
    ntc.geo.pt[0].lat_deg = "13.5";
    const auto values = targetValues::assignmentOf(ntc);
    EXPECT_EQ(values.frequency, 151.3375);
    EXPECT_EQ(values.hourFrom, 630);
    EXPECT_EQ(values.hourTo, 0);
    EXPECT_EQ(targetValues::positionOf(ntc.geo.pt[0]).longDeg, 12);
    EXPECT_EQ(targetValues::positionOf(ntc.geo.pt[0]).latDeg, 14);
}

// The shape that the load chooses.

using LoadSearches = LoadFixture;

TEST_F(LoadSearches, ByZoneAloneWhateverCoordinatesAndClassOfOperation)
{
    load(head() + assignment("t_zone_id=Z1\r\nt_op_cls=A\r\n") +
         assignment("t_zone_id=Z1\r\nt_op_cls=B\r\nt_long=+0013045\r\n") +
         assignment("t_zone_id=Z2\r\nt_op_cls=A\r\n"));
    EXPECT_EQ(host.errorLines, Texts{"Notice No: 2 is a potential target to the notice no : 1"});
}

TEST_F(LoadSearches, ANoticeWithAClassOfOperationDoesNotFindOneWithout)
{
    load(head() + assignment() + assignment("t_op_cls=A\r\n"));
    EXPECT_TRUE(host.errorLines.empty());
}

TEST_F(LoadSearches, ANoticeWithoutAClassOfOperationFindsOneWith)
{
    load(head() + assignment("t_op_cls=A\r\n") + assignment());
    EXPECT_EQ(host.errorLines, Texts{"Notice No: 2 is a potential target to the notice no : 1"});
}

TEST_F(LoadSearches, WithoutSecondsANoticeDoesNotFindItsTwinButOneStoredWithZero)
{
    load(head() + assignment("t_long=+01230\r\n") + assignment("t_long=+01230\r\n"));
    EXPECT_TRUE(host.errorLines.empty());
    load(head() + assignment("t_long=+0123000\r\n") + assignment("t_long=+01230\r\n"));
    EXPECT_EQ(host.errorLines, Texts{"Notice No: 2 is a potential target to the notice no : 3"});
}
