#pragma once

#include "dao/dao.h"

#include <string>

// The two reference files that hold the tables themselves, and the indexes on them that serve the check of
// site names. The files stand beside session::referenceDbPath and are open only while a routine works.
namespace refDatabases {

class RefDatabases
{
public:
    // After a link: tells through indexInfo whether the indexes exist, and offers to make them.
    void checkRefIndexes();
    // Drops what exists and makes both.
    void createRefIndexes();
    // Drops both if any of them exists.
    void deleteRefIndexesIfAny();

    // What is known of the indexes since the last of these.
    [[nodiscard]] const std::string& indexInfo() const { return m_indexInfo; }

private:
    void openRefDbsReadOnly();
    void openRefDbsReadWrite();
    void openRefDbs(bool readOnly);
    void closeRefDbs();
    void takeTableDefs();
    void offerIndexes();
    void buildRefIndexes();
    void dropRefIndexes();
    void tellUpdated();

    dao::Ref<dao::Database> m_kvr1Db, m_kvr3Db;
    dao::Ref<dao::TableDef> m_kvr_geo_pt, m_kvr_velda; // last fetched
    std::string m_indexInfo;
};

} // namespace refDatabases
