#pragma once

#include <random>
#include <string>
#include <vector>

// A program of ours that tells of each notice it is about to store, and is killed at a random moment.
class KilledProgram
{
public:
    explicit KilledProgram(const std::string& name);

    // How often a test kills it.
    static int kills();
    int randomNumber(int first, int last) { return std::uniform_int_distribution(first, last)(m_random); }

    // Starts it on these files, with "torn" behind them where it is to store without transactions, and kills
    // it a moment after it has told so many lines. Gives the number of the notice that was told last. It
    // can't run far ahead: what it tells goes through a pipe.
    int runAndKill(std::vector<std::string> files, int toldBefore, bool torn);

private:
    std::string m_path;
    std::mt19937 m_random{std::random_device{}()};
};
