#pragma once

// Files of the database engine that fail on command: the n-th write from now on, and every one after it while
// `forGood` is set, ends with the result code. Installed as SQLite's default while it lives.
class FaultyFiles
{
public:
    FaultyFiles();
    ~FaultyFiles();
    FaultyFiles(const FaultyFiles&) = delete;
    FaultyFiles& operator=(const FaultyFiles&) = delete;

    static void failWrite(int number, int resultCode, bool forGood = false);
    static void heal();
    [[nodiscard]] static bool hasFailed();
    // Writes since the last failWrite.
    [[nodiscard]] static int writes();
    // Opening for writing gives a file that may only be read, as a folder without write right would have it.
    static void refuseWriting(bool refuse);
};
