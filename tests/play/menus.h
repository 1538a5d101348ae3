#pragma once

#include "play/operatorHands.h"

#include <string>

// The menus of the active window.
namespace play {

// Opens the way to the item and presses Enter on it.
void triggerMenuItem(Stage& stage, const std::string& name);

// A line for each item, in the order of the menus.
void printMenus(const Stage& stage);

} // namespace play
