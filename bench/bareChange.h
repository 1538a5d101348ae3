#pragma once

#include "bareNotice.h"
#include "model/Ntc.h"

namespace bare {

// The record as the floor writes it; it points into the record.
[[nodiscard]] Notice noticeOf(const Ntc& ntc);

// The floors of an update and of a delete: open, the statements that do it for the notice, close. Both act on
// a whole table at once where they can.
void updateNotice(const std::string& database, int key, const Notice& notice, bool withTarget);
void deleteNotice(const std::string& database, int key);

} // namespace bare
