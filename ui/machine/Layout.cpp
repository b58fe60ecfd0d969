#include "ui/machine/Layout.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

#include "core/paytable/PayTable.h"
#include "ui/machine/LayoutFreePlace.h"

namespace {

constexpr std::string_view kModelName = "STRAIGHT FLUSH W/2";
constexpr int kLargestClient = 16'777'215;  // as widgets go; keeps all products in an int

struct ClassSizes {
    SizeClass sizeClass;
    QSize card;
    int cardFontHeight;
    int smallPip;
    int bigPip;
    int court;
};

constexpr ClassSizes kLargeSizes{SizeClass::kLarge, {160, 220}, 72, 40, 80, 70};
constexpr ClassSizes kMediumSizes{SizeClass::kMedium, {120, 160}, 48, 30, 60, 50};
constexpr ClassSizes kSmallSizes{SizeClass::kSmall, {90, 120}, 36, 20, 40, 35};

int EndX(const QRect& rect) { return rect.x() + rect.width(); }
int EndY(const QRect& rect) { return rect.y() + rect.height(); }

QRect Centred(const QSize& size, const QRect& in) {
    return {QPoint(in.x() + (in.width() - size.width()) / 2,
                   in.y() + (in.height() - size.height()) / 2),
            size};
}

// The two ruled fonts: height after height, two less each time, until it fits, and then two less
// again, which leaves air around the text. The readable minimum ends it for any font.
template <typename Fits>
int ShrunkHeight(int height, Fits fits) {
    while (height - 2 > kReadableFontHeight && !fits(height)) height -= 2;
    return std::max(height - 2, kReadableFontHeight);
}

// Fills one layout, group after group; each group builds on those before it.
class LayoutBuilder {
  public:
    LayoutBuilder(QSize client, const TableShape& shape, const TextMeasure& measure)
        : shape(shape),
          measure(measure),
          lines(std::clamp(shape.payLines, 0, kMaxPayLines)),
          bandSize(client.width() * 6 / 10, client.height() * 45 / 100),
          areaTop(bandSize.height() + 1),
          areaHeight(client.height() - areaTop) {
        places.client = client;
    }

    MachineLayout Build() {
        ChooseSizes();
        ChooseFonts();
        PlaceCards();
        PlaceButtons();
        PlacePayTable();
        PlaceMeters();
        PlaceDoubleUp();
        PlaceFeatures();
        return places;
    }

  private:
    QSize PayText(std::string_view text) const {
        return measure.Measure(places.payFontHeight, text);
    }

    void ChooseSizes();
    void ChooseFonts();
    void PlaceCards();
    void PlaceButtons();
    void PlacePayTable();
    void PlaceMeters();
    bool PlaceMetersWith(int fontHeight);
    void PlaceDoubleUp();
    void PlaceFeatures();
    void PlaceSneakPeak(const std::vector<QRect>& taken);
    void PlaceTargets(const std::vector<QRect>& taken);
    QRect PlaceRedBlack(const std::vector<QRect>& taken);
    QRect PlaceSpin(const QRect& wanted, const std::vector<QRect>& taken);
    void PlacePlate(std::vector<QRect> taken);
    void PlaceHint();

    QRect FeatureArea() const {
        return {0, 0, places.client.width(), places.heldMarks[0].rect.y()};
    }
    int LastLineEnd() const { return 6 + RowHeight() * lines; }
    int RowHeight() const { return PayText(kModelName).height(); }

    const TableShape& shape;
    const TextMeasure& measure;
    int lines;
    QSize bandSize;  // the pay table's share, from the top left corner
    int areaTop;     // the card area takes the whole width below it
    int areaHeight;
    MachineLayout places;
};

void LayoutBuilder::ChooseSizes() {
    const QSize candidate(places.client.width() * 8 / 10 / 5, areaHeight * 65 / 100);
    const auto hasRoom = [&candidate](const ClassSizes& sizes) {
        return candidate.width() >= sizes.card.width() && candidate.height() >= sizes.card.height();
    };
    const ClassSizes& sizes = hasRoom(kLargeSizes)    ? kLargeSizes
                              : hasRoom(kMediumSizes) ? kMediumSizes
                                                      : kSmallSizes;
    places.sizeClass = sizes.sizeClass;
    places.cardSize = sizes.card;
    places.cardFontHeight = sizes.cardFontHeight;
    places.smallPip = sizes.smallPip;
    places.bigPip = sizes.bigPip;
    places.court = sizes.court;
    // Buttons are to be a quarter of a card high, which no class of cards ever parts from its own.
    places.buttonSize = sizes.sizeClass == SizeClass::kLarge    ? QSize(80, 50)
                        : sizes.sizeClass == SizeClass::kMedium ? QSize(50, 40)
                                                                : QSize(45, 30);
    places.gap = places.client.width() / 10 / 6;
}

void LayoutBuilder::ChooseFonts() {
    places.labelFontHeight = ShrunkHeight(24, [this](int height) {
        return measure.Measure(height, "HELD").height() <= areaHeight / 10;
    });
    places.payFontHeight = ShrunkHeight(36, [this](int height) {
        const QSize name = measure.Measure(height, "STRAIGHT FLUSH W/2  ");
        const int coins = 5 * measure.Measure(height, "99999").width();
        return name.width() + coins <= bandSize.width() &&
               name.height() * lines + 2 <= bandSize.height();
    });
}

void LayoutBuilder::PlaceCards() {
    const QSize held = measure.Measure(places.labelFontHeight, "HELD");
    const QSize mark = held + QSize(2, 2);
    const int y = areaTop + 5 + held.height();
    for (std::size_t i = 0; i < places.cards.size(); ++i) {
        const int step = places.cardSize.width() + places.gap;
        const QRect card({places.gap + static_cast<int>(i) * step, y}, places.cardSize);
        places.cards[i] = card;
        places.heldMarks[i] = {{{Centred(mark, card).x(), y - 5 - mark.height()}, mark},
                               places.labelFontHeight};
        places.holdButtons[i] = {{Centred(places.buttonSize, card).x(), EndY(card) + 5},
                                 places.buttonSize};
    }
    places.wildMark = measure.Measure(places.labelFontHeight, "WILD");
    const QSize either = PayText("EITHER");
    for (std::size_t pile = 0; pile < places.pileLabels.size(); ++pile) {
        places.pileLabels[pile] = {Centred(either, places.cards[3 + pile]), places.payFontHeight};
    }
    const QRect& last = places.cards[4];
    places.spinLabel = {Centred(PayText("SPIN"), last), places.payFontHeight};
    places.shootLabel = {Centred(PayText("SHOOT"), last), places.payFontHeight};
}

void LayoutBuilder::PlaceButtons() {
    const QRect& last = places.cards[4];
    const QPoint below(0, places.buttonSize.height() + 5);
    places.betOne = {{EndX(last) + 10, last.y()}, places.buttonSize};
    places.maxBet = places.betOne.translated(below);
    places.doubleUp = places.maxBet.translated(below);
    places.deal = {{places.betOne.x(), places.holdButtons[4].y()}, places.buttonSize};
    places.coin = {places.deal.x(), 5, 80, 40};
}

void LayoutBuilder::PlacePayTable() {
    const QSize name = PayText(kModelName);
    const int panelHeight = name.height() * lines + 2;
    places.namePanel = {places.gap, 5, name.width(), panelHeight};

    // A column is as wide as five digits, for which the pay font was chosen. Longer numbers are
    // written smaller, and widen the columns only where the smallest readable font would be too
    // wide; the coin picture, which a short table in a wide, low window would run into, ends that,
    // but four digits always have room. A number stays between the outlines: as wide as its column
    // it would touch them.
    const int room = (places.coin.x() - 5 - EndX(places.namePanel)) / 5 - 2;
    const int five = PayText("99999").width();
    const int least = measure.Measure(kReadableFontHeight, shape.widestPayout).width() + 2;
    const int width = std::max(PayText("4000").width(), std::min(std::max(five, least), room));
    places.payoutFontHeight =
        FittingFontHeight(measure, places.payFontHeight, shape.widestPayout, width - 2);

    int x = EndX(places.namePanel) + 2;
    for (QRect& column : places.columns) {
        column = {x, 5, width, panelHeight};
        x = EndX(column) + 2;
    }
    for (int line = 0; line < lines; ++line) {
        places.rows.emplace_back(places.gap + 1, 6 + name.height() * line, name.width() - 2,
                                 name.height());
    }
}

// In the pay font the message runs into "CREDITS" on wide screens, where the font grows but the
// cards do not, and a low window has no room for it below the buttons. Then the whole row of meters
// takes the next smaller font that leaves 5 pixels between them.
void LayoutBuilder::PlaceMeters() {
    int height = places.payFontHeight;
    while (!PlaceMetersWith(height) && height > kReadableFontHeight) --height;
}

// False when the meters run into one another or over the lower edge.
bool LayoutBuilder::PlaceMetersWith(int fontHeight) {
    const auto width = [&](std::string_view text) {
        return measure.Measure(fontHeight, text).width();
    };
    const int lineHeight = measure.Measure(fontHeight, "BET").height() + 2;  // with the outline
    const int y = EndY(places.holdButtons[0]) + 10;
    const auto place = [&](int x, int wide) {
        return TextPlace{QRect(x, y, wide, lineHeight), fontHeight};
    };

    places.betLabel = place(places.cards[0].x(), width("BET"));
    places.betValue = place(EndX(places.betLabel.rect) + 5, width("$99.99") + 10);

    const int message = width("$99,999.99 Bonus Credits");
    const QRect& middle = places.holdButtons[2];
    places.message = place(middle.x() + (middle.width() - message) / 2, message);

    const int credits = width("$999,999,999.99");
    const int label = width("CREDITS");
    places.creditValue = place(EndX(places.deal) - credits, credits);
    places.creditLabel = place(places.creditValue.rect.x() - 5 - label, label);

    return EndX(places.betValue.rect) + 5 <= places.message.rect.x() &&
           EndX(places.message.rect) + 5 <= places.creditLabel.rect.x() &&
           EndY(places.message.rect) <= places.client.height();
}

// "DOUBLE UP TO" reaches at most 2 pixels into the HELD mark below it. They stay: its letters and
// digits have no descent, and the mark's own outline is empty.
void LayoutBuilder::PlaceDoubleUp() {
    const QRect& dealer = places.cards[0];
    const QRect& middle = places.cards[2];
    const int font = places.payFontHeight;
    const QSize dealerText = PayText("DEALER");
    places.dealerLabel = {
        {{Centred(dealerText, dealer).x(), dealer.y() - 5 - dealerText.height()}, dealerText},
        font};

    const QSize label = PayText("DOUBLE UP TO");
    const QSize won = PayText("CREDITS WON");
    const QSize value = PayText("999999");
    const int lowerY = middle.y() - 5 - places.labelFontHeight - label.height();
    const int upperY = lowerY - 5 - label.height();
    const int valueX = middle.x() + label.width() + 5;
    places.doubleUpToLabel = {{{middle.x(), lowerY}, label}, font};
    places.doubleUpToValue = {{{valueX, lowerY}, value}, font};
    places.creditsWonLabel = {{{middle.x(), upperY}, won}, font};
    places.creditsWonValue = {{{valueX, upperY}, value}, font};
}

// Taken by themselves, these places come into each other's way: the targets cover the panels, the
// SPIN button is the choice mark, a charlie hangs into the targets in a small window, and the first
// draw card stands higher than the window. So each is put where it should be, or, when something
// that can be seen at the same time stands there, at the nearest free place above the HELD marks.
// Spin and Target never come together, and all bonuses but the charlie wait until the first draw
// card is gone.
void LayoutBuilder::PlaceFeatures() {
    const QRect payTable = places.PayTablePanel();
    std::vector<QRect> taken{payTable, places.coin};

    PlaceSneakPeak(taken);
    std::vector<QRect> takenAtDeal = taken;
    if (shape.sneakPeak) {
        takenAtDeal.push_back(places.sneakPeakCard.united(places.sneakPeakLabel.rect));
    }
    const QRect charlie(EndX(payTable) + 10, payTable.y(), 100, 100);
    places.charlie = NearestFreePlace(charlie, FeatureArea(), takenAtDeal);
    if (shape.charlie) taken.push_back(places.charlie);

    PlaceTargets(taken);
    std::vector<QRect> takenByTargets = taken;
    if (shape.target && shape.redBlack) {
        takenByTargets.push_back(places.targets.front().united(places.targets.back()));
    }
    const QRect redBlack = PlaceRedBlack(takenByTargets);

    // Spin shares the places of Red or Black unless the game has both.
    if (shape.redBlack) taken.push_back(redBlack);
    const QRect spin = PlaceSpin(places.redPanel.united(places.choiceMark), taken);
    if (shape.spin) taken.push_back(spin);
    if (shape.target) {
        taken.push_back(places.targets.front().united(places.targets.back()));
    }
    if (shape.sneakPeak) taken.push_back(places.sneakPeakCard.united(places.sneakPeakLabel.rect));
    PlacePlate(taken);
    PlaceHint();
}

// From the pay table, or the charlie beside it, to the coin. It gives way to everything else.
void LayoutBuilder::PlacePlate(std::vector<QRect> taken) {
    constexpr int kLeast = 120;  // narrower, the longest words would be cut
    constexpr int kMost = 330;
    const int x = 10 + (shape.charlie ? EndX(places.charlie) : EndX(places.PayTablePanel()));
    const int width = std::min(kMost, places.coin.x() - 10 - x);
    const int font = std::clamp(places.payFontHeight, kReadableFontHeight, 24);
    const int small = std::max(font * 3 / 4, kReadableFontHeight);
    const QRect plate(x, 5, width, font + small + 12);
    for (const QRect& pile : {places.cards[3], places.cards[4]}) {
        taken.push_back(pile.adjusted(0, -12, 6, 0));
    }
    const bool free = std::ranges::none_of(
        taken, [&plate](const QRect& other) { return plate.intersects(other); });
    if (width < kLeast || !free || !FeatureArea().contains(plate)) return;
    places.plate = plate;
    places.plateGame = {{x + 8, 5 + 5, width - 16, font}, font};
    places.plateDetails = {{x + 8, 5 + 5 + font + 1, width - 16, small}, small};
}

void LayoutBuilder::PlaceHint() {
    const QRect& message = places.message.rect;
    const int room = places.client.height() - EndY(message) - 4;
    const int font = std::min({places.message.fontHeight * 3 / 4, room, 18});
    if (font < kReadableFontHeight) return;
    places.hint = {{message.x(), EndY(message) + 3, message.width(), font}, font};
}

// Its label is no wider than the card: in the pay font of a wide screen it would reach under the
// coin picture.
void LayoutBuilder::PlaceSneakPeak(const std::vector<QRect>& taken) {
    constexpr std::string_view kText = "First Draw Card";
    const int font =
        FittingFontHeight(measure, places.payFontHeight, kText, places.cardSize.width());
    const QSize label = measure.Measure(font, kText);
    const QRect card({places.cards[4].x(), EndY(places.namePanel) - places.cardSize.height()},
                     places.cardSize);
    const QRect text({Centred(label, card).x(), card.y() - 1 - label.height()}, label);
    const QRect both = card.united(text);
    const QPoint shift = NearestFreePlace(both, FeatureArea(), taken).topLeft() - both.topLeft();
    places.sneakPeakCard = card.translated(shift);
    places.sneakPeakLabel = {text.translated(shift), font};
}

void LayoutBuilder::PlaceTargets(const std::vector<QRect>& taken) {
    constexpr int kSide = 50;
    constexpr int kStep = kSide + 5;
    const QRect row(EndX(places.PayTablePanel()) + 5, LastLineEnd() - kSide, 4 * kStep + kSide,
                    kSide);
    const QPoint start = NearestFreePlace(row, FeatureArea(), taken).topLeft();
    for (std::size_t i = 0; i < places.targets.size(); ++i) {
        places.targets[i] = {start.x() + static_cast<int>(i) * kStep, start.y(), kSide, kSide};
    }
}

// Returns all that the feature covers.
QRect LayoutBuilder::PlaceRedBlack(const std::vector<QRect>& taken) {
    const QSize half(places.buttonSize.width() / 2, places.buttonSize.height());
    const QRect red({places.cards[4].x(), LastLineEnd() - half.height()}, half);
    const QRect black = red.translated(half.width(), 0);
    const QRect choice({EndX(black) + 10, red.y()}, places.buttonSize);
    const QSize label = PayText("Red or Black?");
    const QRect text({red.x(), red.y() - 5 - label.height()}, label);

    const QRect all = text.united(red).united(choice);
    const QRect placed = NearestFreePlace(all, FeatureArea(), taken);
    const QPoint shift = placed.topLeft() - all.topLeft();
    places.redPanel = red.translated(shift);
    places.blackPanel = black.translated(shift);
    places.choiceMark = choice.translated(shift);
    places.redBlackLabel = {text.translated(shift), places.payFontHeight};
    const QSize mark = measure.Measure(places.labelFontHeight, "?");
    places.questionMark = {Centred(mark, places.redPanel.united(places.blackPanel)),
                           places.labelFontHeight};
    return placed;
}

// Returns what it covers; wanted covers the value window, a gap of 10 pixels and the button.
QRect LayoutBuilder::PlaceSpin(const QRect& wanted, const std::vector<QRect>& taken) {
    const QRect placed = NearestFreePlace(wanted, FeatureArea(), taken);
    const QPoint shift = placed.topLeft() - wanted.topLeft();
    places.spinValue = places.redPanel.united(places.blackPanel).translated(shift);
    places.spinButton = places.choiceMark.translated(shift);
    // In the label font "SPIN" is wider than the smallest button, whose rim it keeps clear of.
    const int font =
        FittingFontHeight(measure, places.labelFontHeight, "SPIN", places.buttonSize.width() - 10);
    places.spinButtonText = {Centred(measure.Measure(font, "SPIN"), places.spinButton), font};
    return placed;
}

}  // namespace

TableShape ShapeOf(const PayTable& table) {
    TableShape shape;
    shape.payLines = static_cast<int>(table.lines.size());
    std::int64_t largest = 0;
    for (const PayLine& line : table.lines) {
        const std::int64_t coins = std::max(table.maxBet, kFullBet - 1);
        largest = std::max({largest, line.payout * coins, std::int64_t{line.maxPayout}});
    }
    largest = std::min(largest, std::int64_t{std::numeric_limits<int>::max()});
    shape.widestPayout = std::to_string(table.charlieBonus ? largest * 5 : largest);
    shape.sneakPeak = table.gameId == kSneakPeakGameId;
    shape.charlie = table.charlieBonus;
    shape.redBlack = table.redBlackBonus;
    shape.spin = table.spinBonus;
    shape.target = table.targetBonus;
    return shape;
}

QRect MachineLayout::PayoutCell(int line, int coins) const {
    if (line < 0 || static_cast<std::size_t>(line) >= rows.size()) return {};
    const QRect& row = rows[static_cast<std::size_t>(line)];
    const QRect& column = columns[static_cast<std::size_t>(std::clamp(coins, 1, 5) - 1)];
    return {column.x() + 1, row.y(), column.width() - 2, row.height()};
}

std::optional<MachineLayout> LayOut(QSize client, const TableShape& shape,
                                    const TextMeasure& measure) {
    if (client.isEmpty()) return std::nullopt;
    const QSize bounded = client.boundedTo({kLargestClient, kLargestClient});
    return LayoutBuilder(bounded, shape, measure).Build();
}
