// File in, working database, file out.
#include "loadFixture.h"

#include "db/noticeList.h"
#include "elect/writeNtcToElect.h"
#include "tools/noticeGenerator.h"

namespace {

class RoadOfOneFile : public LoadFixture
{
protected:
    std::string loadAndWrite(const std::string& electFile)
    {
        MainModule::copyMasterDatabase(work.path());
        session::electFileName = electFile;
        readNtcAndWriteToDB::openElectFile(session::notice);
        readNtcAndWriteToDB::loadElectFile(session::notice, work.path());
        const auto reader = work.open(true);
        noticeList::loadNoticeKeys(reader->OpenRecordset(
            noticeList::buildNoticeQuery("", noticeList::Sort::Index), dao::dbOpenDynaset));
        writeNtcToElect::writeElectFile(work.folder().file("out.upd"), reader);
        return work.folder().read("out.upd");
    }
};

} // namespace

TEST_F(RoadOfOneFile, TheSampleGivesItsPotentialTargetsAndItsStoredUpdateFileByteForByte)
{
    const auto written = loadAndWrite(ZEPH_DATA_DIR "/samples/sample12.txt");
    EXPECT_EQ(host.errorLines, (Texts{"Notice No: 5 is a potential target to the notice no : 1",
                                      "Notice No: 8 is a potential target to the notice no : 2",
                                      "Notice No: 11 is a potential target to the notice no : 4"}));
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(session::keyCount, 12);
    const TemporaryFolder folder;
    std::filesystem::copy_file(ZEPH_TEST_DIR "/load/sample12.upd", folder.path() / "expected.upd");
    EXPECT_EQ(written, folder.read("expected.upd"));
}

TEST_F(RoadOfOneFile, AThousandNoticesWrittenLoadedAndWrittenAgainStayTheSame)
{
    const auto sample = work.folder().file("sample.txt");
    noticeGenerator::writeNoticeFile(sample, {.count = 1000, .seed = 7});
    const auto first = loadAndWrite(sample);
    EXPECT_EQ(session::keyCount, 1000);
    std::filesystem::rename(work.folder().file("out.upd"), work.folder().file("again.upd"));
    const auto second = loadAndWrite(work.folder().file("again.upd"));
    // A MODIFY's target zone becomes the notice's own on the way, and settles there.
    std::filesystem::rename(work.folder().file("out.upd"), work.folder().file("third.upd"));
    EXPECT_EQ(loadAndWrite(work.folder().file("third.upd")), second);
    EXPECT_EQ(work.count("kvr_velda"), 1000);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(RoadOfOneFile, EveryByteAbove127SurvivesTheWayInAndOut)
{
    std::string bytes;
    for (int code = 128; code < 256; ++code)
        bytes += static_cast<char>(code);
    load(head() + notice("t_action=ADD\r\nt_emi_cls=" + bytes + "\r\n"));
    const auto reader = work.open(true);
    session::keyArray = {1};
    session::keyCount = 1;
    writeNtcToElect::writeElectFile(work.folder().file("out.upd"), reader);
    EXPECT_NE(work.folder().read("out.upd").find("t_emi_cls=" + bytes + "\r\n"), std::string::npos);
}
