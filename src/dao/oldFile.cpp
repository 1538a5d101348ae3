#include "dao/oldFile.h"

#include "dao/engineError.h"
#include "dao/jetCache.h"
#include "dao/jetConversion.h"
#include "dao/jetCorrections.h"
#include "dao/jetFailure.h"
#include "platform/ansiText.h"
#include "platform/paths.h"

#include <algorithm>

namespace dao {

OldFile::OldFile(std::string path)
    : m_path(std::move(path)),
      m_file(withEngineFailures(m_path, [this] { return jet::File(platform::hostPath(m_path)); }))
{}

bool OldFile::isAt(const std::string& path)
{
    return jet::File::hasMark(platform::hostPath(path));
}

const jet::CatalogueEntry* OldFile::find(ObjectKind kind, std::string_view name) const
{
    for (const auto& entry : m_file.catalogue()) {
        if (entry.isLink() == (kind == ObjectKind::Link) && platform::equalNoCase(entry.name, name))
            return &entry;
    }
    return nullptr;
}

std::optional<std::string> OldFile::findTable(std::string_view name) const
{
    const auto* entry = find(ObjectKind::Table, name);
    return entry ? std::optional(entry->name) : std::nullopt;
}

std::vector<Index> OldFile::indexesOf(std::string_view table) const
{
    auto indexes = withEngineFailures(m_path, [&] { return m_file.table(table).indexes; });
    std::sort(indexes.begin(), indexes.end(), [](const jet::Index& left, const jet::Index& right) {
        return platform::compareNoCase(left.name, right.name) < 0;
    });
    std::vector<Index> result;
    for (const auto& index : indexes) {
        result.emplace_back(index.name);
        for (const auto& column : index.columns)
            result.back().Fields().Append(Field(column));
    }
    return result;
}

std::vector<Link> OldFile::links() const
{
    std::vector<Link> links;
    for (const auto& entry : m_file.catalogue()) {
        if (entry.isLink())
            links.push_back({entry.name, entry.linkedFile, entry.linkedTable});
    }
    return links;
}

platform::LocalTime OldFile::lastUpdated(ObjectKind kind, std::string_view name) const
{
    const auto* entry = find(kind, name);
    if (!entry)
        raiseEngineError(errNoSuchItem);
    return lastChange(*entry);
}

std::optional<std::string> contentAt(const std::string& path)
{
    if (auto correction = correctionOf(path); !correction.empty())
        return correction;
    return OldFile::isAt(path) ? std::nullopt : std::optional(path);
}

std::string contentOf(const std::string& path)
{
    const auto content = contentAt(path);
    return content ? *content : cacheOf(path);
}

} // namespace dao
