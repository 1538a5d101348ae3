#pragma once

#include "model/Ntc.h"
#include "screens/hintTable.h"
#include "screens/noticeForm.h"

#include <optional>
#include <string>

// What a field or a section of a notice screen will come to when that is not what it looks like.
namespace screens {

struct Said
{
    Hint hint;
    QString detail; // in the place of "#" in its words
};

// Of the field in hand, as it stands now.
[[nodiscard]] std::optional<Said> hintOfField(const NoticeForm& form, const std::string& control);
// Of what is stored and not on the screen, and of the section on it.
[[nodiscard]] std::optional<Said> hintOfSection(const NoticeForm& form);

// What of the notice the screen does not show, and an update drops. The sections of a notice that suppresses
// are not read, so they keep all.
[[nodiscard]] Hidden hiddenOf(ScreenType screen, const Ntc& notice);

} // namespace screens
