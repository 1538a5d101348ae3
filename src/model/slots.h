#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

// A fixed array of sub-records that knows which of its slots may have been written since they were last
// emptied. A notice has room for some 14,000 strings and uses a few dozen: emptying and copying look at the
// touched slots alone. An untouched slot always equals T{}.
//
// Any access that could write marks its slot, so a plain record type stays plain to its users. A reference
// kept from before an emptying must not be written through afterwards. No bounds check: slots are numbered
// from 0.
template <class T, std::size_t N>
class Slots
{
    static_assert(N <= 32);

public:
    Slots() = default;
    ~Slots() = default;
    Slots(const Slots& other) { *this = other; }
    Slots(Slots&& other) noexcept { *this = std::move(other); }

    Slots& operator=(const Slots& other)
    {
        if (this == &other)
            return *this;
        for (std::uint32_t rest = m_touched | other.m_touched; rest != 0; rest &= rest - 1) {
            const auto slot = static_cast<std::size_t>(std::countr_zero(rest));
            m_slots[slot] = other.m_slots[slot];
        }
        m_touched = other.m_touched;
        return *this;
    }
    // What is left in the other's touched slots is unspecified, and they stay touched.
    Slots& operator=(Slots&& other) noexcept
    {
        if (this == &other)
            return *this;
        for (std::uint32_t rest = m_touched | other.m_touched; rest != 0; rest &= rest - 1) {
            const auto slot = static_cast<std::size_t>(std::countr_zero(rest));
            if ((other.m_touched >> slot & 1U) != 0)
                m_slots[slot] = std::move(other.m_slots[slot]);
            else
                m_slots[slot] = T{};
        }
        m_touched = other.m_touched;
        return *this;
    }

    [[nodiscard]] T& operator[](std::size_t slot)
    {
        m_touched |= 1U << slot;
        return m_slots[slot];
    }
    [[nodiscard]] const T& operator[](std::size_t slot) const { return m_slots[slot]; }

    // Reading alone, also on a record that may be written.
    [[nodiscard]] const T& at(std::size_t slot) const { return m_slots[slot]; }
    [[nodiscard]] static constexpr std::size_t size() { return N; }
    [[nodiscard]] auto begin() const { return m_slots.begin(); }
    [[nodiscard]] auto end() const { return m_slots.end(); }

    // Applies `empty` to each touched slot; all are untouched afterwards.
    template <class Empty>
    void emptyTouched(Empty empty)
    {
        for (std::uint32_t rest = m_touched; rest != 0; rest &= rest - 1)
            empty(m_slots[static_cast<std::size_t>(std::countr_zero(rest))]);
        m_touched = 0;
    }

    bool operator==(const Slots& other) const { return m_slots == other.m_slots; }

private:
    std::array<T, N> m_slots{};
    std::uint32_t m_touched = 0;
};
