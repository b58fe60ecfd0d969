// Where everything stands on the machine, worked out from the size of the client area. A
// pure function: the same size, game and font always give the same places, in units of the table
// (MachineFit.h) from its upper left corner. Positions and targets are numbered 0..4 from the left,
// lines from the top.
#pragma once
#include <QRect>
#include <QSize>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "ui/art/SizeClass.h"
#include "ui/machine/TextMeasure.h"

struct PayTable;

// From this size on nothing is cut off and nothing that can be seen together overlaps. Smaller
// areas are laid out by the same rules, but their places may lie outside or on one another.
inline constexpr QSize kMinimumMachineSize{640, 480};

// What the places depend on in the game. A feature that the game does not have still gets places,
// but nothing makes way for it.
struct TableShape {
    int payLines = 9;                   // 0..15; other numbers count as the nearest of these
    std::string widestPayout = "4000";  // the longest number that the coin columns have to show
    bool sneakPeak = false;             // shows its first draw card
    bool charlie = false;
    bool redBlack = false;
    bool spin = false;
    bool target = false;
};

// The largest payout takes in bets above five coins and the five-fold pay of a charlie.
TableShape ShapeOf(const PayTable& table);

// A place for a text and the height of the machine's font to write it with.
struct TextPlace {
    QRect rect;
    int fontHeight = 0;
};

struct MachineLayout {
    QSize client;                             // the table's: what the places are worked out for
    SizeClass sizeClass = SizeClass::kSmall;  // of cards and buttons
    QSize cardSize;
    QSize buttonSize;
    int gap = 0;  // between two cards, and left of the first

    int payFontHeight = 0;     // pay table and most labels
    int payoutFontHeight = 0;  // numbers in the coin columns: the pay font unless one is too wide
    int labelFontHeight = 0;
    int cardFontHeight = 0;  // ranks
    int smallPip = 0;        // side of a square picture, as are the next two
    int bigPip = 0;
    int court = 0;
    QSize wildMark;  // of the text in the label font, in the middle of every wild card

    std::array<QRect, 5> cards;  // Pick 'Em: 3 the left pile, 4 the right one
    std::array<QRect, 5> holdButtons;
    std::array<TextPlace, 5> heldMarks;   // with the 1-pixel outline around the text
    std::array<TextPlace, 2> pileLabels;  // in the left and the right pile's card

    QRect namePanel;
    std::array<QRect, 5> columns;  // of one to five coins
    std::vector<QRect> rows;       // by pay line, in the name panel

    TextPlace message;
    TextPlace betLabel;
    TextPlace betValue;
    TextPlace creditLabel;
    TextPlace creditValue;

    // Right of the pay table; null places where there is no room for them.
    QRect plate;
    TextPlace plateGame;
    TextPlace plateDetails;
    TextPlace hint;  // below the message meter

    QRect deal;
    QRect betOne;
    QRect maxBet;
    QRect doubleUp;
    QRect coin;

    TextPlace dealerLabel;
    TextPlace doubleUpToLabel;
    TextPlace doubleUpToValue;
    TextPlace creditsWonLabel;
    TextPlace creditsWonValue;

    QRect sneakPeakCard;
    TextPlace sneakPeakLabel;
    QRect charlie;
    std::array<QRect, 5> targets;

    QRect redPanel;
    QRect blackPanel;
    QRect choiceMark;
    TextPlace redBlackLabel;
    TextPlace questionMark;  // across the line between the panels

    QRect spinButton;
    TextPlace spinButtonText;
    QRect spinValue;
    TextPlace spinLabel;  // in card 4, as is the next
    TextPlace shootLabel;

    // Name panel and coin columns together.
    QRect PayTablePanel() const { return namePanel.united(columns.back()); }

    // Where a line's payout for so many coins stands, inside the column's outline; bets above five
    // share the last column. Null for a line that is not there.
    QRect PayoutCell(int line, int coins) const;
};

// Nothing for an area without width or height.
std::optional<MachineLayout> LayOut(QSize client, const TableShape& shape,
                                    const TextMeasure& measure);
