#pragma once

#include <string>

// The lines in which two texts differ, with the lines around them, as `diff -u` shows it; empty when they are
// equal.
[[nodiscard]] std::string difference(const std::string& expected, const std::string& actual);
