#include "game/WinDisplay.h"

#include "core/text/Amount.h"

namespace {

constexpr int kFlashFrom = 100;  // credits
constexpr int kFlashes = 5;
constexpr int kFlashPause = 600;  // milliseconds
constexpr int kCountPause = 80;

bool CharlieApplies(const GameEngine& engine) {
    return engine.payTable.charlieBonus && engine.charlieNow;
}

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
        table.display.ShowLine(line, LineMark::kWonCellDark, pay);
        table.clock.Pause(kFlashPause);
        table.display.ShowLine(line, LineMark::kWon, pay);
    }
}

}  // namespace

std::string CreditText(const GameEngine& engine, int credits) {
    const MachineSettings& settings = engine.settings;
    return settings.showDollar ? FormatDollars("%7.2f", credits * settings.coin)
                               : FormatCount(credits);
}

std::string BetText(const GameEngine& engine) {
    const MachineSettings& settings = engine.settings;
    return settings.showDollar ? FormatDollars("%3.2f", settings.bet * settings.coin)
                               : FormatCount(settings.bet);
}

std::string MeterText(const GameTable& table) {
    const GameEngine& engine = table.engine;
    if (!engine.handOver) return "HOLD/DRAW";
    if (table.bonusShown) return CreditText(engine, engine.bonusStake) + " Bonus Credits";
    // A winning deal that was broken off, such as a fixed hand's, has won nothing.
    const bool won = engine.handWins && engine.win > 0;
    return won ? "WON " + CreditText(engine, engine.win) : "GAME OVER";
}

void ShowMeters(GameTable& table) { table.display.ShowMessage(MeterText(table)); }

void ShowCredits(GameTable& table) {
    table.display.ShowCredits(CreditText(table.engine, table.engine.settings.credits));
}

void ShowBet(GameTable& table) { table.display.ShowBet(BetText(table.engine)); }

int AnnouncedPay(const GameEngine& engine, int line) {
    const int pay = LineUnitPay(engine.payTable, line, engine.settings.bet);
    return CharlieApplies(engine) ? AddCapped(pay, std::int64_t{4} * pay) : pay;
}

void AnnounceWin(GameTable& table, int line) {
    const GameEngine& engine = table.engine;
    const int pay = AnnouncedPay(engine, line);
    table.display.ShowLine(line, LineMark::kWon, pay);
    if (engine.payTable.charlieBonus) table.display.ShowCharlie(engine.charlieNow);
    if (!IsHeard(engine)) return;
    if (pay >= kFlashFrom || CharlieApplies(engine)) {
        Flash(table, line, pay);
    } else {
        table.sounds.Sound(Beep::kDefault);
    }
}

void ClearLine(GameTable& table, int line) {
    if (line < 0) return;
    const GameEngine& engine = table.engine;
    const int pay = LineUnitPay(engine.payTable, line, engine.settings.bet);
    table.display.ShowLine(line, LineMark::kPlain, pay);
    if (engine.payTable.charlieBonus) table.display.ShowCharlie(false);
}

void CountUp(GameTable& table) {
    GameEngine& engine = table.engine;
    engine.countingUp = true;
    engine.stopCountUp = table.usesUpPresses && table.usesUpPresses();
    SoundBeep(table, Beep::kDefault);
    const int before = AddCapped(engine.settings.credits, -std::int64_t{engine.win});
    int steps = 1;  // since the last beep
    for (int paid = 1; paid <= engine.win; ++paid) {
        table.display.ShowMessage("PAID " + CreditText(engine, paid));
        table.display.ShowCredits(CreditText(engine, AddCapped(before, paid)));
        if (++steps > engine.settings.bet) {
            SoundBeep(table, Beep::kDefault);
            steps = 1;
        }
        table.clock.PauseWithInput(kCountPause);
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
    table.display.ShowDoubleUpButton(true);
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
