// The names and ids of the built-in games, and of the player's own games.
#pragma once
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/profile/ProfileFile.h"

inline constexpr int kFirstUserGameId = 9001;
inline constexpr int kMaxUserGames = 10;

struct BuiltInGame {
    int id;
    std::string_view name;
    bool offered;   // stands in the Games menu
    bool menuOnly;  // known by its menu caption alone: the look-ups by name and id do not find it
};

struct UserGame {
    int id = 0;
    std::string name;
};

// The 42 built-in games by rising id.
std::span<const BuiltInGame> BuiltInGames();

// The slots "1".."10" of the "User Games" section of the main profile file that hold a name, in
// slot order; the id is the one stored with the name.
std::vector<UserGame> UserGames(const ProfileOnDisk& main);

// Any letter case; built-in games first, then the user game slots (slot n gives 9000 + n); 0 when
// there is none. Menu-only games are not found.
int GameIdFromName(const ProfileOnDisk& main, std::string_view name);

// The name of an offered built-in game, otherwise of the user game stored with that id; empty when
// none.
std::string GameNameFromId(const ProfileOnDisk& main, int id);

// What a list of games to choose from holds: the names of ids 300..398 by rising id, then the
// player's own games that have a first pay table, in slot order.
std::vector<std::string> SelectableGames(const ProfileOnDisk& main);
