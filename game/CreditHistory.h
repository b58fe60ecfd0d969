// The course of a session's credits, hand by hand, in bounded memory: a long session is kept in
// stretches of several hands, of which the lowest and the highest credits are still known.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class CreditHistory {
  public:
    static constexpr std::size_t kMostStretches = 4096;

    // Credits after the hands of a stretch.
    struct Stretch {
        std::int32_t lowest = 0;
        std::int32_t highest = 0;
        std::int32_t last = 0;

        bool operator==(const Stretch&) const = default;
    };

    // A new course, after so many hands of the session; what was kept is forgotten.
    void Begin(std::int32_t credits, std::int64_t handsBefore = 0);

    // The credits after so many hands of the session. The number of the last hand recorded, or a
    // lower one, means that what that hand left has changed: a second draw, a double up, money
    // entered or paid out. Any higher number is one hand more.
    void Record(std::int64_t hand, std::int32_t credits);

    std::int32_t Start() const { return start; }
    std::int64_t Hands() const { return hands; }  // of this course

    // A power of two; the last stretch may have fewer.
    std::int64_t HandsPerStretch() const { return handsPerStretch; }

    // At most kMostStretches, in the order played; none before the first hand.
    std::span<const Stretch> Stretches() const { return stretches; }

  private:
    void HalveResolution();

    std::vector<Stretch> stretches;
    std::int64_t handsPerStretch = 1;
    std::int64_t handsBefore = 0;
    std::int64_t hands = 0;
    std::int32_t start = 0;
};
