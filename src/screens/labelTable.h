#pragma once

#include "screens/screenType.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

// The words of the notice screens in the three languages.
namespace screens {

enum class LabelProperty : std::uint8_t
{
    Title,   // of the screen
    Caption, // of a label, an option or a button; "&" makes the access key
    Tip      // of a text box or a multi-value box
};

inline constexpr int languages = 3; // English, French, Spanish, in this order

struct LabelRow
{
    ScreenSet
        screens; // those that share the row's words; other words of the same control have a row of their own
    LabelProperty property;
    std::string_view control;                      // without the index of an array; empty for a title
    std::array<std::string_view, languages> texts; // empty: the control keeps what it had
};

[[nodiscard]] std::span<const LabelRow> labelRows();

} // namespace screens
