#pragma once

#include <string>
#include <string_view>

namespace jet {

// Appends text of a code page of the host as UTF-8. A byte without a character becomes U+FFFD; an unknown
// code page is read as 1252.
void appendCodePage(std::string& text, std::string_view bytes, unsigned codePage);

} // namespace jet
