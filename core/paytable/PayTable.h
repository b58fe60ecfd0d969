// A pay table: everything that makes one game differ from another, read from the main profile file.
#pragma once
#include <array>
#include <span>
#include <string>
#include <vector>

#include "core/cards/CardTable.h"
#include "core/paytable/HandRank.h"
#include "core/profile/ProfileFile.h"

inline constexpr int kMaxPayLines = 15;
inline constexpr std::size_t kMaxLineRanks = 13;
inline constexpr int kFullBet =
    5;  // the bet that is paid maxPayout, whatever the table's maxBet is
inline constexpr int kSneakPeakGameId = 351;

enum class GameType : int {
    kStandard = 1,
    kFiveAces = 2,      // the deck holds the "Ace of Stars"
    kOneEyedJacks = 3,  // the jacks of spades and hearts are wild
    kPickEm = 4,        // two cards and the choice of two piles
    kAcesBonus = 5,     // four aces in suit order pay more, so the order of a draw matters
    kDoubleDraw = 6,    // a second draw may follow the first
};

struct PayLine {
    HandRank rank = HandRank::kRoyalFlush;
    std::string description;       // at most 80 bytes
    std::string shortDescription;  // at most 10 bytes
    int payout = 0;                // coins for each coin bet, never negative
    int maxPayout = 0;             // coins for a bet of exactly kFullBet, never negative
    std::vector<int> bonusQuads;   // ranks 1..13 whose quads or quints the line pays; empty = any
    std::vector<int> trailers;     // kicker ranks 1..13; empty = any
    bool wildsOK = false;          // may be made with wild cards
    int sessionWins = 0;
    int totalWins = 0;

    bool operator==(const PayLine&) const = default;
};

struct PayTable {
    int gameId = 0;
    GameType type = GameType::kStandard;
    int deckSize = 52;
    int jokers = 0;                                                // 0..5
    std::array<int, kMaxWildRanks> wildRanks{-1, -1, -1, -1, -1};  // 1..13, then kNoWildRank
    int minPair = 15;  // lowest rank of a paying pair, aces are 14: 15 lets only aces pay
    int maxBet = 5;    // at least 1
    bool usesWilds = false;
    bool charlieBonus = false;
    bool redBlackBonus = false;
    bool spinBonus = false;
    bool targetBonus = false;
    std::vector<PayLine> lines;  // in the order in which a hand is tried; at most kMaxPayLines

    bool operator==(const PayTable&) const = default;
};

// Where a table is found.
struct TableOfGame {
    int gameId = 0;
    std::string gameName;
    int tableIndex = 0;
};

// "%s(%i)", the section that holds a table, its statistics and its cached analysis.
std::string TableSection(const std::string& gameName, int tableIndex);

// What stands before it in the name of the section of a game file that dates the table's errors. No
// game's name may begin so.
inline constexpr std::string_view kErrorDates = "Error Dates ";

// Reads a table from the main profile file and each line's win count from gamePath (empty: all 0).
// A missing section gives a table without lines. Values that a file edited by hand may hold are
// taken so:
// - a type outside 1..6 is 1; jokers, bet and pays outside their range are the nearest value in it;
// - jokers beside the fifth ace are left out: that deck has 53 cards, and they could never be
// dealt;
// - wild ranks, bonus quads and trailers outside 1..13 are passed over, 14 is the ace, as it is
// shown;
//   so are numbers past the fifth wild rank or the thirteenth of a line, and wild ranks named
//   twice;
// - an unknown hand rank makes a line that no hand matches, so that the other lines keep their
// numbers;
// - lines past the fifteenth are left out; a short description is cut to ten bytes.
PayTable LoadPayTable(const ProfileOnDisk& main, const TableOfGame& wanted,
                      const std::string& gamePath);

// A table exists when it has lines.
bool TableExists(const ProfileOnDisk& main, const std::string& gameName, int tableIndex);

// The indices of a game's existing tables, in the order of its chain from table 0; a chain that
// runs in a circle or through a missing table ends there.
std::vector<int> TableChain(const ProfileOnDisk& main, const std::string& gameName);

// Gives a table, whose type is set, its deck: jokers are cut to 0..5, and none lie beside the fifth
// ace; ranks 1..13 past the fifth, or named twice, are passed over.
void SetWildCards(PayTable& table, int jokers, std::span<const int> wildRanks);

DeckDescription DeckOf(const PayTable& table);

bool HasLine(const PayTable& table, HandRank rank);

// What a line pays for each coin at the full bet where that is more than its payout, otherwise the
// payout: whole coins, as reports show it.
int LineCoinPay(const PayLine& line);

// What a line pays for a bet, in coins; 0 when there is no such line or the bet is below 1. A pay
// past 32 bits is the largest 32-bit number.
int LineUnitPay(const PayTable& table, int line, int bet);
