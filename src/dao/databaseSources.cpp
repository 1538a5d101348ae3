// Which files a database is open on: one of the engine, or an old one, its content and its corrections.
#include "dao/databaseState.h"
#include "dao/definitions.h"
#include "dao/engineError.h"
#include "dao/jetCache.h"
#include "dao/jetCorrections.h"

namespace dao {

void Database::State::openOwnFile(const std::string& file)
{
    m_connection = openConnection(file, readOnly);
    auto* const connection = m_connection.get();
    auto followed = followLinks(linksOf(connection), path, [connection](const std::string& name) {
        return dao::findTable(connection, "main", name).has_value();
    });
    links = std::move(followed.tables);
    m_linkedFiles = std::move(followed.files);
    // Old files wait until they are needed, and those behind them.
    while (m_openLinkedFiles < m_linkedFiles.size() && !OldFile::isAt(m_linkedFiles[m_openLinkedFiles].path))
        openLinkedFile(connection, m_linkedFiles[m_openLinkedFiles++]);
}

void Database::State::openOldFile()
{
    m_old = std::make_unique<OldFile>(path);
    auto followed = followLinks(
        m_old->links(), path, [this](const std::string& name) { return m_old->findTable(name).has_value(); });
    links = std::move(followed.tables);
    m_linkedFiles = std::move(followed.files);
}

void Database::State::openWaitingFiles()
{
    while (m_openLinkedFiles < m_linkedFiles.size()) {
        openLinkedFile(m_connection.get(), m_linkedFiles[m_openLinkedFiles]);
        ++m_openLinkedFiles;
    }
}

sqlite3* Database::State::handle()
{
    ensureOpen();
    if (!m_connection)
        m_connection = openCacheOf(path);
    openWaitingFiles();
    return m_connection.get();
}

void Database::State::followCorrection()
{
    ensureOpen();
    if (!m_old)
        return;
    if (const auto correction = correctionOf(path); !correction.empty())
        goOnIn(correction);
}

void Database::State::beginCorrection()
{
    followCorrection();
    if (!m_old)
        return;
    auto* const content = handle();
    makeCorrection(path, stampOfCache(content), content);
    goOnIn(correctionPath(path));
}

// Open recordsets go on with the rows that they had; a row has the same identity in both files.
void Database::State::goOnIn(const std::string& correction)
{
    auto connection = openConnection(correction, readOnly);
    for (auto* recordset : recordsets)
        recordset->leaveConnection();
    for (auto& [text, compiled] : m_queries)
        compiled.idle.clear();
    for (auto& [name, table] : m_tables) {
        table.insertion.reset();
        table.updates.clear();
        table.deletion.reset();
    }
    m_old.reset();
    m_connection = std::move(connection);
    m_openLinkedFiles = 0;
    openWaitingFiles();
}

std::optional<std::string> Database::State::findTable(std::string_view name) const
{
    ensureOpen();
    return m_old ? m_old->findTable(name) : dao::findTable(m_connection.get(), "main", name);
}

std::vector<Index> Database::State::indexesOf(const std::string& table) const
{
    ensureOpen();
    return m_old ? m_old->indexesOf(table) : dao::indexesOf(m_connection.get(), table);
}

void Database::State::requireOwnFile() const
{
    ensureOpen();
    if (m_old)
        raiseEngineError(errReadOnly);
}

} // namespace dao
