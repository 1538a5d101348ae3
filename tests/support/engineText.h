#pragma once

#include "dao/dao.h"

#include <map>
#include <string>

// A result of the engine as text, in the form in which the expected rows of the sample files stand (see
// jetText.h). The engine tells that a column is Decimal and not how many decimals it has; they are given by
// the column's name.
[[nodiscard]] std::string engineText(const dao::Ref<dao::Recordset>& rows,
                                     const std::map<std::string, std::size_t>& decimals = {});
