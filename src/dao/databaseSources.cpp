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
    while (m_openLinkedFiles < m_linkedFiles.size()) {
        const auto content = contentAt(m_linkedFiles[m_openLinkedFiles].path);
        if (!content)
            return;
        openNextFile(*content);
    }
}

void Database::State::openOldFile()
{
    m_old = std::make_unique<OldFile>(path);
    auto followed = followLinks(
        m_old->links(), path, [this](const std::string& name) { return m_old->findTable(name).has_value(); });
    links = std::move(followed.tables);
    m_linkedFiles = std::move(followed.files);
}

bool Database::State::isFileWaiting() const
{
    return !m_connection || m_openLinkedFiles < m_linkedFiles.size();
}

// In the order in which they are to be opened.
std::vector<std::string> Database::State::waitingContents() const
{
    std::vector<std::string> contents;
    std::vector<std::string> old; // those whose place there is empty
    const auto add = [&](const std::string& file, const std::optional<std::string>& content) {
        if (!content)
            old.push_back(file);
        contents.push_back(content.value_or(""));
    };
    if (!m_connection)
        add(path, std::nullopt); // its corrections are not asked for here
    for (auto file = m_openLinkedFiles; file < m_linkedFiles.size(); ++file)
        add(m_linkedFiles[file].path, contentAt(m_linkedFiles[file].path));
    if (old.empty())
        return contents; // without a look at the cache's folder
    const auto caches = cachesOf(old);
    auto cache = caches.begin();
    for (auto& content : contents) {
        if (content.empty())
            content = *cache++;
    }
    return contents;
}

void Database::State::openNextFile(const std::string& content)
{
    if (!m_connection) {
        m_connection = openConnection(content, true);
        return;
    }
    attachFile(m_connection.get(), content, m_linkedFiles[m_openLinkedFiles].schema);
    ++m_openLinkedFiles;
}

void Database::State::openWaitingFiles()
{
    constexpr int mostAttempts = 3;
    for (int attempt = 1; isFileWaiting(); ++attempt) {
        const auto contents = waitingContents();
        try {
            for (const auto& content : contents)
                openNextFile(content);
        } catch (const platform::RuntimeError&) {
            // Another process may have found a cache to be the oldest one.
            if (attempt == mostAttempts)
                throw;
        }
    }
}

sqlite3* Database::State::handle()
{
    ensureOpen();
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
