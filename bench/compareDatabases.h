#pragma once

#include <string>

// Throws std::runtime_error at the first difference: in the tables, in the number of rows, in a row's
// identity, or in the type or the value of a column. The engine's own statistics are left out.
void compareDatabases(const std::string& left, const std::string& right);
