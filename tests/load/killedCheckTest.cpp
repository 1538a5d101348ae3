// A check of all notices that is killed at a random moment: each notice is stored whole or not at all, and no
// committed one is lost. ZEPH_KILLS sets how often.
#ifndef _WIN32

#include "checkFixture.h"

#include "dao/databaseFile.h"
#include "platform/paths.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

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

    // Starts a check of the notices as they were and kills it a moment after it has told so many lines. Gives
    // the number of the notice that was told last.
    int checkAndKill(int toldBefore, std::chrono::microseconds moment, bool torn)
    {
        dao::copyDatabaseFile(before, work.path());
        std::array<int, 2> told{};
        EXPECT_EQ(pipe(told.data()), 0);
        const auto program = platform::programDirectory() + "/killable_check";
        const pid_t child = fork();
        if (child == 0) {
            dup2(told[1], STDOUT_FILENO);
            close(told[0]);
            execl(program.c_str(), program.c_str(), work.path().c_str(), reference.path().c_str(),
                  torn ? "torn" : nullptr, nullptr);
            _exit(127);
        }
        close(told[1]);
        std::string lines;
        const auto readSome = [&] {
            std::array<char, 4096> chunk{};
            const auto length = ::read(told[0], chunk.data(), chunk.size());
            lines.append(chunk.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
            return length > 0;
        };
        while (std::count(lines.begin(), lines.end(), '\n') < toldBefore && readSome())
            ;
        std::this_thread::sleep_for(moment);
        kill(child, SIGKILL);
        while (readSome())
            ;
        close(told[0]);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status)) << "the check ended before it was killed";
        const auto last = lines.rfind("Notice No: ");
        return last == std::string::npos ? 0 : std::atoi(lines.c_str() + last + 11);
    }

    // How many notices the database holds as stored by the check, when it holds nothing else; -1 otherwise.
    [[nodiscard]] int storedNotices() const
    {
        const auto found = std::ranges::find(states, work.contents());
        return found == states.end() ? -1 : static_cast<int>(found - states.begin());
    }

    static int kills()
    {
        const char* given = std::getenv("ZEPH_KILLS");
        return given != nullptr ? std::atoi(given) : 20;
    }

    int randomNumber(int first, int last) { return std::uniform_int_distribution(first, last)(random); }
    std::chrono::microseconds randomMoment() { return std::chrono::microseconds(randomNumber(0, 3000)); }

    std::string before = work.folder().file("before.mdb");
    std::vector<std::vector<std::string>> states;
    std::mt19937 random{std::random_device{}()};
};

} // namespace

TEST_F(KilledCheck, LeavesEachNoticeStoredWholeOrNotAtAll)
{
    int amidst = 0;
    for (int round = 0; round < kills(); ++round) {
        const int told = checkAndKill(randomNumber(0, notices - 20), randomMoment(), false);
        const int stored = storedNotices();
        // The notice that was told is about to be stored: those before it are committed.
        EXPECT_TRUE(stored == told || stored == told - 1) << told << " told, " << stored << " stored";
        EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
        amidst += stored > 0 && stored < notices ? 1 : 0;
    }
    EXPECT_GE(amidst, kills() / 2) << "hardly any check was killed in its midst";
}

TEST_F(KilledCheck, WithoutTransactionsAHalfNoticeIsSeen)
{
    bool torn = false;
    for (int round = 0; round < 50 && !torn; ++round) {
        checkAndKill(randomNumber(1, notices - 20), randomMoment(), true);
        torn = storedNotices() < 0;
    }
    EXPECT_TRUE(torn);
}

TEST_F(KilledCheck, WithoutTransactionsAWholeRunEndsInTheSameState)
{
    checkAndKill(notices + 1, randomMoment(), true); // with the line that ends it
    EXPECT_EQ(storedNotices(), notices);
}

#endif
