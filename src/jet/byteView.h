#pragma once

#include "jet/jetFile.h"

#include <bit>
#include <cstdint>
#include <string_view>

namespace jet {

[[noreturn]] void raiseDamage(std::uint32_t page, std::string_view what);

// Bytes of a page, all of whose reading is checked: what lies beyond their end is damage of that page.
// Numbers are little-endian.
class ByteView
{
public:
    ByteView() = default;
    ByteView(std::string_view bytes, std::uint32_t page) : m_bytes(bytes), m_page(page) {}

    [[nodiscard]] std::uint8_t u8(std::size_t at) const
    {
        require(at, 1);
        return byteAt(at);
    }
    [[nodiscard]] std::uint16_t u16(std::size_t at) const
    {
        require(at, 2);
        return static_cast<std::uint16_t>(byteAt(at) | (byteAt(at + 1) << 8U));
    }
    [[nodiscard]] std::uint32_t u32(std::size_t at) const
    {
        require(at, 4);
        return fourBytes(at);
    }
    [[nodiscard]] std::uint64_t u64(std::size_t at) const
    {
        require(at, 8);
        return fourBytes(at) | (static_cast<std::uint64_t>(fourBytes(at + 4)) << 32U);
    }
    [[nodiscard]] float single(std::size_t at) const { return std::bit_cast<float>(u32(at)); }
    [[nodiscard]] double number(std::size_t at) const { return std::bit_cast<double>(u64(at)); }

    [[nodiscard]] ByteView part(std::size_t at, std::size_t size) const
    {
        require(at, size);
        return {m_bytes.substr(at, size), m_page};
    }
    [[nodiscard]] ByteView from(std::size_t at) const
    {
        require(at, 0);
        return {m_bytes.substr(at), m_page};
    }

    [[nodiscard]] std::string_view bytes() const { return m_bytes; }
    [[nodiscard]] std::size_t size() const { return m_bytes.size(); }
    [[nodiscard]] std::uint32_t page() const { return m_page; }

private:
    void require(std::size_t at, std::size_t size) const
    {
        if (at > m_bytes.size() || m_bytes.size() - at < size)
            raiseDamage(m_page, "a value goes beyond its end");
    }
    [[nodiscard]] std::uint8_t byteAt(std::size_t at) const { return static_cast<std::uint8_t>(m_bytes[at]); }
    [[nodiscard]] std::uint32_t fourBytes(std::size_t at) const
    {
        return byteAt(at) | (static_cast<std::uint32_t>(byteAt(at + 1)) << 8U) |
               (static_cast<std::uint32_t>(byteAt(at + 2)) << 16U) |
               (static_cast<std::uint32_t>(byteAt(at + 3)) << 24U);
    }

    std::string_view m_bytes;
    std::uint32_t m_page = 0;
};

} // namespace jet
