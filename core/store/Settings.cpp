#include "core/store/Settings.h"

#include <algorithm>

#include "core/paytable/GameCatalogue.h"
#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"
#include "core/text/Numbers.h"

namespace {

constexpr std::string_view kMain = "main";
constexpr std::string_view kActiveTables = "ActiveTbl";
constexpr std::size_t kNameSize = 81;  // names have at most 80 bytes
constexpr double kLeastCoin = 0.01;    // the file has two decimals
constexpr double kMostCoin = 1000;

PlayMode ModeFromNumber(int number) {
    return number >= 1 && number <= 4 ? static_cast<PlayMode>(number) : PlayMode::kCasino;
}

// Coins that the menu does not offer stay: the credits are counted in them.
double CoinInUse(double coin) { return coin >= kLeastCoin && coin <= kMostCoin ? coin : 1.0; }

// 0 when no game has that name. Unlike GameIdFromName this knows the games of the menu alone: a
// game file may have one of them as its current game.
int KnownGameId(ProfileFile& file, const std::string& name, int storedId,
                const std::string& mainPath) {
    for (const auto& game : BuiltInGames()) {
        if (SameText(game.name, name)) return game.id;
    }
    // The entry of a user game may hold another id than that of its slot.
    for (const auto& game : UserGames(file, mainPath)) {
        if (game.id == storedId && SameText(game.name, name)) return storedId;
    }
    return GameIdFromName(file, name, mainPath);
}

}  // namespace

Delays DelaysOf(Speed speed) {
    switch (speed) {
        case Speed::kFast:
            return {1, 1};
        case Speed::kNormal:
            return {250, 100};
        case Speed::kSlow:
            break;
    }
    return {500, 250};
}

int ActiveTable(ProfileFile& file, const std::string& gamePath, const std::string& mainPath,
                const std::string& gameName) {
    const int table = file.GetInt(kActiveTables, gameName, 0, gamePath);
    if (table <= 0) return 0;  // no need to change files
    return TableExists(file, gameName, table, mainPath) ? table : 0;
}

void WriteActiveTable(ProfileFile& file, const std::string& gamePath, const std::string& gameName,
                      int table) {
    file.WriteInt(kActiveTables, gameName, table, gamePath);
}

void LoadCurrentGame(ProfileFile& file, const std::string& gamePath, const std::string& mainPath,
                     MachineSettings& settings) {
    const MachineSettings defaults;
    const int storedId = file.GetInt(kMain, "GameID", defaults.gameId, gamePath);
    settings.gameName = file.GetString(kMain, "GameName", defaults.gameName, kNameSize, gamePath);
    settings.gameId = KnownGameId(file, settings.gameName, storedId, mainPath);
    if (settings.gameId == 0) {
        settings.gameId = defaults.gameId;
        settings.gameName = defaults.gameName;
    }
    settings.activeTable = ActiveTable(file, gamePath, mainPath, settings.gameName);
}

void ReadSettings(ProfileFile& file, const std::string& gamePath, MachineSettings& settings) {
    const MachineSettings defaults;
    const auto number = [&](std::string_view key, std::int32_t otherwise) {
        return file.GetInt(kMain, key, otherwise, gamePath);
    };
    settings.credits = std::max(0, number("Credits", defaults.credits));
    settings.bet = std::max(1, number("Bet", defaults.bet));
    settings.mode = ModeFromNumber(number("Mode", static_cast<int>(defaults.mode)));
    settings.coin = CoinInUse(file.GetDouble(kMain, "Coin", defaults.coin, gamePath));
    settings.dollarIn = number("DollarIn", defaults.dollarIn);
    settings.creditsEntered = number("CreditsEntered", defaults.creditsEntered);
    settings.doubleUp = number("DoubleUp", 1) != 0;
    settings.showDollar = number("ShowDollar", 1) != 0;
    settings.sounds = number("Sounds", 1) != 0;
    settings.speed = static_cast<Speed>(number("Speed", static_cast<int>(defaults.speed)));
}

void WriteSettings(ProfileFile& file, const std::string& gamePath,
                   const MachineSettings& settings) {
    const auto write = [&](std::string_view key, std::int32_t value) {
        file.WriteInt(kMain, key, value, gamePath);
    };
    write("Mode", static_cast<int>(settings.mode));
    file.WriteDouble(kMain, "Coin", settings.coin, "%3.2f", gamePath);
    write("Credits", settings.credits);
    write("Bet", settings.bet);
    write("GameID", settings.gameId);
    file.WriteString(kMain, "GameName", settings.gameName, gamePath);
    WriteActiveTable(file, gamePath, settings.gameName, settings.activeTable);
    write("CreditsEntered", settings.creditsEntered);
    write("DollarIn", settings.dollarIn);
    write("DoubleUp", settings.doubleUp ? 1 : 0);
    write("ShowDollar", settings.showDollar ? 1 : 0);
    write("Sounds", settings.sounds ? 1 : 0);
    write("Speed", static_cast<int>(settings.speed));
}
