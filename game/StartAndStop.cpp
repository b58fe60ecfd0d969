#include "game/StartAndStop.h"

#include "core/profile/ProfileFile.h"
#include "game/BonusFeatures.h"
#include "game/GameSelection.h"
#include "game/SaveGame.h"

namespace {

// The deck is seeded in the same second, and must not run along with the features.
constexpr std::uint32_t kFeatureSeed = 0x7F4A7C15;

}  // namespace

void StartGame(GameTable& table, const DataFilePaths& paths) {
    table.files.mainPath = paths.mainProfile;
    table.files.gamePath = CurrentGamePath(paths, table.files.file);
    table.random.RandomInit(static_cast<std::uint32_t>(table.clock.Now()) ^ kFeatureSeed);
    LoadGameFile(table);
}

void FinishStart(GameTable& table) {
    EnterStoredMode(table);
    WarnOfMissingGameFile(table);
}

bool StopGame(GameTable& table, const DataFilePaths& paths) {
    SettleFeatures(table);
    StoreCurrentGamePath(table.files.gamePath, paths, table.files.file);
    const bool saved = SaveGame(table, false);
    return table.files.file.Flush() && saved;
}
