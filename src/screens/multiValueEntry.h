#pragma once

#include "screens/fieldRuleTable.h"
#include "screens/noticeForm.h"

#include <string>

namespace screens {

// From now on Enter in the multi-value box takes its text into the list, if it passes the rule. A duplicate
// is told and taken all the same.
void takeEntriesByEnter(NoticeForm& form, const std::string& control, const Rule& rule);

} // namespace screens
