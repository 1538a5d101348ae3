#include "checkFixture.h"

using checkTarget::noTarget;
using checkTarget::severalTargets;

TEST(PadEmission, FillsUpToFiveCharactersWithDashes)
{
    EXPECT_EQ(checkTarget::padEmission(""), "-----");
    EXPECT_EQ(checkTarget::padEmission("8K00"), "8K00-");
    EXPECT_EQ(checkTarget::padEmission("9K00"), "9K00-");
    EXPECT_EQ(checkTarget::padEmission("F3E"), "F3E--");
    EXPECT_EQ(checkTarget::padEmission("F3E--"), "F3E--");
    EXPECT_EQ(checkTarget::padEmission("14M0F3E"), "14M0F3E");
    EXPECT_EQ(checkTarget::padEmission("\xC3\xA9\xC3\xA9"), "\xC3\xA9\xC3\xA9---");
}

namespace {

class LookUp : public CheckFixture
{
protected:
    // What the notice finds; its country goes to `ctry`.
    std::string find(const Ntc& ntc)
    {
        const auto recorded = dao::DBEngine::OpenDatabase(reference.path(), false, true);
        ctry.clear();
        return checkTarget::lookUpTargetSite(ntc, recorded, ctry);
    }

    std::string ctry;
};

} // namespace

// The three ways of looking.
struct Shape
{
    const char* name;
    void (*shape)(Ntc&);
};

class EachShape : public LookUp, public testing::WithParamInterface<Shape>
{
protected:
    static Ntc shaped(const std::string& intent = "SUPPRESS")
    {
        auto ntc = aNotice("T12", intent).build();
        GetParam().shape(ntc);
        return ntc;
    }
};

INSTANTIATE_TEST_SUITE_P(By, EachShape,
                         testing::Values(Shape{"zone", [](Ntc&) {}},
                                         Shape{"pointAndOpCls", [](Ntc& ntc) { ntc.geo.zone_id.clear(); }},
                                         Shape{"point",
                                               [](Ntc& ntc) {
                                                   ntc.geo.zone_id.clear();
                                                   ntc.op_cls.clear();
                                               }}),
                         [](const auto& row) { return row.param.name; });

TEST_P(EachShape, FindsTheNameAndCountryTrimmed)
{
    reference.add(named(shaped(), "  Recorded site ", " CCC "));
    EXPECT_EQ(find(shaped()), "Recorded site");
    EXPECT_EQ(ctry, "CCC");
    EXPECT_TRUE(host.messages.empty());
}

TEST_P(EachShape, WithoutATargetSaysSo)
{
    EXPECT_EQ(find(shaped()), noTarget);
    EXPECT_EQ(ctry, "");
}

TEST_P(EachShape, SaysThatThereAreSeveral)
{
    reference.add(named(shaped()));
    reference.add(named(shaped(), "Second"));
    EXPECT_EQ(find(shaped()), severalTargets);
    reference.add(named(shaped(), "Third"));
    EXPECT_EQ(find(shaped()), severalTargets);
}

TEST_P(EachShape, GivesTheCountryOfTheLastRowThatHasOne)
{
    reference.add(named(shaped(), "First", "AAA"));
    reference.add(named(shaped(), "Second", ""));
    EXPECT_EQ(find(shaped()), severalTargets);
    EXPECT_EQ(ctry, "AAA");
    reference.add(named(shaped(), "Third", "BBB"));
    find(shaped());
    EXPECT_EQ(ctry, "BBB");
}

TEST_P(EachShape, TakesATargetWithoutNameAndCountryAsFound)
{
    reference.add(named(shaped(), "", ""));
    EXPECT_EQ(find(shaped()), "");
    EXPECT_EQ(ctry, "");
    EXPECT_TRUE(host.messages.empty());
}

TEST_P(EachShape, PadsTheClassOfEmissionOfTheNoticeAlone)
{
    auto ntc = shaped();
    ntc.emi_cls = "9K00";
    reference.add(named(ntc, "Unpadded"));
    EXPECT_EQ(find(ntc), noTarget);
    auto padded = ntc;
    padded.emi_cls = "9K00-";
    reference.add(named(padded, "Padded"));
    EXPECT_EQ(find(ntc), "Padded");
    EXPECT_EQ(find(padded), "Padded");
}

TEST_P(EachShape, LeavesALongClassOfEmissionUnchanged)
{
    auto ntc = shaped();
    ntc.emi_cls = "14M0F3E";
    reference.add(named(ntc));
    EXPECT_EQ(find(ntc), "Recorded");
}

TEST_P(EachShape, LooksForAnAssignmentWithSuppressAndForAPendingNoticeWithAnythingElse)
{
    const auto suppress = shaped("SUPPRESS");
    reference.add(named(suppress, "Assignment"), "FALSE");
    reference.add(named(suppress, "Pending"), "TRUE");
    reference.add(named(suppress, "Neither"), nullptr);
    EXPECT_EQ(find(suppress), "Assignment");
    for (const char* intent : {"WITHDRAW", "ADD", "MODIFY", "Suppress", "SUPPRESS ", ""})
        EXPECT_EQ(find(shaped(intent)), "Pending") << intent;
}

TEST_P(EachShape, FindsNothingAmongRowsOfTheOtherKind)
{
    reference.add(named(shaped("SUPPRESS")), "TRUE");
    EXPECT_EQ(find(shaped("SUPPRESS")), noTarget);
    EXPECT_EQ(find(shaped("WITHDRAW")), "Recorded");
    reference.execute(ReferenceSet::kvr3, "UPDATE kvr_velda SET is_notice = 'FALSE'");
    EXPECT_EQ(find(shaped("SUPPRESS")), "Recorded");
    EXPECT_EQ(find(shaped("WITHDRAW")), noTarget);
}

TEST_P(EachShape, LooksAtTheNoticesOwnFieldsNeverAtThoseOfItsTarget)
{
    auto ntc = shaped();
    reference.add(named(ntc));
    ntc.target.trg_freq_assgn = "1";
    ntc.target.trg_emi_cls = "other";
    EXPECT_EQ(find(ntc), "Recorded");
    ntc.freq_assgn = "1";
    EXPECT_EQ(find(ntc), noTarget);
}

TEST_P(EachShape, ShowsAFailureAndGivesAnEmptyName)
{
    reference.add(named(shaped()));
    reference.execute(ReferenceSet::beta, "DROP TABLE kvr_geo");
    EXPECT_EQ(find(shaped()), "");
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0].substr(0, 13), "Error 3078 : ");
    EXPECT_EQ(session::dbStatus, "");
}

TEST_P(EachShape, ShowsThatTheReferenceDatabaseIsClosedOrWasNeverOpened)
{
    dao::Ref<dao::Database> recorded;
    EXPECT_EQ(checkTarget::lookUpTargetSite(shaped(), recorded, ctry), "");
    recorded = dao::DBEngine::OpenDatabase(reference.path(), false, true);
    recorded->Close();
    EXPECT_EQ(checkTarget::lookUpTargetSite(shaped(), recorded, ctry), "");
    ASSERT_EQ(host.messages.size(), 2U);
    EXPECT_EQ(host.messages[0], "Error 91 : Object variable or With block variable not set");
    EXPECT_EQ(host.messages[1].substr(0, 13), "Error 3420 : ");
    EXPECT_EQ(session::dbStatus, "");
}

// What is compared in a shape of its own.

TEST_F(LookUp, ANoticeWithAZoneIsLookedForByItWhateverItsClassOfOperationAndPosition)
{
    auto ntc = aNotice("T12", "SUPPRESS").build();
    reference.add(named(ntc));
    ntc.op_cls = "OTHER";
    ntc.geo.pt[0] = aPoint(5);
    EXPECT_EQ(find(ntc), "Recorded");
    ntc.geo.zone_id = "other";
    EXPECT_EQ(find(ntc), noTarget);
}

TEST_F(LookUp, APointNoticeFindsATargetOnAnyPointOfItsSite)
{
    auto ntc = aNotice("T12", "SUPPRESS").withPoints(6).build();
    ntc.geo.zone_id.clear();
    reference.add(named(ntc));
    for (std::size_t number = 0; number < 6; ++number) {
        ntc.geo.pt[0] = aPoint(number);
        EXPECT_EQ(find(ntc), "Recorded") << number;
    }
    ntc.geo.pt[0] = aPoint(7); // its other points are not looked for
    EXPECT_EQ(find(ntc), noTarget);
}

TEST_F(LookUp, ASiteThatHasThePointTwiceIsOneTarget)
{
    auto ntc = aNotice("T12", "SUPPRESS").withPoints(2).build();
    ntc.geo.zone_id.clear();
    ntc.geo.pt[1] = ntc.geo.pt[0];
    reference.add(named(ntc));
    EXPECT_EQ(find(ntc), "Recorded");
}

TEST_F(LookUp, TheClassOfOperationIsComparedOnlyWhenTheNoticeHasOne)
{
    auto ntc = aNotice("T12", "SUPPRESS").build();
    ntc.geo.zone_id.clear();
    auto without = ntc;
    without.op_cls.clear();
    reference.add(named(without, "Without"));
    EXPECT_EQ(find(without), "Without");
    EXPECT_EQ(find(ntc), noTarget);
    reference.add(named(ntc, "With"));
    EXPECT_EQ(find(ntc), "With");
    EXPECT_EQ(find(without), severalTargets);
}

TEST_F(LookUp, TheCountryOfTheCallerStaysWhereTheTargetHasNone)
{
    auto ntc = aNotice("T12", "SUPPRESS").build();
    reference.add(named(ntc, "Recorded", ""));
    const auto recorded = dao::DBEngine::OpenDatabase(reference.path(), false, true);
    ctry = " before ";
    EXPECT_EQ(
        checkTarget::siteByZone(targetValues::assignmentOf(ntc), ntc.geo.zone_id, "SUPPRESS", recorded, ctry),
        "Recorded");
    EXPECT_EQ(ctry, " before ");
}

TEST_F(LookUp, ANumberThatIsTooLargeFailsBeforeAnythingIsAsked)
{
    auto ntc = aNotice("T12", "SUPPRESS").build();
    ntc.freq_assgn = "1E999";
    EXPECT_FAILURE(6, static_cast<void>(find(ntc)));
    EXPECT_TRUE(host.messages.empty());
}
