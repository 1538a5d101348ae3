#include "dao/databaseState.h"
#include "dao/engineError.h"

#include <cassert>

namespace dao {

namespace {

Workspace::State& openSession(const std::shared_ptr<Workspace::State>& state)
{
    if (!state)
        raiseEngineError(errObjectClosed);
    return *state;
}

} // namespace

Workspace::Workspace(std::shared_ptr<State> state) : m_state(std::move(state)) {}

Workspace::~Workspace() = default;

void Workspace::BeginTrans()
{
    auto& session = openSession(m_state);
    assert(!session.inTransaction && "one transaction at a time");
    session.inTransaction = true;
}

void Workspace::CommitTrans()
{
    auto& session = openSession(m_state);
    if (!session.inTransaction)
        raiseEngineError(errNoTransaction);
    for (const auto* database : session.databases) {
        if (database->doom)
            throw platform::RuntimeError(*database->doom);
    }
    for (auto* database : session.databases)
        database->commit();
    session.inTransaction = false;
}

void Workspace::Rollback()
{
    auto& session = openSession(m_state);
    if (!session.inTransaction)
        raiseEngineError(errNoTransaction);
    session.inTransaction = false;
    for (auto* database : session.databases)
        database->rollback();
}

void Workspace::Close()
{
    if (openSession(m_state).inTransaction)
        Rollback();
    m_state.reset();
}

} // namespace dao
