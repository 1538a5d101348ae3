#include "checkFixture.h"

#include "dao/databaseFile.h"

#include <fstream>
#include <functional>

namespace {

using Steps = std::vector<std::string>;

// A host that looks at the database whenever a line comes.
class LookingHost : public FakeHost
{
public:
    void addErrorLine(const std::string& line) override
    {
        FakeHost::addErrorLine(line);
        if (atLine)
            atLine();
    }

    std::function<void()> atLine;
};

class Check : public CheckFixture
{
protected:
    Check() { platform::setHost(&host); }

    static void setKeys(const std::vector<std::int32_t>& keys)
    {
        WorkingDatabase other;
        other.execute("DELETE FROM kvr_velda");
        for (const auto key : keys)
            other.execute("INSERT INTO kvr_velda (veldakey) VALUES (" + std::to_string(key) + ")");
        const auto database = other.open();
        EXPECT_EQ(checkTarget::loadCheckKeys("SELECT veldakey FROM kvr_velda", database), keys.size());
    }

    // So many notices of no content.
    void fill(int count, const std::string& intent = "SUPPRESS")
    {
        work.execute("WITH RECURSIVE n(k) AS (VALUES (1) UNION ALL SELECT k + 1 FROM n WHERE k < " +
                     std::to_string(count) + ") INSERT INTO kvr_velda (veldakey, intent) SELECT k, '" +
                     intent + "' FROM n");
    }

    // The failures shown, as "Error 91".
    [[nodiscard]] Steps shown() const
    {
        Steps failures;
        for (const auto& message : host.messages)
            failures.push_back(message.substr(0, message.find(" : ")));
        return failures;
    }

    [[nodiscard]] static bool bothAreClosed()
    {
        return failureOf([] { session::db->Close(); }) == 3420 &&
               failureOf([] { session::refDb->Close(); }) == 3420;
    }

    // The names of site and country that a notice is stored with.
    std::string site(std::int32_t key)
    {
        return work.scalar(
            "SELECT site_name || ',' || ctry FROM kvr_geo JOIN kvr_velda USING (geo_key) WHERE "
            "veldakey = " +
            std::to_string(key));
    }

    static constexpr const char* nullSite = "(null)";
    LookingHost host; // in the place of the fixture's own
};

} // namespace

// The keys of a check.

TEST_F(Check, KeysComeInTheOrderOfTheDatabaseWithTheirNumber)
{
    setKeys({7, 3, 9});
    EXPECT_EQ(checkTarget::checkKeys(), (std::vector<std::int32_t>{3, 7, 9}));
    EXPECT_EQ(session::dbStatus, "");
}

TEST_F(Check, WithoutARowTheNumberIsZeroAndTheKeysAreThoseOfTheLastCheck)
{
    setKeys({7});
    database = work.open();
    EXPECT_EQ(checkTarget::loadCheckKeys("SELECT veldakey FROM kvr_velda", database), 0);
    EXPECT_EQ(checkTarget::checkKeys(), (std::vector<std::int32_t>{7}));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(Check, AKeyThatIsNullLeavesItsPlaceToTheNextAndZeroAtTheEnd)
{
    work.execute("INSERT INTO kvr_rmks (veldakey) VALUES (NULL), (5), (NULL), (6)");
    database = work.open();
    EXPECT_EQ(checkTarget::loadCheckKeys("SELECT veldakey FROM kvr_rmks", database), 4);
    EXPECT_EQ(checkTarget::checkKeys(), (std::vector<std::int32_t>{5, 6, 0, 0}));
}

TEST_F(Check, AFailureMarksTheSessionIsShownAndGivesZero)
{
    setKeys({7});
    database = work.open();
    EXPECT_EQ(checkTarget::loadCheckKeys("SELECT veldakey FROM other", database), 0);
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(shown(), Steps{"Error 3078"});
    EXPECT_EQ(checkTarget::checkKeys(), (std::vector<std::int32_t>{7}));
}

TEST_F(Check, SoManyKeysAsTheNumberHolds)
{
    fill(32'767);
    database = work.open();
    EXPECT_EQ(checkTarget::loadCheckKeys("SELECT veldakey FROM kvr_velda", database), 32'767);
    EXPECT_EQ(checkTarget::checkKeys().size(), 32'767U);
    EXPECT_EQ(checkTarget::checkKeys().back(), 32'767);
    EXPECT_EQ(session::dbStatus, "");
}

TEST_F(Check, OneKeyMoreOverflowsTheNumberSoThatNothingIsChecked)
{
    setKeys({7});
    fill(32'768);
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.messages, Steps{"Error 6 : Overflow"});
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(host.checkStart->countText, "0 notice(s) to be checked. ");
    EXPECT_EQ(host.errorLines, Steps{"DONE"});
    EXPECT_EQ(checkTarget::checkKeys(), (std::vector<std::int32_t>{7}));
}

// All notices.

TEST_F(Check, ShowsEachStepInTurn)
{
    store(numbered(1, "SUPPRESS"));
    store(numbered(2, "ADD"));
    store(numbered(3, "WITHDRAW"));
    store(numbered(4, "SUPPRESS"));
    store(numbered(5, "MODIFY"));
    reference.add(named(numbered(1)));
    reference.add(named(numbered(4)));
    reference.add(named(numbered(4)));
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.checkSteps,
              (Steps{"open", "text Please wait....", "line Notice No: 1 target found", "select 0",
                     "line Notice No: 3 has no target", "select 1",
                     "line Notice No: 4 has more than one target", "select 2", "line DONE", "end"}));
    EXPECT_EQ(host.checkStart->title, "Sitename for SUPPRESS and WITHDRAW in " + reference.path());
    EXPECT_EQ(host.checkStart->countText, "3 notice(s) to be checked. ");
    EXPECT_TRUE(host.checkStart->hidesSave);
    EXPECT_EQ(host.checkText, "3 notice(s) to be checked. Please wait....");
    EXPECT_EQ(checkTarget::checkKeys(), (std::vector<std::int32_t>{1, 3, 4}));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(Check, WithoutANoticeShowsZeroAndTheEndAlone)
{
    store(numbered(1, "ADD"));
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.checkSteps, (Steps{"open", "line DONE", "end"}));
    EXPECT_EQ(host.checkText, "0 notice(s) to be checked. ");
}

TEST_F(Check, WritesNameCountryUserAndDateAlone)
{
    const auto given = aNotice("T12", "SUPPRESS").withAntennas(2, 2, 2).withPoints(3).build();
    const auto key = store(given);
    work.execute("INSERT INTO kvr_pub_hist VALUES (1, 'P')");
    const auto before = work.contents({"kvr_pub_hist", "kvr_target"});
    reference.add(named(given));
    checkTarget::checkAllNtc();
    auto expected = named(given);
    expected.src_update = "operator";
    expected.d_updated = "09.03.2026";
    EXPECT_SAME_NOTICE(stored(key), expected);
    EXPECT_EQ(work.contents({"kvr_pub_hist", "kvr_target"}), before);
    EXPECT_EQ(work.scalar("SELECT geo_key FROM kvr_velda"), "1");
}

TEST_F(Check, ATargetWithoutNameAndCountryClearsThoseOfTheNotice)
{
    const auto key = store(numbered(1));
    reference.add(named(numbered(1), "", ""));
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.errorLines, (Steps{"Notice No: 1 target found", "DONE"}));
    EXPECT_EQ(site(key), nullSite);
}

TEST_F(Check, NothingOfOneNoticeComesToTheNext)
{
    for (int number = 1; number <= 3; ++number)
        store(numbered(number));
    work.execute("UPDATE kvr_velda SET adm = NULL WHERE veldakey = 3");
    reference.add(named(numbered(1)));
    reference.add(named(numbered(1)));
    reference.add(named(numbered(2), "Second", ""));
    reference.add(named(numbered(3)));
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.errorLines, (Steps{"Notice No: 1 has more than one target", "Notice No: 2 target found",
                                      "Notice No: 3 has no target", "DONE"}));
    EXPECT_EQ(work.rows("SELECT site_name, ctry FROM kvr_geo WHERE geo_key = 2"), Steps{"Second|(null)"});
}

TEST_F(Check, WithoutATargetOrWithSeveralTheNoticeStaysAsItWas)
{
    store(numbered(1));
    store(numbered(2));
    for (int row = 0; row < 3; ++row)
        reference.add(named(numbered(1)));
    const auto before = work.contents();
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.errorLines,
              (Steps{"Notice No: 1 has more than one target", "Notice No: 2 has no target", "DONE"}));
    EXPECT_EQ(work.contents(), before);
}

TEST_F(Check, EachNoticeIsStoredBeforeTheNextIsLookedAt)
{
    for (int number = 1; number <= 3; ++number) {
        store(numbered(number));
        reference.add(named(numbered(number)));
    }
    Steps storedAtLine;
    host.atLine = [&] {
        storedAtLine.push_back(work.scalar("SELECT count(*) FROM kvr_geo WHERE site_name = 'Recorded'"));
    };
    checkTarget::checkAllNtc();
    EXPECT_EQ(storedAtLine, (Steps{"0", "1", "2", "3"}));
}

TEST_F(Check, HoldsTheLastNoticeCheckedAndHasClosedBothDatabases)
{
    store(numbered(1));
    const auto key = store(numbered(2));
    reference.add(named(numbered(2)));
    session::notice.rmk_text = "of before";
    checkTarget::checkAllNtc();
    EXPECT_EQ(session::currentVeldaKey, key);
    EXPECT_EQ(session::notice.freq_assgn, "102");
    EXPECT_EQ(session::notice.geo.site_name, "Recorded");
    EXPECT_TRUE(bothAreClosed());
}

TEST_F(Check, LeavesTheKeysOfTheListAlone)
{
    store(numbered(1));
    session::keyArray = {11, 12};
    session::keyCount = 2;
    checkTarget::checkAllNtc();
    EXPECT_EQ(session::keyArray, (std::vector<std::int32_t>{11, 12}));
    EXPECT_EQ(session::keyCount, 2);
    session::keyArray.clear();
    session::keyCount = 0;
}

// The date of receipt belongs to a whole load, and the emptying of a notice leaves it.
TEST_F(Check, ANoticeWithoutADateOfReceiptGetsThatOfTheOneBefore)
{
    for (int number = 1; number <= 2; ++number) {
        store(numbered(number));
        reference.add(named(numbered(number)));
    }
    work.execute("UPDATE kvr_velda SET d_rcv = NULL WHERE veldakey = 2");
    checkTarget::checkAllNtc();
    EXPECT_EQ(work.scalar("SELECT d_rcv FROM kvr_velda WHERE veldakey = 2"), numbered(1).d_rcv);
}

TEST_F(Check, ANoticeThatIsGoneByItsTurnIsLookedForAllTheSame)
{
    store(numbered(1));
    store(numbered(2));
    host.atLine = [&] { work.execute("DELETE FROM kvr_velda WHERE veldakey = 2"); };
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.errorLines, (Steps{"Notice No: 1 has no target", "Notice No: 2 has no target", "DONE"}));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(Check, ANoticeThatCannotBeStoredIsRolledBackAndTheNextOneChecked)
{
    for (int number = 1; number <= 2; ++number) {
        store(numbered(number));
        reference.add(named(numbered(number)));
    }
    work.execute("UPDATE kvr_velda SET geo_key = NULL WHERE veldakey = 1");
    auto withoutSite = named(numbered(1));
    withoutSite.geo.zone_id.clear();
    work.execute("UPDATE kvr_velda SET op_cls = NULL WHERE veldakey = 1");
    reference.execute(ReferenceSet::kvr3,
                      "UPDATE kvr_velda SET veldakey = 50, op_cls = NULL WHERE veldakey = 1");
    reference.execute(ReferenceSet::kvr1, "UPDATE kvr_geo_pt SET long_deg = 0, long_min = 0, long_sec = 0, "
                                          "long_ew = '', lat_deg = 0, lat_min = 0, lat_sec = 0, lat_ns = '' "
                                          "WHERE geo_key = 1");
    const auto before = work.rows("SELECT * FROM kvr_velda WHERE veldakey = 1");
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.errorLines, (Steps{"Notice No: 1 target found", "Notice No: 2 target found", "DONE"}));
    EXPECT_EQ(shown(), Steps{"Error 3265"});
    EXPECT_EQ(work.rows("SELECT * FROM kvr_velda WHERE veldakey = 1"), before);
    EXPECT_EQ(site(2), "Recorded,CCC");
}

// What fails.

TEST_F(Check, AFailingLookUpClearsNameAndCountryAndIsStored)
{
    const auto key = store(numbered(1));
    reference.execute(ReferenceSet::beta, "DROP TABLE kvr_geo");
    checkTarget::checkAllNtc();
    EXPECT_EQ(shown(), Steps{"Error 3078"});
    EXPECT_EQ(host.errorLines, (Steps{"Notice No: 1 target found", "DONE"}));
    EXPECT_EQ(site(key), nullSite);
    EXPECT_EQ(work.scalar("SELECT src_update FROM kvr_velda"), "operator");
    EXPECT_EQ(session::dbStatus, "");
}

class LostReference : public Check, public testing::WithParamInterface<const char*>
{
protected:
    void lose() const
    {
        if (way == "anotherKind")
            std::filesystem::copy_file(
                work.folder().write("text", "no database at all, whatever its name says"), reference.path(),
                std::filesystem::copy_options::overwrite_existing);
        else
            std::filesystem::remove(way == "missing" ? reference.path() : reference.file(ReferenceSet::kvr3));
    }

    const std::string way = GetParam();
};

INSTANTIATE_TEST_SUITE_P(By, LostReference, testing::Values("missing", "anotherKind", "linkedFileMissing"),
                         [](const auto& row) { return row.param; });

TEST_P(LostReference, ClearsNameAndCountryOfEachNoticeAndEndsWithTheHandleThatIsNotSet)
{
    store(numbered(1));
    store(numbered(2));
    lose();
    EXPECT_EQ(failureOf([] { checkTarget::checkAllNtc(); }), 91);
    EXPECT_EQ(shown(), (Steps{way == "anotherKind" ? "Error 3343" : "Error 3024", "Error 91", "Error 91"}));
    EXPECT_EQ(host.errorLines, (Steps{"Notice No: 1 target found", "Notice No: 2 target found", "DONE"}));
    EXPECT_EQ(host.checkSteps.back(), "end");
    EXPECT_EQ(site(1), nullSite);
    EXPECT_EQ(site(2), nullSite);
}

struct Replacement
{
    const char* name;
    const char* file;
    std::size_t size; // of what stands there in the end
};

class ReplacedReference : public Check, public testing::WithParamInterface<Replacement>
{
protected:
    // The file itself, as a careless copy over it does.
    void replaceAtFirstLine() const
    {
        if (host.errorLines.size() == 1)
            std::ofstream(reference.file(GetParam().file), std::ios::trunc)
                << std::string(GetParam().size, 'x');
    }
};

INSTANTIATE_TEST_SUITE_P(By, ReplacedReference,
                         testing::Values(Replacement{"nothing", ReferenceSet::kvr3, 0},
                                         Replacement{"shorterFile", ReferenceSet::kvr3, 5000},
                                         Replacement{"longerFile", ReferenceSet::kvr3, 100'000},
                                         Replacement{"anotherKindOfFilePicked", ReferenceSet::beta, 100'000}),
                         [](const auto& row) { return row.param.name; });

TEST_P(ReplacedReference, AmidstACheckShowsTheEnginesMessageAndStoresEachNoticeWhole)
{
    for (int number = 1; number <= 3; ++number) {
        store(numbered(number));
        reference.add(named(numbered(number)));
    }
    host.atLine = [&] { replaceAtFirstLine(); };
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.messages.size(), 2U);
    EXPECT_EQ(host.errorLines, (Steps{"Notice No: 1 target found", "Notice No: 2 target found",
                                      "Notice No: 3 target found", "DONE"}));
    EXPECT_EQ(site(1), "Recorded,CCC");
    EXPECT_EQ(site(2), nullSite);
    EXPECT_EQ(site(3), nullSite);
    EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
}

TEST_F(Check, AWorkingDatabaseThatIsGoneChecksNothingAndEndsWithTheHandleThatIsNotSet)
{
    std::filesystem::remove(work.path());
    EXPECT_EQ(failureOf([] { checkTarget::checkAllNtc(); }), 91);
    EXPECT_EQ(shown(), (Steps{"Error 3024", "Error 91"}));
    EXPECT_EQ(host.checkSteps, (Steps{"open", "line DONE", "end"}));
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
}

TEST_F(Check, TheWorkingDatabaseAsReferenceByAnotherPathHoldsNoTarget)
{
    store(numbered(1, "SUPPRESS"));
    store(numbered(2, "WITHDRAW"));
    session::referenceDbPath = (work.folder().path() / "." / "work.mdb").string();
    ASSERT_NE(session::referenceDbPath, session::workingDbPath);
    const auto before = work.contents();
    checkTarget::checkAllNtc();
    EXPECT_EQ(host.errorLines, (Steps{"Notice No: 1 has no target", "Notice No: 2 has no target", "DONE"}));
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(work.contents(), before);
}

TEST_F(Check, ANumberThatIsTooLargeEndsTheCheckWithTheNoticesBeforeItStored)
{
    store(numbered(1));
    store(numbered(2));
    reference.add(named(numbered(1)));
    work.execute("UPDATE kvr_velda SET op_hh_to = 9E9 WHERE veldakey = 2");
    EXPECT_EQ(failureOf([] { checkTarget::checkAllNtc(); }), 6);
    EXPECT_EQ(host.errorLines, Steps{"Notice No: 1 target found"});
    EXPECT_EQ(host.checkSteps.back(), "end") << "the window can be closed";
    session::db.reset();
    EXPECT_EQ(site(1), "Recorded,CCC");
}

// One notice.

TEST_F(Check, OfOneNoticeWithANumberThatIsTooLargeEndsWithAWindowThatCanBeClosed)
{
    store(numbered(1));
    work.execute("UPDATE kvr_velda SET op_hh_to = 9E9 WHERE veldakey = 1");
    EXPECT_EQ(failureOf([] { checkTarget::checkOneNtc(1); }), 6);
    EXPECT_EQ(host.checkSteps, (Steps{"open", "text Please wait....", "end"}));
}

TEST_F(Check, OfOneNoticeShowsEachStepInTurn)
{
    store(numbered(1));
    const auto key = store(numbered(2));
    reference.add(named(numbered(2)));
    checkTarget::checkOneNtc(key);
    EXPECT_EQ(host.checkSteps, (Steps{"open", "text Please wait....", "line Notice No: 2 target found",
                                      "select 0", "line DONE", "end"}));
    EXPECT_EQ(host.checkStart->title, "Sitename for SUPPRESS and WITHDRAW in " + reference.path());
    EXPECT_FALSE(host.checkStart->hidesSave);
    EXPECT_EQ(host.checkText, " 1 notice to be checked. Please wait....");
    EXPECT_EQ(site(key), "Recorded,CCC");
    EXPECT_EQ(session::currentVeldaKey, key);
    EXPECT_TRUE(bothAreClosed());
}

TEST_F(Check, OfOneNoticeTellsTheOtherOutcomes)
{
    store(numbered(1));
    checkTarget::checkOneNtc(1);
    EXPECT_EQ(host.errorLines, (Steps{"Notice No: 1 has no target", "DONE"}));
    reference.add(named(numbered(1)));
    reference.add(named(numbered(1)));
    checkTarget::checkOneNtc(1);
    EXPECT_EQ(host.errorLines, (Steps{"Notice No: 1 has more than one target", "DONE"}));
}

TEST_F(Check, OfOneNoticeThatIsNotThereNeitherLooksNorSaysThatItIsDone)
{
    store(numbered(1));
    const auto before = work.contents();
    checkTarget::checkOneNtc(99);
    EXPECT_EQ(host.checkSteps,
              (Steps{"open", "text Please wait....",
                     "line Make sure that the selected notice is in the database", "select 0", "end"}));
    EXPECT_EQ(work.contents(), before);
    EXPECT_TRUE(bothAreClosed());
}

TEST_F(Check, OfOneNoticeOfAnyIntentLooksAmongPendingNoticesUnlessItSuppresses)
{
    const auto add = store(numbered(1, "ADD"));
    const auto suppress = store(numbered(2, "SUPPRESS"));
    for (int number = 1; number <= 2; ++number) {
        reference.add(named(numbered(number), "Assignment"), "FALSE");
        reference.add(named(numbered(number), "Pending"), "TRUE");
    }
    checkTarget::checkOneNtc(add);
    EXPECT_EQ(site(add), "Pending,CCC");
    checkTarget::checkOneNtc(suppress);
    EXPECT_EQ(site(suppress), "Assignment,CCC");
}

TEST_F(Check, OfOneNoticeWithoutItsWorkingDatabaseSaysThatTheNoticeIsNotThere)
{
    std::filesystem::remove(work.path());
    EXPECT_EQ(failureOf([] { checkTarget::checkOneNtc(1); }), 91);
    EXPECT_EQ(host.errorLines, Steps{"Make sure that the selected notice is in the database"});
    EXPECT_EQ(host.checkSteps.back(), "end");
}
