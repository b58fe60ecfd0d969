#include "ui/machine/MachinePainter.h"

#include <algorithm>
#include <string>

#include "game/seat/Scene.h"
#include "ui/machine/CardPainter.h"
#include "ui/machine/ClothPainter.h"
#include "ui/machine/MachineCanvas.h"
#include "ui/machine/PayTablePainter.h"

namespace {

constexpr QColor kPlateGold{255, 226, 130};

class MachinePainter {
  public:
    MachinePainter(MachineCanvas& onCanvas, const Scene& shownScene,
                   const MachineLayout& machineLayout, const PayTable& table,
                   const CardTable& cardTable, const CardStyle& cardStyle)
        : canvas(onCanvas),
          scene(shownScene),
          layout(machineLayout),
          payTable(table),
          cards(onCanvas, machineLayout, cardTable, table.type, cardStyle) {}

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
            PaintFeatures();
            PaintMeters();
        }
        PaintPlaces();
        PaintButtons();
        canvas.WriteOnCloth(layout.hint, scene.hint, kMachineWhite);
    }

  private:
    void PaintDoubleUp();
    void PaintPlate();
    void PaintFeatures();
    void PaintRedBlack();
    void PaintChoice();
    void PaintSpin();
    void PaintTarget(std::size_t target);
    void PaintPlaces();
    void PaintPlace(std::size_t position);
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
    CardPainter cards;
};

void MachinePainter::PaintDoubleUp() {
    canvas.WriteOnCloth(layout.dealerLabel, "DEALER", kMachineWhite);
    canvas.WriteOnCloth(layout.creditsWonLabel, "CREDITS WON", kMachineWhite);
    canvas.WriteOnCloth(layout.creditsWonValue, std::to_string(scene.doubleUp.stake),
                        kMachineWhite);
    canvas.WriteOnCloth(layout.doubleUpToLabel, "DOUBLE UP TO", kMachineWhite);
    canvas.WriteOnCloth(layout.doubleUpToValue, std::to_string(scene.doubleUp.doubleUpTo),
                        kMachineWhite);
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
    cards.DrawPile(look.pileDepth, place);
    cards.DrawCard(look.card, place, look.pileTop);
    if (!look.label.empty() && position >= kLeftPilePosition) {
        cards.WriteOnPlate(layout.pileLabels[position - kLeftPilePosition], place, look.label);
    }
    if (look.held) canvas.WriteOnCloth(layout.heldMarks[position], "HELD", kMachineWhite);
    PaintButton(MachineButton::kHold, look.holdButton, look.holdDimmed,
                layout.holdButtons[position]);
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
                              Qt::Alignment alignment) {
        canvas.DrawBox(place.rect, kMachineYellow, kMachineBlack);
        canvas.Write({place.rect.adjusted(3, 1, -3, -1), place.fontHeight}, text, kMachineWhite,
                     alignment);
    };
    meter(layout.message, scene.message, Qt::AlignHCenter);
    canvas.WriteOnCloth(layout.betLabel, "BET", kMachineWhite);
    meter(layout.betValue, scene.bet, Qt::AlignHCenter);
    canvas.WriteOnCloth(layout.creditLabel, "CREDITS", kMachineWhite);
    meter(layout.creditValue, scene.credits, Qt::AlignRight);
}

}  // namespace

void PaintMachine(QPainter& painter, const QRegion& clip, const Scene& scene, const MachineFit& fit,
                  const MachineLayout& layout, const PayTable& payTable, const CardTable& cards,
                  PictureStore& pictures, const CardStyle& cardStyle) {
    MachineCanvas canvas(painter, clip, fit, pictures);
    MachinePainter(canvas, scene, layout, payTable, cards, cardStyle).Paint();
}
