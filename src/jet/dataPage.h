#pragma once

#include "jet/pageFile.h"

namespace jet {

// The letters that stand in the place of the owner on pages of long values.
constexpr std::uint32_t longValueOwner = 0x4C41564C;
constexpr std::uint32_t mapOwner = 0;

struct RowPlace
{
    std::uint32_t page = 0;
    std::uint32_t row = 0;
};

[[nodiscard]] constexpr RowPlace placeOfPointer(std::uint32_t pointer)
{
    return {pointer >> 8U, pointer & 0xFFU};
}

// A row as it stands on its page.
struct StoredRow
{
    ByteView bytes;
    bool isSkipped = false; // deleted, or the new place of a moved row
    bool isMoved = false;   // holds the pointer to its new place
};

// A page of rows, whose directory is checked.
class DataPage
{
public:
    // The page is one of data.
    DataPage(const ByteView& page, Version version);

    [[nodiscard]] std::uint32_t rowCount() const { return m_rowCount; }
    [[nodiscard]] StoredRow row(std::uint32_t number) const;

private:
    [[nodiscard]] std::uint16_t entry(std::uint32_t number) const;
    [[nodiscard]] std::size_t directoryEnd() const { return m_directory + 2UL * m_rowCount; }

    ByteView m_page;
    std::size_t m_directory;
    std::uint32_t m_rowCount;
};

[[nodiscard]] std::uint32_t ownerOf(const ByteView& page);

// The row that a pointer names. Its page must hold data of that owner.
[[nodiscard]] StoredRow rowAt(RowPlace place, std::uint32_t owner, PageBuffer& buffer, Version version);

} // namespace jet
