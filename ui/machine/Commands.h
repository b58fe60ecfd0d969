// The commands of the menus by the numbers that stand for them. A game's command is its id.
#pragma once

enum Command : int {
    kCashOut = 400,
    kResetStatistics = 401,
    kEditPayTable = 402,
    kAssignFixedHand = 403,
    kViewErrorLog = 404,
    kClearErrorLog = 405,
    kToggleSounds = 406,
    kToggleDoubleUp = 407,
    kToggleShowDollar = 408,
    kAutoplay = 410,
    kCombinations = 411,
    kEnterCredits = 412,
    kAnimation = 420,
    kFourColourDeck = 421,
    kFirstCardBack = 422,  // and the next two
    kFullScreen = 425,
    kModeCasino = 500,
    kModeWarning = 501,
    kModeAutoHold = 502,
    kModeErrorLog = 503,
    kFixedHand = 504,
    kCoinNickel = 600,
    kCoinQuarter = 601,
    kCoinHalf = 602,
    kCoinDollar = 603,
    kPlayStatistics = 700,
    kAnalyzeHand = 701,
    kAnalyzeGame = 702,
    kAllGames = 710,
    kStrategy = 711,
    kCompare = 712,
    kMeter = 713,
    kBankroll = 714,
    kSpeedFast = 800,
    kSpeedNormal = 801,
    kSpeedSlow = 802,
    kFileNew = 57600,
    kFileOpen = 57601,
    kFileSave = 57603,
    kFileSaveAs = 57604,
    kEditUndo = 57643,
    kEditCut = 57635,
    kEditCopy = 57634,
    kEditPaste = 57637,
    kAbout = 57664,
    kExit = 57665,
    kHelpIndex = 57666,
    kNoCommand = 0,
    kEditCurrentPayTable = 1,   // in no menu, nor is the next
    kResetStatisticsAlone = 2,  // leaves the error log
};

inline constexpr int kFirstGame = 300;
inline constexpr int kLastGame = 398;
inline constexpr int kFirstUserGame = 9001;
inline constexpr int kLastUserGame = 9010;

// Whether a command chooses a game.
constexpr bool IsGame(int command) {
    return (command >= kFirstGame && command <= kLastGame) ||
           (command >= kFirstUserGame && command <= kLastUserGame);
}
