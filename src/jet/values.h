#pragma once

#include "jet/byteView.h"

#include <string>

namespace jet {

// Stored values as exact text. A fraction has no zeros at its end.
[[nodiscard]] std::string currencyText(std::int64_t tenThousandths);
[[nodiscard]] std::string decimalText(const ByteView& value, unsigned scale);
[[nodiscard]] std::string guidText(const ByteView& value); // in braces, letters large

// Bytes of a value of the type; 0 where its values differ in length.
[[nodiscard]] std::size_t sizeOf(Type type);

} // namespace jet
