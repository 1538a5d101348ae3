#include "jet/longValue.h"

#include "jet/dataPage.h"

#include <algorithm>

namespace jet {

namespace {

constexpr std::size_t headerSize = 12;
constexpr std::size_t linkSize = 4;
constexpr std::uint32_t lengthBits = 0x3FFFFFFF;

// Where the bytes stand, by the two highest bits of the length.
enum class Storage : std::uint8_t
{
    Chain = 0,
    SingleRow = 1,
    InField = 2,
};

ByteView partAt(std::uint32_t pointer, const PageFile& file, PageBuffer& pages)
{
    const auto place = placeOfPointer(pointer);
    const auto row = rowAt(place, longValueOwner, pages, file.version());
    if (row.isSkipped || row.isMoved)
        raiseDamage(place.page, "a part of a long value was given up");
    return row.bytes;
}

void joinChain(std::uint32_t pointer, std::size_t length, const PageFile& file, PageBuffer& pages,
               std::string& buffer)
{
    while (buffer.size() < length) {
        const auto part = partAt(pointer, file, pages);
        const auto data = part.from(linkSize).bytes();
        // Every part brings something, so that no circle of parts goes on for ever.
        if (data.empty())
            raiseDamage(part.page(), "a part of a long value is empty");
        buffer += data.substr(0, length - buffer.size());
        pointer = part.u32(0);
    }
}

} // namespace

std::string_view longValueBytes(const ByteView& field, const PageFile& file, PageBuffer& pages,
                                std::string& buffer)
{
    const auto head = field.part(0, headerSize);
    const std::size_t length = head.u32(0) & lengthBits;
    const auto storage = static_cast<Storage>(head.u32(0) >> 30U);
    if (storage == Storage::InField)
        return field.part(headerSize, length).bytes();
    if (storage != Storage::Chain && storage != Storage::SingleRow)
        raiseDamage(field.page(), "a long value is stored in no known way");
    if (length > file.size())
        raiseDamage(field.page(), "a long value is longer than the file");
    buffer.clear();
    if (storage == Storage::SingleRow)
        buffer = partAt(head.u32(4), file, pages).part(0, length).bytes();
    else
        joinChain(head.u32(4), length, file, pages, buffer);
    return buffer;
}

} // namespace jet
