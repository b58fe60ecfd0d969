#include "game/session/SpareEngine.h"

#include "core/profile/ProfileFile.h"
#include "core/store/Session.h"
#include "game/engine/Autoplay.h"
#include "game/flows/DealSteps.h"
#include "game/saving/SaveGame.h"

namespace {

constexpr std::uint32_t kSpareSeed = 0x9E3779B9;
constexpr int kShufflePasses = 10;
constexpr std::int64_t kHandsBetweenLooks = 256;  // at the window: some milliseconds

std::string ProgressText(int percent) { return "Hands played..." + std::to_string(percent) + "%"; }

void PlayWithProgress(Seat& seat, GameEngine& spare, const GameFiles& files, std::int64_t count) {
    const auto progress = seat.player.ShowProgress(ProgressText(0));
    int shown = 0;
    PlayHands(spare, files, count, [&](std::int64_t played) {
        // Of the hands before this one, so that 100 % is never reached.
        const int percent = static_cast<int>((played - 1) * 100 / count);
        if (percent == shown && played % kHandsBetweenLooks != 0) return true;
        shown = percent;
        return progress->Show(ProgressText(percent), percent);
    });
}

}  // namespace

void LoadSpare(Seat& seat, GameEngine& spare) {
    const GameFiles& files = seat.files;
    const MachineSettings& players = seat.engine.settings;
    spare.settings.gameId = players.gameId;
    spare.settings.gameName = players.gameName;
    spare.settings.activeTable = players.activeTable;
    LoadGame(spare, files, seat.tables);
    LoadSettings(files.Game(), spare.settings, spare.statistics, seat.clock.Now());
    spare.deck.random.RandomInit(static_cast<std::uint32_t>(seat.clock.Now()) ^ kSpareSeed);
    spare.deck.Shuffle(kShufflePasses);
}

// Plays on an empty profile file, so that neither the time played nor the error log of the player's
// table changes.
void RunAutoplay(Seat& seat, GameEngine& spare) {
    if (seat.engine.payTable.lines.empty()) {
        TellOfMissingPayTable(seat.player);
        return;
    }
    const auto count = seat.player.AskHandCount();
    if (!count) return;
    SaveGame(seat);  // the settings that are played with are those of the game file
    LoadSpare(seat, spare);
    ProfileFile none;
    const GameFiles files{none, "", ""};
    ResetStatistics({none, ""}, {spare.settings, spare.statistics, spare.payTable},
                    seat.clock.Now());
    spare.settings.credits = 0;
    spare.settings.mode = PlayMode::kAutoHold;
    if (*count > 0) PlayWithProgress(seat, spare, files, *count);
    seat.player.ShowStatistics(spare);
}
