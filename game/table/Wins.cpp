#include "game/table/Wins.h"

#include "core/text/Amount.h"
#include "game/table/ShowTable.h"

namespace {

constexpr int kFlashFrom = 100;  // credits
constexpr int kFlashes = 5;
constexpr int kFlashPause = 600;  // milliseconds
constexpr int kCountPause = 80;

bool IsHeard(const GameEngine& engine) {
    if (!engine.settings.sounds) return false;
    if (!engine.handOver) return true;
    const bool charlieDrawn = CharlieApplies(engine) && !engine.charlieOnDeal;
    return engine.finalLine != engine.dealtLine || charlieDrawn;
}

void Flash(GameTable& table, int line, int pay) {
    for (int i = 0; i < kFlashes; ++i) {
        table.sounds.Sound(Beep::kExclamation);
        table.clock.Pause(kFlashPause);
        ShowLine(table, line, LineMark::kWonCellDark, pay);
        table.clock.Pause(kFlashPause);
        ShowLine(table, line, LineMark::kWon, pay);
    }
}

}  // namespace

void AnnounceWin(GameTable& table, int line) {
    const GameEngine& engine = table.engine;
    const int pay = AnnouncedPay(engine, line);
    table.scene.charlie = CharlieApplies(engine);
    ShowLine(table, line, LineMark::kWon, pay);
    if (!IsHeard(engine)) return;
    if (pay >= kFlashFrom || CharlieApplies(engine)) {
        Flash(table, line, pay);
    } else {
        table.sounds.Sound(Beep::kDefault);
    }
}

void ClearLine(GameTable& table, int line) {
    if (line < 0) return;
    table.scene.charlie = false;
    ShowLine(table, line, LineMark::kPlain);
}

void CountUp(GameTable& table) {
    GameEngine& engine = table.engine;
    engine.countingUp = true;
    engine.stopCountUp = table.usesUpPresses && table.usesUpPresses();
    SoundBeep(table, Beep::kDefault);
    const int before = AddCapped(engine.settings.credits, -std::int64_t{engine.win});
    int steps = 1;  // since the last beep
    for (int paid = 1; paid <= engine.win; ++paid) {
        table.scene.message = "PAID " + CreditText(engine, paid);
        table.scene.credits = CreditText(engine, AddCapped(before, paid));
        Show(table);
        if (++steps > engine.settings.bet) {
            SoundBeep(table, Beep::kDefault);
            steps = 1;
        }
        table.clock.Pause(kCountPause);
        if (engine.stopCountUp) break;
    }
    engine.countingUp = false;
    // A count that was stopped must not leave the meters below what the player owns.
    if (engine.stopCountUp) {
        ShowMeters(table);
        ShowCredits(table);
    }
}

void OfferDoubleUp(GameTable& table) {
    if (!table.engine.settings.doubleUp) return;
    table.engine.doubleUpOffered = true;
    table.scene.buttons.doubleUp = ButtonLook::kReleased;
    Show(table);
}

void WithdrawDoubleUp(GameTable& table) {
    table.engine.doubleUpOffered = false;
    table.scene.buttons.doubleUp = ButtonLook::kHidden;
    Show(table);
}

void ShowWin(GameTable& table) {
    ShowMeters(table);
    if (table.engine.settings.speed == Speed::kFast) {
        ShowCredits(table);
    } else {
        CountUp(table);
    }
}

void Play(GameTable& table, Wave wave) {
    if (table.engine.settings.sounds) table.sounds.Play(wave);
}

void PlayToEnd(GameTable& table, Wave wave) {
    if (table.engine.settings.sounds) table.sounds.PlayToEnd(wave);
}

void SoundBeep(GameTable& table, Beep beep) {
    if (table.engine.settings.sounds) table.sounds.Sound(beep);
}
