#include "jet/jetFile.h"

#include "jet/catalogue.h"
#include "jet/pageFile.h"
#include "jet/rows.h"
#include "jet/secondLook.h"
#include "jet/tableDefinition.h"
#include "platform/ansiText.h"
#include "platform/sharedFile.h"

#include <algorithm>
#include <array>
#include <system_error>

namespace jet {

struct File::State
{
    explicit State(const std::filesystem::path& path)
        : file(path), catalogue(withSecondLook([this] { return readCatalogue(file); }, [] {}))
    {}

    PageFile file;
    std::vector<CatalogueEntry> catalogue;
};

File::File(const std::filesystem::path& path) : m_state(std::make_unique<State>(path)) {}
File::~File() = default;
File::File(File&&) noexcept = default;
File& File::operator=(File&&) noexcept = default;

bool File::hasMark(const std::filesystem::path& path)
{
    try {
        const platform::SharedFile file(path);
        std::array<char, markSize> bytes{};
        return isMark({bytes.data(), file.readAt(0, bytes)});
    } catch (const std::system_error&) {
        return false; // what can't be read has no mark
    }
}

Version File::version() const
{
    return m_state->file.version();
}

std::uint64_t File::size() const
{
    return m_state->file.size();
}

Stamp File::stamp() const
{
    return m_state->file.stamp();
}

const std::vector<CatalogueEntry>& File::catalogue() const
{
    return m_state->catalogue;
}

Table File::table(std::string_view name) const
{
    const auto& entries = m_state->catalogue;
    const auto entry = std::find_if(entries.begin(), entries.end(), [name](const CatalogueEntry& each) {
        return !each.isLink() && platform::equalNoCase(each.name, name);
    });
    if (entry == entries.end())
        throw Error(Fault::NoSuchTable, "The file has no table \"" + std::string(name) + "\".");
    auto table =
        withSecondLook([&] { return readTableDefinition(entry->definitionPage, m_state->file); }, [] {});
    table.name = entry->name;
    return table;
}

Rows File::rows(const Table& table) const
{
    return Rows(std::make_unique<Rows::State>(table, m_state->file));
}

} // namespace jet
