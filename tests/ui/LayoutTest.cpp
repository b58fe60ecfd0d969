#include "ui/table/Layout.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <algorithm>
#include <limits>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "core/paytable/PayTable.h"
#include "ui/table/LayoutFreePlace.h"

// For the messages of a failed test.
void PrintTo(const QRect& rect, std::ostream* out) {
    *out << '(' << rect.x() << ", " << rect.y() << ") " << rect.width() << " x " << rect.height();
}

namespace {

// Each letter half as wide as it is high, lines as high as their font: figures to reckon by hand.
class SquareMeasure : public TextMeasure {
  public:
    QSize Measure(int fontHeight, std::string_view text) const override {
        return {static_cast<int>(text.size()) * fontHeight / 2, fontHeight};
    }
};

// A font that fits nowhere.
class HugeMeasure : public TextMeasure {
  public:
    QSize Measure(int fontHeight, std::string_view) const override {
        return {fontHeight * 1000, fontHeight * 1000};
    }
};

TableLayout Squares(int width, int height, const TableShape& shape = {}) {
    return LayOut({width, height}, shape, SquareMeasure()).value_or(TableLayout{});
}

TableLayout Real(QSize client, const TableShape& shape) {
    return LayOut(client, shape, QtTextMeasure()).value_or(TableLayout{});
}

struct NamedPlace {
    std::string name;
    QRect rect;
};
using Places = std::vector<NamedPlace>;

template <typename Each>
void AddEach(Places& places, const std::string& name, const Each& each) {
    int number = 0;
    for (const auto& place : each) {
        const std::string numbered = name + " " + std::to_string(number++);
        if constexpr (requires { place.rect; }) {
            places.push_back({numbered, place.rect});
        } else {
            places.push_back({numbered, place});
        }
    }
}

// What stands on the table through an ordinary hand.
Places Machine(const TableLayout& t) {
    Places places{{"pay table", t.PayTablePanel()},
                  {"coin", t.coin},
                  {"DEAL", t.deal},
                  {"BET ONE", t.betOne},
                  {"MAX BET", t.maxBet},
                  {"DBL UP", t.doubleUp},
                  {"BET", t.betLabel.rect},
                  {"bet value", t.betValue.rect},
                  {"message", t.message.rect},
                  {"CREDITS", t.creditLabel.rect},
                  {"credits", t.creditValue.rect}};
    AddEach(places, "card", t.cards);
    AddEach(places, "HOLD", t.holdButtons);
    AddEach(places, "HELD", t.heldMarks);
    return places;
}

Places operator+(Places left, const Places& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

// Pick 'Em: the lowest card of each pile looks out behind the upper ones.
Places Piles(const TableLayout& t) {
    Places places{{"pay table", t.PayTablePanel()}, {"BET ONE", t.betOne}, {"coin", t.coin}};
    for (std::size_t pile : {3U, 4U}) {
        places.push_back({"pile", t.cards[pile].united(t.cards[pile].translated(6, -12))});
    }
    return places;
}
// The table while a double up waits; nothing else is drawn. The 2 pixels that its lines share with
// the HELD marks hold no ink.
Places DoubleUp(const TableLayout& t) {
    Places places{{"DEALER", t.dealerLabel.rect},
                  {"DOUBLE UP TO", t.doubleUpToLabel.rect.adjusted(0, 0, 0, -2)},
                  {"to value", t.doubleUpToValue.rect.adjusted(0, 0, 0, -2)},
                  {"CREDITS WON", t.creditsWonLabel.rect},
                  {"won value", t.creditsWonValue.rect}};
    AddEach(places, "card", t.cards);
    AddEach(places, "HOLD", t.holdButtons);
    for (std::size_t i = 1; i < 5; ++i) places.push_back({"HELD", t.heldMarks[i].rect});
    return places;
}

std::string Words(const NamedPlace& place) {
    return place.name + " " + testing::PrintToString(place.rect);
}

// What is cut off or covered, in words; empty when all is well.
std::string Faults(const TableLayout& table, const Places& places) {
    std::string faults;
    const QRect client({0, 0}, table.client);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const NamedPlace& place = places[i];
        if (place.rect.isEmpty()) faults += "empty: " + Words(place) + "\n";
        if (!client.contains(place.rect)) faults += "cut off: " + Words(place) + "\n";
        for (std::size_t j = 0; j < i; ++j) {
            if (!place.rect.intersects(places[j].rect)) continue;
            faults += Words(places[j]) + " under " + Words(place) + "\n";
        }
    }
    return faults;
}

// All that can be visible together in a game of this shape.
std::string FaultsInPlay(const TableLayout& t, const TableShape& shape) {
    const Places machine = Machine(t) + (shape.charlie ? Places{{"charlie", t.charlie}} : Places{});
    Places deal = machine;
    if (shape.sneakPeak) {
        deal = deal + Places{{"first draw card", t.sneakPeakCard},
                             {"First Draw Card", t.sneakPeakLabel.rect}};
    }
    Places over = machine;
    if (shape.redBlack) {
        over = over + Places{{"red", t.redPanel},
                             {"black", t.blackPanel},
                             {"choice", t.choiceMark},
                             {"Red or Black?", t.redBlackLabel.rect}};
    }
    Places targets;
    AddEach(targets, "target", t.targets);
    std::string faults = Faults(t, deal) + Faults(t, Piles(t)) + Faults(t, DoubleUp(t));
    if (shape.target) faults += Faults(t, over + targets);
    if (shape.spin) {
        over = over + Places{{"SPIN button", t.spinButton}, {"spin value", t.spinValue}};
    }
    if (shape.spin || !shape.target) faults += Faults(t, over);
    return faults;
}

// Texts that must stay within something drawn around them.
std::string TextFaults(const TableLayout& t) {
    std::vector<std::pair<NamedPlace, QRect>> texts{
        {{"SPIN in its button", t.spinButtonText.rect}, t.spinButton},
        {{"?", t.questionMark.rect}, t.redPanel.united(t.blackPanel)},
        {{"SPIN", t.spinLabel.rect}, t.cards[4]},
        {{"SHOOT", t.shootLabel.rect}, t.cards[4]},
        {{"left pile", t.pileLabels[0].rect}, t.cards[3]},
        {{"right pile", t.pileLabels[1].rect}, t.cards[4]}};
    texts.push_back({{"WILD", {QPoint(0, 0), t.wildMark}}, {QPoint(0, 0), t.cardSize}});
    for (const QRect& row : t.rows) texts.push_back({{"row", row}, t.namePanel});
    for (int coins = 1; coins <= 5; ++coins) {
        for (int line = 0; line < static_cast<int>(t.rows.size()); ++line) {
            texts.push_back({{"payout", t.PayoutCell(line, coins)},
                             t.columns[static_cast<std::size_t>(coins - 1)]});
        }
    }
    std::string faults;
    for (const auto& [text, around] : texts) {
        if (!around.contains(text.rect)) faults += "sticks out: " + Words(text) + "\n";
    }
    return faults;
}

// Every set of bonuses that a pay table can have.
std::vector<TableShape> ShapesWith(int lines) {
    std::vector<TableShape> shapes;
    for (const char* payout : {"4000", "20000", "2147483647"}) {
        for (unsigned bits = 0; bits < 32; ++bits) {
            shapes.push_back({lines, payout, (bits & 1U) != 0, (bits & 2U) != 0, (bits & 4U) != 0,
                              (bits & 8U) != 0, (bits & 16U) != 0});
        }
    }
    return shapes;
}

std::string Words(QSize client, const TableShape& shape) {
    return std::to_string(client.width()) + " x " + std::to_string(client.height()) + ", " +
           std::to_string(shape.payLines) + " lines up to " + shape.widestPayout +
           (shape.sneakPeak ? ", sneak peak" : "") + (shape.charlie ? ", charlie" : "") +
           (shape.redBlack ? ", red or black" : "") + (shape.spin ? ", spin" : "") +
           (shape.target ? ", target" : "");
}

TEST(LayoutTest, TheWindowChoosesCardsAndButtonsOfOneClass) {
    struct Case {
        int width, height;
        SizeClass sizeClass;
        QSize card, button;
        int gap, cardFont, smallPip, bigPip, court;
    };
    const Case cases[] = {
        {1024, 700, SizeClass::kLarge, {160, 220}, {80, 50}, 17, 72, 40, 80, 70},
        {800, 600, SizeClass::kMedium, {120, 160}, {50, 40}, 13, 48, 30, 60, 50},
        {640, 480, SizeClass::kSmall, {90, 120}, {45, 30}, 10, 36, 20, 40, 35},
        // One pixel less than 1000 in width, or 0.65 x 338 in height, is not enough for large.
        {1000, 700, SizeClass::kLarge, {160, 220}, {80, 50}, 16, 72, 40, 80, 70},
        {999, 700, SizeClass::kMedium, {120, 160}, {50, 40}, 16, 48, 30, 60, 50},
        {1024, 616, SizeClass::kMedium, {120, 160}, {50, 40}, 17, 48, 30, 60, 50},
        {749, 700, SizeClass::kSmall, {90, 120}, {45, 30}, 12, 36, 20, 40, 35},
    };
    for (const Case& c : cases) {
        const TableLayout table = Squares(c.width, c.height);
        SCOPED_TRACE(std::to_string(c.width) + " x " + std::to_string(c.height));
        EXPECT_EQ(table.sizeClass, c.sizeClass);
        EXPECT_EQ(table.cards[4].size(), c.card);
        EXPECT_EQ(table.deal.size(), c.button);
        EXPECT_EQ(table.gap, c.gap);
        EXPECT_EQ(std::tie(table.cardFontHeight, table.smallPip, table.bigPip, table.court),
                  std::tie(c.cardFont, c.smallPip, c.bigPip, c.court));
    }
}

// 1024 x 700: the card area starts at 316 and is 384 high. Labels: 24 <= 38 fits at once, 22 kept.
// Pay font: a line of 20 letters and 25 digits, 45 x height / 2 <= 614, fits at 26; 24 is kept.
TEST(LayoutTest, EveryPlaceOfALargeWindowIsWhereTheFiguresPutIt) {
    const TableLayout t = Squares(1024, 700);
    EXPECT_EQ(t.labelFontHeight, 22);
    EXPECT_EQ(t.payFontHeight, 24);

    EXPECT_EQ(t.namePanel, QRect(17, 5, 18 * 12, 9 * 24 + 2));
    EXPECT_EQ(t.columns[0], QRect(235, 5, 48, 218));
    EXPECT_EQ(t.columns[4], QRect(435, 5, 48, 218));
    EXPECT_EQ(t.rows[8], QRect(18, 6 + 8 * 24, 214, 24));
    EXPECT_EQ(t.PayoutCell(8, 2), QRect(286, 198, 46, 24));
    EXPECT_EQ(t.PayoutCell(0, 8), t.PayoutCell(0, 5));
    EXPECT_TRUE(t.PayoutCell(9, 1).isNull());

    EXPECT_EQ(t.cards[0], QRect(17, 343, 160, 220));
    EXPECT_EQ(t.cards[4], QRect(725, 343, 160, 220));
    EXPECT_EQ(t.heldMarks[0].rect, QRect(74, 314, 46, 24));
    EXPECT_EQ(t.holdButtons[0], QRect(57, 568, 80, 50));
    EXPECT_EQ(t.wildMark, QSize(44, 22));

    EXPECT_EQ(t.betOne, QRect(895, 343, 80, 50));
    EXPECT_EQ(t.maxBet, QRect(895, 398, 80, 50));
    EXPECT_EQ(t.doubleUp, QRect(895, 453, 80, 50));
    EXPECT_EQ(t.deal, QRect(895, 568, 80, 50));
    EXPECT_EQ(t.coin, QRect(895, 5, 80, 40));

    EXPECT_EQ(t.dealerLabel.rect, QRect(61, 314, 72, 24));
    EXPECT_EQ(t.doubleUpToLabel.rect, QRect(371, 292, 144, 24));  // ends 27 above the card
    EXPECT_EQ(t.creditsWonLabel.rect, QRect(371, 263, 132, 24));
    EXPECT_EQ(t.creditsWonValue.rect, QRect(520, 263, 72, 24));
    EXPECT_EQ(t.charlie, QRect(493, 5, 100, 100));
    EXPECT_EQ(t.targets[0], QRect(488, 172, 50, 50));
    EXPECT_EQ(t.targets[4], QRect(708, 172, 50, 50));
    EXPECT_EQ(t.redPanel, QRect(725, 172, 40, 50));
    EXPECT_EQ(t.blackPanel, QRect(765, 172, 40, 50));
    EXPECT_EQ(t.choiceMark, QRect(815, 172, 80, 50));
    EXPECT_EQ(t.redBlackLabel.rect, QRect(725, 143, 156, 24));
    EXPECT_EQ(t.questionMark.rect, QRect(759, 186, 11, 22));
    EXPECT_EQ(t.spinButton, t.choiceMark);
    EXPECT_EQ(t.spinValue, QRect(725, 172, 80, 50));
}

TEST(LayoutTest, MetersStandBelowTheButtonsAndNeverRunIntoOneAnother) {
    const TableLayout large = Squares(1024, 700);
    EXPECT_EQ(large.betLabel.rect, QRect(17, 628, 36, 26));
    EXPECT_EQ(large.betValue.rect, QRect(58, 628, 82, 26));
    EXPECT_EQ(large.message.rect, QRect(307, 628, 288, 26));  // centred on 451
    EXPECT_EQ(large.creditLabel.rect, QRect(706, 628, 84, 26));
    EXPECT_EQ(large.creditValue.rect, QRect(795, 628, 180, 26));  // ends with DEAL at 975
    EXPECT_EQ(large.message.fontHeight, large.payFontHeight);

    // The message is centred on 496, the credits end at 1050: 17 x height + 10 pixels between.
    const TableLayout wide = Squares(1920, 1080);
    EXPECT_EQ(wide.payFontHeight, 34);
    EXPECT_EQ(wide.message.fontHeight, 32);
    EXPECT_EQ(wide.betLabel.fontHeight, 32);
    EXPECT_EQ(wide.creditLabel.rect.x(), wide.message.rect.x() + wide.message.rect.width() + 5);

    // 617 pixels leave 27 below the buttons, and the outline takes 2.
    EXPECT_EQ(Squares(2560, 617, {.payLines = 8}).payFontHeight, 32);
    EXPECT_EQ(Squares(2560, 617, {.payLines = 8}).message.fontHeight, 25);
}

TEST(LayoutTest, ThePayFontShrinksInStepsOfTwoUntilTheLinesFit) {
    // 45 x 500 / 100 = 225 pixels for ten lines and 2 more: 22 fits, 20 is kept.
    EXPECT_EQ(Squares(1600, 500, {.payLines = 10}).payFontHeight, 20);
    EXPECT_EQ(Squares(1600, 480, {.payLines = 10}).payFontHeight, 18);  // 20 x 10 + 2 <= 216
    EXPECT_EQ(Squares(1600, 480, {.payLines = 15}).payFontHeight, 12);  // 14 x 15 + 2 <= 216
    EXPECT_EQ(Squares(4000, 3000).payFontHeight, 34);                   // fits at once
}

TEST(LayoutTest, AMinimizedWindowHasNoLayout) {
    for (const QSize client : {QSize(0, 0), QSize(0, 600), QSize(800, 0), QSize(-1, 5), QSize()}) {
        EXPECT_FALSE(LayOut(client, {}, SquareMeasure()).has_value());
    }
}

TEST(LayoutTest, NoWindowNoFontAndNoGameIsTooOdd) {
    const int most = std::numeric_limits<int>::max();
    for (const QSize client : {QSize(1, 1), QSize(30, 2000), QSize(2000, 30), QSize(most, most)}) {
        for (const int lines : {-7, 0, 1, 15, 2'000'000}) {
            const TableShape shape{.payLines = lines, .widestPayout = std::string(300, '9')};
            const auto table = LayOut(client, shape, HugeMeasure());
            ASSERT_TRUE(table.has_value());
            EXPECT_GE(std::min({table->payFontHeight, table->labelFontHeight,
                                table->message.fontHeight, table->payoutFontHeight}),
                      8);
            EXPECT_EQ(table->rows.size(), static_cast<std::size_t>(std::clamp(lines, 0, 15)));
        }
    }
}

TEST(LayoutTest, ColumnsGrowForTheLargestPayoutOfTheGame) {
    const int four = Squares(1600, 1200).columns[0].width();
    EXPECT_EQ(Squares(1600, 1200, {.widestPayout = "9"}).columns[0].width(), four);
    const TableLayout five = Squares(1600, 1200, {.widestPayout = "10000"});
    EXPECT_EQ(five.columns[0].width(), 5 * five.payFontHeight / 2);
    EXPECT_LE(five.PayTablePanel().x() + five.PayTablePanel().width(), 26 + 960);
    const TableLayout ten = Squares(640, 480, {.widestPayout = "2147483647"});
    EXPECT_LE(10 * ten.payoutFontHeight / 2, ten.PayoutCell(0, 1).width());
}

TEST(LayoutTest, TheShapeOfAGameKnowsTheLargestPayoutThatIsEverShown) {
    PayTable table;
    table.lines.resize(2);
    table.lines[0].payout = 250;
    table.lines[0].maxPayout = 4000;
    EXPECT_EQ(ShapeOf(table).payLines, 2);
    EXPECT_EQ(ShapeOf(table).widestPayout, "4000");
    table.charlieBonus = true;  // pays five-fold
    EXPECT_EQ(ShapeOf(table).widestPayout, "20000");
    EXPECT_TRUE(ShapeOf(table).charlie);
    table.maxBet = 100;
    EXPECT_EQ(ShapeOf(table).widestPayout, "125000");
    table.lines[0].payout = table.maxBet = 2147483647;
    EXPECT_EQ(ShapeOf(table).widestPayout, "10737418235");
}

TEST(LayoutTest, WhatIsInTheWayGoesToTheNearestFreePlace) {
    const QRect area(0, 0, 100, 100);
    const QRect wanted(40, 40, 20, 20);
    EXPECT_EQ(NearestFreePlace(wanted, area, {}), wanted);
    const QRect beside[] = {{60, 40, 20, 20}};  // touches, covers nothing
    EXPECT_EQ(NearestFreePlace(wanted, area, beside), wanted);
    const QRect under[] = {{30, 50, 40, 10}};
    EXPECT_EQ(NearestFreePlace(wanted, area, under), QRect(40, 25, 20, 20));
    EXPECT_EQ(NearestFreePlace({90, -5, 20, 20}, area, {}), QRect(80, 0, 20, 20));
    const QRect all[] = {area};
    EXPECT_EQ(NearestFreePlace(wanted, area, all), wanted);
}

TEST(LayoutTest, NothingIsCutOffOrCoveredInAnyWindowFromTheSmallestOn) {
    for (int width = kMinimumTableSize.width(); width < 3000; width += 97) {
        for (int height = kMinimumTableSize.height(); height < 1700; height += 53) {
            for (const int lines : {1, 3, 9, 15}) {
                const TableShape shape{lines, "20000", true, true, true, true, true};
                const TableLayout table = Squares(width, height, shape);
                EXPECT_EQ(FaultsInPlay(table, shape), "") << Words({width, height}, shape);
            }
        }
    }
}

// The machine's real font, every number of lines that a game has, every set of bonuses.
class RealFont : public testing::TestWithParam<std::tuple<QSize, int>> {};

TEST_P(RealFont, NothingIsCutOffOrCovered) {
    const auto& [client, lines] = GetParam();
    for (const TableShape& shape : ShapesWith(lines)) {
        const TableLayout table = Real(client, shape);
        EXPECT_EQ(FaultsInPlay(table, shape), "") << Words(client, shape);
        EXPECT_EQ(TextFaults(table), "") << Words(client, shape);
    }
}

TEST_P(RealFont, TheFirstDrawCardStandsAboveTheLastCard) {
    const auto& [client, lines] = GetParam();
    const TableLayout table = Real(client, {.payLines = lines, .sneakPeak = true});
    EXPECT_EQ(table.sneakPeakCard.x(), table.cards[4].x());
    EXPECT_GE(table.sneakPeakCard.bottom(), table.namePanel.bottom());
    EXPECT_EQ(table.sneakPeakLabel.rect.bottom() + 2, table.sneakPeakCard.top());
}

constexpr QSize kClients[] = {{640, 480},   {800, 600},  {1024, 700}, {1366, 768}, {1920, 1080},
                              {2560, 1440}, {1000, 617}, {3840, 480}, {640, 2000}};
INSTANTIATE_TEST_SUITE_P(Clients, RealFont,
                         testing::Combine(testing::ValuesIn(kClients),
                                          testing::Values(1, 8, 9, 10, 11, 12, 13, 14, 15)));

TEST(TableFontTest, ALineIsAsHighAsAskedOrAPixelLess) {
    for (int height = 8; height <= 72; ++height) {
        const int line = QtTextMeasure().Measure(height, "HELD").height();
        EXPECT_LE(line, height);
        EXPECT_GE(line, height - 1);
    }
    EXPECT_EQ(TableFont(-3).pixelSize(), 1);
}

TEST(TableFontTest, LongNamesAreWrittenSmallerButStayReadable) {
    const QtTextMeasure measure;
    const TableLayout table = Real({640, 480}, {.payLines = 13});
    const int room = table.rows[0].width() - 4;
    for (const char* name : {"NATURAL FULL HOUSE", "4 DEUCES W/3'S-5'S", "5K WITH THE JOKER"}) {
        const int height = FittingFontHeight(measure, table.payFontHeight, name, room);
        EXPECT_LE(measure.Measure(height, name).width(), room) << name;
        EXPECT_GE(height, table.payFontHeight - 3) << name;
    }
    const int smallest = FittingFontHeight(measure, 20, std::string(80, 'W'), room);
    EXPECT_EQ(smallest, kReadableFontHeight);
    EXPECT_EQ(FittingFontHeight(measure, 20, "FLUSH", room), 20);
    EXPECT_EQ(FittingFontHeight(measure, 5, "FLUSH", 1), 5);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
