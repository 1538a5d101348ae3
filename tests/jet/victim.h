#pragma once

#include "jet/jetFile.h"
#include "jet/writtenFile.h"
#include "tools/jetWriter.h"

#include <cstdint>
#include <optional>
#include <string>

// A small sound file that has one of everything, and knows where each thing stands, so that a test can break
// it.
struct Victim
{
    explicit Victim(jetWriter::Version ofVersion);

    [[nodiscard]] std::size_t pageAt(std::uint32_t page) const { return page * jetWriter::pageSize(version); }
    [[nodiscard]] std::size_t entryAt(jetWriter::RowPointer row) const; // in the page's directory
    [[nodiscard]] std::size_t rowAt(jetWriter::RowPointer row) const;
    [[nodiscard]] std::size_t rowEnd(jetWriter::RowPointer row) const;
    [[nodiscard]] std::size_t mapAt() const; // row of the usage map of T
    [[nodiscard]] std::size_t definitionAt(std::size_t jet3, std::size_t jet4) const;
    [[nodiscard]] std::size_t columnAt(std::size_t column, std::size_t jet3, std::size_t jet4) const;
    // Of the row with the long value; the numbers are those of its header.
    [[nodiscard]] std::size_t headerAt(jetWriter::RowPointer row) const;
    [[nodiscard]] std::uint32_t pageCount() const;
    // Changes 1, 2 or 4 bytes.
    void put(std::size_t at, std::uint64_t value, std::size_t width)
    {
        jetWriter::putNumber(bytes, at, value, width);
    }
    // The row loses its last bytes or all of them: the next one begins earlier.
    void shorten(jetWriter::RowPointer row, std::size_t length);

    jetWriter::Version version;
    std::string bytes;
    std::uint32_t definition = 0, map = 0, wideDefinition = 0, wideContinuation = 0, dataPage = 0,
                  otherPage = 0;
    jetWriter::RowPointer plain, stub, target, inlineMemo, singleMemo, chainMemo; // rows of T
    jetWriter::RowPointer singleRow, chainFirst, chainLast;                       // rows of long values
    jetWriter::RowPointer catalogueRow;                                           // of T
};

// The first thing that is wrong when the whole file is read; nothing when all of it can be.
[[nodiscard]] std::optional<jet::Error> firstError(const std::string& bytes);
