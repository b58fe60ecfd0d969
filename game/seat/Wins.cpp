#include "game/seat/Wins.h"

#include "core/text/Amount.h"
#include "game/seat/ShowScene.h"

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

void Flash(Seat& seat, int line, int pay) {
    for (int i = 0; i < kFlashes; ++i) {
        seat.sounds.Sound(Beep::kExclamation);
        seat.clock.Pause(kFlashPause);
        ShowLine(seat, line, LineMark::kWonCellDark, pay);
        seat.clock.Pause(kFlashPause);
        ShowLine(seat, line, LineMark::kWon, pay);
    }
}

}  // namespace

void AnnounceWin(Seat& seat, int line) {
    const GameEngine& engine = seat.engine;
    const int pay = AnnouncedPay(engine, line);
    seat.scene.charlie = CharlieApplies(engine);
    LightCards(engine, line, seat.scene);
    ShowLine(seat, line, LineMark::kWon, pay);
    if (!IsHeard(engine)) return;
    if (pay >= kFlashFrom || CharlieApplies(engine)) {
        Flash(seat, line, pay);
    } else {
        seat.sounds.Sound(Beep::kDefault);
    }
}

void ClearLine(Seat& seat, int line) {
    if (line < 0) return;
    seat.scene.charlie = false;
    LightCards(seat.engine, -1, seat.scene);
    ShowLine(seat, line, LineMark::kPlain);
}

void CountUp(Seat& seat) {
    GameEngine& engine = seat.engine;
    engine.countingUp = true;
    engine.stopCountUp = seat.usesUpPresses && seat.usesUpPresses();
    SoundBeep(seat, Beep::kDefault);
    const int before = AddCapped(engine.settings.credits, -std::int64_t{engine.win});
    int steps = 1;  // since the last beep
    for (int paid = 1; paid <= engine.win; ++paid) {
        seat.scene.message = "PAID " + CreditText(engine, paid);
        seat.scene.credits = CreditText(engine, AddCapped(before, paid));
        Show(seat);
        if (++steps > engine.settings.bet) {
            SoundBeep(seat, Beep::kDefault);
            steps = 1;
        }
        seat.clock.Pause(kCountPause);
        if (engine.stopCountUp) break;
    }
    engine.countingUp = false;
    // A count that was stopped must not leave the meters below what the player owns.
    if (engine.stopCountUp) {
        ShowMeters(seat);
        ShowCredits(seat);
    }
}

void OfferDoubleUp(Seat& seat) {
    if (!seat.engine.settings.doubleUp) return;
    seat.engine.doubleUpOffered = true;
    seat.scene.buttons.doubleUp = ButtonLook::kReleased;
    Show(seat);
}

void WithdrawDoubleUp(Seat& seat) {
    seat.engine.doubleUpOffered = false;
    seat.scene.buttons.doubleUp = ButtonLook::kHidden;
    Show(seat);
}

void ShowWin(Seat& seat) {
    ShowMeters(seat);
    if (seat.engine.settings.speed == Speed::kFast) {
        ShowCredits(seat);
    } else {
        CountUp(seat);
    }
}

void Play(Seat& seat, Wave wave) {
    if (seat.engine.settings.sounds) seat.sounds.Play(wave);
}

void PlayToEnd(Seat& seat, Wave wave) {
    if (seat.engine.settings.sounds) seat.sounds.PlayToEnd(wave);
}

void SoundBeep(Seat& seat, Beep beep) {
    if (seat.engine.settings.sounds) seat.sounds.Sound(beep);
}
