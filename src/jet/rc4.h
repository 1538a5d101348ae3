#pragma once

#include <cstdint>
#include <span>

namespace jet {

// Encodes or decodes in place with the stream of the key's four bytes, the lowest first, from its beginning.
void applyKeyStream(std::uint32_t key, std::span<char> bytes);

} // namespace jet
