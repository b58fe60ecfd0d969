#include "game/flows/BonusFeatures.h"

#include <algorithm>
#include <utility>

#include "game/flows/DoubleUp.h"
#include "game/seat/ShowScene.h"
#include "game/seat/Wins.h"

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
int DrawValue(Seat& seat, int (*multiplier)(int)) {
    const std::int64_t factor = multiplier(seat.random.IRandom(1, kMultiplierDraws));
    return AddCapped(0, factor * seat.engine.settings.bet);
}

void PayBonus(GameEngine& engine, int bonus) {
    engine.settings.credits = AddCapped(engine.settings.credits, bonus);
    engine.statistics.bonusCredits.Add(bonus);
    NoteCredits(engine);
}

void ShowBonus(Seat& seat, int bonus) {
    seat.engine.bonusStake = bonus;
    seat.bonusShown = true;
    ShowMeters(seat);
}

void Start(Seat& seat, bool GameEngine::*feature) {
    Play(seat, Wave::kCash);
    seat.engine.*feature = true;
    ShowAtRest(seat);
}

void StartTarget(Seat& seat) {
    seat.target = {};
    for (int& value : seat.target.values) value = DrawValue(seat, TargetMultiplier);
    Start(seat, &GameEngine::targetPending);
}

// The wheel slows down: five steps for each pause.
int SpinPause(int step) { return 150 + step / 5 * 50; }

// Nothing at a target that was shot already.
void FireAt(Seat& seat, int target) {
    TargetGame& game = seat.target;
    const auto index = static_cast<std::size_t>(target);
    if (std::exchange(game.shot[index], true)) return;
    if (game.shots++ == 0) seat.engine.statistics.bonusTries.Add(1);
    game.stake = AddCapped(game.stake, game.values[index]);
}

void EndTarget(Seat& seat) {
    PayBonus(seat.engine, seat.target.stake);
    seat.engine.targetPending = false;
    seat.clock.Pause(kShotsPause);
    for (std::size_t i = 0; i < kTargets; ++i) {
        if (seat.target.shot[i]) continue;
        seat.scene.targets[i] = {TargetFace::kMissed, seat.target.values[i]};
    }
    Show(seat);
    Play(seat, Wave::kApplause);
    seat.clock.Pause(kEndPause);
    ShowAtRest(seat);
}

// The first guess is always right.
CardColour DrawColour(Seat& seat, CardColour guess) {
    if (seat.redBlack.guesses == 0) return guess;
    return seat.random.IRandom(2, 1000) % 2 == 1 ? CardColour::kRed : CardColour::kBlack;
}

void LightPanelWithClick(Seat& seat, CardColour colour) {
    Play(seat, Wave::kClick);
    seat.scene.redBlack.lit = colour;
    Show(seat);
}

void ShowColourDrawn(Seat& seat) {
    for (int i = 0; i < kPanelRounds; ++i) {
        for (const CardColour colour : {CardColour::kRed, CardColour::kBlack}) {
            LightPanelWithClick(seat, colour);
            seat.clock.Pause(kPanelPause);
        }
    }
    if (seat.redBlack.drawn == CardColour::kRed) LightPanelWithClick(seat, CardColour::kRed);
    seat.clock.Pause(kColourPause);
}

void EndWithBonus(Seat& seat, bool GameEngine::*feature, int bonus) {
    PayBonus(seat.engine, bonus);
    seat.engine.*feature = false;
    ShowBonus(seat, bonus);
}

// Counted as it would have been played, so that the share of tries that pay stays true.
void SettleRedBlack(Seat& seat) {
    if (seat.redBlack.guesses == 0) {
        seat.engine.statistics.bonusTries.Add(1);
        seat.redBlack.stake = seat.engine.settings.bet;
    }
    EndWithBonus(seat, &GameEngine::redBlackPending, seat.redBlack.stake);
}

void SettleTarget(Seat& seat) {
    for (int i = 0; i < kTargets && seat.target.shots < kShots; ++i) FireAt(seat, i);
    EndWithBonus(seat, &GameEngine::targetPending, seat.target.stake);
}

void SettleSpin(Seat& seat) {
    seat.engine.statistics.bonusTries.Add(1);
    EndWithBonus(seat, &GameEngine::spinPending, DrawValue(seat, SpinMultiplier));
}

}  // namespace

int SpinMultiplier(int draw) { return MultiplierOf(draw).spin; }

int TargetMultiplier(int draw) { return MultiplierOf(draw).target; }

void MaybeStartSpinOrTarget(Seat& seat) {
    const PayTable& payTable = seat.engine.payTable;
    if (!payTable.spinBonus && !payTable.targetBonus) return;
    const int draw = seat.random.IRandom(1, kHandsPerFeature);
    if (payTable.spinBonus && draw == kSpinDraw) {
        Start(seat, &GameEngine::spinPending);
    } else if (payTable.targetBonus && draw == kTargetDraw) {
        StartTarget(seat);
    }
}

void MaybeStartRedBlack(Seat& seat) {
    const HandFeatures& features = seat.engine.features;
    const bool oneColour = features.reds == kHandSize || features.blacks == kHandSize;
    if (!seat.engine.payTable.redBlackBonus || !oneColour) return;
    seat.redBlack = {};
    Start(seat, &GameEngine::redBlackPending);
}

void Spin(Seat& seat) {
    GameEngine& engine = seat.engine;
    if (!engine.spinPending) return;
    SpinLook& look = seat.scene.spin;
    engine.statistics.bonusTries.Add(1);
    look.button = SpinButton::kLit;
    Show(seat);
    PlayToEnd(seat, Wave::kDrumroll);
    look.button = SpinButton::kHidden;
    int bonus = 0;
    for (int step = 0; step < kSpinSteps; ++step) {
        bonus = DrawValue(seat, SpinMultiplier);
        look.value = std::to_string(bonus);
        Show(seat);
        Play(seat, Wave::kClick);
        seat.clock.Pause(SpinPause(step));
    }
    ShowBonus(seat, bonus);
    PayBonus(engine, bonus);
    ShowCredits(seat);
    engine.spinPending = false;
    Play(seat, Wave::kApplause);
    seat.clock.Pause(kEndPause);
    ShowAtRest(seat);
}

void Shoot(Seat& seat, int target) {
    GameEngine& engine = seat.engine;
    if (!engine.targetPending || target < 0 || target >= kTargets) return;
    if (seat.target.shot[static_cast<std::size_t>(target)]) return;
    FireAt(seat, target);
    Play(seat, Wave::kArrow);
    ShowAtRest(seat);
    ShowBonus(seat, seat.target.stake);
    if (seat.target.shots == kShots) EndTarget(seat);
}

void GuessColour(Seat& seat, CardColour colour) {
    GameEngine& engine = seat.engine;
    if (!engine.redBlackPending || colour == CardColour::kNone) return;
    RedBlackGame& game = seat.redBlack;
    engine.statistics.bonusTries.Add(1);
    seat.scene.redBlack.choice = colour;
    Show(seat);
    game.drawn = DrawColour(seat, colour);
    ++game.guesses;
    ShowColourDrawn(seat);
    if (game.drawn == colour) {
        Play(seat, Wave::kCash);
        game.stake = AddCapped(game.stake, engine.settings.bet);
        ShowBonus(seat, game.stake);
    } else {
        EndWithBonus(seat, &GameEngine::redBlackPending, game.stake);
    }
    ShowAtRest(seat);
}

void SettleFeatures(Seat& seat) {
    LeaveDoubleUp(seat);
    if (seat.engine.redBlackPending) SettleRedBlack(seat);
    if (seat.engine.targetPending) SettleTarget(seat);
    if (seat.engine.spinPending) SettleSpin(seat);
    ShowAtRest(seat);
}
