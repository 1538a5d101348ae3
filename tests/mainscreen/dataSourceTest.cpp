#include "mainscreen/dataSource.h"

#include "db/noticeList.h"
#include "support/noticeDatabase.h"

namespace {

using Keys = std::vector<std::int32_t>;
namespace fs = std::filesystem;

class DataSource : public NoticeDatabase
{
protected:
    DataSource()
    {
        database->Close();
        source.DatabaseName = work.path();
        source.ReadOnly = true;
        source.RecordSource = noticeList::buildNoticeQuery("", noticeList::Sort::Index);
    }

    void insertNotices(int count)
    {
        database = work.open();
        for (int number = 0; number < count; ++number)
            insert(aNotice().build());
        database->Close();
    }

    // By this process, of the working database.
    [[nodiscard]] int openHandles() const
    {
        int found = 0;
        for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
            std::error_code ignored;
            found += fs::read_symlink(entry.path(), ignored) == fs::path(work.path()) ? 1 : 0;
        }
        return found;
    }

    // Overwrites a part of the page that holds a text.
    void damagePageOf(const std::string& text) const
    {
        const auto name = fs::path(work.path()).filename().string();
        const auto pageSize = std::stoul(work.scalar("PRAGMA page_size"));
        auto bytes = work.folder().read(name);
        const auto place = bytes.find(text);
        ASSERT_NE(place, std::string::npos);
        bytes.replace(place / pageSize * pageSize, 64, 64, '\x5a');
        work.folder().write(name, bytes);
    }

    mainscreen::DataSource source;
};

} // namespace

TEST_F(DataSource, ARefreshReadsAllRowsAndStandsAtTheFirst)
{
    insertNotices(3);
    source.Refresh(true);
    EXPECT_EQ(source.rows()->rowCount(), 3U);
    EXPECT_EQ(source.rows()->fieldName(0), "veldakey");
    const auto& recordset = source.Recordset();
    EXPECT_EQ(recordset->RecordCount(), 1) << "exact only after MoveLast";
    EXPECT_EQ(recordset->Fields("veldakey"), std::int32_t{1});
}

TEST_F(DataSource, TheKeysOfTheListAreReadFromItsRecordset)
{
    insertNotices(3);
    source.Refresh(false);
    noticeList::loadNoticeKeys(source.Recordset());
    EXPECT_EQ(session::keyArray, (Keys{1, 2, 3}));
    source.Recordset()->FindFirst("veldakey = 2");
    EXPECT_FALSE(source.Recordset()->NoMatch());
    EXPECT_EQ(source.Recordset()->AbsolutePosition(), 1);
}

TEST_F(DataSource, OfAnEmptyDatabaseThereAreNoRows)
{
    source.Refresh(true);
    EXPECT_EQ(source.rows()->rowCount(), 0U);
    EXPECT_EQ(source.rows()->columnCount(), 19U);
    EXPECT_EQ(source.Recordset()->RecordCount(), 0);
}

TEST_F(DataSource, AfterARefreshTheFileIsOpenAndUnderNoLock)
{
    insertNotices(3);
    source.Refresh(true);
    EXPECT_EQ(openHandles(), 1);
    EXPECT_NO_THROW(work.execute("PRAGMA busy_timeout = 0; BEGIN EXCLUSIVE; ROLLBACK"));
    work.execute("DELETE FROM kvr_velda");
    EXPECT_EQ(source.rows()->rowCount(), 3U) << "what was read stays";
}

TEST_F(DataSource, ARefreshReplacesWhatIsOpen)
{
    insertNotices(1);
    source.Refresh(false);
    const auto before = source.rows();
    insertNotices(2);
    source.Refresh(false);
    EXPECT_EQ(source.rows()->rowCount(), 3U);
    EXPECT_EQ(before->rowCount(), 1U);
    EXPECT_EQ(openHandles(), 1);
}

TEST_F(DataSource, ClosingKeepsTheRowsAndClosingAgainDoesNothing)
{
    insertNotices(2);
    source.closeRecordset();
    source.closeDatabase();
    source.Refresh(false);
    source.closeRecordset();
    EXPECT_FALSE(source.Recordset());
    source.closeDatabase();
    EXPECT_EQ(openHandles(), 0);
    source.closeDatabase();
    source.closeRecordset();
    EXPECT_EQ(source.rows()->rowCount(), 2U);
    EXPECT_EQ(source.DatabaseName, work.path());
}

TEST_F(DataSource, WithItsDatabaseTheRecordsetIsClosedToo)
{
    insertNotices(2);
    source.Refresh(false);
    source.closeDatabase();
    EXPECT_FALSE(source.Recordset());
    EXPECT_EQ(openHandles(), 0);
}

TEST_F(DataSource, UnboundItHasNoName)
{
    source.Refresh(false);
    source.unbind();
    EXPECT_EQ(source.DatabaseName, "");
    EXPECT_FALSE(source.Recordset());
    EXPECT_FAILURE(3024, source.Refresh(false));
}

TEST_F(DataSource, AFailingRefreshLeavesNothingOpenButTheRowsOfBefore)
{
    insertNotices(2);
    source.Refresh(false);
    source.RecordSource = "SELECT veldakey FROM kvr_nothing";
    EXPECT_FAILURE(3078, source.Refresh(false));
    EXPECT_FALSE(source.Recordset());
    EXPECT_EQ(openHandles(), 0);
    EXPECT_EQ(source.rows()->rowCount(), 2U);
    source.closeRecordset();
    source.closeDatabase();
}

TEST_F(DataSource, AFileThatIsMissingIsNotFoundAndWhatWasOpenIsClosed)
{
    source.Refresh(false);
    source.DatabaseName = work.folder().file("missing.mdb");
    EXPECT_FAILURE(3024, source.Refresh(true));
    EXPECT_FALSE(source.Recordset());
    EXPECT_EQ(openHandles(), 0);
}

TEST_F(DataSource, DamageWhereTheListDoesNotLookIsFoundByTheCheckOnly)
{
    insertNotices(1);
    work.execute("CREATE TABLE further (text TEXT); INSERT INTO further VALUES ('beside the list')");
    damagePageOf("beside the list");
    source.Refresh(false);
    EXPECT_EQ(source.rows()->rowCount(), 1U);
    EXPECT_FAILURE(3049, source.Refresh(true));
    EXPECT_FALSE(source.Recordset());
    EXPECT_EQ(openHandles(), 0);
}

TEST_F(DataSource, ReadOnlyItNeverWrites)
{
    source.RecordSource = "SELECT * FROM kvr_keys";
    source.Refresh(false);
    EXPECT_FAILURE(3027, source.Recordset()->Edit());
}
