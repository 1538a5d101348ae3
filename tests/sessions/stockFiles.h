#pragma once

#include "support/temporaryFolder.h"

#include <string>

// Runs statements on a database past the engine; makes the file if need be.
void executeSql(const std::string& file, const std::string& sql);
// The rows that a statement gives there, a line each: values parted by tabs, Null as "(null)".
[[nodiscard]] std::string rowsOf(const std::string& file, const std::string& sql);

// The files that a session finds in its folder.
class StockFiles
{
public:
    explicit StockFiles(const TemporaryFolder& folder) : m_folder(folder) {}

    // The program's own directory ("program"), with the folder of the log, and every file of stock that the
    // script names:
    //     notices.txt   twelve notices            empty.mdb     a working database without notices
    //     one.txt       one notice                work.mdb      the twelve notices, loaded
    //     nodot         notices.txt without "."   T15.mdb       the same; notice 1 is a T15, 2 has no adm
    //     text.mdb      a text                    notables.mdb  of the engine, without tables
    //     foreign.mdb   another program's         damaged.mdb   its pages overwritten
    //     ref/          a reference set for the twelve notices, with its indexes; last changed on 2025-12-31
    //     refnoindex/   the same without them
    //     jet4/, jet3/  the old files of those formats with known rows
    void make(const std::string& script) const;

private:
    void makeProgramDirectory() const;

    const TemporaryFolder& m_folder;
};
