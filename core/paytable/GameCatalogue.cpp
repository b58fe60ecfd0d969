#include "core/paytable/GameCatalogue.h"

#include <algorithm>
#include <array>

#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"
#include "core/text/Numbers.h"

namespace {

constexpr std::array<BuiltInGame, 42> kBuiltIn = {{
    {300, "Jacks or Better", true, false},
    {301, "Bonus Poker", true, false},
    {302, "Double Bonus Poker", true, false},
    {303, "Double Double Bonus Poker", true, false},
    {304, "Super Double Bonus Poker", true, false},
    {305, "Super Double Double Bonus", true, false},
    {306, "Bonus Poker Deluxe", true, false},
    {307, "Triple Bonus Poker", true, false},
    {308, "2 Pair Poker", true, false},
    {309, "Aces and Faces", true, false},
    {310, "Double Aces and Faces", true, false},
    {311, "Double Double Aces and Faces", true, false},
    {312, "All American Poker", true, false},
    {313, "5 Aces Bonus Poker", true, false},
    {314, "5 Aces Double Bonus Poker", true, false},
    {315, "5 Aces Double Double Poker", true, false},
    {316, "Aces Bonus Poker", false, false},
    {317, "One-Eyed Jacks", true, false},
    {318, "Dbl Draw Bonus", false, false},
    {319, "Dbl Draw Dbl Bonus", false, false},
    {320, "Dbl Draw Dbl Dbl Bonus", false, false},
    {321, "Dbl Draw Super Dbl Dbl Bonus", false, false},
    {330, "Deuces Wild", true, false},
    {331, "Deuces and Joker Wild", true, false},
    {332, "Deuces Deluxe", true, false},
    {333, "Sevens Wild", true, false},
    {334, "Bonus Deuces Wild", true, false},
    {335, "Super Bonus Deuces Wild", true, false},
    {340, "Joker Poker - Kings or Better", true, false},
    {341, "Joker Poker - Aces or Better", true, false},
    {342, "Joker Poker - 2 Pair", true, false},
    {343, "Atlantic City 5K Joker Poker", true, false},
    {344, "2 Joker Poker", true, false},
    {345, "4 Joker Poker", true, false},
    {346, "5 Joker Poker", true, false},
    {350, "Pick Em Poker", true, false},
    {351, "Sneak Peak Poker", false, false},
    {352, "Red and Black Poker", false, true},
    {353, "5 Card Charlie", false, true},
    {354, "Spin Bonus Poker", false, true},
    {355, "Target Bonus Poker", false, true},
    {356, "Super Bonus Poker", false, true},
}};
constexpr int kFirstListedId = 300;
constexpr int kLastListedId = 398;
constexpr std::size_t kStoredIdLength = 4;  // "9003,My Game": the name starts behind the comma

// The name in a slot; empty when the slot is.
std::string NameInSlot(const std::string& stored) {
    return stored.size() > kStoredIdLength + 1 ? stored.substr(kStoredIdLength + 1) : std::string();
}

std::string ReadSlot(const ProfileOnDisk& main, int slot) {
    return main.file.GetString("User Games", std::to_string(slot), "", ProfileFile::kWholeValue,
                               main.path);
}

}  // namespace

std::span<const BuiltInGame> BuiltInGames() { return kBuiltIn; }

std::vector<UserGame> UserGames(const ProfileOnDisk& main) {
    std::vector<UserGame> games;
    for (int slot = 1; slot <= kMaxUserGames; ++slot) {
        const std::string stored = ReadSlot(main, slot);
        const std::string name = NameInSlot(stored);
        if (!name.empty()) games.push_back({ParseInt(stored), name});
    }
    return games;
}

int GameIdFromName(const ProfileOnDisk& main, std::string_view name) {
    const auto* found = std::ranges::find_if(kBuiltIn, [name](const BuiltInGame& game) {
        return !game.menuOnly && SameText(game.name, name);
    });
    if (found != kBuiltIn.end()) return found->id;
    if (name.empty()) return 0;
    for (int slot = 1; slot <= kMaxUserGames; ++slot) {
        if (SameText(NameInSlot(ReadSlot(main, slot)), name)) {
            return kFirstUserGameId + slot - 1;
        }
    }
    return 0;
}

std::string GameNameFromId(const ProfileOnDisk& main, int id) {
    for (const auto& game : kBuiltIn) {
        if (game.id == id && game.offered) return std::string(game.name);
    }
    for (const auto& game : UserGames(main)) {
        if (game.id == id) return game.name;
    }
    return "";
}

std::vector<std::string> SelectableGames(const ProfileOnDisk& main) {
    std::vector<std::string> names;
    for (int id = kFirstListedId; id <= kLastListedId; ++id) {
        std::string name = GameNameFromId(main, id);
        if (!name.empty()) names.push_back(std::move(name));
    }
    for (auto& game : UserGames(main)) {
        if (TableExists(main, game.name, 0)) names.push_back(std::move(game.name));
    }
    return names;
}
