#include "db/MainModule.h"

#include "dao/databaseFile.h"
#include "platform/paths.h"

namespace MainModule {

void copyMasterDatabase(const std::string& path)
{
    showingFailure([&] { dao::copyDatabaseFile(platform::programDirectory() + "/" + masterFileName, path); });
}

void openDatabase(bool readOnly, const std::string& path, dao::Ref<dao::Database>& database)
{
    database.reset();
    showingFailure([&] { database = dao::DBEngine::OpenDatabase(path, false, readOnly); });
}

void closeDatabase(const dao::Ref<dao::Database>& database)
{
    database->Close();
}

void openWorkspace(dao::Ref<dao::Workspace>& workspace)
{
    workspace = dao::DBEngine::Workspaces(0);
}

void closeWorkspace(const dao::Ref<dao::Workspace>& workspace)
{
    workspace->Close();
}

} // namespace MainModule
