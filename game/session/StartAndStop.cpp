#include "game/session/StartAndStop.h"

#include "core/profile/ProfileFile.h"
#include "game/commands/FileCommands.h"
#include "game/commands/GameSelection.h"
#include "game/flows/BonusFeatures.h"
#include "game/paytables/PayTableGameFiles.h"
#include "game/saving/GameFile.h"
#include "game/saving/SaveGame.h"

namespace {

// The deck is seeded in the same second, and must not run along with the features.
constexpr std::uint32_t kFeatureSeed = 0x7F4A7C15;

}  // namespace

void StartGame(GameTable& table, const DataFilePaths& paths) {
    table.files.mainPath = paths.mainProfile;
    table.files.cachePath = paths.analysisCache;
    TakeUpGameFile(table, CurrentGamePath(paths, table.files.file));
    ResumeUnfinishedEdit({table.files.file, paths.mainProfile, paths.analysisCache}, paths.folder);
    table.random.RandomInit(static_cast<std::uint32_t>(table.clock.Now()) ^ kFeatureSeed);
    LoadGameFile(table);
}

void FinishStart(GameTable& table, const std::string& gameFile) {
    EnterStoredMode(table);
    const std::string stored = table.files.gamePath;
    if (!gameFile.empty()) OpenNamedGameFile(table, gameFile);
    if (table.files.gamePath != stored) return;  // that was told then
    TellIfNotLocked(table);
    const bool elsewhere = !GameFileProblem(stored) && WhyNotSaved(table);
    TellWhyNotSaved(table);
    if (elsewhere) OpenGameFile(table);
}

bool StopGame(GameTable& table, const DataFilePaths& paths) {
    SettleFeatures(table);
    StoreCurrentGamePath(table.files.gamePath, paths, table.files.file);
    const bool saved = SaveGameToStop(table);
    return table.files.file.Flush() && saved;
}
