#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bare {

// The floor of the writing: walks the notices with kept statements and writes the bytes that the product
// writes for them.
void writeFile(const std::string& fileName, const std::string& database,
               const std::vector<std::int32_t>& keys);

} // namespace bare
