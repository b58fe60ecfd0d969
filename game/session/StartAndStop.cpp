#include "game/session/StartAndStop.h"

#include "core/profile/ProfileFile.h"
#include "game/commands/FileCommands.h"
#include "game/commands/GameSelection.h"
#include "game/flows/BonusFeatures.h"
#include "game/paytables/PayTableGameFiles.h"
#include "game/saving/GameFile.h"
#include "game/saving/SaveGame.h"
#include "game/seat/ShowScene.h"

namespace {

// The deck is seeded in the same second, and must not run along with the features.
constexpr std::uint32_t kFeatureSeed = 0x7F4A7C15;

}  // namespace

void StartGame(Seat& seat, const DataFilePaths& paths) {
    seat.files.mainPath = paths.mainProfile;
    seat.files.cachePath = paths.analysisCache;
    seat.files.chartsPath = paths.strategyCharts;
    TakeUpGameFile(seat, CurrentGamePath(paths, seat.files.file));
    ResumeUnfinishedEdit({seat.files.Main(), paths.analysisCache, paths.strategyCharts},
                         paths.folder);
    seat.random.RandomInit(static_cast<std::uint32_t>(seat.clock.Now()) ^ kFeatureSeed);
    LoadGameFile(seat);
}

void FinishStart(Seat& seat, const std::string& gameFile) {
    EnterStoredMode(seat);
    ShowAtRest(seat);
    const std::string stored = seat.files.gamePath;
    if (!gameFile.empty()) OpenNamedGameFile(seat, gameFile);
    if (seat.files.gamePath != stored) return;  // that was told then
    TellIfNotLocked(seat);
    const bool elsewhere = !GameFileProblem(stored) && WhyNotSaved(seat);
    TellWhyNotSaved(seat);
    if (elsewhere) OpenGameFile(seat);
}

bool StopGame(Seat& seat, const DataFilePaths& paths) {
    SettleFeatures(seat);
    StoreCurrentGamePath(seat.files.gamePath, paths, seat.files.file);
    const bool saved = SaveGameToStop(seat);
    seat.files.file.Flush();
    return saved;
}
