#include "ui/machine/MachineInput.h"

#include <Qt>
#include <algorithm>
#include <array>
#include <utility>

#include "game/commands/MachineCommands.h"
#include "game/flows/BonusFeatures.h"
#include "game/flows/DoubleUp.h"
#include "game/flows/FixedHand.h"
#include "game/flows/HandFlow.h"
#include "game/seat/ShowScene.h"
#include "ui/machine/Commands.h"

namespace {

constexpr int kFirstPick = 1;  // position of the first card that a double up lets be picked

bool OnBet(const MachineLayout& places, QPoint point) {
    return places.betLabel.rect.contains(point) || places.betValue.rect.contains(point);
}

bool OnCredits(const MachineLayout& places, QPoint point) {
    return places.creditLabel.rect.contains(point) || places.creditValue.rect.contains(point);
}

static_assert(kTargets == kHandSize, "the digits name either");
bool IsDigit(int key) { return key > Qt::Key_0 && key <= Qt::Key_0 + kHandSize; }

// Of the place that holds the point; -1 when none does.
int IndexAt(const std::array<QRect, 5>& rects, QPoint point) {
    const auto found =
        std::ranges::find_if(rects, [&](const QRect& rect) { return rect.contains(point); });
    return found == rects.end() ? -1 : static_cast<int>(found - rects.begin());
}

}  // namespace

MachineInput::MachineInput(Seat& seat, const MachineLayout& places, KeyCommands commands)
    : seat(seat), engine(seat.engine), places(places), commands(std::move(commands)) {}

void MachineInput::Press(QPoint point) {
    if (ButtonLook* button = ButtonAt(point)) PressButton(*button);
    if (HandIsDealt()) {
        const int place = PlaceAt(point);
        if (place >= 0) PressPlace(place);
    } else if (!FeaturePending(engine) && OnCredits(places, point)) {
        ToggleShowDollar(seat);
    }
}

ButtonLook* MachineInput::ButtonAt(QPoint point) {
    MachineButtons& buttons = seat.scene.buttons;
    const int hold = IndexAt(places.holdButtons, point);
    if (HandIsDealt()) {
        const bool hasButton = hold >= (IsPickEm(engine) ? kLeftPilePosition : 0);
        if (hasButton) return &HoldButtonAt(seat.scene, hold);
        if (PlaceAt(point) >= 0 || IsPickEm(engine)) return nullptr;
    } else if (engine.doubleUpPick && !engine.doubleUpClosed) {
        return hold >= kFirstPick ? &HoldButtonAt(seat.scene, hold) : nullptr;
    } else {
        if (CanDoubleUp(engine) && places.doubleUp.contains(point)) return &buttons.doubleUp;
        if (!FeaturePending(engine) && places.betOne.contains(point)) return &buttons.betOne;
        if (!FeaturePending(engine) && places.maxBet.contains(point)) return &buttons.maxBet;
    }
    return places.deal.contains(point) ? &buttons.deal : nullptr;
}

QRect MachineInput::PlaceOfKey(int key) const {
    if (IsDigit(key)) return places.holdButtons[static_cast<std::size_t>(key - Qt::Key_1)];
    switch (key) {
        case Qt::Key_Space:
        case Qt::Key_D:
            return places.deal;
        case Qt::Key_B:
            return places.betOne;
        case Qt::Key_M:
            return places.maxBet;
        case Qt::Key_U:
            return places.doubleUp;
        case Qt::Key_Left:
            return IsPickEm(engine) ? places.holdButtons[kLeftPilePosition] : QRect();
        case Qt::Key_Right:
            return IsPickEm(engine) ? places.holdButtons[kRightPilePosition] : QRect();
        default:
            return {};
    }
}

// The key of DEAL does nothing while a feature waits, though the button itself goes down.
void MachineInput::PressKey(int key) {
    const QRect place = PlaceOfKey(key);
    if (place.isEmpty() || (place == places.deal && FeaturePending(engine))) return;
    if (ButtonLook* button = ButtonAt(place.center())) PressButton(*button);
}

void MachineInput::Drag(QPoint from, QPoint to) {
    ButtonLook* button = ButtonAt(from);
    if (!button || *button == ButtonLook::kHidden) return;
    const bool down = *button == ButtonLook::kPressed;
    const bool over = ButtonAt(to) == button;
    if (over && !down) PressButton(*button);
    if (!over && down) ReleaseButtons();
}

void MachineInput::Release(QPoint point) {
    ReleaseButtons();
    const int place = PlaceAt(point);
    if (engine.doubleUpPick || HandIsDealt()) {
        ReleasePlace(place);
        if (engine.doubleUpPick || IsPickEm(engine) || place >= 0) return;
    } else if (ReleaseGameOver(point)) {
        return;
    }
    if (places.deal.contains(point)) DealDraw(seat);
}

void MachineInput::RightPress(QPoint point) {
    if (FeaturePending(engine)) return;
    if (HandIsDealt()) {
        const bool onDeal = places.deal.contains(point);
        if (onDeal && engine.fixedHand) {
            AssignFixedHand(seat);
            return;
        }
        if (IsPickEm(engine) || OnBet(places, point)) return;
    } else if (RightPressGameOver(point)) {
        return;
    }
    DealDraw(seat);
}

void MachineInput::DoublePress(QPoint point) {
    if (FeaturePending(engine)) return;
    if (places.PayTablePanel().contains(point)) commands.run(kEditCurrentPayTable);
}

void MachineInput::Key(int key) {
    if (IsDigit(key)) return DigitKey(key - Qt::Key_1);
    if (engine.doubleUpPick) return;
    const bool waits = FeaturePending(engine);
    const OwnKey* own = FindOwnKey(key);
    const auto act = !own ? nullptr : waits ? own->inFeature : own->act;
    if (act) {
        act(*this);
    } else if (const int command = commands.ofKey(key); command != kNoCommand && !waits) {
        commands.run(command);
    }
}

PressKind MachineInput::KindAt(QPoint point) const {
    if (PlaceAt(point) >= 0) return PressKind::kHold;
    return places.deal.contains(point) ? PressKind::kDraw : PressKind::kOther;
}

PressKind MachineInput::KindOf(int key) {
    if (IsDigit(key)) return PressKind::kHold;
    const OwnKey* own = FindOwnKey(key);
    return own ? own->kind : PressKind::kOther;
}

bool MachineInput::IsMachineKey(int key) const {
    return IsDigit(key) || FindOwnKey(key) || commands.ofKey(key) != kNoCommand;
}

std::span<const MachineInput::OwnKey> MachineInput::OwnKeys() {
    using enum PressKind;
    using In = MachineInput;
    constexpr auto kDeal = [](In& in) { in.DealKey(); };
    constexpr auto kDoubleUp = [](In& in) { StartDoubleUp(in.seat); };
    static constexpr OwnKey kKeys[] = {
        {Qt::Key_Space, kDraw, kDeal, nullptr},
        {Qt::Key_D, kDraw, kDeal, nullptr},
        {Qt::Key_B, kOther, [](In& in) { in.ReleaseBet(); },
         [](In& in) { in.ReleasePanel(CardColour::kBlack); }},
        {Qt::Key_R, kOther, nullptr, [](In& in) { in.ReleasePanel(CardColour::kRed); }},
        {Qt::Key_M, kOther, [](In& in) { BetMax(in.seat); }, nullptr},
        {Qt::Key_S, kOther, nullptr, [](In& in) { in.ReleaseSpin(); }},
        {Qt::Key_U, kOther, kDoubleUp, kDoubleUp},
        {Qt::Key_Left, kOther, [](In& in) { in.ReleasePlace(kLeftPilePosition); }, nullptr},
        {Qt::Key_Right, kOther, [](In& in) { in.ReleasePlace(kRightPilePosition); }, nullptr},
    };
    return kKeys;
}

const MachineInput::OwnKey* MachineInput::FindOwnKey(int key) {
    const auto keys = OwnKeys();
    const auto found = std::ranges::find(keys, key, &OwnKey::key);
    return found == keys.end() ? nullptr : &*found;
}

void MachineInput::DigitKey(int number) {
    if (engine.doubleUpPick) {
        ReleasePlace(number);
    } else if (FeaturePending(engine)) {
        ReleaseTarget(number);
    } else {
        PressPlace(number);
    }
}

void MachineInput::DealKey() {
    if (!HandIsDealt() || !IsPickEm(engine)) DealDraw(seat);
}

int MachineInput::PlaceAt(QPoint point) const {
    const int button = IndexAt(places.holdButtons, point);
    return button >= 0 ? button : IndexAt(places.cards, point);
}

int MachineInput::TargetAt(QPoint point) const { return IndexAt(places.targets, point); }

void MachineInput::PressPlace(int place) {
    if (HandIsDealt() && !IsPickEm(engine)) ToggleHold(seat, place);
}

void MachineInput::ReleasePlace(int place) {
    const bool picks = engine.doubleUpPick && place >= kFirstPick;
    const bool choosesPile = HandIsDealt() && IsPickEm(engine) && place >= kLeftPilePosition;
    if (!picks && !choosesPile) return;
    ReleaseButtons();
    if (picks) {
        PickDoubleUpCard(seat, place);
    } else {
        ChoosePile(seat, place == kLeftPilePosition ? Pile::kLeft : Pile::kRight);
    }
}

void MachineInput::ReleaseTarget(int target) {
    if (!engine.targetPending) return;
    ReleaseButtons();
    Shoot(seat, target);
}

void MachineInput::ReleasePanel(CardColour colour) {
    if (!engine.redBlackPending) return;
    ReleaseButtons();
    GuessColour(seat, colour);
}

void MachineInput::ReleaseSpin() {
    if (!engine.spinPending) return;
    ReleaseButtons();
    Spin(seat);
}

void MachineInput::ReleaseBet() {
    ReleaseButtons();
    BetOne(seat);
}

// True when the release needs no further look.
bool MachineInput::ReleaseGameOver(QPoint point) {
    if (ReleaseFeature(point)) return true;
    if (CanDoubleUp(engine) && places.doubleUp.contains(point)) {
        StartDoubleUp(seat);
        return true;
    }
    if (FeaturePending(engine)) return true;
    if (places.betOne.contains(point) || OnBet(places, point)) ReleaseBet();
    if (places.maxBet.contains(point)) BetMax(seat);
    return false;
}

bool MachineInput::ReleaseFeature(QPoint point) {
    if (engine.redBlackPending && places.redPanel.contains(point)) {
        ReleasePanel(CardColour::kRed);
    } else if (engine.redBlackPending && places.blackPanel.contains(point)) {
        ReleasePanel(CardColour::kBlack);
    } else if (engine.spinPending && places.spinButton.contains(point)) {
        ReleaseSpin();
    } else if (engine.targetPending && TargetAt(point) >= 0) {
        ReleaseTarget(TargetAt(point));
    } else {
        return false;
    }
    return true;
}

bool MachineInput::RightPressGameOver(QPoint point) {
    if (places.deal.contains(point)) {
        AssignFixedHand(seat);
    } else if (OnBet(places, point)) {
        BetMax(seat);
    } else if (OnCredits(places, point)) {
        CashOut(seat);
    } else {
        return false;
    }
    return true;
}

void MachineInput::PressButton(ButtonLook& button) {
    ::PressButton(button);
    Show(seat);
}

void MachineInput::ReleaseButtons() {
    ReleaseAllButtons(seat.scene);
    Show(seat);
}
