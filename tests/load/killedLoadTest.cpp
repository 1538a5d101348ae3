// A load that is killed at a random moment: no half-stored notice, no committed one lost, and the next load
// of the same file is right. ZEPH_KILLS sets how often.
#ifndef _WIN32

#include "killedProgram.h"
#include "loadFixture.h"

#include <algorithm>
#include <array>

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

    // Kills a load into a fresh copy; gives the number of the notice that it told last.
    int loadAndKill(int toldBefore, bool torn)
    {
        MainModule::copyMasterDatabase(work.path());
        return program.runAndKill({file, work.path()}, toldBefore, torn);
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

    std::string file;
    KilledProgram program{"killable_load"};
};

} // namespace

TEST_F(KilledLoad, LosesNoCommittedNoticeAndLeavesNoHalfOne)
{
    for (int round = 0; round < KilledProgram::kills(); ++round) {
        const int told = loadAndKill(program.randomNumber(0, noticesInTheFile - 2000), false);
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
        loadAndKill(program.randomNumber(1, 2000), true);
        torn = !allWhole();
    }
    EXPECT_TRUE(torn);
}

#endif
