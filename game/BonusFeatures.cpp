#include "game/BonusFeatures.h"

#include <algorithm>
#include <utility>

#include "game/DoubleUp.h"
#include "game/WinDisplay.h"

namespace {

constexpr int kHandsPerFeature = 150;
constexpr int kSpinDraw = 2;
constexpr int kTargetDraw = 149;
constexpr int kMultiplierDraws = 200;
constexpr int kSpinSteps = 30;
constexpr int kEndPause = 4000;  // milliseconds
constexpr int kShotsPause = 1000;
constexpr int kPanelPause = 250;
constexpr int kPanelRounds = 5;
constexpr int kColourPause = 2000;

struct Multiplier {
    int highestDraw;
    int spin;
    int target;
};

constexpr std::array<Multiplier, 10> kMultipliers{{
    {7, 8, 1},
    {10, 50, 20},
    {35, 7, 2},
    {65, 6, 7},
    {95, 9, 10},
    {125, 35, 4},
    {155, 20, 3},
    {185, 15, 5},
    {195, 25, 8},
    {200, 30, 15},
}};

const Multiplier& MultiplierOf(int draw) {
    const auto* row = std::ranges::find_if(
        kMultipliers, [draw](const Multiplier& m) { return draw <= m.highestDraw; });
    return row == kMultipliers.end() ? kMultipliers.back() : *row;
}

// In credits for the bet.
int DrawValue(GameTable& table, int (*multiplier)(int)) {
    const std::int64_t factor = multiplier(table.random.IRandom(1, kMultiplierDraws));
    return AddCapped(0, factor * table.engine.settings.bet);
}

void PayBonus(GameEngine& engine, int bonus) {
    engine.settings.credits = AddCapped(engine.settings.credits, bonus);
    engine.statistics.bonusCredits.Add(bonus);
    NoteCredits(engine);
}

void ShowBonus(GameTable& table, int bonus) {
    table.engine.bonusStake = bonus;
    table.bonusShown = true;
    ShowMeters(table);
}

void StartSpin(GameTable& table) {
    table.display.ShowFeatureLabel("SPIN");
    Play(table, Wave::kCash);
    table.engine.spinPending = true;
    table.display.ShowSpin(SpinButton::kReady);
    table.display.ShowSpinValue("");
}

void StartTarget(GameTable& table) {
    table.display.ShowFeatureLabel("SHOOT");
    Play(table, Wave::kCash);
    table.engine.targetPending = true;
    table.target = {};
    for (int i = 0; i < kTargets; ++i) {
        table.display.ShowTarget(i, TargetFace::kHidden, 0);
        table.target.values[static_cast<std::size_t>(i)] = DrawValue(table, TargetMultiplier);
    }
}

void StartRedBlack(GameTable& table) {
    Play(table, Wave::kCash);
    table.engine.redBlackPending = true;
    table.redBlack = {};
    table.display.ShowRedBlack(true);
}

// The wheel slows down: five steps for each pause.
int SpinPause(int step) { return 150 + step / 5 * 50; }

void HideTargets(GameTable& table) {
    for (int i = 0; i < kTargets; ++i) table.display.ShowTarget(i, TargetFace::kGone, 0);
    table.display.ShowFeatureLabel("");
}

// Nothing at a target that was shot already.
void FireAt(GameTable& table, int target) {
    TargetGame& game = table.target;
    const auto index = static_cast<std::size_t>(target);
    if (std::exchange(game.shot[index], true)) return;
    if (game.shots++ == 0) table.engine.statistics.bonusTries.Add(1);
    game.stake = AddCapped(game.stake, game.values[index]);
}

void EndTarget(GameTable& table) {
    PayBonus(table.engine, table.target.stake);
    table.engine.targetPending = false;
    table.clock.Pause(kShotsPause);
    for (int i = 0; i < kTargets; ++i) {
        const auto target = static_cast<std::size_t>(i);
        if (table.target.shot[target]) continue;
        table.display.ShowTarget(i, TargetFace::kMissed, table.target.values[target]);
    }
    Play(table, Wave::kApplause);
    table.clock.Pause(kEndPause);
    ShowCredits(table);
    HideTargets(table);
}

// The first guess is always right.
CardColour DrawColour(GameTable& table, CardColour guess) {
    if (table.redBlack.guesses == 0) return guess;
    return table.random.IRandom(2, 1000) % 2 == 1 ? CardColour::kRed : CardColour::kBlack;
}

void LightPanelWithClick(GameTable& table, CardColour colour) {
    Play(table, Wave::kClick);
    table.display.LightPanel(colour);
}

void ShowColourDrawn(GameTable& table) {
    for (int i = 0; i < kPanelRounds; ++i) {
        for (const CardColour colour : {CardColour::kRed, CardColour::kBlack}) {
            LightPanelWithClick(table, colour);
            table.clock.Pause(kPanelPause);
        }
    }
    if (table.redBlack.drawn == CardColour::kRed) LightPanelWithClick(table, CardColour::kRed);
    table.clock.Pause(kColourPause);
}

void EndRedBlack(GameTable& table) {
    const int bonus = table.redBlack.stake;
    PayBonus(table.engine, bonus);
    if (bonus > 0) ShowCredits(table);
    table.engine.redBlackPending = false;
    ShowBonus(table, bonus);
    table.display.ShowRedBlack(false);
}

// Counted as it would have been played, so that the share of tries that pay stays true.
void SettleRedBlack(GameTable& table) {
    if (table.redBlack.guesses == 0) {
        table.engine.statistics.bonusTries.Add(1);
        table.redBlack.stake = table.engine.settings.bet;
    }
    EndRedBlack(table);
}

void SettleTarget(GameTable& table) {
    for (int i = 0; i < kTargets && table.target.shots < kShots; ++i) FireAt(table, i);
    PayBonus(table.engine, table.target.stake);
    table.engine.targetPending = false;
    ShowBonus(table, table.target.stake);
    ShowCredits(table);
    HideTargets(table);
}

void SettleSpin(GameTable& table) {
    table.engine.statistics.bonusTries.Add(1);
    const int bonus = DrawValue(table, SpinMultiplier);
    PayBonus(table.engine, bonus);
    table.engine.spinPending = false;
    ShowBonus(table, bonus);
    ShowCredits(table);
    table.display.HideSpin();
}

}  // namespace

int SpinMultiplier(int draw) { return MultiplierOf(draw).spin; }

int TargetMultiplier(int draw) { return MultiplierOf(draw).target; }

void MaybeStartSpinOrTarget(GameTable& table) {
    const PayTable& payTable = table.engine.payTable;
    if (!payTable.spinBonus && !payTable.targetBonus) return;
    const int draw = table.random.IRandom(1, kHandsPerFeature);
    if (payTable.spinBonus && draw == kSpinDraw) {
        StartSpin(table);
    } else if (payTable.targetBonus && draw == kTargetDraw) {
        StartTarget(table);
    }
}

void MaybeStartRedBlack(GameTable& table) {
    const HandFeatures& features = table.engine.features;
    const bool oneColour = features.reds == kHandSize || features.blacks == kHandSize;
    if (table.engine.payTable.redBlackBonus && oneColour) StartRedBlack(table);
}

void Spin(GameTable& table) {
    GameEngine& engine = table.engine;
    if (!engine.spinPending) return;
    engine.statistics.bonusTries.Add(1);
    table.display.ShowSpin(SpinButton::kLit);
    PlayToEnd(table, Wave::kDrumroll);
    table.display.ShowSpin(SpinButton::kHidden);
    int bonus = 0;
    for (int step = 0; step < kSpinSteps; ++step) {
        bonus = DrawValue(table, SpinMultiplier);
        table.display.ShowSpinValue(std::to_string(bonus));
        Play(table, Wave::kClick);
        table.clock.Pause(SpinPause(step));
    }
    ShowBonus(table, bonus);
    PayBonus(engine, bonus);
    ShowCredits(table);
    engine.spinPending = false;
    Play(table, Wave::kApplause);
    table.clock.Pause(kEndPause);
    table.display.HideSpin();
}

void Shoot(GameTable& table, int target) {
    GameEngine& engine = table.engine;
    if (!engine.targetPending || target < 0 || target >= kTargets) return;
    const auto index = static_cast<std::size_t>(target);
    if (table.target.shot[index]) return;
    FireAt(table, target);
    Play(table, Wave::kArrow);
    table.display.ShowTarget(target, TargetFace::kShot, table.target.values[index]);
    ShowBonus(table, table.target.stake);
    if (table.target.shots == kShots) EndTarget(table);
}

void GuessColour(GameTable& table, CardColour colour) {
    GameEngine& engine = table.engine;
    if (!engine.redBlackPending || colour == CardColour::kNone) return;
    RedBlackGame& game = table.redBlack;
    engine.statistics.bonusTries.Add(1);
    table.display.ShowChoice(colour);
    game.drawn = DrawColour(table, colour);
    ++game.guesses;
    ShowColourDrawn(table);
    if (game.drawn != colour) {
        EndRedBlack(table);
        return;
    }
    Play(table, Wave::kCash);
    game.stake = AddCapped(game.stake, engine.settings.bet);
    ShowBonus(table, game.stake);
    table.display.ShowChoice(CardColour::kNone);
}

void SettleFeatures(GameTable& table) {
    LeaveDoubleUp(table);
    if (table.engine.redBlackPending) SettleRedBlack(table);
    if (table.engine.targetPending) SettleTarget(table);
    if (table.engine.spinPending) SettleSpin(table);
}
