#include "dao/bookkeeping.h"
#include "dao/databaseState.h"
#include "dao/definitions.h"
#include "dao/engineError.h"
#include "platform/ansiText.h"

namespace dao {

struct TableDef::State
{
    State(std::shared_ptr<Database::State> owner, ObjectKind objectKind, std::string tableName)
        : database(std::move(owner)), kind(objectKind), name(std::move(tableName))
    {}

    std::shared_ptr<Database::State> database;
    ObjectKind kind;
    std::string name;
    std::optional<dao::Indexes> indexes; // looked up when first needed
};

namespace {

const TableDef::State& changeable(const TableDef::State& table)
{
    table.database->requireOwnFile();
    if (table.database->readOnly)
        raiseEngineError(errReadOnly);
    if (table.kind == ObjectKind::Link)
        raiseEngineError(errOperationNotSupported); // the definition belongs to the other file
    return table;
}

} // namespace

TableDef::TableDef(std::unique_ptr<State> state) : m_state(std::move(state)) {}

TableDef::~TableDef() = default;

const std::string& TableDef::Name() const
{
    m_state->database->ensureOpen();
    return m_state->name;
}

Ref<Index> TableDef::CreateIndex(std::string_view name)
{
    return Ref(std::make_shared<Index>(std::string(name)));
}

Indexes& TableDef::Indexes()
{
    m_state->database->ensureOpen();
    if (!m_state->indexes) {
        m_state->indexes.emplace(dao::Indexes(*this));
        m_state->indexes->Refresh();
    }
    return *m_state->indexes;
}

platform::LocalTime TableDef::LastUpdated() const
{
    return m_state->database->lastUpdated(m_state->kind, m_state->name);
}

void Indexes::Append(const Ref<Index>& index)
{
    const auto& table = changeable(*m_table.m_state);
    table.database->changeDefinition(
        table.name, [&](sqlite3* connection) { createIndex(connection, table.name, *index); });
    Refresh();
}

void Indexes::Delete(std::string_view name)
{
    const auto& table = changeable(*m_table.m_state);
    table.database->changeDefinition(table.name,
                                     [&](sqlite3* connection) { dropIndex(connection, table.name, name); });
    Refresh();
}

void Indexes::Refresh()
{
    const auto& table = *m_table.m_state;
    table.database->ensureOpen();
    if (table.kind == ObjectKind::Table)
        m_indexes = table.database->indexesOf(table.name);
}

Ref<TableDef> Database::TableDefs(std::string_view name)
{
    std::unique_ptr<TableDef::State> table;
    if (auto found = m_state->findTable(name))
        table = std::make_unique<TableDef::State>(m_state, ObjectKind::Table, std::move(*found));
    else if (const auto* link = findLink(m_state->links, name))
        table = std::make_unique<TableDef::State>(m_state, ObjectKind::Link, link->name);
    else
        raiseEngineError(errNoSuchItem);
    return Ref(std::make_shared<TableDef>(std::move(table)));
}

} // namespace dao
