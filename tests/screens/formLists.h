#pragma once

#include <string>
#include <vector>

// What stands on each screen, told apart from the tables that build it.
namespace formLists {

// Object names, with the index where it is an element of an array, in the order of the Tab key. Options of
// one set stand one after the other.
[[nodiscard]] std::vector<std::string> tabOrder(int screen); // 1 to 4
// Controls that Tab doesn't go to: captions and locked fields.
[[nodiscard]] std::vector<std::string> others(int screen);
// The sets of options, the names of one parted by blanks.
[[nodiscard]] std::vector<std::string> optionSets(int screen);

struct Limit
{
    std::string name;
    int characters;
};
[[nodiscard]] std::vector<Limit> inputLimits(int screen);

struct MultiCaption
{
    std::string label;
    std::vector<std::string> texts; // English, French, Spanish
    // The first field below each piece; empty where the piece stands alone.
    std::vector<std::string> below;
};
[[nodiscard]] std::vector<MultiCaption> captionsOfColumns(int screen);

} // namespace formLists
