#include "ui/table/TablePainter.h"

#include <algorithm>
#include <string>

#include "game/table/TableScene.h"
#include "ui/table/CardPainter.h"
#include "ui/table/ClothPainter.h"
#include "ui/table/PayTablePainter.h"
#include "ui/table/TableCanvas.h"

namespace {

class TablePainter {
  public:
    TablePainter(TableCanvas& onCanvas, const TableScene& shownScene,
                 const TableLayout& tableLayout, const PayTable& table, const CardTable& cardTable)
        : canvas(onCanvas),
          scene(shownScene),
          layout(tableLayout),
          payTable(table),
          cards(onCanvas, tableLayout, cardTable, table.type) {}

    void Paint() {
        PaintCloth(canvas, layout);
        if (scene.doubleUp.shown) {
            PaintDoubleUp();
        } else {
            if (canvas.Sees(layout.PayTablePanel())) {
                PaintPayTable(canvas, scene, layout, payTable);
            }
            canvas.DrawPicture(CoinPicture(scene.coin), layout.coin);
            PaintFeatures();
            PaintMeters();
        }
        PaintPlaces();
        PaintButtons();
    }

  private:
    void PaintDoubleUp();
    void PaintFeatures();
    void PaintRedBlack();
    void PaintChoice();
    void PaintSpin();
    void PaintTarget(std::size_t target);
    void PaintPlaces();
    void PaintPlace(std::size_t position);
    void PaintFirstDraw();
    void PaintFeatureLabel();
    void PaintButton(TableButton button, ButtonLook look, const QRect& place);
    void PaintButtons();
    void PaintMeters();
    void PaintPanel(CardColour colour, const QRect& place);

    TableCanvas& canvas;
    const TableScene& scene;
    const TableLayout& layout;
    const PayTable& payTable;
    CardPainter cards;
};

void TablePainter::PaintDoubleUp() {
    canvas.WriteOnCloth(layout.dealerLabel, "DEALER", kTableWhite);
    canvas.WriteOnCloth(layout.creditsWonLabel, "CREDITS WON", kTableWhite);
    canvas.WriteOnCloth(layout.creditsWonValue, std::to_string(scene.doubleUp.stake), kTableWhite);
    canvas.WriteOnCloth(layout.doubleUpToLabel, "DOUBLE UP TO", kTableWhite);
    canvas.WriteOnCloth(layout.doubleUpToValue, std::to_string(scene.doubleUp.doubleUpTo),
                        kTableWhite);
}

void TablePainter::PaintFeatures() {
    if (scene.charlie) canvas.DrawPicture(Picture::kCharlie, layout.charlie);
    for (std::size_t i = 0; i < scene.targets.size(); ++i) PaintTarget(i);
    PaintSpin();
    if (scene.redBlack.shown) PaintRedBlack();
}

// A target that was shot keeps a whole ring, one that was missed only a broken one.
void TablePainter::PaintTarget(std::size_t target) {
    const TargetLook& look = scene.targets[target];
    const QRect& place = layout.targets[target];
    if (look.face == TargetFace::kGone) return;
    if (look.face == TargetFace::kHidden) {
        canvas.DrawPicture(Picture::kTarget, place);
        return;
    }
    const bool shot = look.face == TargetFace::kShot;
    const QColor colour = shot ? kTableWhite : kTableYellow;
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
void TablePainter::PaintPanel(CardColour colour, const QRect& place) {
    constexpr int kLetterHeight = 12;
    const bool red = colour == CardColour::kRed;
    const bool lit = scene.redBlack.lit == colour;
    canvas.DrawPicture(PanelPicture(layout.sizeClass, red, lit), place);
    const QRect foot(place.x() + 4, place.y() + place.height() - kLetterHeight - 3,
                     place.width() - 8, kLetterHeight);
    canvas.Write({foot, kLetterHeight}, red ? "R" : "B", kTableWhite,
                 red ? Qt::AlignLeft : Qt::AlignRight);
}

void TablePainter::PaintRedBlack() {
    canvas.WriteOnCloth(layout.redBlackLabel, "Red or Black?", kTableWhite);
    PaintPanel(CardColour::kRed, layout.redPanel);
    PaintPanel(CardColour::kBlack, layout.blackPanel);
    if (scene.redBlack.choice == CardColour::kNone) {
        canvas.WriteEdged(layout.questionMark, "?", kTableWhite, kTableBlack);
    } else {
        PaintChoice();
    }
}

void TablePainter::PaintChoice() {
    const bool red = scene.redBlack.choice == CardColour::kRed;
    canvas.DrawPicture(ChoicePicture(layout.sizeClass, red), layout.choiceMark);
    canvas.Write({layout.choiceMark.adjusted(3, 1, -3, -1), layout.labelFontHeight},
                 red ? "RED" : "BLACK", kTableWhite);
}

// The value keeps clear of the pointers at both ends of its window.
void TablePainter::PaintSpin() {
    if (scene.spin.window) {
        const int pointer = layout.spinValue.height() / 6 + 2;
        canvas.DrawPicture(SpinWindow(layout.sizeClass), layout.spinValue);
        canvas.Write({layout.spinValue.adjusted(pointer, 1, -pointer, -1), layout.payFontHeight},
                     scene.spin.value, kTableWhite);
    }
    if (scene.spin.button == SpinButton::kHidden) return;
    const bool lit = scene.spin.button == SpinButton::kLit;
    canvas.DrawPicture(SpinButtonPicture(layout.sizeClass, lit), layout.spinButton);
    canvas.Write(layout.spinButtonText, "SPIN", kTableBlack);
}

void TablePainter::PaintPlaces() {
    for (std::size_t i = 0; i < scene.places.size(); ++i) PaintPlace(i);
    PaintFirstDraw();
    PaintFeatureLabel();
}

void TablePainter::PaintPlace(std::size_t position) {
    const PlaceLook& look = scene.places[position];
    const QRect& place = layout.cards[position];
    cards.DrawPile(look.pileDepth, place);
    cards.DrawCard(look.card, place, look.pileTop);
    if (!look.label.empty() && position >= kLeftPilePosition) {
        canvas.WriteEdged(layout.pileLabels[position - kLeftPilePosition], look.label, kTableBlue,
                          kCardPaper);
    }
    if (look.held) canvas.WriteOnCloth(layout.heldMarks[position], "HELD", kTableWhite);
    PaintButton(TableButton::kHold, look.holdButton, layout.holdButtons[position]);
}

void TablePainter::PaintFirstDraw() {
    if (scene.firstDraw == kNoCard) return;
    canvas.WriteOnCloth(layout.sneakPeakLabel, "First Draw Card", kTableWhite);
    cards.DrawCard(scene.firstDraw, layout.sneakPeakCard);
}

void TablePainter::PaintFeatureLabel() {
    const bool shoot = scene.featureLabel == "SHOOT";
    canvas.WriteEdged(shoot ? layout.shootLabel : layout.spinLabel, scene.featureLabel, kTableBlue,
                      kCardPaper);
}

void TablePainter::PaintButton(TableButton button, ButtonLook look, const QRect& place) {
    if (look == ButtonLook::kHidden) return;
    const bool pressed = look == ButtonLook::kPressed;
    canvas.DrawPicture(ButtonPicture(button, layout.sizeClass, pressed), place);
}

void TablePainter::PaintButtons() {
    PaintButton(TableButton::kDeal, scene.buttons.deal, layout.deal);
    PaintButton(TableButton::kBetOne, scene.buttons.betOne, layout.betOne);
    PaintButton(TableButton::kMaxBet, scene.buttons.maxBet, layout.maxBet);
    PaintButton(TableButton::kDoubleUp, scene.buttons.doubleUp, layout.doubleUp);
}

void TablePainter::PaintMeters() {
    const auto meter = [this](const TextPlace& place, const std::string& text,
                              Qt::Alignment alignment) {
        canvas.DrawBox(place.rect, kTableYellow, kTableBlack);
        canvas.Write({place.rect.adjusted(3, 1, -3, -1), place.fontHeight}, text, kTableWhite,
                     alignment);
    };
    meter(layout.message, scene.message, Qt::AlignHCenter);
    canvas.WriteOnCloth(layout.betLabel, "BET", kTableWhite);
    meter(layout.betValue, scene.bet, Qt::AlignHCenter);
    canvas.WriteOnCloth(layout.creditLabel, "CREDITS", kTableWhite);
    meter(layout.creditValue, scene.credits, Qt::AlignRight);
}

}  // namespace

void PaintTable(QPainter& painter, const QRegion& clip, const TableScene& scene,
                const TableLayout& layout, const PayTable& payTable, const CardTable& cards,
                PictureStore& pictures) {
    TableCanvas canvas(painter, clip & QRect(QPoint(0, 0), layout.client), pictures);
    TablePainter(canvas, scene, layout, payTable, cards).Paint();
}
