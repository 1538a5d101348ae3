#include "loadFixture.h"

namespace {

using Load = LoadFixture;

} // namespace

TEST_F(Load, TwoIdenticalNoticesAreBothStoredAndTheSecondIsTold)
{
    load(head() + assignment() + assignment());
    EXPECT_EQ(work.count("kvr_velda"), 2);
    EXPECT_EQ(host.errorLines, Texts{"Notice No: 2 is a potential target to the notice no : 1"});
    EXPECT_EQ(session::currentVeldaKey, 2) << "the new notice's own";
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(Load, TheNumberIsTheOrdinalInTheFileAndTheOtherTheStoredKey)
{
    load(head() + assignment());
    load(head() + notice("t_action=ADD\r\n") + assignment());
    EXPECT_EQ(host.errorLines, Texts{"Notice No: 2 is a potential target to the notice no : 1"})
        << "the lines of the load before are gone";
    EXPECT_EQ(work.count("kvr_velda"), 3);
}

TEST_F(Load, AnUpdFileLoadsLikeATxtFile)
{
    load("File corrected on 09.03.2026-14:05:07\r\nProcessed by operator\r\n" + head() + "\r\n" +
         assignment() + "\r\n<TAIL>\r\nt_num_notices =  1\r\n</TAIL>\r\n\r\n");
    EXPECT_EQ(work.count("kvr_velda"), 1);
}

TEST_F(Load, EveryNoticeBearsTheDateOfReceiptTheOperatorAndTheDay)
{
    load(head() + assignment() + assignment("t_op_cls=A\r\n"));
    EXPECT_EQ(work.rows("SELECT DISTINCT d_rcv, src_update, d_updated, adm FROM kvr_velda"),
              Texts{"01.03.2026|operator|09.03.2026|XYZ"});
}

TEST_F(Load, AHeadBetweenTwoNoticesChangesTheAdministrationFromThereOn)
{
    load(head("AAA") + assignment() + head("BBB") + assignment() + "<HEAD>\r\n</HEAD>\r\n" + assignment());
    EXPECT_EQ(work.rows("SELECT adm FROM kvr_velda ORDER BY veldakey"), (Texts{"AAA", "BBB", "BBB"}));
}

TEST_F(Load, AFileWithoutAHeadHasNoAdministration)
{
    session::notice.adm = "OLD";
    load(assignment());
    EXPECT_EQ(work.scalar("SELECT adm FROM kvr_velda"), "(null)");
}

TEST_F(Load, AFileOfLinesOfNoKindLoadsNothingAndSaysNothing)
{
    load("hello\r\n\r\nworld\r\n</NOTICE>\r\n");
    EXPECT_EQ(work.count("kvr_velda"), 0);
    EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(host.errorLines.empty());
}

TEST_F(Load, ANoticeWithNeitherZoneNorPositionIsLookedForWithZerosAndEmptyLetters)
{
    const auto bare = notice("t_action=ADD\r\nt_freq_assgn=1\r\n");
    load(head() + bare + bare);
    EXPECT_TRUE(host.errorLines.empty()) << "empty values were stored as Null, which is never equal";
    EXPECT_EQ(work.count("kvr_velda"), 2);
    work.execute(
        "UPDATE kvr_velda SET stn_cls = '', emi_cls = '', bdwdth_cde = '', op_hh_fr = 0, op_hh_to = 0 WHERE "
        "veldakey = 2");
    work.execute(
        "INSERT INTO kvr_geo_pt SELECT geo_key, 1, 0, 0, 0, '', 0, 0, 0, '', NULL FROM kvr_velda WHERE "
        "veldakey = 2");
    // The letters of a position that is not given are empty, unless the file gave one.
    load(head() + bare);
    EXPECT_EQ(host.errorLines, Texts{"Notice No: 1 is a potential target to the notice no : 2"});
}

TEST_F(Load, TheHandlesAreClosedAndTheFileIsOneAtTheEnd)
{
    load(head() + assignment());
    EXPECT_FAILURE(3420, session::db->Close());
    EXPECT_FAILURE(3420, session::ws->BeginTrans());
    EXPECT_FALSE(std::filesystem::exists(work.path() + "-journal"));
    platform::openForInput(1, work.path());
}

TEST_F(Load, AFailedNoticeIsLostTheOthersAreStoredAndTheBoxFollowsEveryNoticeFromThereOn)
{
    load(head() + assignment() + notice("t_freq_assgn=12a\r\n") + assignment("t_op_cls=A\r\n"));
    const std::string box = "There has been a database error - no updates in the database";
    EXPECT_EQ(host.messages, (Texts{"Error 3421 : Data type conversion error.", box, box}));
    EXPECT_EQ(work.count("kvr_velda"), 2);
    host.messages.clear();
    load(head() + assignment());
    EXPECT_EQ(host.messages, Texts{box}) << "though it is stored";
    EXPECT_EQ(work.count("kvr_velda"), 3);
}

TEST_F(Load, ANoticeWithAMissingPartIsASuccessToTheLoad)
{
    load(head() + notice("t_action=ADD\r\nt_long=+01x3045\r\n"));
    EXPECT_EQ(host.messages, Texts{"Error 3421 : Data type conversion error."});
    EXPECT_EQ(work.count("kvr_velda"), 1);
    EXPECT_EQ(work.count("kvr_geo_pt"), 0);
    EXPECT_EQ(session::dbStatus, "");
}

TEST(PathOfTheWorkingDatabase, IsCutAtTheFirstDotAnywhere)
{
    using readNtcAndWriteToDB::workingDatabaseOf;
    EXPECT_EQ(workingDatabaseOf("C:\\a.b\\c.txt"), "C:\\a.mdb");
    EXPECT_EQ(workingDatabaseOf("/x/y.z.txt"), "/x/y.mdb");
    EXPECT_EQ(workingDatabaseOf("./y.txt"), ".mdb");
    EXPECT_FAILURE(5, static_cast<void>(workingDatabaseOf("/x/y")));
}

TEST(PathOfTheUpdateFile, HasExactlyTheLastThreeCharactersSwapped)
{
    using readNtcAndWriteToDB::updateFileOf;
    EXPECT_EQ(updateFileOf("C:\\x\\y.mdb"), "C:\\x\\y.upd");
    EXPECT_EQ(updateFileOf("/x/y.database"), "/x/y.databupd");
    EXPECT_EQ(updateFileOf("abc"), "upd");
    EXPECT_EQ(updateFileOf("y\u00e9\u00e9\u00e9"), "yupd");
    EXPECT_FAILURE(5, static_cast<void>(updateFileOf("ab")));
    using readNtcAndWriteToDB::reportFileOf;
    EXPECT_EQ(reportFileOf("C:\\x\\y.mdb"), "C:\\x\\y.rpt");
    EXPECT_FAILURE(5, static_cast<void>(reportFileOf("ab")));
}
