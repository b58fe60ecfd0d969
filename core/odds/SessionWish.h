// The session that is asked about.
#pragma once
#include <cstdint>
#include <optional>

// Money is in bets of one line.
struct SessionWish {
    static constexpr std::int64_t kMostHands = 10'000'000;

    std::int64_t hands = 0;            // 0..kMostHands
    std::optional<double> bankroll{};  // brought, from 0 on; without one there is always more
    std::optional<double> goal{};      // to stop at, of all the money; wants a bankroll
    // 0..1 of what is bet. It is paid when the session has ended, so nothing of it is bet again.
    double cashBack = 0;

    bool operator==(const SessionWish&) const = default;
};
