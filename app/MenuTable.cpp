#include "app/MenuTable.h"

#include <array>

#include "game/GameEngine.h"
#include "ui/table/Commands.h"

namespace {

constexpr std::array kFileMenu{
    MenuEntry{kFileNew, "&New", Grey::kDuringHand, "Ctrl+N"},
    MenuEntry{kFileOpen, "&Open...", Grey::kDuringHand, "Ctrl+O"},
    MenuEntry{kFileSave, "&Save", Grey::kDuringHand, "Ctrl+S"},
    MenuEntry{kFileSaveAs, "Save &As...", Grey::kDuringHand},
    MenuEntry{},
    MenuEntry{kExit, "E&xit"},
};

// The table has nothing to edit; the entries are where players look for them.
constexpr std::array kEditMenu{
    MenuEntry{kEditUndo, "&Undo", Grey::kAlways, "Ctrl+Z"},
    MenuEntry{kEditCut, "Cu&t", Grey::kAlways, "Ctrl+X"},
    MenuEntry{kEditCopy, "&Copy", Grey::kAlways, "Ctrl+C"},
    MenuEntry{kEditPaste, "&Paste", Grey::kAlways, "Ctrl+V"},
};

constexpr MenuEntry Game(int id) { return {id, "", Grey::kDuringHand}; }

// Captions are the names of the catalogue.
constexpr std::array kGamesMenu{
    Game(300),   Game(301),
    Game(302),   Game(303),
    Game(304),   Game(305),
    Game(306),   Game(307),
    Game(308),   Game(309),
    Game(310),   Game(311),
    Game(312),   Game(313),
    Game(314),   Game(315),
    Game(317),   MenuEntry{},
    Game(330),   Game(331),
    Game(332),   Game(333),
    Game(334),   Game(335),
    MenuEntry{}, Game(340),
    Game(341),   Game(342),
    Game(343),   Game(344),
    Game(345),   Game(346),
    MenuEntry{}, MenuEntry{kUserGamesMenu, "User Games"},
    MenuEntry{}, Game(350),
};

constexpr std::array kOptionsMenu{
    MenuEntry{kCashOut, "Cash Out"},
    MenuEntry{kEnterCredits, "Enter Credits"},
    MenuEntry{kResetStatistics, "Reset Statistics to 0"},
    MenuEntry{kViewErrorLog, "View Error Log"},
    MenuEntry{kClearErrorLog, "Clear Error Log", Grey::kDuringHand},
    MenuEntry{kEditPayTable, "Edit Pay Table", Grey::kDuringHand},
    MenuEntry{kAssignFixedHand, "Assign Fixed Hand"},
    MenuEntry{},
    MenuEntry{kToggleSounds, "Sound Effects", Grey::kDuringHand},
    MenuEntry{kToggleDoubleUp, "Double Up", Grey::kDuringHand},
    MenuEntry{kToggleShowDollar, "Show Credits as Cash", Grey::kDuringHand},
    MenuEntry{},
    MenuEntry{kCombinations, "Calculate Combinations"},
};

constexpr std::array kPlayModeMenu{
    MenuEntry{kModeCasino, "Casino", Grey::kDuringHand},
    MenuEntry{kModeWarning, "Warning", Grey::kDuringHand},
    MenuEntry{kModeAutoHold, "AutoHold", Grey::kDuringHand},
    MenuEntry{kModeErrorLog, "Error Log", Grey::kDuringHand},
    MenuEntry{kAutoplay, "Autoplay"},
    MenuEntry{},
    MenuEntry{kFixedHand, "Fixed Hand", Grey::kDuringHand},
};

constexpr std::array kCoinMenu{
    MenuEntry{kCoinNickel, "Nickel"},
    MenuEntry{kCoinQuarter, "Quarter"},
    MenuEntry{kCoinHalf, "50 Cents"},
    MenuEntry{kCoinDollar, "Dollar"},
};

constexpr std::array kSpeedMenu{
    MenuEntry{kSpeedFast, "Fast"},
    MenuEntry{kSpeedNormal, "Normal"},
    MenuEntry{kSpeedSlow, "Slow"},
};

constexpr std::array kAnalyzeMenu{
    MenuEntry{kPlayStatistics, "Game Play"},
    MenuEntry{kAnalyzeHand, "Hand"},
    MenuEntry{kAnalyzeGame, "Game"},
};

constexpr std::array kHelpMenu{
    MenuEntry{kHelpIndex, "Help Index", Grey::kNever, "F1"},
    MenuEntry{kAbout, "&About Tolvane..."},
};

constexpr std::array kMenuBar{
    MenuPopup{"fileMenu", "&File", kFileMenu},
    MenuPopup{"editMenu", "&Edit", kEditMenu},
    MenuPopup{"gamesMenu", "&Games", kGamesMenu},
    MenuPopup{"optionsMenu", "&Options", kOptionsMenu},
    MenuPopup{"playModeMenu", "&Play Mode", kPlayModeMenu},
    MenuPopup{"coinMenu", "&Coin", kCoinMenu},
    MenuPopup{"speedMenu", "&Speed", kSpeedMenu},
    MenuPopup{"analyzeMenu", "&Analyze", kAnalyzeMenu},
    MenuPopup{"helpMenu", "&Help", kHelpMenu},
};

}  // namespace

std::span<const MenuPopup> MenuBar() { return kMenuBar; }

bool IsChecked(int id, const GameEngine& engine) {
    const MachineSettings& settings = engine.settings;
    if (IsGame(id)) return id == settings.gameId;
    switch (id) {
        case kToggleSounds:
            return settings.sounds;
        case kToggleDoubleUp:
            return settings.doubleUp;
        case kToggleShowDollar:
            return settings.showDollar;
        case kModeCasino:
        case kModeWarning:
        case kModeAutoHold:
        case kModeErrorLog:
            return id == kModeCasino - 1 + static_cast<int>(settings.mode);
        case kFixedHand:
            return engine.fixedHand;
        case kCoinNickel:
            return settings.coin == 0.05;
        case kCoinQuarter:
            return settings.coin == 0.25;
        case kCoinHalf:
            return settings.coin == 0.5;
        case kCoinDollar:
            return settings.coin == 1.0;
        case kSpeedFast:
            return settings.speed == Speed::kFast;
        case kSpeedNormal:
            return settings.speed == Speed::kNormal;
        case kSpeedSlow:
            return settings.speed == Speed::kSlow;
        default:
            return false;
    }
}

bool IsEnabled(Grey grey, const GameEngine& engine) {
    if (grey == Grey::kAlways) return false;
    return grey == Grey::kNever || engine.handOver || engine.fixedHand;
}

Grey GreyOf(int id) {
    if (IsGame(id)) return Grey::kDuringHand;
    for (const MenuPopup& popup : kMenuBar) {
        for (const MenuEntry& entry : popup.entries) {
            if (entry.id == id) return entry.grey;
        }
    }
    return Grey::kNever;
}
