#pragma once

#include "screens/screenType.h"

#include <span>
#include <string_view>

// The four screens as data: what stands on them, in the order in which the Tab key goes through it.
namespace screens {

enum class Kind : std::uint8_t
{
    // Where things stand.
    Row,    // begins a row of the group
    Rows,   // the same, `size` times; '#' in names stands for the number; row `limit` is of multi-value boxes
    Block,  // the rows from here on stand beside those of the block before
    Column, // begins a column of the row; `name` is the caption above it, may be empty
    Gap,    // some room before what follows
    Zones,  // the boxes of the zones, four rows of six

    // Captions. Those with their own name get their text from the table of labels.
    Heading, // of the group, in the place of its title
    Lead,    // at the left edge of the row, in line with those of the other rows; `name` is the text
    LeadLabel,
    Word, // beside a field; `name` is the text
    Label,
    Pieces, // one text, drawn in `size` pieces above as many columns from the next one on
    Over,   // above the captions of `size` columns from the next one on

    // Fields. `size` is the width in characters, `limit` what may be typed, 0 for no limit.
    Number,
    Code, // capitals
    Text, // free
    Name, // free, and wider where there is room
    Locked,
    MultiValue,
    Remarks,

    // What is clicked.
    Options, // begins a set of options; `name` is what it decides
    Option,
    Button,
    End, // the buttons after it stand at the other end of the bar
};

// One thing on the screens that it names.
struct Item
{
    ScreenSet screens = 0;
    Kind kind = Kind::Row;
    const char* name = "";
    int size = 0;
    int limit = 0;
    const char* spoken = ""; // accessible name; empty where the caption on the thing itself says enough
    const char* text = "";   // grey text of a field, caption of an option or a button
};

// A titled box of the screen. Groups of one line stand side by side.
struct Group
{
    ScreenSet screens = 0;
    int line = 0;
    int stretch = 0; // share of spare width
    const char* name = "";
    const char* title = ""; // not drawn where an item is the heading
    std::span<const Item> items;
};

[[nodiscard]] std::span<const Group> groups();
// Buttons at the foot.
[[nodiscard]] std::span<const Item> bar();

// The tables of the single groups.
[[nodiscard]] std::span<const Item> noticeItems();
[[nodiscard]] std::span<const Item> targetItems();
[[nodiscard]] std::span<const Item> assignmentItems();
[[nodiscard]] std::span<const Item> stationItems();
[[nodiscard]] std::span<const Item> coordinationItems();
[[nodiscard]] std::span<const Item> antennaItems();
[[nodiscard]] std::span<const Item> receivingStationsItems();
[[nodiscard]] std::span<const Item> areaItems();
[[nodiscard]] std::span<const Item> remarksItems();

// Characters that a zone box takes.
[[nodiscard]] int zoneLimit(ScreenType screen, int zone);
// Index of a control that is an element of an array; -1 for all others.
[[nodiscard]] int arrayIndex(std::string_view name);

} // namespace screens
