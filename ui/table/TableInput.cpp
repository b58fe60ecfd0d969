#include "ui/table/TableInput.h"

#include <Qt>
#include <algorithm>
#include <iterator>
#include <utility>

#include "game/BonusFeatures.h"
#include "game/DoubleUp.h"
#include "game/FixedHand.h"
#include "game/HandFlow.h"
#include "game/PickEmFlow.h"
#include "game/TableCommands.h"
#include "ui/art/Pictures.h"
#include "ui/table/Commands.h"
#include "ui/table/SceneDisplay.h"

namespace {

constexpr int kFirstPick = 1;  // position of the first card that a double up lets be picked

// Where a key presses a place.
QPoint InsideOf(const QRect& place) { return place.topLeft() + QPoint(1, 1); }

bool OnBet(const TableLayout& places, QPoint point) {
    return places.betLabel.rect.contains(point) || places.betValue.rect.contains(point);
}

bool OnCredits(const TableLayout& places, QPoint point) {
    return places.creditLabel.rect.contains(point) || places.creditValue.rect.contains(point);
}

bool IsDigit(int key, int first, int last) {
    return key >= Qt::Key_0 + first && key <= Qt::Key_0 + last;
}

}  // namespace

TableInput::TableInput(GameTable& table, SceneDisplay& display, const TableLayout& places,
                       KeyCommands commands)
    : table(table),
      engine(table.engine),
      display(display),
      places(places),
      commands(std::move(commands)) {}

void TableInput::Press(QPoint point) {
    if (HandIsDealt()) {
        if (IsPickEm(engine) || PositionAt(point) >= 0) {
            PressDealt(point);
            return;
        }
    } else if (engine.doubleUpPick && !engine.doubleUpClosed) {
        for (int i = kFirstPick; i < kHandSize; ++i) {
            if (places.holdButtons[static_cast<std::size_t>(i)].contains(point)) {
                display.ShowHoldButton(i, true);
            }
        }
        return;
    } else {
        PressGameOver(point);
    }
    if (places.deal.contains(point)) display.PressButton(TableButton::kDeal, true);
}

void TableInput::Release(QPoint point) {
    ReleaseButtons();
    if (engine.doubleUpPick) {
        const int position = PositionAt(point);
        if (position >= kFirstPick) PickDoubleUpCard(table, position);
        return;
    }
    if (HandIsDealt() ? ReleaseDealt(point) : ReleaseGameOver(point)) return;
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
    if (engine.doubleUpPick) {
        if (!IsDigit(key, 2, 5)) return;
        Release(InsideOf(places.cards[static_cast<std::size_t>(key - Qt::Key_1)]));
    } else if (FeaturePending(engine)) {
        FeatureKey(key);
    } else {
        TableKey(key);
    }
}

PressKind TableInput::KindAt(QPoint point) const {
    if (PositionAt(point) >= 0) return PressKind::kHold;
    return places.deal.contains(point) ? PressKind::kDraw : PressKind::kOther;
}

PressKind TableInput::KindOf(int key) {
    if (IsDigit(key, 1, kHandSize)) return PressKind::kHold;
    return key == Qt::Key_D || key == Qt::Key_Space ? PressKind::kDraw : PressKind::kOther;
}

bool TableInput::IsTableKey(int key) const {
    constexpr int kOwn[] = {Qt::Key_Space, Qt::Key_B, Qt::Key_D,    Qt::Key_M,    Qt::Key_R,
                            Qt::Key_S,     Qt::Key_U, Qt::Key_Left, Qt::Key_Right};
    return IsDigit(key, 1, kHandSize) || std::ranges::find(kOwn, key) != std::end(kOwn) ||
           commands.ofKey(key) != kNoCommand;
}

bool TableInput::HandIsDealt() const { return !engine.handOver; }

int TableInput::PositionAt(QPoint point) const {
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (places.holdButtons[i].contains(point) || places.cards[i].contains(point)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void TableInput::PressDealt(QPoint point) {
    const int position = PositionAt(point);
    if (position < 0) return;
    const bool onButton = places.holdButtons[static_cast<std::size_t>(position)].contains(point);
    const bool hasButton = !IsPickEm(engine) || position >= kLeftPilePosition;
    if (onButton && hasButton) display.ShowHoldButton(position, true);
    if (!IsPickEm(engine)) ToggleHold(table, position);
}

void TableInput::PressGameOver(QPoint point) {
    if (CanDoubleUp(engine) && places.doubleUp.contains(point)) {
        display.PressButton(TableButton::kDoubleUp, true);
    }
    if (FeaturePending(engine)) return;
    if (places.betOne.contains(point)) display.PressButton(TableButton::kBetOne, true);
    if (places.maxBet.contains(point)) display.PressButton(TableButton::kMaxBet, true);
    if (OnCredits(places, point)) ToggleShowDollar(table);
}

// True when the release needs no further look.
bool TableInput::ReleaseDealt(QPoint point) {
    const int position = PositionAt(point);
    if (!IsPickEm(engine)) return position >= 0;
    if (position == kLeftPilePosition) ChoosePile(table, Pile::kLeft);
    if (position == kRightPilePosition) ChoosePile(table, Pile::kRight);
    return true;
}

bool TableInput::ReleaseGameOver(QPoint point) {
    if (ReleaseFeature(point)) return true;
    if (CanDoubleUp(engine) && places.doubleUp.contains(point)) {
        StartDoubleUp(table);
        return true;
    }
    if (FeaturePending(engine)) return true;
    if (places.betOne.contains(point) || OnBet(places, point)) BetOneCommand(table);
    if (places.maxBet.contains(point)) BetMaxCommand(table);
    return false;
}

bool TableInput::ReleaseFeature(QPoint point) {
    if (engine.redBlackPending) {
        const bool red = places.redPanel.contains(point);
        if (red || places.blackPanel.contains(point)) {
            GuessColour(table, red ? CardColour::kRed : CardColour::kBlack);
            return true;
        }
    }
    if (engine.spinPending && places.spinButton.contains(point)) {
        Spin(table);
        return true;
    }
    if (!engine.targetPending) return false;
    for (int i = 0; i < kTargets; ++i) {
        const auto target = static_cast<std::size_t>(i);
        if (table.target.shot[target] || !places.targets[target].contains(point)) continue;
        Shoot(table, i);
        return true;
    }
    return false;
}

bool TableInput::RightPressGameOver(QPoint point) {
    if (places.deal.contains(point)) {
        AssignFixedHand(table);
    } else if (OnBet(places, point)) {
        BetMaxCommand(table);
    } else if (OnCredits(places, point)) {
        CashOutCommand(table);
    } else {
        return false;
    }
    return true;
}

void TableInput::FeatureKey(int key) {
    if (key == Qt::Key_U) {
        StartDoubleUp(table);
    } else if (engine.redBlackPending && (key == Qt::Key_R || key == Qt::Key_B)) {
        Release(InsideOf(key == Qt::Key_R ? places.redPanel : places.blackPanel));
    } else if (engine.spinPending && key == Qt::Key_S) {
        Release(InsideOf(places.spinButton));
    } else if (engine.targetPending && IsDigit(key, 1, kTargets)) {
        Release(InsideOf(places.targets[static_cast<std::size_t>(key - Qt::Key_1)]));
    }
}

void TableInput::TableKey(int key) {
    if (IsDigit(key, 1, kHandSize)) {
        Press(InsideOf(places.cards[static_cast<std::size_t>(key - Qt::Key_1)]));
        return;
    }
    switch (key) {
        case Qt::Key_Space:
        case Qt::Key_D:
            if (!(HandIsDealt() && IsPickEm(engine))) DealDraw(table);
            break;
        case Qt::Key_B:
            Release(InsideOf(places.betValue.rect));
            break;
        case Qt::Key_M:
            if (!HandIsDealt()) RightPress(InsideOf(places.betValue.rect));
            break;
        case Qt::Key_U:
            StartDoubleUp(table);
            break;
        case Qt::Key_Left:
        case Qt::Key_Right:
            PileKey(key);
            break;
        default:
            if (const int command = commands.ofKey(key)) commands.run(command);
    }
}

void TableInput::PileKey(int key) {
    if (!HandIsDealt() || !IsPickEm(engine)) return;
    const int position = key == Qt::Key_Left ? kLeftPilePosition : kRightPilePosition;
    Release(InsideOf(places.cards[static_cast<std::size_t>(position)]));
}

void TableInput::ReleaseButtons() {
    for (const TableButton button :
         {TableButton::kDeal, TableButton::kBetOne, TableButton::kMaxBet, TableButton::kDoubleUp}) {
        display.PressButton(button, false);
    }
    for (int i = 0; i < kHandSize; ++i) display.ShowHoldButton(i, false);
}
