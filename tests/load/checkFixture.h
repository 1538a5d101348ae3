#pragma once

#include "load/checkTarget.h"
#include "loadFixture.h"
#include "support/referenceSet.h"

// A working database with a reference set beside it.
class CheckFixture : public LoadFixture
{
protected:
    CheckFixture()
    {
        session::notice = Ntc();
        session::workingDbPath = work.path();
        session::referenceDbPath = reference.path();
    }
    ~CheckFixture() override
    {
        session::refDb.reset();
        session::workingDbPath.clear();
        session::referenceDbPath.clear();
    }

    // Stores a notice in the working database and gives its key.
    std::int32_t store(const Ntc& ntc)
    {
        database = work.open();
        const auto key = insert(ntc);
        database->Close();
        return key;
    }

    [[nodiscard]] Ntc stored(std::int32_t key)
    {
        database = work.open(true);
        auto ntc = read(key);
        database->Close();
        return ntc;
    }

    // A notice that differs from those of other numbers by its frequency.
    [[nodiscard]] static Ntc numbered(int number, const std::string& intent = "SUPPRESS")
    {
        auto ntc = aNotice("T12", intent).build();
        ntc.freq_assgn = std::to_string(100 + number);
        return ntc;
    }

    // The notice as a reference database has it, with a name and a country of its own.
    [[nodiscard]] static Ntc named(Ntc ntc, const std::string& site = "Recorded",
                                   const std::string& ctry = "CCC")
    {
        ntc.geo.site_name = site;
        ntc.geo.ctry = ctry;
        return ntc;
    }

    ReferenceSet reference;
};
