// The three sizes in which the table's cards and buttons are drawn. The window's size chooses one
// for the whole table, so that cards, pips and buttons always fit each other.
#pragma once

enum class SizeClass {
    kSmall,   // cards of 90 x 120 pixels
    kMedium,  // 120 x 160
    kLarge    // 160 x 220
};
