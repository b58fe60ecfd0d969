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

void PlayWithProgress(GameTable& table, GameEngine& spare, const GameFiles& files,
                      std::int64_t count) {
    const auto progress = table.player.ShowProgress(ProgressText(0));
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

void LoadSpare(GameTable& table, GameEngine& spare) {
    const GameFiles& files = table.files;
    const MachineSettings& players = table.engine.settings;
    spare.settings.gameId = players.gameId;
    spare.settings.gameName = players.gameName;
    spare.settings.activeTable = players.activeTable;
    LoadGame(spare, files, table.tables);
    LoadSettings(files.file, files.gamePath, spare.settings, spare.statistics, table.clock.Now());
    spare.deck.random.RandomInit(static_cast<std::uint32_t>(table.clock.Now()) ^ kSpareSeed);
    spare.deck.Shuffle(kShufflePasses);
}

// Plays on an empty profile file, so that neither the time played nor the error log of the player's
// table changes.
void RunAutoplay(GameTable& table, GameEngine& spare) {
    if (table.engine.payTable.lines.empty()) {
        TellOfMissingPayTable(table.player);
        return;
    }
    const auto count = table.player.AskHandCount();
    if (!count) return;
    SaveGame(table);  // the settings that are played with are those of the game file
    LoadSpare(table, spare);
    ProfileFile none;
    const GameFiles files{none, "", ""};
    ResetStatistics(none, "", {spare.settings, spare.statistics, spare.payTable},
                    table.clock.Now());
    spare.settings.credits = 0;
    spare.settings.mode = PlayMode::kAutoHold;
    if (*count > 0) PlayWithProgress(table, spare, files, *count);
    table.player.ShowStatistics(spare);
}
