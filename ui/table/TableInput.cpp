#include "ui/table/TableInput.h"

#include <Qt>
#include <algorithm>
#include <array>
#include <utility>

#include "game/commands/TableCommands.h"
#include "game/flows/BonusFeatures.h"
#include "game/flows/DoubleUp.h"
#include "game/flows/FixedHand.h"
#include "game/flows/HandFlow.h"
#include "game/table/ShowTable.h"
#include "ui/table/Commands.h"

namespace {

constexpr int kFirstPick = 1;  // position of the first card that a double up lets be picked

bool OnBet(const TableLayout& places, QPoint point) {
    return places.betLabel.rect.contains(point) || places.betValue.rect.contains(point);
}

bool OnCredits(const TableLayout& places, QPoint point) {
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

TableInput::TableInput(GameTable& table, const TableLayout& places, KeyCommands commands)
    : table(table), engine(table.engine), places(places), commands(std::move(commands)) {}

void TableInput::Press(QPoint point) {
    if (HandIsDealt()) {
        const int place = PlaceAt(point);
        if (place >= 0) PressDealt(point, place);
        if (place >= 0 || IsPickEm(engine)) return;
    } else if (engine.doubleUpPick && !engine.doubleUpClosed) {
        const int place = IndexAt(places.holdButtons, point);
        if (place >= kFirstPick) PressButton(HoldButtonAt(table.scene, place));
        return;
    } else {
        PressGameOver(point);
    }
    if (places.deal.contains(point)) PressButton(table.scene.buttons.deal);
}

void TableInput::Release(QPoint point) {
    ReleaseButtons();
    const int place = PlaceAt(point);
    if (engine.doubleUpPick || HandIsDealt()) {
        ReleasePlace(place);
        if (engine.doubleUpPick || IsPickEm(engine) || place >= 0) return;
    } else if (ReleaseGameOver(point)) {
        return;
    }
    if (places.deal.contains(point)) DealDraw(table);
}

void TableInput::RightPress(QPoint point) {
    if (FeaturePending(engine)) return;
    if (HandIsDealt()) {
        const bool onDeal = places.deal.contains(point);
        if (onDeal && engine.fixedHand) {
            AssignFixedHand(table);
            return;
        }
        if (IsPickEm(engine) || OnBet(places, point)) return;
    } else if (RightPressGameOver(point)) {
        return;
    }
    DealDraw(table);
}

void TableInput::DoublePress(QPoint point) {
    if (FeaturePending(engine)) return;
    if (places.PayTablePanel().contains(point)) commands.run(kEditCurrentPayTable);
}

void TableInput::Key(int key) {
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

PressKind TableInput::KindAt(QPoint point) const {
    if (PlaceAt(point) >= 0) return PressKind::kHold;
    return places.deal.contains(point) ? PressKind::kDraw : PressKind::kOther;
}

PressKind TableInput::KindOf(int key) {
    if (IsDigit(key)) return PressKind::kHold;
    const OwnKey* own = FindOwnKey(key);
    return own ? own->kind : PressKind::kOther;
}

bool TableInput::IsTableKey(int key) const {
    return IsDigit(key) || FindOwnKey(key) || commands.ofKey(key) != kNoCommand;
}

std::span<const TableInput::OwnKey> TableInput::OwnKeys() {
    using enum PressKind;
    using In = TableInput;
    constexpr auto kDeal = [](In& in) { in.DealKey(); };
    constexpr auto kDoubleUp = [](In& in) { StartDoubleUp(in.table); };
    static constexpr OwnKey kKeys[] = {
        {Qt::Key_Space, kDraw, kDeal, nullptr},
        {Qt::Key_D, kDraw, kDeal, nullptr},
        {Qt::Key_B, kOther, [](In& in) { in.ReleaseBet(); },
         [](In& in) { in.ReleasePanel(CardColour::kBlack); }},
        {Qt::Key_R, kOther, nullptr, [](In& in) { in.ReleasePanel(CardColour::kRed); }},
        {Qt::Key_M, kOther, [](In& in) { BetMax(in.table); }, nullptr},
        {Qt::Key_S, kOther, nullptr, [](In& in) { in.ReleaseSpin(); }},
        {Qt::Key_U, kOther, kDoubleUp, kDoubleUp},
        {Qt::Key_Left, kOther, [](In& in) { in.ReleasePlace(kLeftPilePosition); }, nullptr},
        {Qt::Key_Right, kOther, [](In& in) { in.ReleasePlace(kRightPilePosition); }, nullptr},
    };
    return kKeys;
}

const TableInput::OwnKey* TableInput::FindOwnKey(int key) {
    const auto keys = OwnKeys();
    const auto found = std::ranges::find(keys, key, &OwnKey::key);
    return found == keys.end() ? nullptr : &*found;
}

void TableInput::DigitKey(int number) {
    if (engine.doubleUpPick) {
        ReleasePlace(number);
    } else if (FeaturePending(engine)) {
        ReleaseTarget(number);
    } else {
        PressPlace(number);
    }
}

void TableInput::DealKey() {
    if (!HandIsDealt() || !IsPickEm(engine)) DealDraw(table);
}

int TableInput::PlaceAt(QPoint point) const {
    const int button = IndexAt(places.holdButtons, point);
    return button >= 0 ? button : IndexAt(places.cards, point);
}

int TableInput::TargetAt(QPoint point) const { return IndexAt(places.targets, point); }

void TableInput::PressPlace(int place) {
    if (HandIsDealt() && !IsPickEm(engine)) ToggleHold(table, place);
}

void TableInput::ReleasePlace(int place) {
    const bool picks = engine.doubleUpPick && place >= kFirstPick;
    const bool choosesPile = HandIsDealt() && IsPickEm(engine) && place >= kLeftPilePosition;
    if (!picks && !choosesPile) return;
    ReleaseButtons();
    if (picks) {
        PickDoubleUpCard(table, place);
    } else {
        ChoosePile(table, place == kLeftPilePosition ? Pile::kLeft : Pile::kRight);
    }
}

void TableInput::ReleaseTarget(int target) {
    if (!engine.targetPending) return;
    ReleaseButtons();
    Shoot(table, target);
}

void TableInput::ReleasePanel(CardColour colour) {
    if (!engine.redBlackPending) return;
    ReleaseButtons();
    GuessColour(table, colour);
}

void TableInput::ReleaseSpin() {
    if (!engine.spinPending) return;
    ReleaseButtons();
    Spin(table);
}

void TableInput::ReleaseBet() {
    ReleaseButtons();
    BetOne(table);
}

void TableInput::PressDealt(QPoint point, int place) {
    const bool onButton = places.holdButtons[static_cast<std::size_t>(place)].contains(point);
    const bool hasButton = !IsPickEm(engine) || place >= kLeftPilePosition;
    if (onButton && hasButton) PressButton(HoldButtonAt(table.scene, place));
    PressPlace(place);
}

void TableInput::PressGameOver(QPoint point) {
    if (CanDoubleUp(engine) && places.doubleUp.contains(point)) {
        PressButton(table.scene.buttons.doubleUp);
    }
    if (FeaturePending(engine)) return;
    if (places.betOne.contains(point)) PressButton(table.scene.buttons.betOne);
    if (places.maxBet.contains(point)) PressButton(table.scene.buttons.maxBet);
    if (OnCredits(places, point)) ToggleShowDollar(table);
}

// True when the release needs no further look.
bool TableInput::ReleaseGameOver(QPoint point) {
    if (ReleaseFeature(point)) return true;
    if (CanDoubleUp(engine) && places.doubleUp.contains(point)) {
        StartDoubleUp(table);
        return true;
    }
    if (FeaturePending(engine)) return true;
    if (places.betOne.contains(point) || OnBet(places, point)) ReleaseBet();
    if (places.maxBet.contains(point)) BetMax(table);
    return false;
}

bool TableInput::ReleaseFeature(QPoint point) {
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

bool TableInput::RightPressGameOver(QPoint point) {
    if (places.deal.contains(point)) {
        AssignFixedHand(table);
    } else if (OnBet(places, point)) {
        BetMax(table);
    } else if (OnCredits(places, point)) {
        CashOut(table);
    } else {
        return false;
    }
    return true;
}

void TableInput::PressButton(ButtonLook& button) {
    ::PressButton(button);
    Show(table);
}

void TableInput::ReleaseButtons() {
    ReleaseAllButtons(table.scene);
    Show(table);
}
