#include "ui/machine/ChangedRegion.h"

#include <algorithm>
#include <functional>

#include "game/seat/Scene.h"
#include "ui/machine/CardPainter.h"
#include "ui/machine/Highlights.h"
#include "ui/machine/Layout.h"
#include "ui/machine/Moment.h"
#include "ui/machine/MovingCard.h"

namespace {

class ChangeFinder {
  public:
    ChangeFinder(const Scene& earlier, const Scene& later, const PayTable& table,
                 const MachineLayout& machineLayout)
        : before(earlier), now(later), payTable(table), layout(machineLayout) {}

    QRegion Find() {
        // A double up takes all else off the machine.
        if (before.doubleUp.shown != now.doubleUp.shown) return QRect(QPoint(0, 0), layout.client);
        FindMeters();
        for (std::size_t i = 0; i < now.lines.size(); ++i) FindLine(i);
        for (std::size_t i = 0; i < now.places.size(); ++i) FindPlace(i);
        FindButtons();
        FindFeatures();
        FindHighlights();
        if (now.doubleUp.shown) FindDuel();
        return region;
    }

  private:
    template <class Part>
    void Compare(Part Scene::*part, std::initializer_list<QRect> places) {
        if (before.*part == now.*part) return;
        for (const QRect& place : places) Add(place);
    }

    void FindMeters() {
        Compare(&Scene::message, {layout.message.rect});
        Compare(&Scene::credits, {layout.creditValue.rect});
        Compare(&Scene::bet, {layout.betValue.rect});
        Compare(&Scene::coin, {layout.coin});
        Compare(&Scene::plate, {layout.plate});
        Compare(&Scene::hint, {layout.hint.rect});
        Compare(&Scene::betColumn, {ColumnOf(before), ColumnOf(now)});
        Compare(&Scene::doubleUp, {layout.creditsWonValue.rect, layout.doubleUpToValue.rect});
    }

    QRect ColumnOf(const Scene& scene) const {
        return layout.columns[static_cast<std::size_t>(scene.betColumn)].adjusted(-1, -1, 1, 1);
    }

    void FindLine(std::size_t line) {
        if (before.lines[line] == now.lines[line] || line >= layout.rows.size()) return;
        Add(layout.rows[line]);
        for (const LineLook& look : {before.lines[line], now.lines[line]}) {
            Add(layout.PayoutCell(static_cast<int>(line), look.column + 1));
        }
    }

    void FindPlace(std::size_t position) {
        const PlaceLook& old = before.places[position];
        const PlaceLook& look = now.places[position];
        const bool sameCard = old.card == look.card && old.pileTop == look.pileTop &&
                              old.pileDepth == look.pileDepth && old.label == look.label;
        if (!sameCard) {
            const int depth = std::max(old.pileDepth, look.pileDepth);
            Add(CardPainter::Covered(layout.cards[position], depth));
        }
        if (old.lit != look.lit) Add(WithGlow(layout.cards[position]));
        if (old.held != look.held) Add(layout.heldMarks[position].rect);
        if (old.held != look.held) Add(WithGlow(layout.holdButtons[position]));
        if (old.holdButton != look.holdButton || old.holdDimmed != look.holdDimmed) {
            Add(layout.holdButtons[position]);
        }
    }

    void FindButtons() {
        const MachineButtons& old = before.buttons;
        const MachineButtons& looks = now.buttons;
        const bool bets = old.betsDimmed != looks.betsDimmed;
        if (old.deal != looks.deal || old.dealDimmed != looks.dealDimmed) Add(layout.deal);
        if (old.betOne != looks.betOne || bets) Add(layout.betOne);
        if (old.maxBet != looks.maxBet || bets) Add(layout.maxBet);
        if (old.doubleUp != looks.doubleUp) Add(layout.doubleUp);
    }

    void FindFeatures() {
        Compare(&Scene::charlie, {layout.charlie});
        Compare(&Scene::firstDraw,
                {CardPainter::Covered(layout.sneakPeakCard, 0), layout.sneakPeakLabel.rect});
        Compare(&Scene::featureLabel,
                {CardPainter::CoveredByPlate(layout.spinLabel, layout.cards[4]),
                 CardPainter::CoveredByPlate(layout.shootLabel, layout.cards[4])});
        Compare(&Scene::spin, {layout.spinButton, layout.spinValue});
        Compare(&Scene::redBlack, {layout.redPanel, layout.blackPanel, layout.choiceMark,
                                   layout.redBlackLabel.rect, layout.questionMark.rect});
        for (std::size_t i = 0; i < now.targets.size(); ++i) {
            if (before.targets[i] != now.targets[i]) Add(layout.targets[i]);
        }
    }

    void FindHighlights() {
        if (BigWinLine(before, payTable) != BigWinLine(now, payTable)) {
            Add(CelebrationPlace(layout));
        }
        if (WaitingFor(before) == WaitingFor(now) && before.targets == now.targets) return;
        for (const Scene& scene : {std::cref(before), std::cref(now)}) {
            for (const QRect& place : WaitingPlaces(scene, layout)) Add(WithGlow(place));
        }
    }

    // The plates name the cards; whoever wins, it may show at each card.
    void FindDuel() {
        const bool decided = before.doubleUp.result != now.doubleUp.result;
        if (!decided && before.places == now.places) return;
        for (const bool dealers : {true, false}) Add(DuelPlate(layout, dealers));
        for (std::size_t i = 0; i < now.places.size() && decided; ++i) {
            Add(WithGlow(layout.cards[i]));
        }
    }

    // A pixel around each place: letters that are written across something have an edge that wide,
    // and at a scale that is not whole a place ends within a pixel of the screen.
    void Add(const QRect& place) { region += place.adjusted(-1, -1, 1, 1); }

    const Scene& before;
    const Scene& now;
    const PayTable& payTable;
    const MachineLayout& layout;
    QRegion region;
};

}  // namespace

QRegion ChangedRegion(const Scene& before, const Scene& now, const PayTable& payTable,
                      const MachineLayout& layout) {
    return ChangeFinder(before, now, payTable, layout).Find();
}

QRegion ChangedRegion(const Moment& before, const Moment& now, const Scene& scene,
                      const MachineLayout& layout) {
    QRegion region;
    if (before == now) return region;
    const auto add = [&](const QRect& place) { region += place.adjusted(-1, -1, 1, 1); };
    for (std::size_t i = 0; i < now.places.size(); ++i) {
        const PlaceMoment& old = before.places[i];
        const PlaceMoment& place = now.places[i];
        const QRect& card = layout.cards[i];
        if (old.move != place.move || old.moved != place.moved) {
            const bool turns = old.move != CardMove::kLeave && old.move != CardMove::kCome &&
                               place.move != CardMove::kLeave && place.move != CardMove::kCome;
            add(CoveredByMove(card, turns ? 0 : SlideOf(layout, i)));
        }
        if (old.lit != place.lit) {
            for (const QRect& side : FrameOfGlow(card)) add(side);
        }
        if (old.held != place.held) add(WithGlow(layout.holdButtons[i]));
        if (before.verdict != now.verdict) add(WithGlow(card));
    }
    if (before.message != now.message) add(layout.message.rect);
    if (before.credits != now.credits) add(layout.creditValue.rect);
    if (before.celebration != now.celebration) add(CelebrationPlace(layout));
    if (before.waiting == now.waiting) return region;
    for (const QRect& place : WaitingPlaces(scene, layout)) add(WithGlow(place));
    return region;
}
