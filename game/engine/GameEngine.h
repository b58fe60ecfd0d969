// The machine: everything that one hand after the other is played on, as plain data. What is done
// with it are the operations of this room; none of them knows a screen.
#pragma once
#include <array>
#include <memory>
#include <optional>
#include <string>

#include "core/analysis/HoldAnalysis.h"
#include "core/cards/Deck.h"
#include "core/eval/HandEvaluator.h"
#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"
#include "core/store/Settings.h"
#include "core/store/Statistics.h"
#include "game/engine/CreditHistory.h"

class LineTableCache;

// The files that a machine plays on. The objects outlive the engine.
struct GameFiles {
    ProfileFile& file;
    std::string mainPath;        // pay tables
    std::string gamePath;        // settings and statistics; may name another file from time to time
    std::string cachePath = {};  // what analyses of games gave

    ProfileOnDisk Main() const { return {file, mainPath}; }
    ProfileOnDisk Game() const { return {file, gamePath}; }
};

struct GameEngine {
    MachineSettings settings;
    Statistics statistics;
    CreditHistory creditHistory;  // of the session, from its first deal on
    Deck deck;
    PayTable payTable;
    std::shared_ptr<const LineTables> lineTables;  // see LineTablesOf
    LineTableCache* lineTableCache = nullptr;      // where they come from

    HandCards hand = kCardBacks;
    HandCards drawCards = kNoCards;  // replace discards from left to right, the first one first
    HandCards dealtCopy = kNoCards;  // the hand as it was dealt
    std::array<bool, kHandSize> held{};
    std::optional<HoldMask> playedHold;  // in the draw to the dealt hand; none before it
    HoldAnalysis analysis;               // of the dealt hand
    HandFeatures features;               // of the hand last classified

    bool readyToDeal = true;      // the next DealOrDraw deals
    bool handOver = true;         // no hand is in play
    bool fixedHand = false;       // the fixed hand is dealt; credits and statistics stand still
    bool handWins = false;        // the hand last classified is paid
    bool handInProgress = false;  // from Deal to the last offer after the draw: no idle shuffling
    bool charlieNow = false;
    bool charlieOnDeal = false;
    int dealtLine = -1;  // of the dealt and of the final hand; -1 none
    int finalLine = -1;
    int win = 0;          // credits paid for the last final hand
    int replayIndex = 0;  // of the logged hand that Error Log mode deals next

    bool doubleUpOffered = false;  // the last win may be doubled up while the option is on
    bool doubleUpPick = false;     // a double up waits for a card
    bool doubleUpClosed = true;    // the pick is decided
    bool redBlackPending = false;  // a feature waits for the player
    bool spinPending = false;
    bool targetPending = false;
    int bonusStake = 0;  // credits gathered in a feature, or at stake in a double up
    int doubleUpTo = 0;  // credits at stake after the next pick that is won
    bool countingUp = false;
    bool stopCountUp = false;
};

// Whether this game is played, which deals and draws in a way of its own.
bool IsPickEm(const GameEngine& engine);
bool IsSneakPeak(const GameEngine& engine);

// A hand that a bet was taken for is in play; practice with fixed hands takes none.
bool PaidHandIsOpen(const GameEngine& engine);

// A feature or a double up waits for the player, who can do nothing else at the table.
bool FeaturePending(const GameEngine& engine);

// An offer stands to risk the last win, and the option is on.
bool CanDoubleUp(const GameEngine& engine);

// The hand last classified is a five-card charlie that its table pays for.
bool CharlieApplies(const GameEngine& engine);

// Credits have been won or lost in a hand of the session: its course is to show it.
void NoteCredits(GameEngine& engine);

// The section of the current game and table in the game file.
std::string StatsSection(const GameEngine& engine);

// Makes a pay table active, with its deck; the hand is over.
void UseTable(GameEngine& engine, PayTable table, LineTableCache& tables);

// Those of the pay table. They are built at its first deal, so that a start or a change of game
// need not wait for them.
const LineTables& LineTablesOf(GameEngine& engine);

// Makes the table of the settings active: pay table, deck, statistics; the hand is over. The hand
// that was fixed for the table counts as the one dealt, so that it can be analysed.
void LoadGame(GameEngine& engine, const GameFiles& files, LineTableCache& tables);
