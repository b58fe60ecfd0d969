#include "game/table/ShowTable.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/text/Amount.h"

namespace {

std::string BetText(const GameEngine& engine) {
    const MachineSettings& settings = engine.settings;
    return settings.showDollar ? FormatDollars("%3.2f", settings.bet * settings.coin)
                               : FormatCount(settings.bet);
}

int BetColumn(const GameEngine& engine) {
    return std::clamp(engine.settings.bet, 1, kCoinColumns) - 1;
}

std::array<ButtonLook*, 4 + kHandSize> ButtonsOf(TableScene& scene) {
    TableButtons& table = scene.buttons;
    auto& places = scene.places;
    return {&table.deal,           &table.betOne,         &table.maxBet,
            &table.doubleUp,       &places[0].holdButton, &places[1].holdButton,
            &places[2].holdButton, &places[3].holdButton, &places[4].holdButton};
}

void ShowMeters(const GameEngine& engine, TableScene& scene) {
    scene.credits = CreditText(engine, engine.settings.credits);
    scene.bet = BetText(engine);
    scene.coin = engine.settings.coin;
}

void ShowWonLine(const GameEngine& engine, TableScene& scene) {
    const int line = engine.handOver ? engine.finalLine : engine.dealtLine;
    const int lines = static_cast<int>(std::min(engine.payTable.lines.size(), scene.lines.size()));
    if (!engine.handWins || line < 0 || line >= lines) return;
    scene.lines[static_cast<std::size_t>(line)] = {LineMark::kWon, AnnouncedPay(engine, line),
                                                   BetColumn(engine)};
    scene.charlie = CharlieApplies(engine);
}

CardCode TopOf(const GameEngine& engine, Pile pile) {
    return pile == Pile::kLeft ? engine.hand[2] : engine.drawCards[0];
}

// What the better pile is marked with in AutoHold mode.
std::string PileLabel(const GameEngine& engine, Pile pile) {
    if (engine.settings.mode != PlayMode::kAutoHold) return "";
    const double left = engine.analysis.holds[kLeftPile].expectedReturn;
    const double right = engine.analysis.holds[kRightPile].expectedReturn;
    if (left == right) return "EITHER";
    return (left > right) == (pile == Pile::kLeft) ? "PLAY" : "";
}

void LayTop(const GameEngine& engine, Pile pile, TableScene& scene) {
    const int position = pile == Pile::kLeft ? kLeftPilePosition : kRightPilePosition;
    PlaceLook& place = scene.places[static_cast<std::size_t>(position)];
    place.card = TopOf(engine, pile);
    place.pileTop = true;
    place.pileDepth = 2;
    place.label = PileLabel(engine, pile);
}

void ShowPickEmPlaces(const GameEngine& engine, TableScene& scene) {
    for (std::size_t i = 0; i < kHandSize; ++i) scene.places[i].card = engine.hand[i];
    if (!engine.handOver) {
        scene.places[2].card = kNoCard;
        LayTop(engine, Pile::kLeft, scene);
        LayTop(engine, Pile::kRight, scene);
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
    if (IsSneakPeak(engine) && !engine.handOver) scene.firstDraw = engine.drawCards[0];
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

// The lines, buttons and features are left out.
void ShowDoubleUp(const GameEngine& engine, TableScene& scene) {
    scene.doubleUp = {true, engine.bonusStake, engine.doubleUpTo};
    scene.buttons.deal = scene.buttons.betOne = scene.buttons.maxBet = ButtonLook::kHidden;
    scene.places[0].holdButton = ButtonLook::kHidden;
    scene.places[0].card = engine.hand[kHandSize - 1];
    for (std::size_t i = 1; i < kHandSize; ++i) {
        scene.places[i].card = engine.doubleUpClosed ? engine.hand[i - 1] : kCardBack;
        scene.places[i].held = engine.doubleUpClosed && engine.held[i];
    }
}

}  // namespace

std::string CreditText(const GameEngine& engine, int credits) {
    const MachineSettings& settings = engine.settings;
    return settings.showDollar ? FormatDollars("%7.2f", credits * settings.coin)
                               : FormatCount(credits);
}

std::string MeterText(const GameTable& table) {
    const GameEngine& engine = table.engine;
    if (!engine.handOver) return "HOLD/DRAW";
    if (table.bonusShown) return CreditText(engine, engine.bonusStake) + " Bonus Credits";
    // A winning deal that was broken off, such as a fixed hand's, has won nothing.
    const bool won = engine.handWins && engine.win > 0;
    return won ? "WON " + CreditText(engine, engine.win) : "GAME OVER";
}

int AnnouncedPay(const GameEngine& engine, int line) {
    const int pay = LineUnitPay(engine.payTable, line, engine.settings.bet);
    return CharlieApplies(engine) ? AddCapped(pay, std::int64_t{4} * pay) : pay;
}

TableScene SceneOf(const GameTable& table) {
    const GameEngine& engine = table.engine;
    TableScene scene;
    scene.message = table.scene.message;
    ShowMeters(engine, scene);
    if (engine.doubleUpPick) {
        ShowDoubleUp(engine, scene);
    } else {
        ShowWonLine(engine, scene);
        IsPickEm(engine) ? ShowPickEmPlaces(engine, scene) : ShowHand(engine, scene);
        ShowFeatures(table, scene);
        if (CanDoubleUp(engine)) scene.buttons.doubleUp = ButtonLook::kReleased;
    }
    TableScene shown = table.scene;
    const auto before = ButtonsOf(shown);
    const auto now = ButtonsOf(scene);
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (*before[i] == ButtonLook::kPressed) PressButton(*now[i]);
    }
    return scene;
}

void ShowAtRest(GameTable& table) {
    table.scene = SceneOf(table);
    Show(table);
}

void ShowAtRest(GameTable& table, const std::string& message) {
    table.scene.message = message;
    ShowAtRest(table);
}

void ShowGameOver(GameTable& table) {
    GameEngine& engine = table.engine;
    engine.held = table.beforeDoubleUp.held = {};
    engine.readyToDeal = engine.handOver = true;
    if (engine.dealtLine >= 0 && engine.finalLine < 0) engine.finalLine = engine.dealtLine;
    if (engine.doubleUpPick) return ShowAtRest(table);
    engine.handInProgress = false;
    table.bonusShown = false;
    ShowAtRest(table, "GAME OVER");
}

void Show(GameTable& table) { table.display.Show(table.scene); }

void ShowMessage(GameTable& table, const std::string& text) {
    table.scene.message = text;
    Show(table);
}

void ShowMeters(GameTable& table) { ShowMessage(table, MeterText(table)); }

void ShowCredits(GameTable& table) {
    table.scene.credits = CreditText(table.engine, table.engine.settings.credits);
    Show(table);
}

// A card that is laid down takes away what lay in the place before, but for the mark and the button
// that belong to the place itself.
void ShowCard(GameTable& table, int position, CardCode card) {
    PlaceLook& place = table.scene.places[static_cast<std::size_t>(position)];
    const PlaceLook before = std::exchange(place, PlaceLook{});
    place.card = card;
    place.held = before.held;
    place.holdButton = before.holdButton;
    Show(table);
}

void ShowPileTop(GameTable& table, Pile pile) {
    LayTop(table.engine, pile, table.scene);
    Show(table);
}

void ShowLine(GameTable& table, int line, LineMark mark, int payout) {
    if (line < 0 || line >= kMaxPayLines) return;
    LineLook look;
    if (mark != LineMark::kPlain) look = {mark, payout, BetColumn(table.engine)};
    table.scene.lines[static_cast<std::size_t>(line)] = look;
    Show(table);
}

void PressButton(ButtonLook& button) {
    if (button != ButtonLook::kHidden) button = ButtonLook::kPressed;
}

void ReleaseButton(ButtonLook& button) {
    if (button != ButtonLook::kHidden) button = ButtonLook::kReleased;
}

void ReleaseAllButtons(TableScene& scene) {
    for (ButtonLook* button : ButtonsOf(scene)) ReleaseButton(*button);
}
