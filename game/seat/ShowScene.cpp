#include "game/seat/ShowScene.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/eval/WinningCards.h"
#include "core/text/Amount.h"

namespace {

constexpr int kAceValue = 14;
constexpr int kWildValue = 15;

std::string BetText(const GameEngine& engine) {
    const MachineSettings& settings = engine.settings;
    return settings.showDollar ? FormatDollars("%3.2f", settings.bet * settings.coin)
                               : FormatCount(settings.bet);
}

int BetColumn(const GameEngine& engine) {
    return std::clamp(engine.settings.bet, 1, kCoinColumns) - 1;
}

std::array<ButtonLook*, 4 + kHandSize> ButtonsOf(Scene& scene) {
    MachineButtons& buttons = scene.buttons;
    auto& places = scene.places;
    return {&buttons.deal,         &buttons.betOne,       &buttons.maxBet,
            &buttons.doubleUp,     &places[0].holdButton, &places[1].holdButton,
            &places[2].holdButton, &places[3].holdButton, &places[4].holdButton};
}

std::string NameOf(PlayMode mode) {
    switch (mode) {
        case PlayMode::kWarning:
            return "Warning";
        case PlayMode::kAutoHold:
            return "AutoHold";
        case PlayMode::kErrorLog:
            return "Error Log";
        case PlayMode::kCasino:
            break;
    }
    return "Casino";
}

// The hands of the error log are fixed ones until the player deals others in that mode.
std::string DetailsOf(const GameEngine& engine) {
    const MachineSettings& settings = engine.settings;
    const bool ownHand = engine.fixedHand && settings.mode != PlayMode::kErrorLog;
    return "Table " + std::to_string(settings.activeTable) + ", " +
           (ownHand ? "Fixed Hand" : NameOf(settings.mode)) +
           (engine.fixedHand ? ": credits do not count" : "");
}

// The keys that do something next.
std::string HintOf(const GameEngine& engine) {
    if (engine.doubleUpPick) return "2 to 5: pick a card that beats the dealer's";
    if (engine.redBlackPending) return "R: red   B: black";
    if (engine.spinPending) return "S: spin";
    if (engine.targetPending) return "1 to 5: shoot";
    if (!engine.handOver && IsPickEm(engine)) return "Left, Right: choose a pile";
    if (!engine.handOver) return "1 to 5: hold a card   D: draw";
    if (CanDoubleUp(engine)) return "D: deal   U: double up";
    return "D: deal   B: bet one more   M: bet the most";
}

void ShowMeters(const GameEngine& engine, Scene& scene) {
    scene.credits = CreditText(engine, engine.settings.credits);
    scene.bet = BetText(engine);
    scene.betColumn = BetColumn(engine);
    scene.coin = engine.settings.coin;
}

void ShowWonLine(const GameEngine& engine, Scene& scene) {
    const int line = engine.handOver ? engine.finalLine : engine.dealtLine;
    const int lines = static_cast<int>(std::min(engine.payTable.lines.size(), scene.lines.size()));
    if (!engine.handWins || line < 0 || line >= lines) return;
    scene.lines[static_cast<std::size_t>(line)] = {LineMark::kWon, AnnouncedPay(engine, line),
                                                   BetColumn(engine)};
    scene.charlie = CharlieApplies(engine);
    LightCards(engine, line, scene);
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

void LayTop(const GameEngine& engine, Pile pile, Scene& scene) {
    const int position = pile == Pile::kLeft ? kLeftPilePosition : kRightPilePosition;
    PlaceLook& place = scene.places[static_cast<std::size_t>(position)];
    place.card = TopOf(engine, pile);
    place.pileTop = true;
    place.pileDepth = 2;
    place.label = PileLabel(engine, pile);
}

void ShowPickEmPlaces(const GameEngine& engine, Scene& scene) {
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

HoldMask CardsOfLine(const GameEngine& engine, int line) {
    if (CharlieApplies(engine)) return kStandPat;
    const CardTable& cards = engine.deck.table;
    if (!IsPickEm(engine) || engine.handOver) {
        return WinningCards(FacesOf(cards, engine.hand), engine.payTable, line);
    }
    const HandCards seen = {engine.hand[0], engine.hand[1], kNoCard, TopOf(engine, Pile::kLeft),
                            TopOf(engine, Pile::kRight)};
    return WinningPickEmDeal(FacesOf(cards, seen), engine.payTable, line);
}

int DuelValue(const GameEngine& engine, std::size_t handPosition) {
    const CardCode code = engine.hand[handPosition];
    const CardInfo& card = engine.deck.table.cards[static_cast<std::size_t>(code)];
    if (card.wild) return kWildValue;
    return card.rank == 1 ? kAceValue : card.rank;
}

void ShowHand(const GameEngine& engine, Scene& scene) {
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

void ShowFeatures(const Seat& seat, Scene& scene) {
    const GameEngine& engine = seat.engine;
    if (engine.redBlackPending) scene.redBlack = {true, seat.redBlack.drawn, CardColour::kNone};
    if (engine.spinPending) {
        scene.spin = {SpinButton::kReady, true, ""};
        scene.featureLabel = "SPIN";
    }
    if (engine.targetPending) {
        for (std::size_t i = 0; i < kTargets; ++i) scene.targets[i] = LookOf(seat.target, i);
        scene.featureLabel = "SHOOT";
    }
}

// The lines, buttons and features are left out.
void ShowDoubleUp(const GameEngine& engine, Scene& scene) {
    scene.doubleUp = {true, engine.bonusStake, engine.doubleUpTo,
                      engine.doubleUpClosed ? DuelOf(engine) : DuelResult::kOpen};
    scene.buttons.deal = scene.buttons.betOne = scene.buttons.maxBet = ButtonLook::kHidden;
    scene.places[0].holdButton = ButtonLook::kHidden;
    scene.places[0].card = engine.hand[kHandSize - 1];
    for (std::size_t i = 1; i < kHandSize; ++i) {
        scene.places[i].card = engine.doubleUpClosed ? engine.hand[i - 1] : kCardBack;
        scene.places[i].held = engine.doubleUpClosed && engine.held[i];
    }
}

// Whether a press on a card or its button would be taken.
bool PlaceActs(const GameEngine& engine, std::size_t position) {
    if (engine.doubleUpPick) return position > 0 && !engine.doubleUpClosed;
    return !engine.handOver && (!IsPickEm(engine) || position >= kLeftPilePosition);
}

void DimButtons(const GameEngine& engine, Scene& scene) {
    const bool waits = FeaturePending(engine);
    scene.buttons.dealDimmed = waits || (!engine.handOver && IsPickEm(engine));
    scene.buttons.betsDimmed = waits || !engine.handOver;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        scene.places[i].holdDimmed = !PlaceActs(engine, i);
    }
}

}  // namespace

std::string CreditText(const GameEngine& engine, int credits) {
    const MachineSettings& settings = engine.settings;
    return settings.showDollar ? FormatDollars("%7.2f", credits * settings.coin)
                               : FormatCount(credits);
}

std::string MeterText(const Seat& seat) {
    const GameEngine& engine = seat.engine;
    if (!engine.handOver) return "HOLD/DRAW";
    if (seat.bonusShown) return CreditText(engine, engine.bonusStake) + " Bonus Credits";
    // A winning deal that was broken off, such as a fixed hand's, has won nothing.
    const bool won = engine.handWins && engine.win > 0;
    return won ? "WON " + CreditText(engine, engine.win) : "GAME OVER";
}

int AnnouncedPay(const GameEngine& engine, int line) {
    const int pay = LineUnitPay(engine.payTable, line, engine.settings.bet);
    return CharlieApplies(engine) ? AddCapped(pay, std::int64_t{4} * pay) : pay;
}

// The dealer's card is the last of the hand, and that of position 1 the first.
DuelResult DuelOf(const GameEngine& engine) {
    for (std::size_t position = 1; position < kHandSize; ++position) {
        if (!engine.held[position]) continue;
        const int difference = DuelValue(engine, position - 1) - DuelValue(engine, kHandSize - 1);
        if (difference == 0) return DuelResult::kTied;
        return difference > 0 ? DuelResult::kWon : DuelResult::kLost;
    }
    return DuelResult::kOpen;
}

void LightCards(const GameEngine& engine, int line, Scene& scene) {
    const HoldMask lit = line < 0 ? 0 : CardsOfLine(engine, line);
    for (std::size_t i = 0; i < kHandSize; ++i) scene.places[i].lit = Holds(lit, i);
}

Scene SceneOf(const Seat& seat) {
    const GameEngine& engine = seat.engine;
    Scene scene;
    scene.message = seat.scene.message;
    ShowMeters(engine, scene);
    scene.plate = {engine.settings.gameName, DetailsOf(engine)};
    if (seat.showsHints) scene.hint = HintOf(engine);
    if (engine.doubleUpPick) {
        ShowDoubleUp(engine, scene);
    } else {
        IsPickEm(engine) ? ShowPickEmPlaces(engine, scene) : ShowHand(engine, scene);
        ShowWonLine(engine, scene);
        ShowFeatures(seat, scene);
        if (CanDoubleUp(engine)) scene.buttons.doubleUp = ButtonLook::kReleased;
    }
    DimButtons(engine, scene);
    Scene shown = seat.scene;
    const auto before = ButtonsOf(shown);
    const auto now = ButtonsOf(scene);
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (*before[i] == ButtonLook::kPressed) PressButton(*now[i]);
    }
    return scene;
}

void ShowAtRest(Seat& seat) {
    seat.scene = SceneOf(seat);
    Show(seat);
}

void ShowAtRest(Seat& seat, const std::string& message) {
    seat.scene.message = message;
    ShowAtRest(seat);
}

void ShowGameOver(Seat& seat) {
    GameEngine& engine = seat.engine;
    engine.held = seat.beforeDoubleUp.held = {};
    engine.readyToDeal = engine.handOver = true;
    if (engine.dealtLine >= 0 && engine.finalLine < 0) engine.finalLine = engine.dealtLine;
    if (engine.doubleUpPick) return ShowAtRest(seat);
    engine.handInProgress = false;
    seat.bonusShown = false;
    ShowAtRest(seat, "GAME OVER");
}

void Show(Seat& seat) { seat.display.Show(seat.scene); }

void ShowMessage(Seat& seat, const std::string& text) {
    seat.scene.message = text;
    Show(seat);
}

void ShowMeters(Seat& seat) { ShowMessage(seat, MeterText(seat)); }

void ShowCredits(Seat& seat) {
    seat.scene.credits = CreditText(seat.engine, seat.engine.settings.credits);
    Show(seat);
}

// A card that is laid down takes away what lay in the place before, but for the mark and the button
// that belong to the place itself.
void ShowCard(Seat& seat, int position, CardCode card) {
    PlaceLook& place = seat.scene.places[static_cast<std::size_t>(position)];
    const PlaceLook before = std::exchange(place, PlaceLook{});
    place.card = card;
    place.held = before.held;
    place.holdButton = before.holdButton;
    place.holdDimmed = before.holdDimmed;
    Show(seat);
}

void ShowPileTop(Seat& seat, Pile pile) {
    LayTop(seat.engine, pile, seat.scene);
    Show(seat);
}

void ShowLine(Seat& seat, int line, LineMark mark, int payout) {
    if (line < 0 || line >= kMaxPayLines) return;
    LineLook look;
    if (mark != LineMark::kPlain) look = {mark, payout, BetColumn(seat.engine)};
    seat.scene.lines[static_cast<std::size_t>(line)] = look;
    Show(seat);
}

void PressButton(ButtonLook& button) {
    if (button != ButtonLook::kHidden) button = ButtonLook::kPressed;
}

void ReleaseButton(ButtonLook& button) {
    if (button != ButtonLook::kHidden) button = ButtonLook::kReleased;
}

void ReleaseAllButtons(Scene& scene) {
    for (ButtonLook* button : ButtonsOf(scene)) ReleaseButton(*button);
}
