// Numbers for looks of holds, in the order in which they are first met: some ten thousand of them
// stand for the millions of holds of a game.
#pragma once
#include <cstdint>
#include <vector>

#include "core/strategy/Holds.h"

class LookIndex {
  public:
    LookIndex() : slots(kFirstSlots, kFree) {}

    std::size_t Count() const { return looks.size(); }
    HoldLook At(std::size_t number) const { return looks[number]; }

    std::uint32_t NumberOf(HoldLook look) {
        std::size_t slot = SlotOf(look);
        if (slots[slot] != kFree) return slots[slot];
        if (looks.size() * 2 >= slots.size()) {
            Grow();
            slot = SlotOf(look);
        }
        slots[slot] = static_cast<std::uint32_t>(looks.size());
        looks.push_back(look);
        return slots[slot];
    }

  private:
    static constexpr std::size_t kFirstSlots = std::size_t{1} << 15;
    static constexpr std::uint32_t kFree = UINT32_MAX;

    std::size_t SlotOf(HoldLook look) const {
        // Multiplying spreads the fields over the high bits (Fibonacci hashing).
        const std::size_t mask = slots.size() - 1;
        std::size_t slot = static_cast<std::size_t>((look * 0x9E3779B97F4A7C15U) >> 32) & mask;
        while (slots[slot] != kFree && looks[slots[slot]] != look) slot = (slot + 1) & mask;
        return slot;
    }

    void Grow() {
        slots.assign(slots.size() * 2, kFree);
        for (std::size_t i = 0; i < looks.size(); ++i) {
            slots[SlotOf(looks[i])] = static_cast<std::uint32_t>(i);
        }
    }

    std::vector<std::uint32_t> slots;  // their number is a power of two
    std::vector<HoldLook> looks;
};
