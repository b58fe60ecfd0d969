#include "game/commands/GameSelection.h"

#include <algorithm>

#include "core/paytable/GameCatalogue.h"
#include "core/store/Session.h"
#include "game/commands/MachineCommands.h"
#include "game/flows/BonusFeatures.h"
#include "game/flows/DealSteps.h"
#include "game/saving/SaveGame.h"

namespace {

// Empty when there is none. The games that the menu alone knows are found too: unlike
// GameNameFromId.
std::string NameOf(const GameFiles& files, int id) {
    for (const auto& game : BuiltInGames()) {
        if (game.id == id) return std::string(game.name);
    }
    for (const auto& game : UserGames(files.Main())) {
        if (game.id == id) return game.name;
    }
    return "";
}

bool LacksPayTable(const GameFiles& files, int id, const std::string& name) {
    const auto games = BuiltInGames();
    const bool builtIn = std::ranges::find(games, id, &BuiltInGame::id) != games.end();
    return !builtIn && !TableExists(files.Main(), name, 0);
}

void Select(Seat& seat, int id, const std::string& name, std::optional<int> tableIndex) {
    GameFiles& files = seat.files;
    SettleFeatures(seat);
    seat.engine.handWins = false;
    SaveGame(seat);
    const int table = tableIndex ? *tableIndex : ActiveTable(files.Game(), files.mainPath, name);
    SetCurrentTable(seat.engine.settings, {id, name, table});
    LoadGame(seat.engine, files, seat.tables);
    seat.engine.replayIndex = 0;  // of another log
    SaveNewSession(seat);
    ShowGameOver(seat);
    seat.display.Relayout();
}

}  // namespace

GameChoice ChooseGame(Seat& seat, int id, std::optional<int> tableIndex) {
    const std::string name = NameOf(seat.files, id);
    if (name.empty()) return GameChoice::kUnknown;
    const bool gone = tableIndex && !TableExists(seat.files.Main(), name, *tableIndex);
    if (gone || LacksPayTable(seat.files, id, name)) {
        TellOfMissingPayTable(seat.player);
        return GameChoice::kNoPayTable;
    }
    Select(seat, id, name, tableIndex);
    return GameChoice::kChosen;
}

// The wins of the lines are kept by their numbers in the game file, and so they are here.
void ReloadPayTable(Seat& seat) {
    GameEngine& engine = seat.engine;
    GameFiles& files = seat.files;
    const MachineSettings& settings = engine.settings;
    PayTable changed = LoadPayTable(files.Main(), CurrentTable(settings), files.gamePath);
    const auto& lines = engine.payTable.lines;
    for (std::size_t i = 0; i < std::min(lines.size(), changed.lines.size()); ++i) {
        changed.lines[i].sessionWins = lines[i].sessionWins;
        changed.lines[i].totalWins = lines[i].totalWins;
    }
    if (changed == engine.payTable) return;  // what lies on the table may go on lying there
    SettleFeatures(seat);
    SaveGame(seat);
    UseTable(engine, std::move(changed), seat.tables);
    engine.dealtCopy = engine.statistics.setCards;
    ShowGameOver(seat);
    seat.display.Relayout();
}
