#pragma once

#include "dao/dao.h"
#include "load/targetValues.h"

#include <cstdint>
#include <string>

// The queries that find an assignment by its characteristics, in the three shapes: those of the search among
// stored notices, and those of the check against the reference database. The two differ in the columns that
// they give and in one condition more of the check's.
namespace targetQueries {

enum class Among : std::uint8_t
{
    StoredNotices,
    References // with site_name and ctry, and the parameter IsNotice
};

[[nodiscard]] std::string byPoint(Among among);
[[nodiscard]] std::string byPointAndOpCls(Among among);
[[nodiscard]] std::string byZone(Among among);

using QueryRef = dao::Ref<dao::QueryDef>;

void set(const QueryRef& query, const char* name, const dao::Value& value);
// What all three shapes have.
void setAssignment(const QueryRef& query, const targetValues::Assignment& assignment);
void setPosition(const QueryRef& query, const targetValues::Position& at);

} // namespace targetQueries
