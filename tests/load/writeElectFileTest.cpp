#include "elect/writeNtcToElect.h"

#include "loadFixture.h"

#include "db/noticeList.h"

namespace {

class WriteElectFile : public LoadFixture
{
protected:
    // What the list gives, in its order.
    void listNotices(noticeList::Sort sort = noticeList::Sort::Index, const std::string& where = "")
    {
        const auto reader = work.open(true);
        noticeList::loadNoticeKeys(
            reader->OpenRecordset(noticeList::buildNoticeQuery(where, sort), dao::dbOpenDynaset));
    }

    std::string write()
    {
        const auto reader = work.open();
        writeNtcToElect::writeElectFile(work.folder().file("out.upd"), reader);
        return work.folder().read("out.upd");
    }

    static constexpr const char* comments =
        "File corrected on 09.03.2026-14:05:07\r\nProcessed by operator\r\n";

    static std::string tail(const std::string& count)
    {
        return "<TAIL>\r\nt_num_notices = " + count + "\r\n</TAIL>\r\n\r\n";
    }
};

} // namespace

TEST_F(WriteElectFile, WithoutNoticesThereAreTheCommentsAndTheTailAlone)
{
    session::keyArray = {1, 2};
    session::keyCount = 2;
    listNotices();
    EXPECT_EQ(write(), comments + tail(" 0"));
}

TEST_F(WriteElectFile, WhenAllNoticesWereDeletedThereIsNoHead)
{
    load(head() + assignment());
    listNotices();
    session::keyArray[0] = session::deletedKey;
    EXPECT_EQ(write(), comments + tail(" 0"));
}

TEST_F(WriteElectFile, FailsWhereTheCountTellsOfMoreKeysThanThereAre)
{
    load(head() + assignment());
    listNotices();
    session::keyCount = 2;
    EXPECT_FAILURE(platform::errSubscript, write());
}

TEST_F(WriteElectFile, BlocksEndInAnEmptyLineAndTheOrderIsThatOfTheList)
{
    load(head() + notice("t_action=ADD\r\nt_freq_assgn=7\r\nt_site_name=A\r\n") +
         notice("t_action=ADD\r\nt_freq_assgn=5\r\nt_site_name=B\r\n"));
    listNotices(noticeList::Sort::AdmFreq);
    EXPECT_EQ(write(),
              comments + head() + "\r\n" +
                  "<NOTICE>\r\nt_action=ADD\r\nt_freq_assgn=5\r\nt_site_name=B\r\n</NOTICE>\r\n\r\n" +
                  "<NOTICE>\r\nt_action=ADD\r\nt_freq_assgn=7\r\nt_site_name=A\r\n</NOTICE>\r\n\r\n" +
                  tail(" 2"));
}

TEST_F(WriteElectFile, TheFilterDecidesWhatIsWritten)
{
    load(head() + notice("t_action=ADD\r\nt_notice_type=T11\r\n") +
         notice("t_action=ADD\r\nt_notice_type=T12\r\n"));
    listNotices(noticeList::Sort::Index, "WHERE kvr_velda.notice_typ = 'T12' ");
    EXPECT_EQ(write(), comments + head() +
                           "\r\n<NOTICE>\r\nt_notice_type=T12\r\nt_action=ADD\r\n</NOTICE>\r\n\r\n" +
                           tail(" 1"));
}

TEST_F(WriteElectFile, ANoticeInTwoRowsOfTheListIsWrittenTwice)
{
    load(head() + notice("t_action=ADD\r\n"));
    work.execute("INSERT INTO kvr_pub_hist VALUES (1, '1'), (1, '2')");
    listNotices();
    EXPECT_EQ(write(), comments + head() + "\r\n<NOTICE>\r\nt_action=ADD\r\n</NOTICE>\r\n\r\n" +
                           "<NOTICE>\r\nt_action=ADD\r\n</NOTICE>\r\n\r\n" + tail(" 2"));
}

TEST_F(WriteElectFile, AKeyThatHasVanishedGivesAnEmptyCountedNoticeOnceOneWasRead)
{
    load(head() + notice("t_action=ADD\r\nt_freq_assgn=7\r\n"));
    listNotices();
    session::keyArray = {1, 99};
    session::keyCount = 2;
    session::notice.adm.clear();
    EXPECT_EQ(write(), comments + head() +
                           "\r\n<NOTICE>\r\nt_action=ADD\r\nt_freq_assgn=7\r\n</NOTICE>\r\n\r\n" +
                           "<NOTICE>\r\n</NOTICE>\r\n\r\n" + tail(" 2"));
    EXPECT_EQ(session::currentVeldaKey, 99);
    // Before any notice was read there is no administration, and such a key is passed over.
    session::keyArray = {99, 1};
    session::notice.adm.clear();
    EXPECT_EQ(write(), comments + head() +
                           "\r\n<NOTICE>\r\nt_action=ADD\r\nt_freq_assgn=7\r\n</NOTICE>\r\n\r\n" +
                           tail(" 1"));
}

TEST_F(WriteElectFile, TheHeadShowsTheAdministrationOfTheFirstNoticeAlone)
{
    load(head("AAA") + notice("t_action=ADD\r\n") + head("BBB") + notice("t_action=ADD\r\n"));
    listNotices();
    const auto text = write();
    EXPECT_NE(text.find("t_adm=AAA"), std::string::npos);
    EXPECT_EQ(text.find("BBB"), std::string::npos);
}

TEST_F(WriteElectFile, ANullAdministrationTakesThatOfTheNoticeBefore)
{
    load(notice("t_action=ADD\r\n") + head("BBB") + notice("t_action=ADD\r\n"));
    listNotices();
    session::notice.adm.clear();
    EXPECT_EQ(write(),
              comments + head("BBB") + "\r\n<NOTICE>\r\nt_action=ADD\r\n</NOTICE>\r\n\r\n" + tail(" 1"))
        << "the first has none, and is not written";
    session::keyArray = {2, 1};
    EXPECT_EQ(write().substr(write().size() - tail(" 2").size()), tail(" 2"));
}

TEST_F(WriteElectFile, AnExistingFileIsReplacedAndTheRecordIsEmptyButForAdmAndDateOfReceipt)
{
    static_cast<void>(work.folder().write("out.upd", std::string(100'000, 'x')));
    load(head() + assignment());
    listNotices();
    EXPECT_LT(write().size(), 1000U);
    Ntc empty;
    empty.adm = "XYZ";
    empty.d_rcv = "01.03.2026";
    EXPECT_SAME_NOTICE(session::notice, empty);
}

TEST_F(WriteElectFile, ADateThatIsNoneIsAFailureAndWhatWasPrintedStays)
{
    load(head() + assignment("t_op_cls=A\r\n") + assignment("t_d_inuse=soon\r\n"));
    listNotices();
    const auto reader = work.open();
    EXPECT_FAILURE(5, writeNtcToElect::writeElectFile(work.folder().file("out.upd"), reader));
    const auto text = work.folder().read("out.upd");
    EXPECT_NE(text.find("t_op_cls=A"), std::string::npos);
    EXPECT_EQ(text.find("<TAIL>"), std::string::npos);
    platform::openForInput(1, work.folder().file("out.upd"));
}

TEST_F(WriteElectFile, AFolderThatIsMissingIsAFailure)
{
    const auto reader = work.open();
    EXPECT_FAILURE(76, writeNtcToElect::writeElectFile(work.folder().file("missing/out.upd"), reader));
}

TEST_F(WriteElectFile, AFailedReadShowsItsMessageAndTheWriterGoesOn)
{
    load(head() + assignment("t_call_sign=CALL\r\n"));
    listNotices();
    work.execute("DROP TABLE kvr_call_sign");
    const auto text = write();
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_NE(text.find("t_freq_assgn=151.3375"), std::string::npos);
    EXPECT_NE(text.find(tail(" 1")), std::string::npos);
}

TEST_F(WriteElectFile, TheCountHoldsThirtyTwoThousandNoticesAndOverflowsAtTheNext)
{
    load(head() + notice("t_action=ADD\r\n"));
    session::keyArray.assign(32768, 1);
    session::keyCount = 32767;
    const auto whole = write();
    EXPECT_EQ(whole.substr(whole.size() - tail(" 32767").size()), tail(" 32767"));
    session::keyCount = 32768;
    const auto reader = work.open();
    EXPECT_FAILURE(6, writeNtcToElect::writeElectFile(work.folder().file("out.upd"), reader));
    EXPECT_EQ(work.folder().read("out.upd").find("<TAIL>"), std::string::npos);
}

#ifndef _WIN32
TEST_F(WriteElectFile, AFullDiskIsAFailureAlsoWhenItShowsAtTheVeryEnd)
{
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "the host has no disk that is always full";
    std::filesystem::create_symlink("/dev/full", work.folder().path() / "out.upd");
    load(head() + assignment());
    listNotices();
    const auto reader = work.open();
    EXPECT_FAILURE(61, writeNtcToElect::writeElectFile(work.folder().file("out.upd"), reader));
    platform::openForInput(1, work.path()); // the number is free
}
#endif
