#pragma once

#include "screens/noticeForm.h"

#include <string>

// Which groups of fields stand in sight. No value changes; a hidden field keeps its content. A notice type
// other than that of the screen does nothing.
namespace MakeVisible {

// By the option of the receiving (transmitting) area.
void showAreaFields(screens::NoticeForm& form, const std::string& noticeType);
// By the intent: hidden with Int_Add.
void showTargetFields(screens::NoticeForm& form, const std::string& noticeType);

} // namespace MakeVisible
