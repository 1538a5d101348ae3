#pragma once

#include "support/temporaryFolder.h"
#include "tools/jetWriter.h"

#include <functional>
#include <string>
#include <vector>

// Files of the original engine's kind that a test makes for a purpose.
namespace writtenJet {

using Fill = std::function<void(jetWriter::FileWriter&)>;

// Writes a Jet 3 file and gives its path.
std::string write(const TemporaryFolder& folder, const std::string& name, const Fill& fill,
                  const jetWriter::FileForm& form = {});

// One table with a Long "number" and a Text "word", filled with as many rows: 0 "word 0", 1 "word 1", ...
std::string writeWords(const TemporaryFolder& folder, const std::string& name, int rows,
                       std::uint16_t commits = 0x0101);

} // namespace writtenJet
