#pragma once

#include "dao/bookkeeping.h"
#include "dao/connection.h"
#include "dao/dao.h"
#include "dao/links.h"
#include "dao/oldFile.h"
#include "dao/sqlTranslator.h"

#include <functional>
#include <list>
#include <map>
#include <optional>
#include <unordered_map>

// What the engine's objects share behind their public faces.
namespace dao {

class RowStore;

struct Column
{
    std::string name;
    ColumnType type;
};

// The position of a column by its name without regard to case; 3265 for an unknown one. The search begins
// behind the column that was found last, for columns are mostly named in their order.
[[nodiscard]] std::size_t columnPosition(const std::vector<Column>& columns, std::string_view name,
                                         std::size_t& lastFound);

// Lets a map be asked with a view, without making a string.
struct TextHash
{
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

// A query by its text, with the statements that are not in use.
struct CompiledQuery
{
    TranslatedQuery text;
    std::vector<Column> columns; // those asked for, without the identity of the row before them
    std::vector<Statement> idle;
};

// A table of the file as it is appended to.
struct TableInfo
{
    std::string name;
    std::vector<Column> columns;
    CompiledQuery* rows = nullptr; // all of them
    // Prepared when first needed.
    Statement insertion;                            // of all columns, in order
    std::map<std::vector<bool>, Statement> updates; // by the columns that they set
    Statement deletion;
};

struct Workspace::State
{
    bool inTransaction = false;
    std::list<Database::State*> databases; // the open ones
};

struct Database::State
{
    State(std::string databasePath, bool openReadOnly, std::shared_ptr<Workspace::State> session);
    ~State();
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    void ensureOpen() const; // 3420 once closed
    // Ready for queries; the content of old files is read for it when it was not yet. 3420 once closed.
    [[nodiscard]] sqlite3* handle();
    void close();

    // Statements, kept by their text.
    CompiledQuery& query(std::string_view jetSql);
    [[nodiscard]] Statement takeStatement(CompiledQuery& compiled);
    TableInfo& table(std::string_view name);
    // Must be called before each write, and before a row is read that is going to be written. No statement
    // that was prepared before can be used afterwards, but for that of an open recordset.
    void beginWrite();
    // Runs a statement that writes one row, and clears it.
    void runWrite(sqlite3_stmt* statement);
    // Throws the engine's failure. One that stands for a full disk, an I/O error or lack of memory, or that
    // ended the transaction, dooms what has begun.
    [[noreturn]] void fail(int resultCode);

    // The part of this file in the workspace's transaction.
    void commit();
    void rollback();

    // Definitions, as the file tells them without its rows.
    [[nodiscard]] std::optional<std::string> findTable(std::string_view name) const;
    [[nodiscard]] std::vector<Index> indexesOf(const std::string& table) const;
    // 3027 for an old file.
    void requireOwnFile() const;
    // Runs a change of the table's definition, which gets a new date, in a transaction of its own: no
    // Rollback of a workspace takes it back, and 3218 while one has begun on this file.
    void changeDefinition(const std::string& table, const std::function<void(sqlite3*)>& change);
    // The date of the file itself for a table that the file has no record of.
    [[nodiscard]] platform::LocalTime lastUpdated(ObjectKind kind, const std::string& name);

    void beginBulkLoad(const std::vector<std::string>& tablesToAnalyse);
    void requireSound();
    bool beginReading();
    void endReading() noexcept;

    std::string path;
    bool readOnly;
    bool begun = false;                         // the transaction has begun on this file
    std::optional<platform::RuntimeError> doom; // why it can no longer be committed
    std::vector<Recordset::State*> recordsets;  // the open ones
    LinkedTables links;

private:
    void openOwnFile(const std::string& file);
    void openOldFile();
    [[nodiscard]] bool isFileWaiting() const;
    [[nodiscard]] std::vector<std::string> waitingContents() const;
    void openNextFile(const std::string& content);
    void openWaitingFiles();
    // From an old file to its corrections: those that somebody else has begun, or new ones.
    void followCorrection();
    void beginCorrection();
    void goOnIn(const std::string& correction);
    // The result code of the engine.
    int beginTransaction();
    // A statement without parameters and rows, kept in `kept`.
    int runKept(Statement& kept, const char* sql);
    void takeLoadLock();
    void releaseLoadLock();
    void renewStatistics();
    void endBulkLoad(sqlite3* connection) const;

    bool m_open = false;
    std::unique_ptr<OldFile> m_old; // until it is corrected
    // The connection stands before the statements: those must go first. Of an old file it is that of its
    // content, once this is asked for.
    Connection m_connection;
    std::vector<LinkedFile> m_linkedFiles;
    std::size_t m_openLinkedFiles = 0; // the first ones of them
    std::shared_ptr<Workspace::State> m_workspace;
    std::unordered_map<std::string, CompiledQuery, TextHash, std::equal_to<>> m_queries;
    std::map<std::string, TableInfo, std::less<>> m_tables;
    Statement m_begin, m_writeLock, m_commit, m_loadLock;
    std::string m_analysis;                        // what renews the statistics
    std::optional<platform::LocalTime> m_fileTime; // once asked for
    bool m_bulkLoad = false;
    bool m_reading = false;
    std::int64_t m_rowsWritten = 0;
    std::int64_t m_nextStatistics = 0;
};

struct Recordset::State
{
    enum class Editing : std::uint8_t
    {
        None,
        Adding,
        Changing
    };

    // A query's rows, or a whole table's when `table` is given.
    State(std::shared_ptr<Database::State> owner, CompiledQuery& compiledQuery,
          std::vector<Value> parameterValues);
    ~State();
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    void release(); // nothing can be done with it afterwards
    void ensureOpen() const;

    void start(); // to the first row
    void goOn();  // to the next row, without a check
    void ensureStarted();
    void readAll(); // into memory; when they stood there already, nothing moves
    void readAllAndStay();
    void leaveConnection(); // with its rows in memory
    void requireRow();
    [[nodiscard]] Value current(std::size_t column) const;
    [[nodiscard]] std::int64_t rowIdentity();
    void beginChange();
    void writeChange();
    void writeAddition();

    std::shared_ptr<Database::State> database;
    CompiledQuery* query;
    std::vector<Value> parameters;
    TableInfo* table = nullptr;           // found when first needed; null for a result that can't be written
    Statement statement;                  // out of the query's while rows are being stepped
    std::shared_ptr<const RowStore> rows; // those in memory
    bool started = false, atEnd = false, deleted = false;
    std::size_t row = 0;      // number of the current row, from 0
    std::int32_t visited = 0; // rows
    bool noMatch = false;     // of the last FindFirst
    Editing editing = Editing::None;
    std::vector<std::optional<Value>> buffer;   // of the table's columns; nothing where it was not assigned
    std::size_t lastRead = 0, lastAssigned = 0; // columns
};

struct RowSnapshot::State
{
    std::shared_ptr<const RowStore> rows;
    std::vector<Column> columns;
};

struct QueryDef::State
{
    std::shared_ptr<Database::State> database;
    CompiledQuery* query = nullptr;
    std::vector<std::optional<Value>> values;
};

} // namespace dao
