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
int KnownGameId(const ProfileOnDisk& main, const std::string& name, int storedId) {
    for (const auto& game : BuiltInGames()) {
        if (SameText(game.name, name)) return game.id;
    }
    // The entry of a user game may hold another id than that of its slot.
    for (const auto& game : UserGames(main)) {
        if (game.id == storedId && SameText(game.name, name)) return storedId;
    }
    return GameIdFromName(main, name);
}

}  // namespace

TableOfGame CurrentTable(const MachineSettings& settings) {
    return {settings.gameId, settings.gameName, settings.activeTable};
}

void SetCurrentTable(MachineSettings& settings, const TableOfGame& table) {
    settings.gameId = table.gameId;
    settings.gameName = table.gameName;
    settings.activeTable = table.tableIndex;
}

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

int ActiveTable(const ProfileOnDisk& game, const std::string& mainPath,
                const std::string& gameName) {
    const int table = game.file.GetInt(kActiveTables, gameName, 0, game.path);
    if (table <= 0) return 0;  // no need to change files
    return TableExists({game.file, mainPath}, gameName, table) ? table : 0;
}

void WriteActiveTable(const ProfileOnDisk& game, const std::string& gameName, int table) {
    game.file.WriteInt(kActiveTables, gameName, table, game.path);
}

void LoadCurrentGame(const ProfileOnDisk& game, const std::string& mainPath,
                     MachineSettings& settings) {
    const MachineSettings defaults;
    const int storedId = game.file.GetInt(kMain, "GameID", defaults.gameId, game.path);
    settings.gameName =
        game.file.GetString(kMain, "GameName", defaults.gameName, kNameSize, game.path);
    settings.gameId = KnownGameId({game.file, mainPath}, settings.gameName, storedId);
    if (settings.gameId == 0) {
        settings.gameId = defaults.gameId;
        settings.gameName = defaults.gameName;
    }
    settings.activeTable = ActiveTable(game, mainPath, settings.gameName);
}

void ReadSettings(const ProfileOnDisk& game, MachineSettings& settings) {
    const MachineSettings defaults;
    const auto number = [&](std::string_view key, std::int32_t otherwise) {
        return game.file.GetInt(kMain, key, otherwise, game.path);
    };
    settings.credits = std::max(0, number("Credits", defaults.credits));
    settings.bet = std::max(1, number("Bet", defaults.bet));
    settings.mode = ModeFromNumber(number("Mode", static_cast<int>(defaults.mode)));
    settings.coin = CoinInUse(game.file.GetDouble(kMain, "Coin", defaults.coin, game.path));
    settings.dollarIn = number("DollarIn", defaults.dollarIn);
    settings.creditsEntered = number("CreditsEntered", defaults.creditsEntered);
    settings.doubleUp = number("DoubleUp", 1) != 0;
    settings.showDollar = number("ShowDollar", 1) != 0;
    settings.sounds = number("Sounds", 1) != 0;
    settings.speed = static_cast<Speed>(number("Speed", static_cast<int>(defaults.speed)));
}

void WriteSettings(const ProfileOnDisk& game, const MachineSettings& settings) {
    const auto write = [&](std::string_view key, std::int32_t value) {
        game.file.WriteInt(kMain, key, value, game.path);
    };
    write("Mode", static_cast<int>(settings.mode));
    game.file.WriteDouble(kMain, "Coin", settings.coin, "%3.2f", game.path);
    write("Credits", settings.credits);
    write("Bet", settings.bet);
    write("GameID", settings.gameId);
    game.file.WriteString(kMain, "GameName", settings.gameName, game.path);
    WriteActiveTable(game, settings.gameName, settings.activeTable);
    write("CreditsEntered", settings.creditsEntered);
    write("DollarIn", settings.dollarIn);
    write("DoubleUp", settings.doubleUp ? 1 : 0);
    write("ShowDollar", settings.showDollar ? 1 : 0);
    write("Sounds", settings.sounds ? 1 : 0);
    write("Speed", static_cast<int>(settings.speed));
}
