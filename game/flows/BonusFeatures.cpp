#include "game/flows/BonusFeatures.h"

#include <algorithm>
#include <utility>

#include "game/flows/DoubleUp.h"
#include "game/table/ShowTable.h"
#include "game/table/Wins.h"

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
    Play(table, Wave::kCash);
    table.engine.spinPending = true;
    ShowAtRest(table);
}

void StartTarget(GameTable& table) {
    Play(table, Wave::kCash);
    table.engine.targetPending = true;
    table.target = {};
    for (int& value : table.target.values) value = DrawValue(table, TargetMultiplier);
    ShowAtRest(table);
}

void StartRedBlack(GameTable& table) {
    Play(table, Wave::kCash);
    table.engine.redBlackPending = true;
    table.redBlack = {};
    ShowAtRest(table);
}

// The wheel slows down: five steps for each pause.
int SpinPause(int step) { return 150 + step / 5 * 50; }

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
    for (std::size_t i = 0; i < kTargets; ++i) {
        if (table.target.shot[i]) continue;
        table.scene.targets[i] = {TargetFace::kMissed, table.target.values[i]};
    }
    Show(table);
    Play(table, Wave::kApplause);
    table.clock.Pause(kEndPause);
    ShowAtRest(table);
}

// The first guess is always right.
CardColour DrawColour(GameTable& table, CardColour guess) {
    if (table.redBlack.guesses == 0) return guess;
    return table.random.IRandom(2, 1000) % 2 == 1 ? CardColour::kRed : CardColour::kBlack;
}

void LightPanelWithClick(GameTable& table, CardColour colour) {
    Play(table, Wave::kClick);
    table.scene.redBlack.lit = colour;
    Show(table);
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

void PayRedBlack(GameTable& table) {
    PayBonus(table.engine, table.redBlack.stake);
    table.engine.redBlackPending = false;
    ShowBonus(table, table.redBlack.stake);
}

// Counted as it would have been played, so that the share of tries that pay stays true.
void SettleRedBlack(GameTable& table) {
    if (table.redBlack.guesses == 0) {
        table.engine.statistics.bonusTries.Add(1);
        table.redBlack.stake = table.engine.settings.bet;
    }
    PayRedBlack(table);
}

void SettleTarget(GameTable& table) {
    for (int i = 0; i < kTargets && table.target.shots < kShots; ++i) FireAt(table, i);
    PayBonus(table.engine, table.target.stake);
    table.engine.targetPending = false;
    ShowBonus(table, table.target.stake);
}

void SettleSpin(GameTable& table) {
    table.engine.statistics.bonusTries.Add(1);
    const int bonus = DrawValue(table, SpinMultiplier);
    PayBonus(table.engine, bonus);
    table.engine.spinPending = false;
    ShowBonus(table, bonus);
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
    SpinLook& look = table.scene.spin;
    engine.statistics.bonusTries.Add(1);
    look.button = SpinButton::kLit;
    Show(table);
    PlayToEnd(table, Wave::kDrumroll);
    look.button = SpinButton::kHidden;
    int bonus = 0;
    for (int step = 0; step < kSpinSteps; ++step) {
        bonus = DrawValue(table, SpinMultiplier);
        look.value = std::to_string(bonus);
        Show(table);
        Play(table, Wave::kClick);
        table.clock.Pause(SpinPause(step));
    }
    ShowBonus(table, bonus);
    PayBonus(engine, bonus);
    ShowCredits(table);
    engine.spinPending = false;
    Play(table, Wave::kApplause);
    table.clock.Pause(kEndPause);
    ShowAtRest(table);
}

void Shoot(GameTable& table, int target) {
    GameEngine& engine = table.engine;
    if (!engine.targetPending || target < 0 || target >= kTargets) return;
    if (table.target.shot[static_cast<std::size_t>(target)]) return;
    FireAt(table, target);
    Play(table, Wave::kArrow);
    ShowAtRest(table);
    ShowBonus(table, table.target.stake);
    if (table.target.shots == kShots) EndTarget(table);
}

void GuessColour(GameTable& table, CardColour colour) {
    GameEngine& engine = table.engine;
    if (!engine.redBlackPending || colour == CardColour::kNone) return;
    RedBlackGame& game = table.redBlack;
    engine.statistics.bonusTries.Add(1);
    table.scene.redBlack.choice = colour;
    Show(table);
    game.drawn = DrawColour(table, colour);
    ++game.guesses;
    ShowColourDrawn(table);
    if (game.drawn == colour) {
        Play(table, Wave::kCash);
        game.stake = AddCapped(game.stake, engine.settings.bet);
        ShowBonus(table, game.stake);
    } else {
        PayRedBlack(table);
    }
    ShowAtRest(table);
}

void SettleFeatures(GameTable& table) {
    LeaveDoubleUp(table);
    if (table.engine.redBlackPending) SettleRedBlack(table);
    if (table.engine.targetPending) SettleTarget(table);
    if (table.engine.spinPending) SettleSpin(table);
    ShowAtRest(table);
}
