#include "dao/dao.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

class Soundness : public testing::Test
{
protected:
    Soundness()
    {
        for (int number = 0; number < 400; ++number)
            work.execute("INSERT INTO kvr_call_sign VALUES (1, 'call " + std::to_string(number) + "')");
    }

    // Overwrites a part of the page that holds the middle one of the rows.
    void damageRows() const
    {
        auto bytes = work.folder().read(fileName());
        const auto place = bytes.find("call 200");
        ASSERT_NE(place, std::string::npos);
        const auto page = place / pageSize() * pageSize();
        bytes.replace(page, 64, 64, '\x5a');
        work.folder().write(fileName(), bytes);
    }

    [[nodiscard]] std::size_t pageSize() const { return std::stoul(work.scalar("PRAGMA page_size")); }
    [[nodiscard]] std::string fileName() const
    {
        return std::filesystem::path(work.path()).filename().string();
    }

    WorkingDatabase work;
};

} // namespace

TEST_F(Soundness, OfAWholeFileIsNoFailureThoughLettersBeyondAsciiDifferInCase)
{
    work.execute("INSERT INTO kvr_call_sign VALUES (2, 'ÅRE'), (2, 'åre')");
    work.open(true)->requireSound();
    work.open(false)->requireSound();
}

TEST_F(Soundness, DamageThatNoQueryHasMetYetIsFailure3049)
{
    damageRows();
    const auto database = work.open(true);
    const auto elsewhere = database->OpenRecordset("SELECT * FROM kvr_keys", dao::dbOpenDynaset);
    EXPECT_FALSE(elsewhere->EOF_());
    EXPECT_FAILURE(3049, database->requireSound());
}

TEST_F(Soundness, AFileCutShortIsDamaged)
{
    const auto bytes = work.folder().read(fileName());
    work.folder().write(fileName(), bytes.substr(0, bytes.size() - pageSize()));
    EXPECT_FAILURE(3049, {
        const auto database = work.open(true);
        database->requireSound();
    });
}

TEST_F(Soundness, AFileLockedByAnotherIsInUseNotDamaged)
{
    const auto database = work.open(true);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(work.path().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_FAILURE(3045, database->requireSound());
    sqlite3_close(other);
    database->requireSound();
}

TEST_F(Soundness, OfAClosedDatabaseIsFailure3420)
{
    const auto database = work.open(true);
    database->Close();
    EXPECT_FAILURE(3420, database->requireSound());
}
