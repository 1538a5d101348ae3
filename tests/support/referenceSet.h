#pragma once

#include "model/Ntc.h"
#include "support/temporaryFolder.h"

#include <cstdint>
#include <string>
#include <vector>

// The three files of a reference set in a folder of their own, without indexes and at first without rows.
class ReferenceSet
{
public:
    static constexpr const char* beta = "VELDABASEBETA.mdb"; // kvr_geo, and links to the tables of the others
    static constexpr const char* kvr1 = "VELDAKVR1.mdb";     // kvr_geo_pt
    static constexpr const char* kvr3 = "VELDAKVR3.mdb";     // kvr_velda

    ReferenceSet();

    // The file that an operator picks.
    [[nodiscard]] std::string path() const { return file(beta); }
    [[nodiscard]] std::string file(const std::string& name) const { return m_folder.file(name); }

    // The notice as an assignment ("FALSE"), as a pending notice ("TRUE"), or with Null for neither, under a
    // key of its own.
    void add(const Ntc& ntc, const char* isNotice = "FALSE");

    // Through bare SQLite.
    void execute(const std::string& name, const std::string& sql) const;
    [[nodiscard]] std::vector<std::string> rows(const std::string& name, const std::string& sql) const;

    // The two indexes, as a set has them when it comes.
    void addGeoIndex() const;
    void addVeldaIndex() const;
    // The names of the indexes that a file has.
    [[nodiscard]] std::vector<std::string> indexes(const std::string& name) const;

private:
    TemporaryFolder m_folder;
    std::int32_t m_lastKey = 0;
};
