#pragma once

#include "jet/jetFile.h"

#include <string>
#include <string_view>

// The rows of a table as text, the form in which the expected rows of the sample files stand: a line of
// column names, then one a row; a tab between values, \N for Null, \t \r \n \\ as escapes; numbers in the
// shortest form that reads back the same, without exponent, a Decimal with all its decimals; dates as
// 2001-02-03T04:05:06; true and false. Binary and the like in hexadecimal.
[[nodiscard]] std::string jetTableText(const jet::File& file, std::string_view name);

// One value of the row at hand in that form.
[[nodiscard]] std::string jetValueText(const jet::Rows& rows, const jet::Table& table, std::size_t column);
