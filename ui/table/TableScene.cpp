#include "ui/table/TableScene.h"

#include <algorithm>

#include "game/DoubleUp.h"
#include "game/PickEmFlow.h"
#include "game/WinDisplay.h"
#include "ui/art/Pictures.h"

namespace {

TableScene Meters(const GameEngine& engine, const std::string& message) {
    TableScene scene;
    scene.message = message;
    scene.credits = CreditText(engine, engine.settings.credits);
    scene.bet = BetText(engine);
    scene.coin = engine.settings.coin;
    return scene;
}

void ShowWonLine(const GameEngine& engine, TableScene& scene) {
    const int line = engine.handOver ? engine.finalLine : engine.dealtLine;
    const int lines = static_cast<int>(std::min(engine.payTable.lines.size(), scene.lines.size()));
    if (!engine.handWins || line < 0 || line >= lines) return;
    scene.lines[static_cast<std::size_t>(line)] = {LineMark::kWon, AnnouncedPay(engine, line),
                                                   BetColumn(engine)};
    scene.charlie = engine.payTable.charlieBonus && engine.charlieNow;
}

PlaceLook PilePlace(const GameEngine& engine, Pile pile) {
    PlaceLook place;
    place.card = pile == Pile::kLeft ? engine.hand[2] : engine.drawCards[0];
    place.pileTop = true;
    place.pileDepth = 2;
    place.label = PileLabel(engine, pile);
    return place;
}

void ShowPickEmPlaces(const GameEngine& engine, TableScene& scene) {
    for (std::size_t i = 0; i < kHandSize; ++i) scene.places[i].card = engine.hand[i];
    if (!engine.handOver) {
        scene.places[2].card = kNoCard;
        scene.places[kLeftPilePosition] = PilePlace(engine, Pile::kLeft);
        scene.places[kRightPilePosition] = PilePlace(engine, Pile::kRight);
    }
    for (std::size_t i = 0; i < kLeftPilePosition; ++i) {
        scene.places[i].holdButton = ButtonLook::kHidden;
    }
}

void ShowHand(const GameEngine& engine, TableScene& scene) {
    for (std::size_t i = 0; i < kHandSize; ++i) {
        scene.places[i].card = engine.hand[i];
        scene.places[i].held = engine.held[i];
    }
    const bool sneakPeak = IsSneakPeak(engine);
    if (sneakPeak && !engine.handOver) scene.firstDraw = engine.drawCards[0];
}

TargetLook LookOf(const TargetGame& game, std::size_t target) {
    if (!game.shot[target]) return {TargetFace::kHidden, 0};
    return {TargetFace::kShot, game.values[target]};
}

void ShowFeatures(const GameTable& table, TableScene& scene) {
    const GameEngine& engine = table.engine;
    if (engine.redBlackPending) scene.redBlack = {true, table.redBlack.drawn, CardColour::kNone};
    if (engine.spinPending) {
        scene.spin = {SpinButton::kReady, true, ""};
        scene.featureLabel = "SPIN";
    }
    if (engine.targetPending) {
        for (std::size_t i = 0; i < kTargets; ++i) scene.targets[i] = LookOf(table.target, i);
        scene.featureLabel = "SHOOT";
    }
}

TableScene PendingDoubleUp(const GameTable& table, const std::string& message) {
    const GameEngine& engine = table.engine;
    TableScene scene = DoubleUpScene(table, message, engine.bonusStake, engine.doubleUpTo);
    scene.places[0].card = engine.hand[kHandSize - 1];
    for (std::size_t i = 1; i < kHandSize; ++i) {
        scene.places[i].card = engine.doubleUpClosed ? engine.hand[i - 1] : kCardBack;
        scene.places[i].held = engine.doubleUpClosed && engine.held[i];
    }
    return scene;
}

}  // namespace

int BetColumn(const GameEngine& engine) {
    return std::clamp(engine.settings.bet, 1, kCoinColumns) - 1;
}

TableScene DoubleUpScene(const GameTable& table, const std::string& message, int stake,
                         int doubleUpTo) {
    TableScene scene = Meters(table.engine, message);
    scene.doubleUp = {true, stake, doubleUpTo};
    scene.buttons.fill(ButtonLook::kHidden);
    scene.places[0].holdButton = ButtonLook::kHidden;
    return scene;
}

TableScene SceneOf(const GameTable& table, const std::string& message) {
    const GameEngine& engine = table.engine;
    if (engine.doubleUpPick) return PendingDoubleUp(table, message);
    TableScene scene = Meters(engine, message);
    ShowWonLine(engine, scene);
    if (IsPickEm(engine)) {
        ShowPickEmPlaces(engine, scene);
    } else {
        ShowHand(engine, scene);
    }
    ShowFeatures(table, scene);
    if (CanDoubleUp(engine)) scene.Button(TableButton::kDoubleUp) = ButtonLook::kReleased;
    return scene;
}
