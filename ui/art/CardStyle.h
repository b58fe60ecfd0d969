// How the player likes the cards to look: plain data, which settings can hold.
#pragma once

// 0 is crimson with a rosette, 1 blue waves with a compass, 2 black and gold.
inline constexpr int kCardBackDesigns = 3;

struct CardStyle {
    bool fourColours = false;  // clubs green and diamonds blue instead of black and red
    int back = 0;              // 0..kCardBackDesigns-1; any other number counts as 0

    bool operator==(const CardStyle&) const = default;
};
