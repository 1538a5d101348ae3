#include "jet/dataPage.h"

namespace jet {

namespace {

constexpr std::uint16_t skipFlag = 0x8000;
constexpr std::uint16_t movedFlag = 0x4000;
constexpr std::uint16_t startBits = 0x1FFF;

std::size_t rowCountOffset(Version version)
{
    return version == Version::Jet3 ? 8 : 12;
}

} // namespace

std::uint32_t ownerOf(const ByteView& page)
{
    return page.u32(4);
}

DataPage::DataPage(const ByteView& page, Version version)
    : m_page(page), m_directory(rowCountOffset(version) + 2), m_rowCount(page.u16(rowCountOffset(version)))
{
    if (directoryEnd() > page.size())
        raiseDamage(page.page(), "the directory of its rows goes beyond its end");
}

std::uint16_t DataPage::entry(std::uint32_t number) const
{
    return m_page.u16(m_directory + 2UL * number);
}

StoredRow DataPage::row(std::uint32_t number) const
{
    if (number >= m_rowCount)
        raiseDamage(m_page.page(), "it lacks a row that something leads to");
    const auto own = entry(number);
    const std::size_t start = own & startBits;
    const std::size_t end = number == 0 ? m_page.size() : entry(number - 1) & startBits;
    if (start < directoryEnd() || start > end || end > m_page.size())
        raiseDamage(m_page.page(), "a row lies outside its place");
    return {m_page.part(start, end - start), (own & skipFlag) != 0, (own & movedFlag) != 0};
}

StoredRow rowAt(RowPlace place, std::uint32_t owner, PageBuffer& buffer, Version version)
{
    const auto page = buffer.page(place.page, PageType::Data);
    if (ownerOf(page) != owner)
        raiseDamage(place.page, "it belongs to another owner than the one that leads to it");
    return DataPage(page, version).row(place.row);
}

} // namespace jet
