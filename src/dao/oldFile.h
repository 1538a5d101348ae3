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

// The file of the engine that holds what stands at the path: that file itself, the corrections of an old one,
// or else a cache of it, which may go with the next call.
[[nodiscard]] std::string contentOf(const std::string& path);

} // namespace dao
