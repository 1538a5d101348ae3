// A load that is killed at a random moment: no half-stored notice, no committed one lost, and the next load
// of the same file is right. ZEPH_KILLS sets how often.
#ifndef _WIN32

#include "loadFixture.h"

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

constexpr int noticesInTheFile = 10'000;

// Rows that each notice of the file has when it is stored whole.
struct Part
{
    const char* table;
    int rows;
};
constexpr std::array parts = {Part{"kvr_rmks", 1}, Part{"kvr_call_sign", 3}, Part{"kvr_nat_serv", 2},
                              Part{"kvr_ant", 1},  Part{"kvr_rot", 2},       Part{"kvr_rx", 3}};

class KilledLoad : public LoadFixture
{
protected:
    KilledLoad()
    {
        const auto one =
            assignment("t_remarks=R\r\nt_call_sign=A\r\nt_call_sign=B\r\nt_call_sign=C\r\nt_nat_srv=CP\r\n"
                       "t_nat_srv=CO\r\n<ANTENNA>\r\n<ROTATIONAL>\r\nt_azm_fr=1\r\n</ROTATIONAL>\r\n"
                       "<ROTATIONAL>\r\nt_azm_fr=2\r\n</ROTATIONAL>\r\n<RX_STATION>\r\nt_nois_tmp=1\r\n"
                       "</RX_STATION>\r\n<RX_STATION>\r\n</RX_STATION>\r\n<RX_STATION>\r\n</RX_STATION>\r\n"
                       "</ANTENNA>\r\n");
        std::string text = head();
        for (int number = 0; number < noticesInTheFile; ++number)
            text += one;
        file = work.folder().write("many.txt", text);
    }

    // Starts a load into a fresh copy and kills it a moment after it has told of so many notices; gives the
    // number of the notice that was told last. The load can't run far ahead: what it tells goes through a
    // pipe.
    int loadAndKill(int toldBefore, std::chrono::microseconds moment, bool torn)
    {
        MainModule::copyMasterDatabase(work.path());
        std::array<int, 2> told{};
        EXPECT_EQ(pipe(told.data()), 0);
        const auto program = platform::programDirectory() + "/killable_load";
        const pid_t child = fork();
        if (child == 0) {
            dup2(told[1], STDOUT_FILENO);
            close(told[0]);
            execl(program.c_str(), program.c_str(), file.c_str(), work.path().c_str(),
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
        EXPECT_TRUE(WIFSIGNALED(status)) << "the load ended before it was killed";
        const auto last = lines.rfind("Notice No: ", lines.rfind('\n'));
        return last == std::string::npos ? 0 : std::atoi(lines.c_str() + last + 11);
    }

    // The load of the same file over whatever the killed one left.
    void loadAgain()
    {
        MainModule::copyMasterDatabase(work.path());
        session::electFileName = file;
        readNtcAndWriteToDB::openElectFile(session::notice);
        readNtcAndWriteToDB::loadElectFile(session::notice, work.path());
        EXPECT_EQ(work.count("kvr_velda"), noticesInTheFile);
        EXPECT_TRUE(allWhole());
        EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
        EXPECT_TRUE(host.messages.empty());
    }

    [[nodiscard]] bool allWhole() const
    {
        const int notices = work.count("kvr_velda");
        for (const auto& [table, rows] : parts) {
            if (work.count(table) != notices * rows)
                return false;
        }
        return true;
    }

    static int kills()
    {
        const char* given = std::getenv("ZEPH_KILLS");
        return given != nullptr ? std::atoi(given) : 20;
    }

    int randomNumber(int first, int last) { return std::uniform_int_distribution(first, last)(random); }
    std::chrono::microseconds randomMoment() { return std::chrono::microseconds(randomNumber(0, 3000)); }

    std::string file;
    std::mt19937 random{std::random_device{}()};
};

} // namespace

TEST_F(KilledLoad, LosesNoCommittedNoticeAndLeavesNoHalfOne)
{
    for (int round = 0; round < kills(); ++round) {
        const int told = loadAndKill(randomNumber(0, noticesInTheFile - 2000), randomMoment(), false);
        if (round % 5 == 4) {
            loadAgain(); // over the file as it was left, before anybody has looked at it
            continue;
        }
        // The notice that was told is about to be stored: those before it are committed. The first is stored
        // without a word.
        const int notices = work.count("kvr_velda");
        EXPECT_GE(notices, told - 1);
        EXPECT_LE(notices, std::max(told, 1));
        EXPECT_TRUE(allWhole());
        EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
        EXPECT_EQ(work.scalar("SELECT veldakey FROM kvr_keys"), std::to_string(notices + 1));
    }
}

TEST_F(KilledLoad, WithoutTransactionsAHalfNoticeIsSeen)
{
    bool torn = false;
    for (int round = 0; round < 50 && !torn; ++round) {
        loadAndKill(randomNumber(1, 2000), randomMoment(), true);
        torn = !allWhole();
    }
    EXPECT_TRUE(torn);
}

#endif
