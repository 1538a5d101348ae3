#pragma once

#include "dao/links.h"
#include "dao/value.h"

#include <string>
#include <string_view>
#include <vector>

// The engine's dialect of SQL, turned into the one that runs beneath.
namespace dao {

struct DeclaredParameter
{
    std::string name;
    DataType type;
};

struct TranslatedQuery
{
    std::string sql; // parameters as ?1, ?2, ... in the order of their declaration
    std::vector<DeclaredParameter> parameters;
    // The one table of a query that can be written through; the identity of its row is then the first column
    // of the result, before those that were asked for, where no later column of the table can come to stand.
    // Empty for any other query.
    std::string table;

    [[nodiscard]] bool hasIdentity() const { return !table.empty(); }
};

// "PARAMETERS [Name] Type, ...;" declares parameters of the types Long, Integer, Double, String; behind it
// "[Name]" is one of them, or a name of the database in brackets. Without ORDER BY, rows come in the order of
// insertion: of the one table, or into the table that a join's first column names by its key. A table's name
// in a FROM clause may be a link's; such a table can't be written through. Throws 3075.
[[nodiscard]] TranslatedQuery translateQuery(std::string_view jetSql, const LinkedTables& links = {});

// A name as the dialect beneath takes it, whatever it holds.
[[nodiscard]] std::string quotedName(std::string_view name);

} // namespace dao
