#include "game/paytables/EditPayTable.h"

#include "core/paytable/GameCatalogue.h"
#include "game/commands/GameSelection.h"

namespace {

// The table that is played may have another name, other pays, or have been deleted.
void TakeChanges(Seat& seat, const PayTableEditor& editor, const std::string& nameBefore) {
    const MachineSettings& settings = seat.engine.settings;
    const auto& made = editor.MadeActive();
    if (made && (made->gameName != settings.gameName || made->tableIndex != settings.activeTable)) {
        ChooseGame(seat, made->gameId, made->tableIndex);
    } else if (settings.gameName != nameBefore) {
        ChooseGame(seat, settings.gameId, settings.activeTable);
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
    EditPayTableAt(seat, paths, CurrentTable(seat.engine.settings));
}

void EditPayTableAt(Seat& seat, const DataFilePaths& paths, const TableOfGame& table) {
    PayTableEditor editor(seat, paths, table);
    Edit(seat, editor);
}

void ChooseUserGame(Seat& seat, int id, const DataFilePaths& paths) {
    const ProfileOnDisk main = seat.files.Main();
    const std::string name = UserGameName(main, id - kFirstUserGameId + 1);
    if (!TableExists(main, name, 0)) {
        PayTableEditor editor(seat, paths, {id, name, 0}, true);
        if (!Edit(seat, editor)) return;
        if (editor.MadeActive() && editor.MadeActive()->gameId == id) return;
    }
    ChooseGame(seat, id);
}
