#include "ui/machine/Layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/paytable/PayTable.h"
#include "ui/machine/LayoutFreePlace.h"
#include "ui/machine/MachineFit.h"

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

MachineLayout Squares(int width, int height, const TableShape& shape = {}) {
    return LayOut({width, height}, shape, SquareMeasure()).value_or(MachineLayout{});
}

using Places = std::vector<QRect>;

Places operator+(Places left, const Places& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

template <typename Each>
Places All(const Each& each) {
    Places places;
    for (const auto& place : each) {
        if constexpr (requires { place.rect; }) {
            places.push_back(place.rect);
        } else {
            places.push_back(place);
        }
    }
    return places;
}

// What is cut off or covered, in words; empty when all is well.
std::string Faults(const MachineLayout& table, const Places& places) {
    std::string faults;
    const QRect client({0, 0}, table.client);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const std::string words = testing::PrintToString(places[i]);
        if (places[i].isEmpty()) faults += "empty: " + words + "\n";
        if (!client.contains(places[i])) faults += "cut off: " + words + "\n";
        for (std::size_t j = 0; j < i; ++j) {
            if (!places[i].intersects(places[j])) continue;
            faults += testing::PrintToString(places[j]) + " under " + words + "\n";
        }
    }
    return faults;
}

// All that can be visible together in a game of this shape.
std::string FaultsInPlay(const MachineLayout& t, const TableShape& shape) {
    const Places machine =
        Places{
            t.PayTablePanel(), t.coin,          t.deal,          t.betOne,       t.maxBet,
            t.doubleUp,        t.betLabel.rect, t.betValue.rect, t.message.rect, t.creditLabel.rect,
            t.creditValue.rect} +
        All(t.cards) + All(t.holdButtons) + All(t.heldMarks) +
        (shape.charlie ? Places{t.charlie} : Places{}) +
        (t.plate.isEmpty() ? Places{} : Places{t.plate}) +
        (t.hint.rect.isEmpty() ? Places{} : Places{t.hint.rect});
    // Pick 'Em: the lowest card of each pile looks out behind the upper ones.
    Places piles{t.PayTablePanel(), t.betOne, t.coin};
    for (std::size_t pile : {3U, 4U}) {
        piles.push_back(t.cards[pile].united(t.cards[pile].translated(6, -12)));
    }
    // While a double up waits nothing else is drawn. The 2 pixels that its lines share with the
    // HELD marks hold no ink.
    Places doubleUp = Places{t.dealerLabel.rect, t.doubleUpToLabel.rect.adjusted(0, 0, 0, -2),
                             t.doubleUpToValue.rect.adjusted(0, 0, 0, -2), t.creditsWonLabel.rect,
                             t.creditsWonValue.rect} +
                      All(t.cards) + All(t.holdButtons);
    for (std::size_t i = 1; i < 5; ++i) doubleUp.push_back(t.heldMarks[i].rect);
    const Places firstDraw{t.sneakPeakCard, t.sneakPeakLabel.rect};
    const Places redBlack{t.redPanel, t.blackPanel, t.choiceMark, t.redBlackLabel.rect};
    const Places over = machine + (shape.redBlack ? redBlack : Places{});
    std::string faults = Faults(t, machine + (shape.sneakPeak ? firstDraw : Places{})) +
                         Faults(t, piles) + Faults(t, doubleUp) + Faults(t, over);
    if (shape.target) faults += Faults(t, over + All(t.targets));
    if (shape.spin) faults += Faults(t, over + Places{t.spinButton, t.spinValue});
    return faults;
}

// Texts that must stay within something drawn around them.
std::string TextFaults(const MachineLayout& t) {
    std::vector<std::pair<QRect, QRect>> texts{
        {t.spinButtonText.rect, t.spinButton},
        {t.questionMark.rect, t.redPanel.united(t.blackPanel)},
        {t.spinLabel.rect, t.cards[4]},
        {t.shootLabel.rect, t.cards[4]},
        {t.pileLabels[0].rect, t.cards[3]},
        {t.pileLabels[1].rect, t.cards[4]},
        {{QPoint(0, 0), t.wildMark}, {QPoint(0, 0), t.cardSize}}};
    for (std::size_t line = 0; line < t.rows.size(); ++line) {
        texts.emplace_back(t.rows[line], t.namePanel);
        for (std::size_t column = 0; column < 5; ++column) {
            const auto cell = t.PayoutCell(static_cast<int>(line), static_cast<int>(column) + 1);
            texts.emplace_back(cell, t.columns[column]);
        }
    }
    std::string faults;
    for (const auto& [text, around] : texts) {
        if (!around.contains(text)) faults += testing::PrintToString(text) + " sticks out\n";
    }
    return faults;
}

std::string Words(QSize client, const TableShape& shape) {
    return std::to_string(client.width()) + " x " + std::to_string(client.height()) + ", " +
           std::to_string(shape.payLines) + " lines up to " + shape.widestPayout;
}

TEST(LayoutTest, TheWindowChoosesCardsAndButtonsOfOneClass) {
    struct Case {
        QSize client, card, button;
        int cardFont;
    };
    const Case cases[] = {
        {{640, 480}, {90, 120}, {45, 30}, 36},
        // One pixel less than 1000 in width, or 0.65 x 338 in height, is not enough for large.
        {{1000, 617}, {160, 220}, {80, 50}, 72},
        {{999, 700}, {120, 160}, {50, 40}, 48},
        {{1024, 616}, {120, 160}, {50, 40}, 48},
        {{749, 700}, {90, 120}, {45, 30}, 36},
    };
    for (const Case& c : cases) {
        const MachineLayout table = Squares(c.client.width(), c.client.height());
        EXPECT_EQ(table.cards[4].size(), c.card);
        EXPECT_EQ(table.deal.size(), c.button);
        EXPECT_EQ(table.cardFontHeight, c.cardFont);
    }
}

// 1024 x 700: the card area starts at 316 and is 384 high. Labels: 24 <= 38 fits at once, 22 kept.
// Pay font: a line of 20 letters and 25 digits, 45 x height / 2 <= 614, fits at 26; 24 is kept. The
// message is centred on 451, the credits end with DEAL at 975.
TEST(LayoutTest, EveryPlaceOfALargeWindowIsWhereTheFiguresPutIt) {
    const MachineLayout t = Squares(1024, 700);
    EXPECT_EQ(t.namePanel, QRect(17, 5, 18 * 12, 9 * 24 + 2));
    EXPECT_EQ(t.PayoutCell(8, 2), QRect(298, 198, 58, 24));
    EXPECT_EQ(t.cards[4], QRect(725, 343, 160, 220));
    EXPECT_EQ(t.heldMarks[0].rect, QRect(74, 314, 46, 24));
    EXPECT_EQ(t.deal, QRect(895, 568, 80, 50));
    EXPECT_EQ(t.coin, QRect(895, 5, 80, 40));
    EXPECT_EQ(t.doubleUpToLabel.rect, QRect(371, 292, 144, 24));
    EXPECT_EQ(t.creditsWonValue.rect, QRect(520, 263, 72, 24));
    EXPECT_EQ(t.charlie, QRect(553, 5, 100, 100));
    EXPECT_EQ(t.targets[4], QRect(768, 172, 50, 50));
    EXPECT_EQ(t.choiceMark, QRect(815, 172, 80, 50));
    EXPECT_EQ(t.questionMark.rect, QRect(759, 186, 11, 22));
    EXPECT_EQ(t.message.rect, QRect(307, 628, 288, 26));
    EXPECT_EQ(t.plate, QRect(553, 5, 330, 54)) << "330 of the 332 pixels between columns and coin";
    EXPECT_EQ(t.hint.rect, QRect(307, 657, 288, 18)) << "three quarters of the meter's font";
    EXPECT_EQ(t.creditValue.rect, QRect(795, 628, 180, 26));
}

TEST(LayoutTest, FontsShrinkUntilTheirTextsFit) {
    // 45 x 500 / 100 = 225 pixels for ten lines and 2 more: 22 fits, 20 is kept.
    EXPECT_EQ(Squares(1024, 500, {.payLines = 10}).payFontHeight, 20);
    EXPECT_EQ(Squares(1024, 480, {.payLines = 15}).payFontHeight, 12);  // 14 x 15 + 2 <= 216
    // The buttons end at 449: 21 pixels are left below the gap, and the outline takes 2.
    EXPECT_EQ(Squares(1024, 480, {.payLines = 8}).message.fontHeight, 19);
    const MachineLayout ten = Squares(640, 480, {.widestPayout = "2147483647"});
    EXPECT_LE(10 * ten.payoutFontHeight / 2, ten.PayoutCell(0, 1).width());
}

TEST(LayoutTest, NoWindowNoFontAndNoGameIsTooOdd) {
    for (const QSize client : {QSize(0, 600), QSize(800, 0), QSize()}) {
        EXPECT_FALSE(LayOut(client, {}, SquareMeasure()).has_value()) << "minimized";
    }
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

TEST(LayoutTest, TheShapeOfAGameKnowsTheLargestPayoutThatIsEverShown) {
    PayTable table;
    table.lines.resize(2);
    table.lines[0].payout = 250;
    table.lines[0].maxPayout = 4000;
    EXPECT_EQ(ShapeOf(table).widestPayout, "4000");
    table.charlieBonus = true;  // pays five-fold
    EXPECT_EQ(ShapeOf(table).widestPayout, "20000");
    table.maxBet = 100;
    EXPECT_EQ(ShapeOf(table).widestPayout, "125000");
    table.lines[0].payout = table.maxBet = 2147483647;
    EXPECT_EQ(ShapeOf(table).widestPayout, "10737418235");
}

TEST(LayoutTest, WhatIsInTheWayGoesToTheNearestFreePlace) {
    const QRect area(0, 0, 100, 100);
    const QRect wanted(40, 40, 20, 20);
    const QRect beside[] = {{60, 40, 20, 20}};  // touches, covers nothing
    EXPECT_EQ(NearestFreePlace(wanted, area, beside), wanted);
    const QRect under[] = {{30, 50, 40, 10}};
    EXPECT_EQ(NearestFreePlace(wanted, area, under), QRect(40, 25, 20, 20));
    EXPECT_EQ(NearestFreePlace({90, -5, 20, 20}, area, {}), QRect(80, 0, 20, 20));
}

std::vector<QSize> Windows() {
    std::vector<QSize> windows;
    for (const int width : {640, 741, 800, 1000, 1024, 1366, 1920, 2560, 3840}) {
        for (const int height : {480, 533, 600, 617, 700, 768, 1080, 2160}) {
            windows.emplace_back(width, height);
        }
    }
    return windows;
}

// The machine's real font, every number of lines that a game has, every set of bonuses.
TEST(LayoutTest, NothingIsCutOffOrCoveredInAnyWindowFromTheSmallestOn) {
    std::set<std::pair<int, int>> tried;
    for (const QSize window : Windows()) {
        const MachineFit fit = MachineFit::Into(window);
        EXPECT_TRUE(QRect(QPoint(0, 0), window).contains(fit.ToClient({{0, 0}, fit.table})));
        const QSize client = fit.table;
        if (!tried.emplace(client.width(), client.height()).second) continue;
        for (unsigned i = 0; i < 9 * 3 * 32; ++i) {
            const auto has = [i](unsigned bonus) { return (i >> bonus & 1U) != 0; };
            constexpr std::array payouts = {"4000", "20000", "2147483647"};
            constexpr std::array lines = {1, 8, 9, 10, 11, 12, 13, 14, 15};
            const TableShape shape{lines.at(i / 32 % 9),
                                   payouts.at(i / 32 / 9),
                                   has(0),
                                   has(1),
                                   has(2),
                                   has(3),
                                   has(4)};
            const auto table = LayOut(client, shape, QtTextMeasure()).value();
            EXPECT_EQ(FaultsInPlay(table, shape) + TextFaults(table), "") << Words(window, shape);
        }
    }
}

TEST(MachineFitTest, ALargerWindowShowsTheMachineLargerInItsMiddle) {
    struct Case {
        QSize window, table;
        double zoom;
        QPoint origin;
    };
    const Case cases[] = {
        {{640, 480}, {640, 480}, 1, {0, 0}},
        {{1024, 700}, {1024, 700}, 1, {0, 0}},
        {{1025, 701}, {1024, 700}, 1025 / 1024.0, {0, 0}},
        {{2048, 1500}, {1024, 700}, 2, {0, 50}},
        {{1920, 1050}, {1024, 700}, 1.5, {192, 0}},
        {{3000, 480}, {1024, 480}, 1, {988, 0}},  // too low to be shown larger
        {{0, 0}, {0, 0}, 1, {0, 0}},
    };
    for (const Case& c : cases) {
        const MachineFit fit = MachineFit::Into(c.window);
        EXPECT_EQ(fit.client, c.window);
        EXPECT_EQ(fit.table, c.table);
        EXPECT_DOUBLE_EQ(fit.zoom, c.zoom);
        EXPECT_EQ(fit.origin, c.origin);
    }
    // A strip on the right is left to something else.
    const MachineFit beside = MachineFit::Into({2348, 1500}, 300);
    EXPECT_TRUE(beside.zoom == 2 && beside.origin == QPoint(0, 50) &&
                beside.client.width() == 2348);
}

TEST(MachineFitTest, PlacesAreFoundAgainFromTheirPixels) {
    const MachineFit half = MachineFit::Into({1920, 1050});
    EXPECT_EQ(half.ToClient(QRect(10, 20, 5, 4)), QRect(207, 30, 8, 6));  // 207 .. 214.5
    EXPECT_EQ(half.ToTable(QRect(207, 30, 8, 7)), QRect(10, 20, 6, 5));
    EXPECT_EQ(half.ToTable(QPointF(214, 30)), QPoint(15, 20));  // its middle is at 22.5 / 1.5
    for (const QSize window : Windows()) {
        const MachineFit fit = MachineFit::Into(window);
        for (int i = 0; i < 1024; i += 31) {
            const QRect place(i, i / 2, 3 + i % 7, 3 + i % 5);
            EXPECT_TRUE(fit.ToTable(fit.ToClient(place)).contains(place));
            EXPECT_TRUE(place.contains(fit.ToTable(fit.ToClient(place).center()))) << i;
        }
    }
}

TEST(TableFontTest, LongNamesAreWrittenSmallerButStayReadable) {
    const QtTextMeasure measure;
    const auto table = LayOut({640, 480}, {.payLines = 13}, measure).value();
    const int room = table.rows[0].width() - 4;
    for (const char* name : {"NATURAL FULL HOUSE", "4 DEUCES W/3'S-5'S", "5K WITH THE JOKER"}) {
        const int height = FittingFontHeight(measure, table.payFontHeight, name, room);
        EXPECT_LE(measure.Measure(height, name).width(), room) << name;
        EXPECT_GE(height, table.payFontHeight - 3) << name;
    }
    EXPECT_EQ(FittingFontHeight(measure, 20, std::string(80, 'W'), room), kReadableFontHeight);
    EXPECT_EQ(FittingFontHeight(measure, 20, "FLUSH", room), 20);
    EXPECT_EQ(FittingFontHeight(measure, 5, "FLUSH", 1), 5);
    EXPECT_EQ(MachineFont(-3).pixelSize(), 1);
}

}  // namespace
