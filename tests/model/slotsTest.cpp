#include "model/slots.h"

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <utility>

namespace {

struct Item
{
    std::string text;
    bool present = false;
    bool operator==(const Item&) const = default;
};

void emptyItem(Item& item)
{
    item = {};
}

constexpr std::size_t size = 7;
using ItemSlots = Slots<Item, size>;
using PlainItems = std::array<Item, size>;

bool holdTheSame(const ItemSlots& slots, const PlainItems& plain)
{
    for (std::size_t i = 0; i < size; ++i) {
        if (slots.at(i) != plain[i])
            return false;
    }
    return true;
}

TEST(SlotsOfARecord, areEmptyAtFirst)
{
    const ItemSlots slots;
    EXPECT_TRUE(holdTheSame(slots, PlainItems{}));
    EXPECT_EQ(ItemSlots::size(), size);
}

TEST(SlotsOfARecord, areEmptiedByAnAssignmentFromUntouchedOnes)
{
    ItemSlots slots;
    slots[3] = {"a", true};
    slots = ItemSlots();
    EXPECT_EQ(slots, ItemSlots());
    EXPECT_EQ(slots.at(3), Item());
}

TEST(SlotsOfARecord, thatAreNotPresentKeepTheirValuesWhenCopied)
{
    ItemSlots source;
    source[2].text = "held though not present";
    ItemSlots assigned;
    assigned[4].text = "to be overwritten";
    assigned = source;
    const ItemSlots copied(source);
    for (const auto* slots : {static_cast<const ItemSlots*>(&assigned), &copied}) {
        EXPECT_EQ(*slots, source);
        EXPECT_EQ(slots->at(2).text, "held though not present");
        EXPECT_EQ(slots->at(4).text, "");
    }
}

TEST(SlotsOfARecord, thatAreNotPresentAreEmptied)
{
    ItemSlots slots;
    slots[2].text = "held though not present";
    slots.emptyTouched(emptyItem);
    EXPECT_EQ(slots, ItemSlots());
}

TEST(SlotsOfARecord, keepTheirValuesWhenAssignedToThemselves)
{
    ItemSlots slots;
    slots[0] = {"a", true};
    slots[size - 1].text = "b";
    auto& same = slots;
    slots = same;
    EXPECT_EQ(slots.at(0), (Item{"a", true}));
    EXPECT_EQ(slots.at(size - 1).text, "b");
    slots.emptyTouched(emptyItem);
    EXPECT_EQ(slots, ItemSlots()) << "they are still known to be touched";
}

TEST(SlotsOfARecord, areCopiedByAMove)
{
    ItemSlots source;
    source[1] = {"a", true};
    const ItemSlots moved(std::move(source));
    EXPECT_EQ(moved.at(1), (Item{"a", true}));
}

TEST(SlotsOfARecord, areMarkedByAnyAccessThatCouldWrite)
{
    ItemSlots slots;
    auto& item = slots[5];
    item.text = "written later";
    const ItemSlots copy(slots);
    EXPECT_EQ(copy.at(5).text, "written later");
}

TEST(SlotsOfARecord, areEmptiedOnceAndOnlyWhereTouched)
{
    ItemSlots slots;
    slots[1].text = "a";
    slots[6].text = "b";
    int emptied = 0;
    const auto count = [&emptied](Item& item) {
        item = {};
        ++emptied;
    };
    slots.emptyTouched(count);
    EXPECT_EQ(emptied, 2);
    slots.emptyTouched(count);
    EXPECT_EQ(emptied, 2);
}

TEST(SlotsOfARecord, useAllThirtyTwo)
{
    Slots<Item, 32> slots;
    for (const std::size_t slot : {0U, 31U})
        slots[slot].text = "a";
    const auto copy = slots;
    EXPECT_EQ(copy.at(0).text, "a");
    EXPECT_EQ(copy.at(31).text, "a");
    slots.emptyTouched(emptyItem);
    EXPECT_EQ(slots, (Slots<Item, 32>()));
}

TEST(SlotsOfARecord, areWalkedInTheirOrder)
{
    ItemSlots slots;
    slots[0].text = "a";
    slots[6].text = "g";
    std::string walked;
    for (const auto& item : slots)
        walked += item.text.empty() ? "-" : item.text;
    EXPECT_EQ(walked, "a-----g");
}

// Whatever is done to some records, they hold what plain arrays would hold.
class RandomSequence
{
public:
    void step()
    {
        const auto target = pick(records);
        const auto source = pick(records);
        const auto slot = pick(size);
        switch (pick(6)) {
        case 0:
            write(target, slot, {std::to_string(m_random()), pick(2) == 0});
            break;
        case 1: // read through the access that could write
            EXPECT_EQ(m_slots[target][slot], m_plain[target][slot]);
            break;
        case 2:
            m_slots[target] = m_slots[source];
            m_plain[target] = m_plain[source];
            break;
        case 3: {
            auto copy = m_slots[source];
            m_slots[target] = std::move(copy);
            m_plain[target] = m_plain[source];
            break;
        }
        case 4:
            m_slots[target].emptyTouched(emptyItem);
            m_plain[target] = {};
            break;
        default:
            write(target, slot, {});
            break;
        }
    }

    [[nodiscard]] bool isTrue() const
    {
        for (std::size_t i = 0; i < records; ++i) {
            for (std::size_t j = 0; j < records; ++j) {
                if ((m_slots[i] == m_slots[j]) != (m_plain[i] == m_plain[j]))
                    return false;
            }
            if (!holdTheSame(m_slots[i], m_plain[i]))
                return false;
        }
        return true;
    }

private:
    static constexpr std::size_t records = 4;

    std::size_t pick(std::size_t count) { return m_random() % count; }
    void write(std::size_t record, std::size_t slot, const Item& item)
    {
        m_slots[record][slot] = item;
        m_plain[record][slot] = item;
    }

    std::mt19937 m_random{20240305};
    std::array<ItemSlots, records> m_slots;
    std::array<PlainItems, records> m_plain;
};

TEST(SlotsOfARecord, holdWhatPlainArraysWouldHold)
{
    RandomSequence sequence;
    for (int i = 0; i < 20000; ++i) {
        sequence.step();
        ASSERT_TRUE(sequence.isTrue()) << "step " << i;
    }
}

} // namespace
