#pragma once

#include "dao/bookkeeping.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// Tables of other files under names of this one.
namespace dao {

// A link that was followed: the table stands beneath as "schema"."table".
struct LinkedTable
{
    std::string name, schema, table;
};
using LinkedTables = std::vector<LinkedTable>;

// A file that links lead to.
struct LinkedFile
{
    std::string path, schema;
};

struct FollowedLinks
{
    LinkedTables tables;
    std::vector<LinkedFile> files;
};

// Null for a name that is no link. Names are not case-sensitive.
[[nodiscard]] const LinkedTable* findLink(const LinkedTables& links, std::string_view name);

// Follows the links of the file at the path, but for those whose name is one of its own tables, and looks
// whether each table is there. Throws what OpenDatabase throws, and 3035 for too many files.
[[nodiscard]] FollowedLinks followLinks(const std::vector<Link>& links, const std::string& path,
                                        const std::function<bool(const std::string& name)>& isOwnTable);

} // namespace dao
