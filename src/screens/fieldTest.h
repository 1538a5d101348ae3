#pragma once

#include "screens/fieldRuleTable.h"
#include "screens/noticeForm.h"

#include <string>

namespace screens {

// A box, the words in the language of the session; and the same with a beep before it.
void tell(const Words& words);
void warn(const Words& words);

// Walks the steps of a rule with the control's text, which is put into upper case before where the rule wants
// it. The first step that fails is told to the operator; an empty text passes.
[[nodiscard]] bool passes(const NoticeForm& form, const std::string& control, const Rule& rule);

} // namespace screens
