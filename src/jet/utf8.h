#pragma once

#include <string>

namespace jet {

// For codes below 0x110000 that are no surrogates.
inline void appendUtf8(std::string& text, char32_t code)
{
    const auto trail = [&](unsigned shift) { text += static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        text += static_cast<char>(code);
        return;
    }
    if (code < 0x800) {
        text += static_cast<char>(0xC0U | (code >> 6U));
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0U | (code >> 12U));
        trail(6);
    } else {
        text += static_cast<char>(0xF0U | (code >> 18U));
        trail(12);
        trail(6);
    }
    trail(0);
}

} // namespace jet
