#pragma once

#include "dao/value.h"
#include "platform/hostFormat.h"
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
class Index;
class QueryDef;
class Recordset;
class RowSnapshot;
class TableDef;
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

    // Opens a database file, shared, and with it the files that its links lead to; these are looked for in
    // the folder of the linking file first, whatever the case of their names. It is a file of this engine or
    // one of the original engine, versions 3 and 4. The latter is never written: its definitions are read
    // from it at once, its rows with the first query, into a cache of the user; the first write makes a file
    // of this engine beside it, "NAME.mdb.corrected", which is what is read and written under the old path
    // from then on. Throws 3024 without a file, 3043 and 3051 where it can't be read, 3049 for a damaged one,
    // 3078 without the table of a link, 3197 for an old file that was changed after it was corrected, 3343
    // for another kind of file. The first query can fail with 3026 when there is no room for the cache, 3045
    // when the old file keeps changing; the first write with 3026, 3027 where no file can be made beside the
    // old one, 3045 when that has changed.
    [[nodiscard]] static Ref<Database> OpenDatabase(const std::string& name, bool options, bool readOnly);

    // Makes a file of this engine with the content of any file that can be opened. 3204 when the destination
    // is there already, 3026 when the disk is full, 3027 where it can't be written; nothing half made is
    // left.
    static void CompactDatabase(const std::string& source, const std::string& destination);
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

// A column as an index names it.
class Field
{
public:
    explicit Field(std::string name) : m_name(std::move(name)) {}
    [[nodiscard]] const std::string& Name() const { return m_name; }

private:
    std::string m_name;
};

// The columns of an index, in the order of the key, ascending.
class IndexFields
{
public:
    void Append(Field field) { m_fields.push_back(std::move(field)); }
    [[nodiscard]] auto begin() const { return m_fields.begin(); }
    [[nodiscard]] auto end() const { return m_fields.end(); }
    [[nodiscard]] std::size_t Count() const { return m_fields.size(); }

private:
    std::vector<Field> m_fields;
};

// An index, neither primary nor unique when it is made here. It is in the file once it is appended.
class Index
{
public:
    explicit Index(std::string name) : m_name(std::move(name)) {}
    [[nodiscard]] const std::string& Name() const { return m_name; }
    [[nodiscard]] static Field CreateField(std::string_view name) { return Field(std::string(name)); }
    [[nodiscard]] IndexFields& Fields() { return m_fields; }
    [[nodiscard]] const IndexFields& Fields() const { return m_fields; }

private:
    std::string m_name;
    IndexFields m_fields;
};

// The indexes of a table, as they stood in the file when they were last looked up; in the order of their
// names. Names are not case-sensitive.
class Indexes
{
public:
    [[nodiscard]] auto begin() const { return m_indexes.begin(); }
    [[nodiscard]] auto end() const { return m_indexes.end(); }
    [[nodiscard]] std::size_t Count() const { return m_indexes.size(); }

    // Makes the index in the file: 3264 without a field, 3409 for a field that the table has not, 3284 for a
    // name that is taken, 3027 on a database that is open for reading.
    void Append(const Ref<Index>& index);
    // 3265 without an index of that name, 3027 on a database that is open for reading.
    void Delete(std::string_view name);
    // Looks the indexes up again.
    void Refresh();

private:
    friend class TableDef;
    explicit Indexes(TableDef& table) : m_table(table) {}
    TableDef& m_table;
    std::vector<Index> m_indexes;
};

// The definition of a table of the file. Using it after its database was closed is failure 3420.
class TableDef
{
public:
    [[nodiscard]] const std::string& Name() const;
    [[nodiscard]] static Ref<Index> CreateIndex(std::string_view name);
    [[nodiscard]] dao::Indexes& Indexes();
    // When the definition was last changed, its indexes included; data does not count.
    [[nodiscard]] platform::LocalTime LastUpdated() const;

    struct State;
    explicit TableDef(std::unique_ptr<State> state);
    ~TableDef();
    TableDef(const TableDef&) = delete;
    TableDef& operator=(const TableDef&) = delete;

private:
    friend class dao::Indexes;
    std::unique_ptr<State> m_state;
};

// A database file in use. Its statements are kept by their text while it is open.
class Database
{
public:
    // The name is empty: a query is never stored in the file.
    [[nodiscard]] Ref<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql);
    // dbOpenTable: the whole table by its name, 3078 without it, 3219 for a link to a table of another file.
    // dbOpenDynaset: a query without parameters.
    [[nodiscard]] Ref<Recordset> OpenRecordset(std::string_view source, RecordsetType type);

    // A table of the file by its name: 3265 without it.
    [[nodiscard]] Ref<TableDef> TableDefs(std::string_view name);

    // Releases every recordset still open and the file. Using the database afterwards is failure 3420.
    void Close();

    // For the filling of a fresh database: until Close a commit survives the death of the process but need
    // not have reached the disk, and the engine's statistics of the tables are renewed as rows come in. Close
    // puts everything on the disk and leaves one single file. Where nothing can be written nothing changes:
    // the writes tell.
    void beginBulkLoad(const std::vector<std::string>& tablesToAnalyse);

    // A quick check of the whole file: 3049 when it is damaged; what keeps the check from running, as itself.
    // An old file is checked as its rows are read.
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
