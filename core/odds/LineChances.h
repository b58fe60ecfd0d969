// The chance to see each pay line in a session that may end early.
#pragma once
#include <array>
#include <functional>
#include <optional>

#include "core/odds/DealLaw.h"
#include "core/odds/SessionLaw.h"

struct LineChances {
    std::array<double, kMaxPayLines> atLeastOnce{};
    // The money may end the session, and these are of all its deals for all that: of many lines at
    // once, and where following the money is too much work.
    bool areOfAllDeals = false;
};

// A line is not seen as often as a session without it ends before its last hand, or comes to it.
// Nothing when goesOn, which is asked all the time, says no.
std::optional<LineChances> FindLineChances(const DealLaw& deal, const SessionWish& wish,
                                           const std::function<bool()>& goesOn);
