// A check of all notices that is killed at a random moment: each notice is stored whole or not at all, and no
// committed one is lost. ZEPH_KILLS sets how often.
#ifndef _WIN32

#include "checkFixture.h"
#include "killedProgram.h"

#include "dao/databaseFile.h"

#include <algorithm>

namespace {

constexpr int notices = 80;

// Keeps the whole database as it stands whenever a notice is about to be stored.
class KeepingHost : public FakeHost
{
public:
    explicit KeepingHost(const WorkingDatabase& work) : m_work(work) {}
    void addErrorLine(const std::string& line) override
    {
        FakeHost::addErrorLine(line);
        states.push_back(m_work.contents());
    }

    // After 0, 1, 2, ... notices.
    std::vector<std::vector<std::string>> states;

private:
    const WorkingDatabase& m_work;
};

class KilledCheck : public CheckFixture
{
protected:
    KilledCheck()
    {
        database = work.open();
        for (int number = 1; number <= notices; ++number) {
            auto ntc = aNotice("T12", "SUPPRESS").withAntennas(1, 2, 3).build();
            ntc.freq_assgn = std::to_string(number);
            insert(ntc);
            reference.add(named(ntc));
        }
        database->Close();
        dao::copyDatabaseFile(work.path(), before);
        KeepingHost keeping(work);
        checkTarget::checkAllNtc();
        EXPECT_TRUE(keeping.messages.empty());
        states = std::move(keeping.states); // the line behind the last notice gives the last one
        EXPECT_EQ(states.size(), notices + 1U);
        platform::setHost(&host);
    }

    // Kills a check of the notices as they were; gives the number of the notice that it told last.
    int checkAndKill(int toldBefore, bool torn)
    {
        dao::copyDatabaseFile(before, work.path());
        return program.runAndKill({work.path(), reference.path()}, toldBefore, torn);
    }

    // How many notices the database holds as stored by the check, when it holds nothing else; -1 otherwise.
    [[nodiscard]] int storedNotices() const
    {
        const auto found = std::ranges::find(states, work.contents());
        return found == states.end() ? -1 : static_cast<int>(found - states.begin());
    }

    std::string before = work.folder().file("before.mdb");
    std::vector<std::vector<std::string>> states;
    KilledProgram program{"killable_check"};
};

} // namespace

TEST_F(KilledCheck, LeavesEachNoticeStoredWholeOrNotAtAll)
{
    int amidst = 0;
    for (int round = 0; round < KilledProgram::kills(); ++round) {
        const int told = checkAndKill(program.randomNumber(0, notices - 20), false);
        const int stored = storedNotices();
        // The notice that was told is about to be stored: those before it are committed.
        EXPECT_TRUE(stored == told || stored == told - 1) << told << " told, " << stored << " stored";
        EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
        amidst += stored > 0 && stored < notices ? 1 : 0;
    }
    EXPECT_GE(amidst, KilledProgram::kills() / 2) << "hardly any check was killed in its midst";
}

TEST_F(KilledCheck, WithoutTransactionsAHalfNoticeIsSeen)
{
    bool torn = false;
    for (int round = 0; round < 50 && !torn; ++round) {
        checkAndKill(program.randomNumber(1, notices - 20), true);
        torn = storedNotices() < 0;
    }
    EXPECT_TRUE(torn);
}

TEST_F(KilledCheck, WithoutTransactionsAWholeRunEndsInTheSameState)
{
    checkAndKill(notices + 1, true); // with the line that ends it
    EXPECT_EQ(storedNotices(), notices);
}

#endif
