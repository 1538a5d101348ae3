#pragma once

#include "play/transcript.h"

#include <charconv>
#include <string>

namespace play {

// A number from 0; refuses anything else.
[[nodiscard]] inline int numberArgument(const std::string& word)
{
    int number = -1;
    const auto* const end = word.data() + word.size();
    const auto [last, failure] = std::from_chars(word.data(), end, number);
    if (failure != std::errc() || last != end || number < 0)
        throw Refusal("no number: " + word);
    return number;
}

} // namespace play
