#pragma once

#include "dao/dao.h"
#include "model/session.h"
#include "platform/host.h"

#include <string>

// The working database as a whole: copy, open, close; and the one way in which its failures are shown.
namespace MainModule {

inline constexpr const char* masterFileName = "MasterKVR_QRS.mdb";

// Copies the master database of the program's directory over the path. A failure is shown.
void copyMasterDatabase(const std::string& path);

// The handle is unset after a failure, which is shown.
void openDatabase(bool readOnly, const std::string& path, dao::Ref<dao::Database>& database);
void closeDatabase(const dao::Ref<dao::Database>& database);

void openWorkspace(dao::Ref<dao::Workspace>& workspace);
void closeWorkspace(const dao::Ref<dao::Workspace>& workspace);

// Runs the steps of a routine whose failure ends it with the message alone.
template <class Steps>
void showingFailure(Steps steps)
{
    try {
        steps();
    } catch (const platform::RuntimeError& failure) {
        platform::showFailure(failure);
    }
}

// The same for a routine whose failure also marks the session, before the message.
template <class Steps>
void markingFailure(Steps steps)
{
    try {
        steps();
    } catch (const platform::RuntimeError& failure) {
        session::dbStatus = session::errorDb;
        platform::showFailure(failure);
    }
}

// Runs the steps as one transaction. Their failure rolls all of it back, and marks the session only behind
// the message.
template <class Steps>
void inTransaction(const dao::Ref<dao::Workspace>& workspace, Steps steps)
{
    try {
        workspace->BeginTrans();
        steps();
        workspace->CommitTrans();
    } catch (const platform::RuntimeError& failure) {
        workspace->Rollback();
        platform::showFailure(failure);
        session::dbStatus = session::errorDb;
    }
}

} // namespace MainModule
