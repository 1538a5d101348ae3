#include "db/MainModule.h"

#include "platform/paths.h"
#include "support/noticeDatabase.h"

namespace {

class MainModuleTest : public NoticeDatabase
{
protected:
    ~MainModuleTest() override { platform::setProgramDirectory(""); }
};

} // namespace

TEST_F(MainModuleTest, AFailedOpenLeavesTheHandleUnsetAndUsingItIsFailure91)
{
    auto handle = work.open();
    MainModule::openDatabase(false, work.folder().file("nothing.mdb"), handle);
    EXPECT_FALSE(handle);
    EXPECT_EQ(host.messages, std::vector<std::string>{"Error 3024 : Could not find file '" +
                                                      work.folder().file("nothing.mdb") + "'."});
    EXPECT_EQ(host.pointers, std::vector<int>{0});
    EXPECT_EQ(session::dbStatus, "");
    EXPECT_FAILURE(91, MainModule::closeDatabase(handle));
}

TEST_F(MainModuleTest, OpenDatabaseIsReadOnlyWhenAsked)
{
    dao::Ref<dao::Database> handle;
    MainModule::openDatabase(true, work.path(), handle);
    EXPECT_FAILURE(3027, handle->OpenRecordset("kvr_rmks", dao::dbOpenTable)->AddNew());
    MainModule::closeDatabase(handle);
    MainModule::openDatabase(false, work.path(), handle);
    handle->OpenRecordset("kvr_rmks", dao::dbOpenTable)->AddNew();
    MainModule::closeDatabase(handle);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MainModuleTest, TheMasterIsCopiedOverWhateverStandsThere)
{
    insert(aNotice().build());
    database->Close();
    MainModule::copyMasterDatabase(work.path());
    EXPECT_EQ(work.count("kvr_velda"), 0);
    EXPECT_EQ(work.scalar("SELECT veldakey FROM kvr_keys"), "1");
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MainModuleTest, WithoutAMasterTheMessageIsShownAndTheFileStays)
{
    insert(aNotice().build());
    const TemporaryFolder empty;
    platform::setProgramDirectory(empty.path().string());
    MainModule::copyMasterDatabase(work.path());
    EXPECT_EQ(host.messages, std::vector<std::string>{"Error 53 : File not found"});
    EXPECT_EQ(work.count("kvr_velda"), 1);
}

TEST_F(MainModuleTest, TheWorkspaceIsTheDefaultOne)
{
    dao::Ref<dao::Workspace> own;
    MainModule::openWorkspace(own);
    own->BeginTrans();
    workspace->Rollback();
    MainModule::closeWorkspace(own);
    EXPECT_FAILURE(3420, own->BeginTrans());
}
