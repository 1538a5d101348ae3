#include "dao/columnTypes.h"
#include "dao/databaseState.h"
#include "dao/engineError.h"
#include "dao/jetCorrections.h"
#include "platform/ansiText.h"
#include "platform/paths.h"

#include <algorithm>
#include <cassert>
#include <chrono>
#include <filesystem>
#include <utility>

namespace dao {

namespace {

// Statistics are renewed when this many rows have come in, and then each time there are four times as many:
// early, because the first notices decide nothing, and seldom, because a few looks are enough.
constexpr std::int64_t firstStatistics = 2'000;
constexpr std::int64_t statisticsFactor = 4;

std::vector<Column> columnsOf(sqlite3_stmt* statement, bool withIdentity)
{
    std::vector<Column> columns;
    const int count = sqlite3_column_count(statement);
    columns.reserve(static_cast<std::size_t>(count));
    for (int column = withIdentity ? 1 : 0; column < count; ++column)
        columns.push_back({sqlite3_column_name(statement, column),
                           columnTypeOf(sqlite3_column_decltype(statement, column))});
    return columns;
}

// Names of columns; the first look spares most comparisons.
bool isSameName(std::string_view candidate, std::string_view name)
{
    constexpr char caseBit = 0x20;
    return candidate.size() == name.size() && !name.empty() &&
           (candidate.front() | caseBit) == (name.front() | caseBit) &&
           (candidate == name || platform::equalNoCase(candidate, name));
}

} // namespace

std::size_t columnPosition(const std::vector<Column>& columns, std::string_view name, std::size_t& lastFound)
{
    auto position = lastFound;
    for (std::size_t looked = 0; looked < columns.size(); ++looked) {
        position = position + 1 < columns.size() ? position + 1 : 0;
        if (isSameName(columns[position].name, name))
            return lastFound = position;
    }
    raiseEngineError(errNoSuchItem);
}

Database::State::State(std::string databasePath, bool openReadOnly, std::shared_ptr<Workspace::State> session)
    : path(std::move(databasePath)), readOnly(openReadOnly), m_workspace(std::move(session))
{
    if (const auto correction = correctionOf(path); !correction.empty())
        openOwnFile(correction);
    else if (OldFile::isAt(path))
        openOldFile();
    else
        openOwnFile(path);
    m_workspace->databases.push_back(this);
    m_open = true;
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

void Database::State::ensureOpen() const
{
    if (!m_open)
        raiseEngineError(errObjectClosed);
}

void Database::State::close()
{
    if (!std::exchange(m_open, false))
        return;
    m_workspace->databases.remove(this);
    while (!recordsets.empty())
        recordsets.back()->release();
    m_tables.clear();
    m_queries.clear();
    m_loadLock.reset();
    if (begun)
        rollback();
    if (m_reading)
        endReading();
    m_begin.reset();
    m_writeLock.reset();
    m_commit.reset();
    const auto connection = std::move(m_connection);
    if (std::exchange(m_bulkLoad, false))
        endBulkLoad(connection.get());
}

CompiledQuery& Database::State::query(std::string_view jetSql)
{
    followCorrection();
    auto* const connection = handle();
    if (const auto known = m_queries.find(jetSql); known != m_queries.end())
        return known->second;
    CompiledQuery compiled;
    compiled.text = translateQuery(jetSql, links);
    compiled.idle.push_back(prepare(connection, compiled.text.sql));
    compiled.columns = columnsOf(compiled.idle.back().get(), compiled.text.hasIdentity());
    return m_queries.emplace(std::string(jetSql), std::move(compiled)).first->second;
}

Statement Database::State::takeStatement(CompiledQuery& compiled)
{
    if (compiled.idle.empty())
        return prepare(handle(), compiled.text.sql);
    auto statement = std::move(compiled.idle.back());
    compiled.idle.pop_back();
    return statement;
}

TableInfo& Database::State::table(std::string_view name)
{
    ensureOpen();
    if (const auto known = m_tables.find(name); known != m_tables.end())
        return known->second;
    if (findLink(links, name) != nullptr)
        raiseEngineError(errInvalidOperation);
    if (isReservedName(name))
        raiseEngineError(errNoSuchTable, name);
    TableInfo table;
    table.name = name;
    table.rows = &query("SELECT * FROM [" + table.name + "]");
    table.columns = table.rows->columns;
    return m_tables.emplace(std::string(name), std::move(table)).first->second;
}

int Database::State::runKept(Statement& kept, const char* sql)
{
    if (!kept)
        kept = prepare(handle(), sql);
    const int result = sqlite3_step(kept.get());
    sqlite3_reset(kept.get());
    return result == SQLITE_DONE ? SQLITE_OK : result;
}

// The right to write, at once. Where other files are open beneath the same connection, the plain statement
// would lock them too, and no one else could write them.
int Database::State::beginTransaction()
{
    if (links.empty())
        return runKept(m_begin, "BEGIN IMMEDIATE");
    int result = runKept(m_begin, "BEGIN");
    if (result != SQLITE_OK)
        return result;
    result = runKept(m_writeLock, takeWriteLock);
    if (result != SQLITE_OK)
        sqlite3_exec(handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    return result;
}

void Database::State::beginWrite()
{
    ensureOpen();
    if (readOnly)
        raiseEngineError(errReadOnly);
    if (doom)
        throw platform::RuntimeError(*doom);
    assert(!m_reading && "nothing is written under a reading scope");
    if (m_old)
        beginCorrection();
    if (!m_workspace->inTransaction || begun)
        return;
    static_cast<void>(handle()); // files that wait are opened before the transaction
    const int result = beginTransaction();
    if (result != SQLITE_OK)
        fail(result);
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
    const int result = runKept(m_commit, "COMMIT");
    if (result != SQLITE_OK)
        fail(result);
    begun = false;
    if (m_bulkLoad && m_rowsWritten >= m_nextStatistics)
        renewStatistics();
}

void Database::State::rollback()
{
    doom.reset();
    const bool wasBegun = std::exchange(begun, false);
    releaseLoadLock();
    // Where the engine has ended the transaction by itself, there is nothing left to roll back.
    if (wasBegun && sqlite3_get_autocommit(m_connection.get()) == 0)
        execute(m_connection.get(), "ROLLBACK");
    takeLoadLock();
}

void Database::State::changeDefinition(const std::string& table, const std::function<void(sqlite3*)>& change)
{
    requireOwnFile();
    auto* const connection = m_connection.get();
    if (sqlite3_get_autocommit(connection) == 0)
        raiseEngineError(errLocked, path);
    int result = beginTransaction();
    if (result != SQLITE_OK)
        fail(result);
    try {
        change(connection);
        noteTableChange(connection, table);
        result = runKept(m_commit, "COMMIT");
        if (result != SQLITE_OK)
            fail(result);
    } catch (const platform::RuntimeError&) {
        // Where the engine has ended the transaction by itself, nothing is left to roll back.
        sqlite3_exec(connection, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

platform::LocalTime Database::State::lastUpdated(ObjectKind kind, const std::string& name)
{
    ensureOpen();
    if (m_old)
        return m_old->lastUpdated(kind, name);
    if (const auto noted = lastChangeOf(m_connection.get(), kind, name))
        return *noted;
    if (!m_fileTime) {
        std::error_code failure;
        const auto time = std::filesystem::last_write_time(platform::hostPath(path), failure);
        if (failure)
            raiseEngineError(errFileMissing, path);
        m_fileTime = platform::localTime(std::chrono::time_point_cast<std::chrono::system_clock::duration>(
            std::chrono::file_clock::to_sys(time)));
    }
    return *m_fileTime;
}

void Database::State::takeLoadLock()
{
    if (m_loadLock)
        sqlite3_step(m_loadLock.get());
}

// After a grave error the engine recovers the file when its last reader has gone.
void Database::State::releaseLoadLock()
{
    if (m_loadLock)
        sqlite3_reset(m_loadLock.get());
}

void Database::State::beginBulkLoad(const std::vector<std::string>& tablesToAnalyse)
{
    ensureOpen();
    try {
        if (m_old)
            beginWrite();
        openWaitingFiles();
    } catch (const platform::RuntimeError&) {
        return; // each write tells why it can't be done
    }
    // A commit is a write into the operating system's memory, which outlives the process, and the journal is
    // kept from one transaction to the next instead of being made and removed each time. Where a setting is
    // refused the load is as right without it, only slower.
    sqlite3_exec(handle(),
                 "PRAGMA synchronous=OFF; PRAGMA journal_mode=PERSIST; PRAGMA cache_size=-262144; "
                 "PRAGMA analysis_limit=1000",
                 nullptr, nullptr, nullptr);
    m_bulkLoad = true;
    for (const auto& table : tablesToAnalyse)
        m_analysis += "ANALYZE main.[" + table + "];";
    m_nextStatistics = m_rowsWritten + firstStatistics;
    // A query that is never finished keeps the lock of a reader between two transactions: the journal stays
    // open, and nobody can put another file's content in the place of this one half way.
    try {
        m_loadLock = prepare(handle(), "SELECT 1 FROM sqlite_schema");
    } catch (const platform::RuntimeError&) {
        return; // without it the load is slower, and as right
    }
    takeLoadLock();
}

void Database::State::requireSound()
{
    ensureOpen();
    if (m_old)
        return; // its content is checked as it is read
    const auto check = prepare(handle(), "PRAGMA main.quick_check(1)");
    const int result = sqlite3_step(check.get());
    if (result != SQLITE_ROW)
        throw engineFailure(result, handle(), path);
    const auto* verdict =
        static_cast<const char*>(static_cast<const void*>(sqlite3_column_text(check.get(), 0)));
    if (verdict == nullptr || std::string_view(verdict) != "ok")
        raiseEngineError(errDamaged, path);
}

bool Database::State::beginReading()
{
    // Nobody changes what was read of an old file.
    if (m_old || !m_connection || sqlite3_get_autocommit(m_connection.get()) == 0)
        return false;
    try {
        openWaitingFiles();
    } catch (const platform::RuntimeError&) {
        return false; // the queries tell
    }
    m_reading = sqlite3_exec(m_connection.get(), "BEGIN", nullptr, nullptr, nullptr) == SQLITE_OK;
    return m_reading;
}

void Database::State::endReading() noexcept
{
    m_reading = false;
    if (m_connection && sqlite3_get_autocommit(m_connection.get()) == 0)
        sqlite3_exec(m_connection.get(), "COMMIT", nullptr, nullptr, nullptr);
}

void Database::State::renewStatistics()
{
    m_nextStatistics = m_rowsWritten * statisticsFactor;
    // The load is as right without fresh statistics, only slower.
    if (sqlite3_exec(handle(), m_analysis.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK)
        return;
    releaseLoadLock();
    takeLoadLock();
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
    auto state = std::make_unique<Recordset::State>(m_state, *table.rows, std::vector<Value>{});
    state->table = &table;
    return Ref(std::make_shared<Recordset>(std::move(state)));
}

void Database::Close()
{
    m_state->ensureOpen();
    m_state->close();
}

void Database::beginBulkLoad(const std::vector<std::string>& tablesToAnalyse)
{
    m_state->beginBulkLoad(tablesToAnalyse);
}

void Database::requireSound()
{
    m_state->requireSound();
}

bool Database::beginReading()
{
    return m_state->beginReading();
}

void Database::endReading() noexcept
{
    m_state->endReading();
}

} // namespace dao
