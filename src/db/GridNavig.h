#pragma once

#include <cstdint>

// Steps through the session's keyArray, past deleted notices.
namespace GridNavig {

// True and the position of the next (previous) notice; false and the index untouched when there is none.
// Throws RuntimeError 9 when the count tells of more keys than there are.
bool nextNoticeIndex(std::int32_t& index);
bool prevNoticeIndex(std::int32_t& index);

} // namespace GridNavig
