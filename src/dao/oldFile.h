#pragma once

#include "dao/bookkeeping.h"
#include "dao/dao.h"
#include "jet/jetFile.h"

#include <optional>
#include <string>
#include <vector>

namespace dao {

// A file of the original engine, by what it tells of itself without its rows, which takes no time whatever
// its size.
class OldFile
{
public:
    // Throws 3024, 3043, 3049, 3051, 3343.
    explicit OldFile(std::string path);

    // Whether a file of that kind, or of a newer one of its kind, lies at the path.
    [[nodiscard]] static bool isAt(const std::string& path);

    // As the file spells the name; nothing without the table. Names are not case-sensitive.
    [[nodiscard]] std::optional<std::string> findTable(std::string_view name) const;
    // In the order of their names.
    [[nodiscard]] std::vector<Index> indexesOf(std::string_view table) const;
    [[nodiscard]] std::vector<Link> links() const;
    [[nodiscard]] platform::LocalTime lastUpdated(ObjectKind kind, std::string_view name) const;

private:
    [[nodiscard]] const jet::CatalogueEntry* find(ObjectKind kind, std::string_view name) const;

    std::string m_path;
    jet::File m_file;
};

// The file of the engine that holds what stands at the path: that file itself, or the corrections of an old
// one; nothing when the content of an old one has to be read for it.
[[nodiscard]] std::optional<std::string> contentAt(const std::string& path);

// The same, or else a cache of the old file, which may go with the next call.
[[nodiscard]] std::string contentOf(const std::string& path);

} // namespace dao
