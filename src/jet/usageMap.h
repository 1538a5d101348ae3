#pragma once

#include "jet/pageFile.h"

#include <optional>
#include <vector>

namespace jet {

// Numbers of pages, each once, in rising order.
class PageSet
{
public:
    // For numbers below this one.
    explicit PageSet(std::uint32_t end) : m_end(end), m_words((end + wordBits - 1) / wordBits) {}

    // Page 0, and pages beyond the end, are left out.
    void add(std::uint64_t page);
    // Whether pages beyond the end were.
    [[nodiscard]] bool lacksPages() const { return m_lacksPages; }
    // The first one from `page` on.
    [[nodiscard]] std::optional<std::uint32_t> firstFrom(std::uint32_t page) const;
    [[nodiscard]] bool holds(std::uint32_t page) const;

private:
    static constexpr std::uint32_t wordBits = 64;

    std::uint32_t m_end;
    bool m_lacksPages = false;
    std::vector<std::uint64_t> m_words;
};

// The pages of a table, as the map says that the pointer leads to.
[[nodiscard]] PageSet readUsageMap(std::uint32_t pointer, const PageFile& file);

} // namespace jet
