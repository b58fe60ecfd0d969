#include "ui/machine/DuelPainter.h"

#include <string>

#include "game/seat/Scene.h"
#include "ui/machine/Glow.h"
#include "ui/machine/Highlights.h"
#include "ui/machine/MachineCanvas.h"
#include "ui/machine/Moment.h"

namespace {

constexpr int kInset = 4;

bool IsFace(CardCode card, const CardTable& cards) { return card >= 0 && card < cards.deckSize; }

std::string NameOf(CardCode card, const CardTable& cards) {
    return IsFace(card, cards) ? cards.cards[static_cast<std::size_t>(card)].name : "";
}

// A plate that has won is as red as a pay line that is won.
void PaintPlate(MachineCanvas& canvas, const QRect& plate, bool won, const std::string& heading,
                const std::string& card) {
    if (plate.isNull() || !canvas.Sees(plate)) return;
    canvas.DrawBox(plate, kMachineYellow, won ? kMachineRed : kMachineBlack);
    const QRect inside = plate.adjusted(kInset, kInset, -kInset, -kInset);
    const int half = inside.height() / 2;
    const QRect upper(inside.topLeft(), QSize(inside.width(), half));
    canvas.Write({upper, half}, heading, kMachineYellow);
    canvas.Write({upper.translated(0, half), half}, card, kMachineWhite);
}

void PaintBadge(MachineCanvas& canvas, const QRect& badge, const std::string& word) {
    constexpr int kBand = 2;
    QPainter& painter = canvas.Painter();
    painter.fillRect(badge, kMachineRed);
    painter.fillRect(QRect(badge.topLeft(), QSize(badge.width(), kBand)), kGold);
    painter.fillRect(badge.adjusted(0, badge.height() - kBand, 0, 0), kGold);
    canvas.Write({badge.adjusted(kInset, kBand + 1, -kInset, -kBand - 1), badge.height() - 6}, word,
                 kMachineWhite);
}

}  // namespace

void PaintDuelPlates(MachineCanvas& canvas, const Scene& scene, const MachineLayout& layout,
                     const CardTable& cards) {
    const DuelResult result = scene.doubleUp.result;
    const std::size_t picked = PickedPosition(scene);
    const std::string own = picked == 0 ? "pick a card" : NameOf(scene.places[picked].card, cards);
    const bool tied = result == DuelResult::kTied;
    const bool won = result == DuelResult::kWon;
    const bool lost = result == DuelResult::kLost;
    PaintPlate(canvas, DuelPlate(layout, true), lost,
               lost   ? "DEALER WINS"
               : tied ? "DEALER - TIE"
                      : "DEALER",
               NameOf(scene.places[0].card, cards));
    PaintPlate(canvas, DuelPlate(layout, false), won,
               won    ? "YOU WIN"
               : tied ? "YOU - TIE"
                      : "YOU",
               own);
}

void PaintVerdict(MachineCanvas& canvas, const Scene& scene, const MachineLayout& layout,
                  const Moment& moment) {
    const DuelResult result = scene.doubleUp.result;
    if (!scene.doubleUp.shown || result == DuelResult::kOpen) return;
    const auto mark = [&](std::size_t position, const std::string& word) {
        const QRect& card = layout.cards[position];
        if (!canvas.Sees(WithGlow(card))) return;
        QPainter& painter = canvas.Painter();
        painter.save();
        painter.setOpacity(moment.verdict);
        PaintBadge(canvas, BadgePlace(layout, position), word);
        painter.restore();
    };
    const std::size_t picked = PickedPosition(scene);
    if (result == DuelResult::kTied) mark(0, "TIE");
    if (result == DuelResult::kTied) mark(picked, "TIE");
    if (result == DuelResult::kLost) mark(0, "WINS");
    if (result == DuelResult::kWon) mark(picked, "WINS");
}
