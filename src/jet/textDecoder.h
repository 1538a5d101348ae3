#pragma once

#include <string>
#include <string_view>

namespace jet {

// Text of a value as UTF-8: the value's own bytes where they are that already, otherwise what is built in the
// buffer.
[[nodiscard]] std::string_view decodeCodePage(std::string_view bytes, unsigned codePage, std::string& buffer);
// Of the newer version: UTF-16, compressed where a mark stands before it.
[[nodiscard]] std::string_view decodeUnicode(std::string_view bytes, std::string& buffer);

// UTF-16 without a mark, as names are stored.
[[nodiscard]] std::string utf16ToUtf8(std::string_view bytes);

} // namespace jet
