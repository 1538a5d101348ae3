#pragma once

#include "screens/screenType.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The rules of the fields as data: which text a field lets through, and what it says of any other.
namespace screens {

// How the words of a box follow the language of the session.
enum class Wording : std::uint8_t
{
    English,   // English, whatever the language
    TitleOnly, // English under a title that is French in French
    ThreeWay   // French; empty under an English title in Spanish: nobody has written that text; or English
};

// What a box says.
struct Words
{
    const char* english;
    const char* french;
    Wording wording;
};
struct BoxText
{
    const char* title;
    const char* text;
};
[[nodiscard]] BoxText boxText(const Words& words, std::string_view language);

// One test of a text that is not empty, and the words for one that fails; no words: no box, the beep alone.
struct Step
{
    bool (*passes)(const std::string& text) = nullptr; // none: end of the steps
    const Words* words = nullptr;
};
using Steps = std::array<Step, 3>;

// What a rule does beyond its tests: the text goes to upper case before them, there is no beep, a bad text is
// blanked.
using RuleFlags = std::uint8_t;
inline constexpr RuleFlags plain = 0, upper = 1, silent = 2, blanking = 4;

struct Rule
{
    const char* controls = ""; // names parted by blanks; "cAdm1-13" stands for cAdm1 to cAdm13
    ScreenSet screens = 0;
    RuleFlags flags = plain;
    Steps steps;
};

// Tested when the field is left; on the boxes of several values also when Enter is pressed. A control has one
// row at most for a screen.
[[nodiscard]] std::span<const Rule> rulesOnLeaving();
// Tested at each change by the operator, in the place of a test on leaving.
[[nodiscard]] std::span<const Rule> rulesOnChange();

// The names in a list of controls.
[[nodiscard]] std::vector<std::string> namesIn(std::string_view controls);

} // namespace screens
