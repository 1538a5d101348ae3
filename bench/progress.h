#pragma once

// How a load gets on: both sides tell of each notice that an earlier one was found for, by its number in the
// file.
namespace progress {

// The CPU time of the process between the first such notice from number `first` on and the last one.
void watch(int first);
void tell(int noticeNumber);

// Seconds for a thousand notices; throws when too few were told of.
[[nodiscard]] double secondsPerThousand();

} // namespace progress
