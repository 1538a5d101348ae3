#pragma once

// Lets the next copy of the master fail as a full disk would: for a while no file of the process may grow.
namespace play {

class CopyFault
{
public:
    // False where the host knows no such limit.
    [[nodiscard]] static bool isAvailable();

    void arm() { m_armed = true; }
    // The dialog before the copy has closed.
    void copyIsNext();
    // What comes next must be able to write again.
    static void over();

    // Lets this thread write in spite of it.
    class Pause
    {
    public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
    };

private:
    bool m_armed = false;
};

} // namespace play
