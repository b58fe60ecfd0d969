// The menu bar as a table: which entries stand in which menu, which are checked, and which are
// greyed while a hand is in play.
#pragma once
#include <span>

struct GameEngine;

enum class Grey { kNever, kDuringHand, kAlways };

inline constexpr int kSeparator = 0;
inline constexpr int kUserGamesMenu = -1;  // the submenu of the player's own games

struct MenuEntry {
    int id = kSeparator;       // a command (ui/table/Commands.h), a game's id, or one of the above
    const char* caption = "";  // with the letter that chooses it after a '&'
    Grey grey = Grey::kNever;
    const char* shortcut = "";  // empty = none
};

struct MenuPopup {
    const char* name;  // of the menu object
    const char* caption;
    std::span<const MenuEntry> entries;
};

std::span<const MenuPopup> MenuBar();

// Whether an entry has a check mark, and whether it may be chosen, as the machine stands.
bool IsChecked(int id, const GameEngine& engine);
bool IsEnabled(Grey grey, const GameEngine& engine);

// How a command is greyed; kNever for one that stands in no menu. Games of the player's own are
// greyed as the others are.
Grey GreyOf(int id);
