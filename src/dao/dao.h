#pragma once

#include "dao/value.h"
#include "platform/runtimeError.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The file-database engine under its DAO names: DBEngine, Workspace, Database, QueryDef, Recordset. Every
// failure is a platform::RuntimeError with the engine's number and text. One thread.
namespace dao {

class Database;
class QueryDef;
class Recordset;
class RowSnapshot;
class Workspace;

// An object variable: unset at first, and using it unset is failure 91. Copies refer to one object.
template <class T>
class Ref
{
public:
    Ref() = default;
    explicit Ref(std::shared_ptr<T> object) : m_object(std::move(object)) {}

    [[nodiscard]] T* operator->() const
    {
        if (!m_object)
            platform::raise(platform::errObjectNotSet);
        return m_object.get();
    }
    [[nodiscard]] T& operator*() const { return *operator->(); }
    [[nodiscard]] explicit operator bool() const { return m_object != nullptr; }
    void reset() { m_object.reset(); }

private:
    std::shared_ptr<T> m_object;
};

enum RecordsetType : int
{
    dbOpenTable = 1,
    dbOpenDynaset = 2
};
enum UpdateType : int
{
    dbUpdateRegular = 1
};

class DBEngine
{
public:
    // The default session, in which transactions run; 0 is the one number.
    [[nodiscard]] static Ref<Workspace> Workspaces(int number);

    // Opens a database file of this engine, shared. Throws 3024 without the file, 3343 for another kind of
    // file, 3049 for a damaged one, 3051 without permission.
    [[nodiscard]] static Ref<Database> OpenDatabase(const std::string& name, bool options, bool readOnly);
};

// A session: one transaction over all writes of its databases. A transaction begins on a database with the
// first write there. After an engine error that ended it (disk full, I/O, memory) it is doomed: every further
// write and CommitTrans fail until Rollback.
class Workspace
{
public:
    struct State;
    explicit Workspace(std::shared_ptr<State> state);
    ~Workspace();
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    void BeginTrans();
    // 3034 without BeginTrans.
    void CommitTrans();
    void Rollback();
    // Rolls back what is pending. The default session can be asked for again.
    void Close();

private:
    std::shared_ptr<State> m_state;
};

// A temporary query from a text with or without a PARAMETERS clause. Names are not case-sensitive.
class QueryDef
{
public:
    class Parameter
    {
    public:
        // Converted to the declared type; 3421 when that can't be done.
        void setValue(const Value& value);

    private:
        friend class QueryDef;
        Parameter(QueryDef& query, std::size_t index) : m_query(query), m_index(index) {}
        QueryDef& m_query;
        std::size_t m_index;
    };

    // 3265 for a name that is not declared.
    [[nodiscard]] Parameter Parameters(std::string_view name);
    // Steps to the first row.
    [[nodiscard]] Ref<Recordset> OpenRecordset(RecordsetType type);

    struct State;
    explicit QueryDef(std::unique_ptr<State> state);
    ~QueryDef();
    QueryDef(const QueryDef&) = delete;
    QueryDef& operator=(const QueryDef&) = delete;

private:
    std::unique_ptr<State> m_state;
};

// A database file in use. Its statements are kept by their text while it is open.
class Database
{
public:
    // The name is empty: a query is never stored in the file.
    [[nodiscard]] Ref<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql);
    // dbOpenTable: the whole table by its name, 3078 without it. dbOpenDynaset: a query without parameters.
    [[nodiscard]] Ref<Recordset> OpenRecordset(std::string_view source, RecordsetType type);

    // Releases every recordset still open and the file. Using the database afterwards is failure 3420.
    void Close();

    // For the filling of a fresh database: until Close a commit survives the death of the process but need
    // not have reached the disk, and the engine's statistics of the tables are renewed as rows come in. Close
    // puts everything on the disk and leaves one single file.
    void beginBulkLoad(const std::vector<std::string>& tablesToAnalyse);

    // A quick check of the whole file: 3049 when it is damaged; what keeps the check from running, as itself.
    void requireSound();

    // From now until endReading all that is read is one state of the file, which nobody else can change
    // meanwhile. False, and nothing to end, when that holds already.
    bool beginReading();
    void endReading() noexcept;

    struct State;
    explicit Database(std::shared_ptr<State> state);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

private:
    std::shared_ptr<State> m_state;
};

// Many queries that read one state of the file, under one lock instead of one each. Where it can't be had,
// the queries themselves tell why.
class ReadScope
{
public:
    explicit ReadScope(const Ref<Database>& database)
        : m_database(database), m_begun(database && database->beginReading())
    {}
    ~ReadScope()
    {
        if (m_begun)
            m_database->endReading();
    }
    ReadScope(const ReadScope&) = delete;
    ReadScope& operator=(const ReadScope&) = delete;

private:
    Ref<Database> m_database;
    bool m_begun;
};

// The rows of a result in compact memory; they outlive the result.
class RowSnapshot
{
public:
    [[nodiscard]] std::size_t rowCount() const;
    [[nodiscard]] std::size_t columnCount() const;
    [[nodiscard]] const std::string& fieldName(std::size_t column) const;
    [[nodiscard]] DataType fieldType(std::size_t column) const;
    [[nodiscard]] Value value(std::size_t row, std::size_t column) const;

    struct State;
    explicit RowSnapshot(std::unique_ptr<State> state);
    ~RowSnapshot();
    RowSnapshot(const RowSnapshot&) = delete;
    RowSnapshot& operator=(const RowSnapshot&) = delete;

private:
    std::unique_ptr<State> m_state;
};

// A result with a current row. Rows of a query without ORDER BY come in the order of insertion. A dynaset of
// one table and a table can be written; 3027 otherwise. A walk survives the deletion of its own row.
class Recordset
{
public:
    [[nodiscard]] bool EOF_();
    // Rows visited so far: 0 on an empty result, at least 1 right after opening any other.
    [[nodiscard]] std::int32_t RecordCount();
    // All three: 3021 without a row to go to or from.
    void MoveNext();
    void MoveFirst();
    void MoveLast();

    // Goes to the first row that meets a criterion of the form "column = number", among all rows as they are
    // read into memory. Without such a row NoMatch is true and the row stays. Null and text are no number.
    // 3070 for an unknown column, 3077 for another form.
    void FindFirst(std::string_view criterion);
    [[nodiscard]] bool NoMatch() const; // of the last FindFirst
    // Number of the current row, from 0; -1 without one.
    [[nodiscard]] std::int32_t AbsolutePosition();

    // All rows of the result, for somebody who looks at them in any order and after Close; shared, not
    // copied. Reads them whole into memory and ends the statement, as MoveLast does; the current row and
    // RecordCount stay. To be taken before any row is deleted through this recordset.
    [[nodiscard]] std::shared_ptr<const RowSnapshot> snapshot();

    // A column of the current row, or of the row being edited or added: 3265 for an unknown name, 3021
    // without a current row.
    [[nodiscard]] Value Fields(std::string_view name);
    [[nodiscard]] Value Fields(std::size_t position);
    [[nodiscard]] std::vector<std::string> fieldNames() const;

    // Sets a column of the row being edited or added: 3020 without Edit or AddNew, 3265 for an unknown name,
    // 3421 for a value that can't be converted.
    void setCollect(std::string_view name, Value value);

    void AddNew();
    void Edit();
    void Update(UpdateType type, bool force);
    void Delete();
    void Close();

    struct State;
    explicit Recordset(std::unique_ptr<State> state);
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

private:
    std::unique_ptr<State> m_state;
};

} // namespace dao
