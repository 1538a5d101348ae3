#include "dao/databaseState.h"
#include "dao/engineError.h"
#include "dao/rowStore.h"
#include "dao/valueForms.h"
#include "platform/ansiText.h"
#include "platform/numberText.h"

#include <algorithm>
#include <cctype>

namespace dao {

namespace {

// The caller's value must outlive the step.
void bind(Database::State& database, sqlite3_stmt* statement, int place, const Value& value)
{
    const int result = std::visit(
        [statement, place](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, NullValue>)
                return sqlite3_bind_null(statement, place);
            else if constexpr (std::is_same_v<Held, double>)
                return sqlite3_bind_double(statement, place, held);
            else if constexpr (std::is_same_v<Held, std::string>)
                return sqlite3_bind_text64(statement, place, held.data(), held.size(), SQLITE_STATIC,
                                           SQLITE_UTF8);
            else
                return sqlite3_bind_int(statement, place, held);
        },
        value.variant());
    if (result == SQLITE_OK)
        return;
    // A text too long for the engine: nothing of the row may stay bound.
    sqlite3_clear_bindings(statement);
    database.fail(result);
}

// As a column of the type holds it: a Boolean that nobody has assigned is not Null.
void bindColumn(Database::State& database, sqlite3_stmt* statement, int place, const Column& column,
                const std::optional<Value>& value)
{
    if (!value) {
        if (column.type.type == DataType::dbBoolean)
            bindText(statement, place, "FALSE");
        return;
    }
    if (column.type.type != DataType::dbBinary || value->isNull()) {
        bind(database, statement, place, *value);
        return;
    }
    const auto bytes = bytesOfHex(value->text()).value_or("");
    if (sqlite3_bind_blob64(statement, place, bytes.data(), bytes.size(), SQLITE_TRANSIENT) != SQLITE_OK)
        raiseEngineError(errResources);
}

sqlite3_stmt* insertionOf(TableInfo& table, sqlite3* connection)
{
    if (!table.insertion) {
        std::string names;
        std::string marks;
        for (const auto& column : table.columns) {
            names += (names.empty() ? "" : ", ") + quotedName(column.name);
            marks += marks.empty() ? "?" : ", ?";
        }
        table.insertion = prepare(connection, "INSERT INTO main." + quotedName(table.name) + " (" + names +
                                                  ") VALUES (" + marks + ")");
    }
    return table.insertion.get();
}

// Sets the assigned columns of a row.
sqlite3_stmt* updateOf(TableInfo& table, const std::vector<std::optional<Value>>& buffer, sqlite3* connection)
{
    std::vector<bool> assigned;
    assigned.reserve(buffer.size());
    for (const auto& value : buffer)
        assigned.push_back(value.has_value());
    auto& statement = table.updates[assigned];
    if (!statement) {
        std::string assignments;
        for (std::size_t column = 0; column < assigned.size(); ++column) {
            if (assigned[column])
                assignments +=
                    (assignments.empty() ? "" : ", ") + quotedName(table.columns[column].name) + " = ?";
        }
        statement = prepare(connection, "UPDATE main." + quotedName(table.name) + " SET " + assignments +
                                            " WHERE rowid = ?");
    }
    return statement.get();
}

sqlite3_stmt* deletionOf(TableInfo& table, sqlite3* connection)
{
    if (!table.deletion)
        table.deletion =
            prepare(connection, "DELETE FROM main." + quotedName(table.name) + " WHERE rowid = ?");
    return table.deletion.get();
}

std::vector<DataType> typesOf(const CompiledQuery& query)
{
    std::vector<DataType> types;
    types.reserve(query.columns.size());
    for (const auto& column : query.columns)
        types.push_back(column.type.type);
    return types;
}

struct Criterion
{
    std::size_t column;
    double number;
};

bool isPlainName(std::string_view name)
{
    const auto belongs = [](unsigned char sign) {
        return std::isalnum(sign) != 0 || sign == '_' || sign > 127;
    };
    return !name.empty() && std::all_of(name.begin(), name.end(), belongs);
}

// "column = number": blanks are free, the number may have a sign.
Criterion readCriterion(std::string_view text, const std::vector<Column>& columns)
{
    const auto equal = text.find('=');
    const auto name = platform::trimBlanks(text.substr(0, equal));
    const auto number = equal != std::string_view::npos ? platform::trimBlanks(text.substr(equal + 1)) : "";
    if (!isPlainName(name) || !platform::isNumeric(number))
        raiseEngineError(errCriterion, text);
    for (std::size_t column = 0; column < columns.size(); ++column) {
        if (platform::equalNoCase(columns[column].name, name))
            return {column, platform::readNumber(number)};
    }
    raiseEngineError(errUnknownField, name);
}

// Null and text are no number.
bool isNumber(const Value& value, double number)
{
    return std::visit(
        [number](const auto& held) {
            if constexpr (std::is_arithmetic_v<std::decay_t<decltype(held)>>)
                return static_cast<double>(held) == number;
            else
                return false;
        },
        value.variant());
}

} // namespace

Recordset::State::State(std::shared_ptr<Database::State> owner, CompiledQuery& compiledQuery,
                        std::vector<Value> parameterValues)
    : database(std::move(owner)), query(&compiledQuery), parameters(std::move(parameterValues))
{
    database->recordsets.push_back(this);
}

Recordset::State::~State()
{
    release();
}

void Recordset::State::release()
{
    if (query == nullptr)
        return;
    if (statement) {
        sqlite3_reset(statement.get());
        sqlite3_clear_bindings(statement.get());
        query->idle.push_back(std::move(statement));
    }
    rows.reset();
    // Mostly the one opened last.
    const auto place = std::find(database->recordsets.rbegin(), database->recordsets.rend(), this);
    *place = database->recordsets.back();
    database->recordsets.pop_back();
    query = nullptr;
}

void Recordset::State::ensureOpen() const
{
    if (query == nullptr)
        raiseEngineError(errObjectClosed);
}

void Recordset::State::start()
{
    if (!statement)
        statement = database->takeStatement(*query);
    sqlite3_reset(statement.get());
    for (std::size_t index = 0; index < parameters.size(); ++index)
        bind(*database, statement.get(), static_cast<int>(index) + 1, parameters[index]);
    started = true;
    atEnd = false;
    row = static_cast<std::size_t>(-1);
    goOn();
}

void Recordset::State::goOn()
{
    ++row;
    deleted = false;
    if (rows) {
        atEnd = row >= rows->rows();
    } else {
        const int result = sqlite3_step(statement.get());
        if (result != SQLITE_ROW && result != SQLITE_DONE) {
            atEnd = true;
            sqlite3_reset(statement.get());
            database->fail(result);
        }
        atEnd = result == SQLITE_DONE;
    }
    if (!atEnd)
        visited = std::max(visited, static_cast<std::int32_t>(row) + 1);
}

void Recordset::State::ensureStarted()
{
    ensureOpen();
    if (!started)
        start();
}

void Recordset::State::readAll()
{
    if (rows)
        return;
    if (row != 0 || atEnd)
        start();
    auto store = std::make_shared<RowStore>(typesOf(*query), query->text.hasIdentity());
    for (; !atEnd; goOn())
        store->append(statement.get());
    // The statement is over: it holds no lock on the file while its rows are looked at.
    sqlite3_reset(statement.get());
    rows = std::move(store);
}

// A row is known by its number: none of the rows before it may have been deleted meanwhile.
void Recordset::State::readAllAndStay()
{
    ensureStarted();
    if (rows)
        return;
    const auto stayRow = row;
    const auto stayVisited = visited;
    const bool stayAtEnd = atEnd;
    readAll();
    row = stayRow;
    visited = stayVisited;
    atEnd = stayAtEnd || row >= rows->rows();
}

void Recordset::State::leaveConnection()
{
    if (started)
        readAllAndStay();
    statement.reset();
}

void Recordset::State::requireRow()
{
    ensureStarted();
    if (atEnd)
        raiseEngineError(errNoCurrentRecord);
    if (deleted)
        raiseEngineError(errRecordDeleted);
}

Value Recordset::State::current(std::size_t column) const
{
    if (rows)
        return rows->value(row, column);
    const int place = static_cast<int>(column) + (query->text.hasIdentity() ? 1 : 0);
    return columnValue(statement.get(), place, query->columns[column].type.type);
}

// The beginning of a write may have read the rows again, and fewer of them.
std::int64_t Recordset::State::rowIdentity()
{
    requireRow();
    return rows ? rows->identity(row) : sqlite3_column_int64(statement.get(), 0);
}

// The table that the rows come from; only such a result can be written.
static TableInfo& writableTable(Recordset::State& recordset)
{
    recordset.ensureOpen();
    if (recordset.table == nullptr) {
        if (!recordset.query->text.hasIdentity())
            raiseEngineError(errReadOnly);
        recordset.table = &recordset.database->table(recordset.query->text.table);
    }
    return *recordset.table;
}

void Recordset::State::beginChange()
{
    const auto& target = writableTable(*this);
    // Before the row is read: what is read under Edit must still be so when it is written. A row that is read
    // already stands under the lock of the statement that reads it.
    database->beginWrite();
    requireRow();
    editing = Editing::Changing;
    buffer.assign(target.columns.size(), std::nullopt);
}

void Recordset::State::writeAddition()
{
    database->beginWrite();
    auto* const insertion = insertionOf(*table, database->handle());
    for (std::size_t column = 0; column < buffer.size(); ++column) {
        bindColumn(*database, insertion, static_cast<int>(column) + 1, table->columns[column],
                   buffer[column]);
    }
    database->runWrite(insertion);
}

void Recordset::State::writeChange()
{
    const auto isAssigned = [](const auto& value) { return value.has_value(); };
    if (std::none_of(buffer.begin(), buffer.end(), isAssigned))
        return;
    database->beginWrite();
    const auto identity = rowIdentity();
    auto* const update = updateOf(*table, buffer, database->handle());
    int place = 0;
    for (std::size_t column = 0; column < buffer.size(); ++column) {
        if (buffer[column])
            bindColumn(*database, update, ++place, table->columns[column], buffer[column]);
    }
    sqlite3_bind_int64(update, ++place, identity);
    database->runWrite(update);
    if (sqlite3_changes(database->handle()) == 0)
        raiseEngineError(errRecordDeleted);
}

Recordset::Recordset(std::unique_ptr<State> state) : m_state(std::move(state)) {}

Recordset::~Recordset() = default;

bool Recordset::EOF_()
{
    m_state->ensureStarted();
    return m_state->atEnd;
}

std::int32_t Recordset::RecordCount()
{
    m_state->ensureStarted();
    return m_state->visited;
}

void Recordset::MoveNext()
{
    m_state->ensureStarted();
    m_state->editing = State::Editing::None;
    if (m_state->atEnd)
        raiseEngineError(errNoCurrentRecord);
    m_state->goOn();
}

void Recordset::MoveFirst()
{
    m_state->ensureStarted();
    m_state->editing = State::Editing::None;
    if (m_state->visited == 0)
        raiseEngineError(errNoCurrentRecord);
    if (m_state->rows) {
        m_state->row = static_cast<std::size_t>(-1);
        m_state->goOn();
    } else if (m_state->row != 0) {
        m_state->start();
    }
}

void Recordset::MoveLast()
{
    m_state->ensureStarted();
    m_state->editing = State::Editing::None;
    if (m_state->visited == 0)
        raiseEngineError(errNoCurrentRecord);
    m_state->readAll();
    m_state->row = m_state->rows->rows() - 2;
    m_state->goOn();
}

void Recordset::FindFirst(std::string_view criterion)
{
    m_state->ensureOpen();
    const auto [column, number] = readCriterion(criterion, m_state->query->columns);
    m_state->readAllAndStay();
    m_state->editing = State::Editing::None;
    const auto& rows = *m_state->rows;
    std::size_t found = 0;
    while (found < rows.rows() && !isNumber(rows.value(found, column), number))
        ++found;
    m_state->noMatch = found == rows.rows();
    if (m_state->noMatch)
        return;
    m_state->row = found - 1; // before the first row for it: the number wraps around and comes back
    m_state->goOn();
}

bool Recordset::NoMatch() const
{
    m_state->ensureOpen();
    return m_state->noMatch;
}

std::shared_ptr<const RowSnapshot> Recordset::snapshot()
{
    m_state->readAllAndStay();
    auto state = std::make_unique<RowSnapshot::State>();
    state->rows = m_state->rows;
    state->columns = m_state->query->columns;
    return std::make_shared<const RowSnapshot>(std::move(state));
}

std::int32_t Recordset::AbsolutePosition()
{
    m_state->ensureStarted();
    return m_state->atEnd ? -1 : static_cast<std::int32_t>(m_state->row);
}

Value Recordset::Fields(std::string_view name)
{
    m_state->ensureOpen();
    if (m_state->editing != State::Editing::None) {
        const auto& written =
            m_state->buffer[columnPosition(m_state->table->columns, name, m_state->lastAssigned)];
        if (written)
            return *written;
        if (m_state->editing == State::Editing::Adding)
            return Null;
    }
    return Fields(columnPosition(m_state->query->columns, name, m_state->lastRead));
}

Value Recordset::Fields(std::size_t position)
{
    m_state->requireRow();
    if (position >= m_state->query->columns.size())
        raiseEngineError(errNoSuchItem);
    return m_state->current(position);
}

std::vector<std::string> Recordset::fieldNames() const
{
    m_state->ensureOpen();
    std::vector<std::string> names;
    for (const auto& column : m_state->query->columns)
        names.push_back(column.name);
    return names;
}

void Recordset::setCollect(std::string_view name, Value value)
{
    m_state->ensureOpen();
    if (m_state->editing == State::Editing::None)
        raiseEngineError(errUpdateWithoutEdit);
    const auto& columns = m_state->table->columns;
    const auto position = columnPosition(columns, name, m_state->lastAssigned);
    m_state->buffer[position] = std::move(value).convertedTo(columns[position].type);
}

void Recordset::AddNew()
{
    const auto& target = writableTable(*m_state);
    if (m_state->database->readOnly)
        raiseEngineError(errReadOnly);
    m_state->editing = State::Editing::Adding;
    m_state->buffer.assign(target.columns.size(), std::nullopt);
}

void Recordset::Edit()
{
    m_state->beginChange();
}

void Recordset::Update(UpdateType, bool)
{
    m_state->ensureOpen();
    if (m_state->editing == State::Editing::None)
        raiseEngineError(errUpdateWithoutEdit);
    if (m_state->editing == State::Editing::Adding)
        m_state->writeAddition();
    else
        m_state->writeChange();
    m_state->editing = State::Editing::None;
}

void Recordset::Delete()
{
    auto& table = writableTable(*m_state);
    m_state->requireRow();
    auto& database = *m_state->database;
    database.beginWrite();
    auto* const statement = deletionOf(table, database.handle());
    sqlite3_bind_int64(statement, 1, m_state->rowIdentity());
    database.runWrite(statement);
    if (sqlite3_changes(database.handle()) == 0)
        raiseEngineError(errRecordDeleted);
    m_state->editing = State::Editing::None;
    m_state->deleted = true;
}

void Recordset::Close()
{
    m_state->ensureOpen();
    m_state->release();
}

} // namespace dao
