#include "dao/databaseState.h"
#include "dao/engineError.h"
#include "platform/ansiText.h"

namespace dao {

QueryDef::QueryDef(std::unique_ptr<State> state) : m_state(std::move(state)) {}

QueryDef::~QueryDef() = default;

void QueryDef::Parameter::setValue(const Value& value)
{
    auto& query = *m_query.m_state;
    query.database->ensureOpen();
    query.values[m_index] = value.convertedTo(query.query->text.parameters[m_index].type);
}

QueryDef::Parameter QueryDef::Parameters(std::string_view name)
{
    m_state->database->ensureOpen();
    const auto& declared = m_state->query->text.parameters;
    for (std::size_t index = 0; index < declared.size(); ++index) {
        if (platform::equalNoCase(declared[index].name, name))
            return {*this, index};
    }
    raiseEngineError(errNoSuchItem);
}

Ref<Recordset> QueryDef::OpenRecordset(RecordsetType type)
{
    m_state->database->ensureOpen();
    if (type != dbOpenDynaset)
        raiseEngineError(errOperationNotSupported);
    std::vector<Value> values;
    values.reserve(m_state->values.size());
    for (std::size_t index = 0; index < m_state->values.size(); ++index) {
        if (!m_state->values[index])
            raiseEngineError(errTooFewParameters, m_state->query->text.parameters[index].name);
        values.push_back(*m_state->values[index]);
    }
    auto state = std::make_unique<Recordset::State>(m_state->database, *m_state->query, std::move(values));
    state->start();
    return Ref(std::make_shared<Recordset>(std::move(state)));
}

} // namespace dao
