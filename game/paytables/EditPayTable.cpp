#include "game/paytables/EditPayTable.h"

#include "core/paytable/GameCatalogue.h"
#include "game/commands/GameSelection.h"

namespace {

// The table that is played may have another name, other pays, or have been deleted.
void TakeChanges(GameTable& table, const PayTableEditor& editor, const std::string& nameBefore) {
    const MachineSettings& settings = table.engine.settings;
    const auto& made = editor.MadeActive();
    if (made && (made->gameName != settings.gameName || made->tableIndex != settings.activeTable)) {
        ChooseGameTable(table, made->gameId, made->tableIndex);
    } else if (settings.gameName != nameBefore) {
        ChooseGameTable(table, settings.gameId, settings.activeTable);
    } else {
        ReloadPayTable(table);
    }
}

bool Edit(GameTable& table, PayTableEditor& editor) {
    const std::string nameBefore = table.engine.settings.gameName;
    const bool done = table.player.ShowPayTableManager(editor);
    TakeChanges(table, editor, nameBefore);
    return done;
}

}  // namespace

void EditPayTable(GameTable& table, const DataFilePaths& paths) {
    const GameFiles& files = table.files;
    const auto name = table.player.AskGame(SelectableGames(files.file, files.mainPath),
                                           table.engine.settings.gameName);
    if (!name) return;
    const int index = ActiveTable(files.file, files.gamePath, files.mainPath, *name);
    PayTableEditor editor(table, paths,
                          {GameIdFromName(files.file, *name, files.mainPath), *name, index});
    Edit(table, editor);
}

void EditCurrentPayTable(GameTable& table, const DataFilePaths& paths) {
    const MachineSettings& settings = table.engine.settings;
    PayTableEditor editor(table, paths, {settings.gameId, settings.gameName, settings.activeTable});
    Edit(table, editor);
}

void ChooseUserGame(GameTable& table, int id, const DataFilePaths& paths) {
    const PayTableFiles files{table.files.file, table.files.mainPath, paths.analysisCache};
    const int slot = id - kFirstUserGameId + 1;
    const std::string name = UserGameName(files, slot);
    if (!TableExists(files.file, name, 0, files.mainPath)) {
        PayTableEditor editor(table, paths, {id, name, 0}, true);
        if (!Edit(table, editor)) return;
        const bool chosen = editor.MadeActive() && editor.MadeActive()->gameId == id;
        if (chosen) return;
    }
    ChooseGame(table, id);
}
