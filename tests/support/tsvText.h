#pragma once

#include <array>
#include <charconv>
#include <string>
#include <string_view>

// The form of values in the .tsv files of expected rows, for whatever they are read through.
namespace tsv {

inline void appendEscaped(std::string& text, std::string_view value)
{
    constexpr std::string_view meant = "\t\r\n\\";
    constexpr std::string_view written = "trn\\";
    for (const char letter : value) {
        const auto at = meant.find(letter);
        if (at == std::string_view::npos)
            text += letter;
        else
            (text += '\\') += written[at];
    }
}

template <class Number>
std::string shortest(Number number)
{
    std::array<char, 400> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed).ptr;
    return {digits.data(), end};
}

// With as many decimals as the column has.
inline std::string padded(std::string number, std::size_t scale)
{
    const auto point = number.find('.');
    const auto decimals = point == std::string::npos ? 0 : number.size() - point - 1;
    if (point == std::string::npos && scale > 0)
        number += '.';
    return number.append(scale > decimals ? scale - decimals : 0, '0');
}

} // namespace tsv
