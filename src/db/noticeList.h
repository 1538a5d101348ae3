#pragma once

#include "dao/dao.h"

#include <cstdint>
#include <string>

// The list of notices: its query, and the session's array of the keys in list order.
namespace noticeList {

enum class Sort : std::uint8_t
{
    Index,
    AdmFreq
};

// One row a notice and point of its own site; a notice without a site row is not listed. The clause begins
// with WHERE and ends in a blank, or is empty.
[[nodiscard]] std::string buildNoticeQuery(const std::string& whereClause, Sort sort);

// Fills keyCount, and when there is any row keyArray, firstKey and lastKey, which otherwise stay as they are.
// The rows stand at the first one again afterwards.
void loadNoticeKeys(const dao::Ref<dao::Recordset>& rows);

// Sets currentIndex to the first entry of keyArray that is currentVeldaKey; without one it stays.
void locateCurrentKey();

} // namespace noticeList
