#pragma once

#include "db/deleteNtcFromDB.h"
#include "db/MainModule.h"
#include "db/readDBToNtc.h"
#include "db/updateNtcInDB.h"
#include "db/writeNtcToDB.h"
#include "model/InitializeNtc.h"
#include "model/session.h"
#include "support/fakeHost.h"
#include "support/noticeBuilder.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>

// A working database that notices are stored into and read from, with fresh session values.
class NoticeDatabase : public testing::Test
{
protected:
    NoticeDatabase()
    {
        session::dbStatus.clear();
        session::currentVeldaKey = session::currentGeoKey = session::currentTargetKey = 0;
    }

    // Stores the notice and gives its key.
    std::int32_t insert(const Ntc& ntc)
    {
        writeNtcToDB::insertNtc(ntc, workspace, database);
        return session::currentVeldaKey;
    }

    // Stores it over the notice of the key, as a screen does that shows this one.
    void update(std::int32_t key, Ntc ntc)
    {
        session::currentVeldaKey = key;
        updateNtcInDB::updateNtc(key, ntc, workspace, database);
    }

    void remove(std::int32_t key) { deleteNtcFromDB::deleteNtc(key, workspace, database); }

    Ntc read(std::int32_t key)
    {
        Ntc ntc;
        EXPECT_TRUE(readDBToNtc::readNtc(key, ntc, database));
        return ntc;
    }

    FakeHost host;
    WorkingDatabase work;
    dao::Ref<dao::Workspace> workspace = dao::DBEngine::Workspaces(0);
    dao::Ref<dao::Database> database = work.open();
};
