#include "dao/links.h"

#include "dao/bookkeeping.h"
#include "dao/connection.h"
#include "dao/definitions.h"
#include "dao/engineError.h"
#include "dao/jetCorrections.h"
#include "dao/oldFile.h"
#include "platform/ansiText.h"
#include "platform/paths.h"

#include <filesystem>
#include <optional>

namespace dao {

namespace {

namespace fs = std::filesystem;

// A file from elsewhere may name any number of tables, each of which takes a look into a folder.
constexpr std::size_t mostLinks = 256;

bool isFile(const fs::path& path)
{
    std::error_code ignored;
    return fs::exists(path, ignored) && !fs::is_directory(path, ignored);
}

// Where the link's own path leads; nothing when that is a drive that is not there.
std::optional<fs::path> storedPlace(const fs::path& folder, const std::string& stored)
{
    try {
        return platform::anyCasePath(folder / platform::hostPath(stored));
    } catch (const platform::RuntimeError&) {
        return std::nullopt; // the caller tells which file is missing
    }
}

// The file that a link leads to. The one beside the linking file comes first: a set of files that was copied
// elsewhere still belongs together.
fs::path placeOf(const std::string& stored, const fs::path& folder)
{
    const auto base = stored.substr(stored.find_last_of("\\/") + 1);
    auto beside = platform::anyCasePath(folder / platform::hostPath(base));
    if (isFile(beside))
        return beside;
    auto there = storedPlace(folder, stored);
    if (!there)
        raiseEngineError(errFileMissing, stored);
    if (!isFile(*there))
        raiseEngineError(errFileMissing, platform::utf8Path(*there));
    return *there;
}

// The files that links lead to, each under the schema of its own.
class LinkedFiles
{
public:
    explicit LinkedFiles(fs::path linkingFile) : m_linkingFile(std::move(linkingFile)) {}

    std::string schemaOf(const fs::path& file)
    {
        std::error_code ignored;
        if (fs::equivalent(m_linkingFile, file, ignored))
            return "main";
        for (const auto& known : m_files) {
            if (fs::equivalent(platform::hostPath(known.path), file, ignored))
                return known.schema;
        }
        if (m_files.size() == mostAttachedFiles)
            raiseEngineError(errResources);
        const auto number = std::to_string(m_files.size() + 1);
        return m_files.emplace_back(LinkedFile{platform::utf8Path(fs::absolute(file)), "zeph_link" + number})
            .schema;
    }

    std::vector<LinkedFile> take() { return std::move(m_files); }

private:
    fs::path m_linkingFile;
    std::vector<LinkedFile> m_files;
};

// As the file spells the name of the table.
std::string tableIn(const std::string& path, const std::string& table)
{
    const auto correction = correctionOf(path);
    auto found =
        correction.empty() && OldFile::isAt(path)
            ? OldFile(path).findTable(table)
            : findTable(openConnection(correction.empty() ? path : correction, true).get(), "main", table);
    if (!found)
        raiseEngineError(errNoSuchTable, table);
    return *std::move(found);
}

} // namespace

const LinkedTable* findLink(const LinkedTables& links, std::string_view name)
{
    for (const auto& link : links) {
        if (platform::equalNoCase(link.name, name))
            return &link;
    }
    return nullptr;
}

FollowedLinks followLinks(const std::vector<Link>& links, const std::string& path,
                          const std::function<bool(const std::string& name)>& isOwnTable)
{
    LinkedTables tables;
    if (links.size() > mostLinks)
        raiseEngineError(errResources);
    const auto file = platform::hostPath(path);
    LinkedFiles files(file);
    for (const auto& [name, target, table] : links) {
        if (isOwnTable(name))
            continue; // a table of the file itself wins
        const auto place = placeOf(target, file.parent_path());
        const auto schema = files.schemaOf(place);
        tables.push_back({name, schema, tableIn(platform::utf8Path(place), table)});
    }
    return {std::move(tables), files.take()};
}

} // namespace dao
