#include "ui/machine/MachinePainter.h"

#include <algorithm>
#include <string>

#include "game/seat/Scene.h"
#include "ui/machine/CardPainter.h"
#include "ui/machine/CelebrationPainter.h"
#include "ui/machine/ClothPainter.h"
#include "ui/machine/DuelPainter.h"
#include "ui/machine/Glow.h"
#include "ui/machine/Highlights.h"
#include "ui/machine/MachineCanvas.h"
#include "ui/machine/MovingCard.h"
#include "ui/machine/PayTablePainter.h"
#include "ui/machine/RollingText.h"

namespace {

constexpr QColor kPlateGold{255, 226, 130};
constexpr double kButtonRadius = 6;
constexpr double kSteadyLight = 0.5;  // of what waits for the player
constexpr int kCardRounding = 16;     // its width is that many corner radii

class MachinePainter {
  public:
    MachinePainter(MachineCanvas& onCanvas, const Scene& shownScene,
                   const MachineLayout& machineLayout, const PayTable& table,
                   const CardTable& cardTable, const CardStyle& cardStyle,
                   const Moment& shownMoment, Snapshots& knownSnapshots)
        : canvas(onCanvas),
          scene(shownScene),
          layout(machineLayout),
          payTable(table),
          deck(cardTable),
          cards(onCanvas, machineLayout, cardTable, table.type, cardStyle),
          moment(shownMoment),
          snapshots(knownSnapshots) {}

    void Paint() {
        PaintCloth(canvas, layout);
        if (scene.doubleUp.shown) {
            PaintDoubleUp();
        } else {
            if (canvas.Sees(layout.PayTablePanel())) {
                PaintPayTable(canvas, scene, layout, payTable);
            }
            PaintPlate();
            canvas.DrawPicture(CoinPicture(scene.coin), layout.coin);
            PaintBigWin();
            PaintFeatures();
            PaintMeters();
        }
        PaintPlaces();
        PaintVerdict(canvas, scene, layout, moment);
        PaintButtons();
        PaintWaiting();
        canvas.WriteOnCloth(layout.hint, scene.hint, kMachineWhite);
    }

  private:
    void PaintDoubleUp();
    void PaintPlate();
    void PaintBigWin();
    void PaintWaiting();
    void PaintFeatures();
    void PaintRedBlack();
    void PaintChoice();
    void PaintSpin();
    void PaintTarget(std::size_t target);
    void PaintPlaces();
    void PaintPlace(std::size_t position);
    void PaintCard(std::size_t position);
    void PaintHoldButton(std::size_t position);
    const QPixmap& Snapshot(CardCode card, bool pileTop);
    double Light(std::size_t position) const;
    void PaintFirstDraw();
    void PaintFeatureLabel();
    void PaintButton(MachineButton button, ButtonLook look, bool dimmed, const QRect& place);
    void PaintButtons();
    void PaintMeters();
    void PaintPanel(CardColour colour, const QRect& place);

    MachineCanvas& canvas;
    const Scene& scene;
    const MachineLayout& layout;
    const PayTable& payTable;
    const CardTable& deck;
    CardPainter cards;
    const Moment& moment;
    Snapshots& snapshots;
};

void MachinePainter::PaintDoubleUp() {
    canvas.WriteOnCloth(layout.dealerLabel, "DEALER", kMachineWhite);
    canvas.WriteOnCloth(layout.creditsWonLabel, "CREDITS WON", kMachineWhite);
    canvas.WriteOnCloth(layout.creditsWonValue, std::to_string(scene.doubleUp.stake), kMachineWhite,
                        Qt::AlignRight);
    canvas.WriteOnCloth(layout.doubleUpToLabel, "DOUBLE UP TO", kMachineWhite);
    canvas.WriteOnCloth(layout.doubleUpToValue, std::to_string(scene.doubleUp.doubleUpTo),
                        kMachineWhite, Qt::AlignRight);
    PaintDuelPlates(canvas, scene, layout, deck);
}

void MachinePainter::PaintBigWin() {
    const int line = BigWinLine(scene, payTable);
    if (line < 0) return;
    const auto index = static_cast<std::size_t>(line);
    PaintCelebration(canvas, CelebrationPlace(layout), payTable.lines[index].description,
                     scene.lines[index].payout, moment.celebration, snapshots);
}

void MachinePainter::PaintWaiting() {
    for (const QRect& place : WaitingPlaces(scene, layout)) {
        const bool round = place.width() == place.height();
        const double radius = round ? place.width() / 2.0 : kButtonRadius;
        DrawLight(canvas, place, radius, kSteadyLight * moment.waiting, snapshots);
    }
}

void MachinePainter::PaintPlate() {
    if (layout.plate.isEmpty() || !canvas.Sees(layout.plate)) return;
    QPainter& painter = canvas.Painter();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(0, 0, 0, 120));
    painter.setPen(QPen(QColor(255, 226, 130, 190), 1));
    painter.drawRoundedRect(QRectF(layout.plate).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    painter.restore();
    canvas.Write(layout.plateGame, scene.plate.game, kMachineWhite, Qt::AlignLeft);
    canvas.Write(layout.plateDetails, scene.plate.details, kPlateGold, Qt::AlignLeft);
}

void MachinePainter::PaintFeatures() {
    if (scene.charlie) canvas.DrawPicture(Picture::kCharlie, layout.charlie);
    for (std::size_t i = 0; i < scene.targets.size(); ++i) PaintTarget(i);
    PaintSpin();
    if (scene.redBlack.shown) PaintRedBlack();
}

// A target that was shot keeps a whole ring, one that was missed only a broken one.
void MachinePainter::PaintTarget(std::size_t target) {
    const TargetLook& look = scene.targets[target];
    const QRect& place = layout.targets[target];
    if (look.face == TargetFace::kGone) return;
    if (look.face == TargetFace::kHidden) {
        canvas.DrawPicture(TargetPicture(static_cast<int>(target)), place);
        return;
    }
    const bool shot = look.face == TargetFace::kShot;
    const QColor colour = shot ? kMachineWhite : kMachineYellow;
    QPainter& painter = canvas.Painter();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(0, 0, 0, 150));
    painter.setPen(QPen(colour, 1.5, shot ? Qt::SolidLine : Qt::DotLine));
    painter.drawEllipse(QRectF(place).adjusted(2, 2, -2, -2));
    painter.restore();
    const QRect text = place.adjusted(5, 0, -5, 0);
    canvas.Write({text, std::min(layout.payFontHeight, place.height() / 2)},
                 std::to_string(look.value), colour);
}

// The letter stands in an outer corner, beside the question mark between the panels.
void MachinePainter::PaintPanel(CardColour colour, const QRect& place) {
    constexpr int kLetterHeight = 12;
    const bool red = colour == CardColour::kRed;
    const bool lit = scene.redBlack.lit == colour;
    canvas.DrawPicture(PanelPicture(layout.sizeClass, red, lit), place);
    const QRect foot(place.x() + 4, place.y() + place.height() - kLetterHeight - 3,
                     place.width() - 8, kLetterHeight);
    canvas.Write({foot, kLetterHeight}, red ? "R" : "B", kMachineWhite,
                 red ? Qt::AlignLeft : Qt::AlignRight);
}

void MachinePainter::PaintRedBlack() {
    canvas.WriteOnCloth(layout.redBlackLabel, "Red or Black?", kMachineWhite);
    PaintPanel(CardColour::kRed, layout.redPanel);
    PaintPanel(CardColour::kBlack, layout.blackPanel);
    if (scene.redBlack.choice == CardColour::kNone) {
        canvas.WriteEdged(layout.questionMark, "?", kMachineWhite, kMachineBlack);
    } else {
        PaintChoice();
    }
}

void MachinePainter::PaintChoice() {
    const bool red = scene.redBlack.choice == CardColour::kRed;
    canvas.DrawPicture(ChoicePicture(layout.sizeClass, red), layout.choiceMark);
    canvas.Write({layout.choiceMark.adjusted(3, 1, -3, -1), layout.labelFontHeight},
                 red ? "RED" : "BLACK", kMachineWhite);
}

// The value keeps clear of the pointers at both ends of its window.
void MachinePainter::PaintSpin() {
    if (scene.spin.window) {
        const int pointer = layout.spinValue.height() / 6 + 2;
        canvas.DrawPicture(SpinWindow(layout.sizeClass), layout.spinValue);
        canvas.Write({layout.spinValue.adjusted(pointer, 1, -pointer, -1), layout.payFontHeight},
                     scene.spin.value, kMachineWhite);
    }
    if (scene.spin.button == SpinButton::kHidden) return;
    const bool lit = scene.spin.button == SpinButton::kLit;
    canvas.DrawPicture(SpinButtonPicture(layout.sizeClass, lit), layout.spinButton);
    canvas.Write(layout.spinButtonText, "SPIN", kMachineBlack);
}

void MachinePainter::PaintPlaces() {
    for (std::size_t i = 0; i < scene.places.size(); ++i) PaintPlace(i);
    PaintFirstDraw();
    PaintFeatureLabel();
}

void MachinePainter::PaintPlace(std::size_t position) {
    const PlaceLook& look = scene.places[position];
    const QRect& place = layout.cards[position];
    const double radius = static_cast<double>(place.width()) / kCardRounding;
    cards.DrawPile(look.pileDepth, place);
    PaintCard(position);
    DrawLight(canvas, place, radius, Light(position), snapshots);
    if (!look.label.empty() && position >= kLeftPilePosition) {
        cards.WriteOnPlate(layout.pileLabels[position - kLeftPilePosition], place, look.label);
    }
    if (look.held) canvas.WriteOnCloth(layout.heldMarks[position], "HELD", kMachineWhite);
    PaintHoldButton(position);
}

// How bright the golden light around a card is: of one that made the win, or won a double up.
double MachinePainter::Light(std::size_t position) const {
    const DuelResult result = scene.doubleUp.result;
    if (scene.doubleUp.shown) {
        const bool dealers = position == 0;
        const bool wins = dealers ? result == DuelResult::kLost
                                  : result == DuelResult::kWon && scene.places[position].held;
        return wins ? moment.verdict : 0;
    }
    const double lit = moment.places[position].lit;
    return scene.places[position].lit ? lit : 1 - lit;
}

// What a card leaves in sight is there from the first.
void MachinePainter::PaintCard(std::size_t position) {
    const PlaceLook& look = scene.places[position];
    const PlaceMoment& move = moment.places[position];
    const QRect& place = layout.cards[position];
    const bool turnsOrComes = move.move == CardMove::kTurn || move.move == CardMove::kCome;
    if (!turnsOrComes) cards.DrawCard(look.card, place, look.pileTop);
    const int slide = SlideOf(layout, position);
    if (move.move == CardMove::kNone || !canvas.Sees(CoveredByMove(place, slide))) return;
    DrawMovingCard(canvas, place, slide, move, Snapshot(move.from, move.fromPileTop),
                   Snapshot(look.card, look.pileTop));
}

const QPixmap& MachinePainter::Snapshot(CardCode card, bool pileTop) {
    QPixmap& picture = snapshots.cards[{card, pileTop}];
    if (picture.isNull()) picture = cards.Snapshot(card, pileTop);
    return picture;
}

// That of a held card is lit, its edge as well as the cloth around it: its word stays as legible.
void MachinePainter::PaintHoldButton(std::size_t position) {
    const PlaceLook& look = scene.places[position];
    const QRect& place = layout.holdButtons[position];
    if (look.holdButton == ButtonLook::kHidden) return;
    const double share = moment.places[position].held;
    const double light = look.held ? share : 1 - share;
    PaintButton(MachineButton::kHold, look.holdButton, look.holdDimmed, place);
    DrawLight(canvas, place, kButtonRadius, light, snapshots);
}

void MachinePainter::PaintFirstDraw() {
    if (scene.firstDraw == kNoCard) return;
    canvas.WriteOnCloth(layout.sneakPeakLabel, "First Draw Card", kMachineWhite);
    cards.DrawCard(scene.firstDraw, layout.sneakPeakCard);
}

void MachinePainter::PaintFeatureLabel() {
    const bool shoot = scene.featureLabel == "SHOOT";
    cards.WriteOnPlate(shoot ? layout.shootLabel : layout.spinLabel, layout.cards[4],
                       scene.featureLabel);
}

// One that is dimmed lets the cloth shine through, as far as its words stay easy to read.
void MachinePainter::PaintButton(MachineButton button, ButtonLook look, bool dimmed,
                                 const QRect& place) {
    constexpr double kDimmed = 0.7;
    if (look == ButtonLook::kHidden) return;
    const bool pressed = look == ButtonLook::kPressed;
    canvas.Painter().setOpacity(dimmed && !pressed ? kDimmed : 1.0);
    canvas.DrawPicture(ButtonPicture(button, layout.sizeClass, pressed), place);
    canvas.Painter().setOpacity(1.0);
}

void MachinePainter::PaintButtons() {
    const MachineButtons& buttons = scene.buttons;
    PaintButton(MachineButton::kDeal, buttons.deal, buttons.dealDimmed, layout.deal);
    PaintButton(MachineButton::kBetOne, buttons.betOne, buttons.betsDimmed, layout.betOne);
    PaintButton(MachineButton::kMaxBet, buttons.maxBet, buttons.betsDimmed, layout.maxBet);
    PaintButton(MachineButton::kDoubleUp, buttons.doubleUp, false, layout.doubleUp);
}

void MachinePainter::PaintMeters() {
    const auto meter = [this](const TextPlace& place, const std::string& text,
                              Qt::Alignment alignment, const RollMoment& roll = {}) {
        canvas.DrawBox(place.rect, kMachineYellow, kMachineBlack);
        WriteRolling(canvas, {place.rect.adjusted(3, 1, -3, -1), place.fontHeight}, text, roll,
                     kMachineWhite, alignment);
    };
    meter(layout.message, scene.message, Qt::AlignHCenter, moment.message);
    canvas.WriteOnCloth(layout.betLabel, "BET", kMachineWhite);
    meter(layout.betValue, scene.bet, Qt::AlignHCenter);
    canvas.WriteOnCloth(layout.creditLabel, "CREDITS", kMachineWhite);
    meter(layout.creditValue, scene.credits, Qt::AlignRight, moment.credits);
}

}  // namespace

void PaintMachine(QPainter& painter, const QRegion& clip, const Scene& scene, const MachineFit& fit,
                  const MachineLayout& layout, const PayTable& payTable, const CardTable& cards,
                  PictureStore& pictures, const CardStyle& cardStyle, const Moment& moment,
                  Snapshots* snapshots) {
    Snapshots own;
    Snapshots& known = snapshots ? *snapshots : own;
    MachineCanvas canvas(painter, clip, fit, pictures);
    if (known.pixelRatio != canvas.PixelRatio()) known = {};
    known.pixelRatio = canvas.PixelRatio();
    MachinePainter(canvas, scene, layout, payTable, cards, cardStyle, moment, known).Paint();
}
