#pragma once

#include "jet/byteView.h"
#include "platform/sharedFile.h"

#include <filesystem>
#include <string>

namespace jet {

constexpr std::size_t markSize = 21;
// Whether these first bytes of a file say Jet, of whatever version.
[[nodiscard]] bool isMark(std::string_view bytes);

enum class PageType : std::uint8_t
{
    Data = 1,
    Definition = 2,
    Map = 5,
};

// The pages of a file, decoded where the file is encoded.
class PageFile
{
public:
    explicit PageFile(const std::filesystem::path& path);

    [[nodiscard]] Version version() const { return m_version; }
    [[nodiscard]] bool isJet3() const { return m_version == Version::Jet3; }
    [[nodiscard]] std::size_t pageSize() const { return isJet3() ? 2048 : 4096; }
    // As the file is long at present.
    [[nodiscard]] std::uint32_t pageCount() const;
    [[nodiscard]] std::uint64_t size() const;
    [[nodiscard]] unsigned codePage() const { return m_codePage; }
    [[nodiscard]] Stamp stamp() const;

    // The bytes of pages that follow one another, of the first one alone where the file ends before the
    // others.
    void read(std::uint32_t first, std::uint32_t count, std::string& buffer) const;

private:
    void readHeader();
    [[nodiscard]] std::size_t readAt(std::uint64_t offset, std::span<char> bytes) const;
    void decode(std::uint32_t first, std::string& buffer) const;

    platform::SharedFile m_file;
    Version m_version = Version::Jet3;
    unsigned m_codePage = 0;
    std::uint32_t m_key = 0; // 0: not encoded
};

// The pages that were read last, kept until others are asked for.
class PageBuffer
{
public:
    explicit PageBuffer(const PageFile& file) : m_file(&file) {}

    [[nodiscard]] bool has(std::uint32_t number) const
    {
        return number >= m_first && number - m_first < m_buffer.size() / m_file->pageSize();
    }
    // Lasts until the next page. Where it has to be read, `ahead` pages behind it are read with it.
    [[nodiscard]] ByteView page(std::uint32_t number, std::uint32_t ahead = 0);
    // The same, of a page that has to be of this type.
    [[nodiscard]] ByteView page(std::uint32_t number, PageType type);
    void forget() { m_first = nothingRead; }

private:
    static constexpr std::uint32_t nothingRead = 0xFFFFFFFF; // above all pages

    const PageFile* m_file;
    std::uint32_t m_first = nothingRead;
    std::string m_buffer;
};

[[nodiscard]] inline bool isOfType(const ByteView& page, PageType type)
{
    return page.u8(0) == static_cast<std::uint8_t>(type);
}

} // namespace jet
