#include "game/session/SpareEngine.h"

#include <utility>

#include "core/profile/ProfileFile.h"
#include "core/store/Session.h"
#include "game/engine/Autoplay.h"
#include "game/flows/DealSteps.h"
#include "game/saving/SaveGame.h"

namespace {

constexpr std::uint32_t kSpareSeed = 0x9E3779B9;
constexpr int kShufflePasses = 10;
constexpr int kHandsBetweenLooks = 256;  // at the window: some milliseconds

void PlayWithProgress(Seat& seat, GameEngine& spare, const GameFiles& files, std::int64_t count) {
    WorkProgress progress(seat.player, "Hands played...", kHandsBetweenLooks);
    PlayHands(spare, files, count, [&](std::int64_t played) {
        // Of the hands before this one, so that 100 % is never reached.
        return progress.Show(static_cast<int>((played - 1) * 100 / count));
    });
}

}  // namespace

WorkProgress::WorkProgress(Player& player, std::string named, int callsBetweenLooks)
    : work(std::move(named)),
      callsBetweenLooks(callsBetweenLooks),
      progress(player.ShowProgress(Text(0))) {}

bool WorkProgress::Show(int percent) {
    if (++calls % callsBetweenLooks != 0 && percent == shown) return true;
    shown = percent;
    return progress->Show(Text(percent), percent);
}

void LoadSpareTable(Seat& seat, GameEngine& spare, const TableOfGame& table) {
    SetCurrentTable(spare.settings, table);
    LoadGame(spare, seat.files, seat.tables);
    LoadSettings(seat.files.Game(), spare.settings, spare.statistics, seat.clock.Now());
}

void LoadSpare(Seat& seat, GameEngine& spare) {
    LoadSpareTable(seat, spare, CurrentTable(seat.engine.settings));
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
