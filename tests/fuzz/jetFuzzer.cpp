#include "fuzz/jetFuzz.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>

namespace {

// Numbers where the pages keep theirs, for the library alone seldom hits the few that matter.
class PageMutator
{
public:
    PageMutator(std::uint8_t* data, std::size_t size, unsigned seed)
        : m_data(data), m_size(size), m_page(size > 0x14 && data[0x14] == 1 ? 4096 : 2048), m_random(seed)
    {}

    [[nodiscard]] bool canMutate() const { return m_size >= 3 * m_page; }

    void mutate()
    {
        for (auto left = 1 + below(3); left > 0; --left) {
            const std::size_t page = (1 + below(pages() - 1)) * m_page;
            switch (below(4)) {
            case 0:
                put(page + below(96), 1U << below(3));
                break;
            case 1: // the directory of a page of rows
                put(page + (m_page == 2048 ? 8 : 12) + 2 * below(20), 2);
                break;
            case 2: // the end of its rows
                put(page + m_page - 1 - below(200), 1U << below(3));
                break;
            default: // anywhere
                put(page + below(m_page), 1U << below(3));
            }
        }
    }

private:
    std::size_t below(std::size_t bound) { return m_random() % bound; }
    [[nodiscard]] std::size_t pages() const { return m_size / m_page; }

    std::uint64_t number()
    {
        static constexpr std::array<std::uint32_t, 14> odd{
            0, 1, 2, 3, 4, 5, 0x7F, 0x8000, 0xC000, 0xFFFF, 0x40000000, 0x80000000, 0x7FFFFFFF, 0xFFFFFFFF};
        switch (below(4)) {
        case 0:
            return odd.at(below(odd.size()));
        case 1: // a page
            return below(pages() + 2);
        case 2: // a row of a page
            return below(pages() + 1) << 8U | below(8);
        default: // a place on a page
            return below(m_page + 2) | (below(8) << 13U);
        }
    }

    void put(std::size_t at, std::size_t width)
    {
        const std::uint64_t value = number();
        for (std::size_t i = 0; i < width && at + i < m_size; ++i)
            m_data[at + i] = static_cast<std::uint8_t>(value >> (8 * i) & 0xFFU);
    }

    std::uint8_t* m_data;
    std::size_t m_size, m_page;
    std::minstd_rand m_random;
};

} // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed)
{
    PageMutator mutator(data, size, seed);
    if (seed % 3 == 0 || !mutator.canMutate())
        return LLVMFuzzerMutate(data, size, maxSize);
    mutator.mutate();
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const fuzzFile::RemovedAtEnd file("jetFuzzer");
    jetFuzz::run(file.path, {reinterpret_cast<const char*>(data), size});
    return 0;
}
