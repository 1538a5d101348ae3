#pragma once

#include "jet/pageFile.h"

#include <vector>

namespace jet {

// Users' tables and links, in the order of the catalogue.
[[nodiscard]] std::vector<CatalogueEntry> readCatalogue(const PageFile& file);

} // namespace jet
