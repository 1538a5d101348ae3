#include "jet/pageFile.h"

#include "jet/rc4.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <system_error>

namespace jet {

namespace {

using namespace std::literals;

constexpr auto markName = "\0\1\0\0Standard Jet DB\0"sv;
constexpr std::size_t versionOffset = 20;
constexpr std::uint32_t headerKey = 0x6B39DAC7;
constexpr std::size_t encodedHeaderStart = 0x18;
constexpr std::size_t encodedHeaderSize = 126; // longer in the newer version, but nothing behind is wanted
constexpr std::size_t codePageOffset = 0x3C;
constexpr std::size_t keyOffset = 0x3E;
constexpr std::size_t headerSize = encodedHeaderStart + encodedHeaderSize;
constexpr std::uint32_t fewestPages = 3; // header, free pages, catalogue

Fault faultOf(const std::system_error& error)
{
    const auto& code = error.code();
    if (code == std::errc::no_such_file_or_directory || code == std::errc::not_a_directory)
        return Fault::Missing;
    if (code == std::errc::permission_denied || code == std::errc::operation_not_permitted)
        return Fault::NoPermission;
    return Fault::Disk;
}

// Turns the host's failures into this reader's.
template <class Action>
auto onDisk(Action action)
{
    try {
        return action();
    } catch (const std::system_error& error) {
        throw Error(faultOf(error), error.code().message());
    }
}

platform::SharedFile opened(const std::filesystem::path& path)
{
    return onDisk([&] { return platform::SharedFile(path); });
}

[[noreturn]] void raiseUnrecognized()
{
    throw Error(Fault::Unrecognized, "The file is of another kind or of a newer version.");
}

} // namespace

bool isMark(std::string_view bytes)
{
    return bytes.size() >= markSize && bytes.starts_with(markName);
}

PageFile::PageFile(const std::filesystem::path& path) : m_file(opened(path))
{
    readHeader();
    if (pageCount() < fewestPages)
        raiseDamage(0, "the file ends before its catalogue");
}

void PageFile::readHeader()
{
    std::array<char, headerSize> header{};
    const auto got = readAt(0, header);
    if (!isMark({header.data(), got}))
        raiseUnrecognized();
    const auto version = static_cast<unsigned char>(header[versionOffset]);
    if (version > 1)
        raiseUnrecognized();
    m_version = version == 0 ? Version::Jet3 : Version::Jet4;
    applyKeyStream(headerKey, std::span(header).subspan(encodedHeaderStart));
    const ByteView view({header.data(), got}, 0);
    m_codePage = view.u16(codePageOffset);
    m_key = view.u32(keyOffset);
}

std::uint64_t PageFile::size() const
{
    return onDisk([&] { return m_file.size(); });
}

std::uint32_t PageFile::pageCount() const
{
    // A pointer has 24 bits for the page.
    constexpr std::uint64_t mostPages = 0x1000000;
    return static_cast<std::uint32_t>(std::min(size() / pageSize(), mostPages));
}

Stamp PageFile::stamp() const
{
    Stamp stamp;
    stamp.size = size();
    stamp.modified = onDisk([&] { return m_file.modified(); });
    std::array<char, std::tuple_size_v<decltype(stamp.commitBytes)>> bytes{};
    if (readAt(pageSize() - bytes.size(), bytes) < bytes.size())
        raiseDamage(0, "the file ends within the page");
    std::transform(bytes.begin(), bytes.end(), stamp.commitBytes.begin(),
                   [](char byte) { return static_cast<std::uint8_t>(byte); });
    return stamp;
}

std::size_t PageFile::readAt(std::uint64_t offset, std::span<char> bytes) const
{
    return onDisk([&] { return m_file.readAt(offset, bytes); });
}

void PageFile::read(std::uint32_t first, std::uint32_t count, std::string& buffer) const
{
    if (first == 0 || first >= pageCount())
        raiseDamage(first, "there is no such page");
    buffer.resize(count * pageSize());
    const auto got = readAt(static_cast<std::uint64_t>(first) * pageSize(), buffer);
    buffer.resize(got - got % pageSize());
    if (buffer.empty())
        raiseDamage(first, "the file ends within the page");
    decode(first, buffer);
}

void PageFile::decode(std::uint32_t first, std::string& buffer) const
{
    if (m_key == 0)
        return;
    std::span<char> rest(buffer);
    for (auto page = first; !rest.empty(); ++page) {
        applyKeyStream(m_key ^ page, rest.first(pageSize()));
        rest = rest.subspan(pageSize());
    }
}

ByteView PageBuffer::page(std::uint32_t number, std::uint32_t ahead)
{
    if (!has(number)) {
        m_first = nothingRead;
        m_file->read(number, 1 + ahead, m_buffer);
        m_first = number;
    }
    const auto size = m_file->pageSize();
    return ByteView(m_buffer, number).part((number - m_first) * size, size);
}

ByteView PageBuffer::page(std::uint32_t number, PageType type)
{
    const auto view = page(number);
    if (!isOfType(view, type))
        raiseDamage(number, "it is of another type than the one that leads to it says");
    return view;
}

} // namespace jet
