#pragma once

#include "model/Ntc.h"
#include "screens/noticeForm.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

// What a screen tests as a whole while it is read. A test that fails tells the operator and puts the focus on
// the box in question; it never stops the reading.
namespace screens {

// Slots of the record for the entries of a multi-value box.
inline constexpr std::size_t maxEntries = std::tuple_size_v<decltype(Ntc::nat_srv)>;
static_assert(decltype(NtcAntenna::rot)::size() == maxEntries);

// The entries of the box; none when the record has no room for all of them.
[[nodiscard]] std::vector<std::string> entriesThatFit(const NoticeForm& form, std::string_view control);

// True when the entries of max_fr and max_to pair up, and the record has room for them.
[[nodiscard]] bool rotationPairsFit(const NoticeForm& form);

} // namespace screens
