#include "dao/databaseFile.h"
#include "dao/databaseState.h"
#include "dao/engineError.h"

namespace dao {

namespace {

const std::shared_ptr<Workspace::State>& defaultSession()
{
    static const auto session = std::make_shared<Workspace::State>();
    return session;
}

} // namespace

Ref<Workspace> DBEngine::Workspaces(int number)
{
    if (number != 0)
        raiseEngineError(errNoSuchItem);
    return Ref(std::make_shared<Workspace>(defaultSession()));
}

Ref<Database> DBEngine::OpenDatabase(const std::string& name, bool, bool readOnly)
{
    return Ref(
        std::make_shared<Database>(std::make_shared<Database::State>(name, readOnly, defaultSession())));
}

void DBEngine::CompactDatabase(const std::string& source, const std::string& destination)
{
    compactDatabaseFile(source, destination);
}

} // namespace dao
