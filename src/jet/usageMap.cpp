#include "jet/usageMap.h"

#include "jet/dataPage.h"

#include <bit>

namespace jet {

namespace {

void addBits(PageSet& pages, std::string_view bitmap, std::uint64_t firstPage)
{
    constexpr std::uint64_t bitsPerByte = 8;
    for (const char letter : bitmap) {
        for (unsigned rest = static_cast<unsigned char>(letter); rest != 0; rest &= rest - 1)
            pages.add(firstPage + static_cast<unsigned>(std::countr_zero(rest)));
        firstPage += bitsPerByte;
    }
}

// A map whose bits stand in the row itself.
void addInlineMap(PageSet& pages, const ByteView& row)
{
    addBits(pages, row.from(5).bytes(), row.u32(1));
}

// A map whose bits fill pages of their own; the row holds the pages' numbers, 0 where there are no bits.
void addMapOfPages(PageSet& pages, const ByteView& row, const PageFile& file)
{
    constexpr std::size_t headerSize = 4;
    const auto pagesPerMapPage = (file.pageSize() - headerSize) * 8;
    PageBuffer buffer(file);
    for (std::size_t i = 0; 1 + 4 * i + 4 <= row.size(); ++i) {
        const auto number = row.u32(1 + 4 * i);
        if (number != 0)
            addBits(pages, buffer.page(number, PageType::Map).from(headerSize).bytes(), i * pagesPerMapPage);
    }
}

} // namespace

void PageSet::add(std::uint64_t page)
{
    if (page >= m_end)
        m_lacksPages = true;
    else if (page != 0)
        m_words[page / wordBits] |= std::uint64_t{1} << (page % wordBits);
}

std::optional<std::uint32_t> PageSet::firstFrom(std::uint32_t page) const
{
    if (page >= m_end)
        return std::nullopt;
    std::size_t at = page / wordBits;
    auto word = m_words[at] & (~std::uint64_t{0} << (page % wordBits));
    while (word == 0) {
        if (++at == m_words.size())
            return std::nullopt;
        word = m_words[at];
    }
    return static_cast<std::uint32_t>(at * wordBits + static_cast<unsigned>(std::countr_zero(word)));
}

bool PageSet::holds(std::uint32_t page) const
{
    return page < m_end && ((m_words[page / wordBits] >> (page % wordBits)) & 1U) != 0;
}

PageSet readUsageMap(std::uint32_t pointer, const PageFile& file)
{
    PageBuffer buffer(file);
    const auto row = rowAt(placeOfPointer(pointer), mapOwner, buffer, file.version()).bytes;
    PageSet pages(file.pageCount());
    switch (row.u8(0)) {
    case 0:
        addInlineMap(pages, row);
        break;
    case 1:
        addMapOfPages(pages, row, file);
        break;
    default:
        raiseDamage(row.page(), "a map of pages is of an unknown kind");
    }
    return pages;
}

} // namespace jet
