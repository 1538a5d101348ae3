#pragma once

#include "jet/pageFile.h"

#include <string>

namespace jet {

// The bytes of a long value whose header, and perhaps data, stand in the field: those in the field
// themselves, or what is joined in the buffer from other pages.
[[nodiscard]] std::string_view longValueBytes(const ByteView& field, const PageFile& file, PageBuffer& pages,
                                              std::string& buffer);

} // namespace jet
