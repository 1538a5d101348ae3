#include "jet/rc4.h"

#include <array>
#include <numeric>
#include <utility>

namespace jet {

namespace {

using StreamState = std::array<std::uint8_t, 256>;

StreamState mixed(std::uint32_t key)
{
    StreamState state{};
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    std::uint8_t other = 0;
    for (unsigned i = 0; i < state.size(); ++i) {
        const auto keyByte = (key >> (8U * (i % 4U))) & 0xFFU;
        other = static_cast<std::uint8_t>(other + state[i] + keyByte);
        std::swap(state[i], state[other]);
    }
    return state;
}

} // namespace

void applyKeyStream(std::uint32_t key, std::span<char> bytes)
{
    auto state = mixed(key);
    std::uint8_t i = 0;
    std::uint8_t other = 0;
    for (char& byte : bytes) {
        ++i;
        other = static_cast<std::uint8_t>(other + state[i]);
        std::swap(state[i], state[other]);
        const auto place = static_cast<std::uint8_t>(state[i] + state[other]);
        byte = static_cast<char>(static_cast<std::uint8_t>(byte) ^ state[place]);
    }
}

} // namespace jet
