#include "ui/table/TableInput.h"

#include <Qt>
#include <algorithm>
#include <iterator>
#include <utility>

#include "game/BonusFeatures.h"
#include "game/DoubleUp.h"
#include "game/FixedHand.h"
#include "game/HandFlow.h"
#include "game/ShowTable.h"
#include "game/TableCommands.h"
#include "ui/table/Commands.h"

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

TableInput::TableInput(GameTable& table, const TableLayout& places,
                       std::function<void(int)> command)
    : table(table), engine(table.engine), places(places), command(std::move(command)) {}

void TableInput::Press(QPoint point) {
    if (HandIsDealt()) {
        if (IsPickEm(engine) || PositionAt(point) >= 0) {
            PressDealt(point);
            return;
        }
    } else if (engine.doubleUpPick && !engine.doubleUpClosed) {
        for (int i = kFirstPick; i < kHandSize; ++i) {
            if (places.holdButtons[static_cast<std::size_t>(i)].contains(point)) {
                PressButton(table.scene.places[static_cast<std::size_t>(i)].holdButton);
            }
        }
        return;
    } else {
        PressGameOver(point);
    }
    if (places.deal.contains(point)) PressButton(table.scene.buttons.deal);
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
    if (places.PayTablePanel().contains(point)) command(kEditCurrentPayTable);
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

bool TableInput::IsTableKey(int key) {
    constexpr int kOthers[] = {Qt::Key_Space, Qt::Key_A,  Qt::Key_B,    Qt::Key_C,
                               Qt::Key_D,     Qt::Key_E,  Qt::Key_H,    Qt::Key_M,
                               Qt::Key_O,     Qt::Key_R,  Qt::Key_S,    Qt::Key_T,
                               Qt::Key_U,     Qt::Key_F1, Qt::Key_Left, Qt::Key_Right};
    return IsDigit(key, 0, kHandSize) || std::ranges::find(kOthers, key) != std::end(kOthers);
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
    if (onButton && hasButton) {
        PressButton(table.scene.places[static_cast<std::size_t>(position)].holdButton);
    }
    if (!IsPickEm(engine)) ToggleHold(table, position);
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
    if (places.betOne.contains(point) || OnBet(places, point)) BetOne(table);
    if (places.maxBet.contains(point)) BetMax(table);
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
        BetMax(table);
    } else if (OnCredits(places, point)) {
        CashOut(table);
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
            CommandKey(key);
    }
}

void TableInput::CommandKey(int key) {
    switch (key) {
        case Qt::Key_A:
            return command(kAssignFixedHand);
        case Qt::Key_C:
            return command(kToggleShowDollar);
        case Qt::Key_0:
            return ResetStatisticsOnly(table);
        case Qt::Key_E:
            return command(kEditPayTable);
        case Qt::Key_H:
            return command(kAnalyzeHand);
        case Qt::Key_O:
            return command(kCashOut);
        case Qt::Key_S:
            return command(kPlayStatistics);
        case Qt::Key_T:
            return command(kEditCurrentPayTable);
        case Qt::Key_F1:
            return command(kHelpIndex);
        default:
            return;
    }
}

void TableInput::PileKey(int key) {
    if (!HandIsDealt() || !IsPickEm(engine)) return;
    const int position = key == Qt::Key_Left ? kLeftPilePosition : kRightPilePosition;
    Release(InsideOf(places.cards[static_cast<std::size_t>(position)]));
}

void TableInput::PressButton(ButtonLook& button) {
    ::PressButton(button);
    Show(table);
}

void TableInput::ReleaseButtons() {
    ReleaseAllButtons(table.scene);
    Show(table);
}
