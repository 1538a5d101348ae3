#include "dao/databaseState.h"
#include "dao/engineError.h"
#include "platform/ansiText.h"

#include <algorithm>
#include <utility>

namespace dao {

namespace {

// Statistics are renewed when this many rows have come in, and then each time there are four times as many:
// early, because the first notices decide nothing, and seldom, because a few looks are enough.
constexpr std::int64_t firstStatistics = 2'000;
constexpr std::int64_t statisticsFactor = 4;

// A column's declared type in the schema: INTEGER, SMALLINT, DOUBLE, TEXT.
DataType declaredType(const char* declaration)
{
    const std::string_view name = declaration != nullptr ? declaration : "";
    if (platform::equalNoCase(name, "INTEGER"))
        return DataType::dbLong;
    if (platform::equalNoCase(name, "SMALLINT"))
        return DataType::dbInteger;
    if (platform::equalNoCase(name, "DOUBLE"))
        return DataType::dbDouble;
    return DataType::dbText;
}

std::vector<Column> columnsOf(sqlite3_stmt* statement, bool withIdentity)
{
    std::vector<Column> columns;
    const int count = sqlite3_column_count(statement) - (withIdentity ? 1 : 0);
    columns.reserve(static_cast<std::size_t>(count));
    for (int column = 0; column < count; ++column)
        columns.push_back({sqlite3_column_name(statement, column),
                           declaredType(sqlite3_column_decltype(statement, column))});
    return columns;
}

std::string quotedName(std::string_view name)
{
    std::string quoted = "\"";
    for (const char sign : name) {
        quoted += sign;
        if (sign == '"')
            quoted += sign;
    }
    return quoted + '"';
}

std::string insertText(const TableInfo& table)
{
    std::string names;
    std::string marks;
    for (const auto& column : table.columns) {
        names += (names.empty() ? "" : ", ") + quotedName(column.name);
        marks += marks.empty() ? "?" : ", ?";
    }
    return "INSERT INTO " + quotedName(table.name) + " (" + names + ") VALUES (" + marks + ")";
}

} // namespace

std::size_t columnPosition(const std::vector<Column>& columns, std::string_view name)
{
    for (std::size_t position = 0; position < columns.size(); ++position) {
        const auto& candidate = columns[position].name;
        if (candidate == name || (candidate.size() == name.size() && platform::equalNoCase(candidate, name)))
            return position;
    }
    raiseEngineError(errNoSuchItem);
}

Database::State::State(std::string databasePath, bool openReadOnly, std::shared_ptr<Workspace::State> session)
    : path(std::move(databasePath)),
      readOnly(openReadOnly),
      m_connection(openConnection(path, openReadOnly)),
      m_workspace(std::move(session))
{
    m_workspace->databases.push_back(this);
}

Database::State::~State()
{
    try {
        close();
    } catch (const platform::RuntimeError&) {
        // What could not be put on the disk is still what the file holds; nobody is left to be told.
        m_connection.reset();
    }
}

sqlite3* Database::State::handle() const
{
    if (!m_connection)
        raiseEngineError(errObjectClosed);
    return m_connection.get();
}

void Database::State::close()
{
    if (!m_connection)
        return;
    m_workspace->databases.remove(this);
    while (!recordsets.empty())
        recordsets.front()->release();
    m_queries.clear();
    m_tables.clear();
    m_writeStatements.clear();
    if (begun)
        rollback();
    const auto connection = std::move(m_connection);
    if (std::exchange(m_bulkLoad, false))
        endBulkLoad(connection.get());
}

CompiledQuery& Database::State::query(std::string_view jetSql)
{
    auto* const connection = handle();
    std::string text(jetSql);
    if (const auto known = m_queries.find(text); known != m_queries.end())
        return known->second;
    CompiledQuery compiled;
    compiled.text = translateQuery(jetSql);
    compiled.idle.push_back(prepare(connection, compiled.text.sql));
    compiled.columns = columnsOf(compiled.idle.back().get(), !compiled.text.table.empty());
    return m_queries.emplace(std::move(text), std::move(compiled)).first->second;
}

Statement Database::State::takeStatement(CompiledQuery& compiled) const
{
    if (compiled.idle.empty())
        return prepare(handle(), compiled.text.sql);
    auto statement = std::move(compiled.idle.back());
    compiled.idle.pop_back();
    return statement;
}

TableInfo& Database::State::table(std::string_view name)
{
    auto* const connection = handle();
    if (const auto known = m_tables.find(name); known != m_tables.end())
        return known->second;
    TableInfo table;
    table.name = name;
    const auto whole = prepare(connection, "SELECT * FROM " + quotedName(name));
    table.columns = columnsOf(whole.get(), false);
    table.insert = prepare(connection, insertText(table));
    return m_tables.emplace(std::string(name), std::move(table)).first->second;
}

sqlite3_stmt* Database::State::writeStatement(const std::string& sql)
{
    auto& statement = m_writeStatements[sql];
    if (!statement)
        statement = prepare(handle(), sql);
    return statement.get();
}

void Database::State::beginWrite()
{
    auto* const connection = handle();
    if (readOnly)
        raiseEngineError(errReadOnly);
    if (doom)
        throw platform::RuntimeError(*doom);
    if (!m_workspace->inTransaction || begun)
        return;
    execute(connection, "BEGIN IMMEDIATE");
    begun = true;
}

void Database::State::runWrite(sqlite3_stmt* statement)
{
    const int result = sqlite3_step(statement);
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    if (result == SQLITE_DONE) {
        ++m_rowsWritten;
        return;
    }
    fail(result);
}

void Database::State::fail(int resultCode)
{
    auto* const connection = handle();
    const auto reason = engineFailure(resultCode, connection, path);
    const int kind = resultCode & 0xff;
    const bool grave = kind == SQLITE_FULL || kind == SQLITE_IOERR || kind == SQLITE_NOMEM;
    // The engine may have ended the transaction by itself: whatever was written from then on would stand
    // alone, half a notice.
    if (begun && (grave || sqlite3_get_autocommit(connection) != 0))
        doom = reason;
    throw platform::RuntimeError(reason);
}

void Database::State::commit()
{
    if (!begun)
        return;
    const int result = sqlite3_exec(handle(), "COMMIT", nullptr, nullptr, nullptr);
    if (result != SQLITE_OK)
        fail(result);
    begun = false;
    if (m_bulkLoad && m_rowsWritten >= m_nextStatistics)
        renewStatistics();
}

void Database::State::rollback()
{
    doom.reset();
    if (!std::exchange(begun, false))
        return;
    // Where the engine has ended the transaction by itself, there is nothing left to roll back.
    if (m_connection && sqlite3_get_autocommit(m_connection.get()) == 0)
        execute(m_connection.get(), "ROLLBACK");
}

void Database::State::beginBulkLoad()
{
    // A commit is a write into the operating system's memory, which outlives the process, and the journal is
    // kept from one transaction to the next instead of being made and removed each time. Where a setting is
    // refused the load is as right without it, only slower.
    sqlite3_exec(handle(),
                 "PRAGMA synchronous=OFF; PRAGMA journal_mode=PERSIST; PRAGMA cache_size=-65536; "
                 "PRAGMA analysis_limit=200",
                 nullptr, nullptr, nullptr);
    m_bulkLoad = true;
    m_nextStatistics = m_rowsWritten + firstStatistics;
}

void Database::State::renewStatistics()
{
    m_nextStatistics = m_rowsWritten * statisticsFactor;
    // The load is as right without fresh statistics, only slower.
    sqlite3_exec(handle(), "ANALYZE", nullptr, nullptr, nullptr);
}

void Database::State::endBulkLoad(sqlite3* connection) const
{
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    const int result = file != nullptr && file->pMethods != nullptr
                           ? file->pMethods->xSync(file, SQLITE_SYNC_NORMAL)
                           : SQLITE_OK;
    if (result != SQLITE_OK)
        throw engineFailure(result, connection, path);
    execute(connection, "PRAGMA journal_mode=DELETE");
}

Database::Database(std::shared_ptr<State> state) : m_state(std::move(state)) {}

Database::~Database() = default;

Ref<QueryDef> Database::CreateQueryDef(std::string_view name, std::string_view sql)
{
    if (!name.empty())
        raiseEngineError(errOperationNotSupported);
    auto state = std::make_unique<QueryDef::State>();
    state->database = m_state;
    state->query = &m_state->query(sql);
    state->values.resize(state->query->text.parameters.size());
    return Ref(std::make_shared<QueryDef>(std::move(state)));
}

Ref<Recordset> Database::OpenRecordset(std::string_view source, RecordsetType type)
{
    if (type == dbOpenDynaset)
        return CreateQueryDef({}, source)->OpenRecordset(type);
    auto& table = m_state->table(source);
    auto& query = m_state->query("SELECT * FROM [" + table.name + "]");
    auto state = std::make_unique<Recordset::State>(m_state, query, std::vector<Value>{});
    state->table = &table;
    return Ref(std::make_shared<Recordset>(std::move(state)));
}

void Database::Close()
{
    static_cast<void>(m_state->handle());
    m_state->close();
}

void Database::beginBulkLoad()
{
    m_state->beginBulkLoad();
}

} // namespace dao
