#include "ui/machine/ChangedRegion.h"

#include <algorithm>

#include "game/seat/Scene.h"
#include "ui/machine/CardPainter.h"
#include "ui/machine/Layout.h"

namespace {

class ChangeFinder {
  public:
    ChangeFinder(const Scene& earlier, const Scene& later, const MachineLayout& machineLayout)
        : before(earlier), now(later), layout(machineLayout) {}

    QRegion Find() {
        // A double up takes all else off the machine.
        if (before.doubleUp.shown != now.doubleUp.shown) return QRect(QPoint(0, 0), layout.client);
        FindMeters();
        for (std::size_t i = 0; i < now.lines.size(); ++i) FindLine(i);
        for (std::size_t i = 0; i < now.places.size(); ++i) FindPlace(i);
        FindButtons();
        FindFeatures();
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
        if (old.held != look.held) Add(layout.heldMarks[position].rect);
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

    // A pixel around each place: letters that are written across something have an edge that wide,
    // and at a scale that is not whole a place ends within a pixel of the screen.
    void Add(const QRect& place) { region += place.adjusted(-1, -1, 1, 1); }

    const Scene& before;
    const Scene& now;
    const MachineLayout& layout;
    QRegion region;
};

}  // namespace

QRegion ChangedRegion(const Scene& before, const Scene& now, const MachineLayout& layout) {
    return ChangeFinder(before, now, layout).Find();
}
