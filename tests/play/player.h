#pragma once

#include "play/script.h"
#include "play/stage.h"

#include <QObject>

#include <vector>

// Runs a script inside whatever event loop is running: a command comes when there is nothing left to do but
// wait, so one that opens a modal window is followed by the next inside that window's loop.
namespace play {

class Player : public QObject
{
public:
    // Rounds of waiting, each so many milliseconds, before a command: a window system answers late.
    struct Patience
    {
        int rounds;
        int milliseconds;
    };

    Player(Stage& stage, std::vector<Command> commands, Patience patience);

    // Begins with the next event loop. Where the script ends while windows are open, it ends the process.
    void start();
    // The rest of the script, when the program has been left. Gives the exit status.
    [[nodiscard]] int finish();

private:
    void onIdle();
    void onIdleAfter(int milliseconds);
    [[nodiscard]] bool buttonGoesUpByItself() const;
    void nextRound();
    void step();
    [[nodiscard]] bool activates() const;
    void runCommand();
    [[noreturn]] void endInside();
    [[nodiscard]] int exitStatus() const { return m_stage.transcript.hasRefused() ? 1 : 0; }

    Stage& m_stage;
    std::vector<Command> m_commands;
    std::size_t m_next = 0;
    Patience m_patience;
    int m_round = 0;
    int m_activations = 0;
    int m_buttonRounds = 0;
    bool m_waiting = false;
};

} // namespace play
