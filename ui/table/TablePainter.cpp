#include "ui/table/TablePainter.h"

#include <algorithm>
#include <string>

#include "ui/table/CardPainter.h"
#include "ui/table/ClothPainter.h"
#include "ui/table/PayTablePainter.h"
#include "ui/table/TableCanvas.h"
#include "ui/table/TableScene.h"

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
            PaintPayTable(canvas, scene, layout, payTable);
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
    void PaintPanel(const QRect& place, const QColor& fill, std::string_view letter, bool lit);

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
void TablePainter::PaintPanel(const QRect& place, const QColor& fill, std::string_view letter,
                              bool lit) {
    constexpr int kLetterHeight = 12;
    canvas.DrawBox(place, lit ? kTableYellow : kTableBlack, fill);
    if (lit) canvas.DrawBox(place.adjusted(1, 1, -1, -1), kTableYellow, fill);
    const QRect foot(place.x() + 4, place.y() + place.height() - kLetterHeight - 3,
                     place.width() - 8, kLetterHeight);
    const bool isLeft = place == layout.redPanel;
    canvas.Write({foot, kLetterHeight}, letter, kTableWhite,
                 isLeft ? Qt::AlignLeft : Qt::AlignRight);
}

void TablePainter::PaintRedBlack() {
    const RedBlackLook& look = scene.redBlack;
    canvas.WriteOnCloth(layout.redBlackLabel, "Red or Black?", kTableWhite);
    PaintPanel(layout.redPanel, kTableRed, "R", look.lit == CardColour::kRed);
    PaintPanel(layout.blackPanel, kTableBlack, "B", look.lit == CardColour::kBlack);
    if (look.choice == CardColour::kNone) {
        canvas.Write(layout.questionMark, "?", kTableWhite);
    } else {
        PaintChoice();
    }
}

void TablePainter::PaintChoice() {
    const bool red = scene.redBlack.choice == CardColour::kRed;
    canvas.DrawBox(layout.choiceMark, kTableWhite, red ? kTableRed : kTableBlack);
    canvas.Write({layout.choiceMark.adjusted(3, 1, -3, -1), layout.labelFontHeight},
                 red ? "RED" : "BLACK", kTableWhite);
}

void TablePainter::PaintSpin() {
    if (scene.spin.window) {
        canvas.DrawBox(layout.spinValue, kTableYellow, kTableBlack);
        canvas.Write({layout.spinValue.adjusted(2, 1, -2, -1), layout.payFontHeight},
                     scene.spin.value, kTableWhite);
    }
    if (scene.spin.button == SpinButton::kHidden) return;
    const bool lit = scene.spin.button == SpinButton::kLit;
    canvas.DrawBox(layout.spinButton, lit ? kTableYellow : kTableWhite,
                   lit ? kTableWhite : kTableSilver);
    if (lit) {
        canvas.DrawBox(layout.spinButton.adjusted(1, 1, -1, -1), kTableYellow, kTableWhite);
    }
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
        canvas.WriteOnCard(layout.pileLabels[position - kLeftPilePosition], look.label, kTableBlue);
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
    canvas.WriteOnCard(shoot ? layout.shootLabel : layout.spinLabel, scene.featureLabel,
                       kTableBlue);
}

void TablePainter::PaintButton(TableButton button, ButtonLook look, const QRect& place) {
    if (look == ButtonLook::kHidden) return;
    const bool pressed = look == ButtonLook::kPressed;
    canvas.DrawPicture(ButtonPicture(button, layout.buttonClass, pressed), place);
}

void TablePainter::PaintButtons() {
    PaintButton(TableButton::kDeal, scene.Button(TableButton::kDeal), layout.deal);
    PaintButton(TableButton::kBetOne, scene.Button(TableButton::kBetOne), layout.betOne);
    PaintButton(TableButton::kMaxBet, scene.Button(TableButton::kMaxBet), layout.maxBet);
    PaintButton(TableButton::kDoubleUp, scene.Button(TableButton::kDoubleUp), layout.doubleUp);
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

void PaintTable(QPainter& painter, const QRect& clip, const TableScene& scene,
                const TableLayout& layout, const PayTable& payTable, const CardTable& cards,
                PictureStore& pictures) {
    TableCanvas canvas(painter, clip & QRect(QPoint(0, 0), layout.client), pictures);
    TablePainter(canvas, scene, layout, payTable, cards).Paint();
}
