#include "game/paytables/EditPayTable.h"

#include "core/paytable/GameCatalogue.h"
#include "game/commands/GameSelection.h"

namespace {

// The table that is played may have another name, other pays, or have been deleted.
void TakeChanges(Seat& seat, const PayTableEditor& editor, const std::string& nameBefore) {
    const MachineSettings& settings = seat.engine.settings;
    const auto& made = editor.MadeActive();
    if (made && (made->gameName != settings.gameName || made->tableIndex != settings.activeTable)) {
        ChooseGameTable(seat, made->gameId, made->tableIndex);
    } else if (settings.gameName != nameBefore) {
        ChooseGameTable(seat, settings.gameId, settings.activeTable);
    } else {
        ReloadPayTable(seat);
    }
}

bool Edit(Seat& seat, PayTableEditor& editor) {
    const std::string nameBefore = seat.engine.settings.gameName;
    const bool done = seat.player.ShowPayTableManager(editor);
    TakeChanges(seat, editor, nameBefore);
    return done;
}

}  // namespace

void EditPayTable(Seat& seat, const DataFilePaths& paths) {
    const GameFiles& files = seat.files;
    const auto name =
        seat.player.AskGame(SelectableGames(files.Main()), seat.engine.settings.gameName);
    if (!name) return;
    const int index = ActiveTable(files.Game(), files.mainPath, *name);
    PayTableEditor editor(seat, paths, {GameIdFromName(files.Main(), *name), *name, index});
    Edit(seat, editor);
}

void EditCurrentPayTable(Seat& seat, const DataFilePaths& paths) {
    const MachineSettings& settings = seat.engine.settings;
    PayTableEditor editor(seat, paths, CurrentTable(settings));
    Edit(seat, editor);
}

void ChooseUserGame(Seat& seat, int id, const DataFilePaths& paths) {
    const PayTableFiles files{seat.files.Main(), paths.analysisCache};
    const int slot = id - kFirstUserGameId + 1;
    const std::string name = UserGameName(files, slot);
    if (!TableExists(files.main, name, 0)) {
        PayTableEditor editor(seat, paths, {id, name, 0}, true);
        if (!Edit(seat, editor)) return;
        const bool chosen = editor.MadeActive() && editor.MadeActive()->gameId == id;
        if (chosen) return;
    }
    ChooseGame(seat, id);
}
