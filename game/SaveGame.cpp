#include "game/SaveGame.h"

#include <filesystem>

#include "core/store/Session.h"

namespace {

bool IsMissing(const std::string& path) {
    std::error_code error;
    return !std::filesystem::exists(path, error) && !error;
}

void Tell(GameTable& table) {
    if (table.saveFailedTold) return;
    const std::string& path = table.files.gamePath;
    const std::string text =
        IsMissing(path)
            ? "The game file " + path +
                  " is missing, so that nothing you play is saved.\n\nFile New makes a new game "
                  "file, and File Save As makes one of the game as it is now."
            : "The game could not be saved in " + path +
                  ".\n\nMake room on its disk, and see to it that you may write the file and its "
                  "folder. The file is as it was after the last save, and the program will try "
                  "again.";
    table.saveFailedTold = true;
    table.player.IsTold("Save Error", text, MessageIcon::kError);
}

}  // namespace

bool SaveGame(GameTable& table, bool startSession) {
    GameEngine& engine = table.engine;
    const StoredState state{engine.settings, engine.statistics, engine.payTable};
    return ReportSave(table, SaveSettings(table.files.file, table.files.gamePath, state,
                                          startSession, table.clock.Now()));
}

bool ReportSave(GameTable& table, bool saved) {
    if (saved) {
        table.saveFailedTold = false;
    } else {
        Tell(table);
    }
    return saved;
}

void WarnOfMissingGameFile(GameTable& table) {
    if (IsMissing(table.files.gamePath)) Tell(table);
}
