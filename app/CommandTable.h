// The one table of the commands: what each is called, by which keys and when it may be given, when
// it has a check mark, and what it does. Its rows stand as the menus show them.
#pragma once
#include <functional>
#include <span>
#include <string>
#include <variant>

#include "ui/machine/Commands.h"

class AsideWindows;
class DesktopSettings;
class HelpWindow;
class PictureStore;
class QWidget;
class StrategyDesk;
struct DataFilePaths;
struct GameEngine;
struct Seat;
struct TableOfGame;

// What the commands work on. All but the help outlives the desk.
struct CommandDesk {
    Seat& seat;
    GameEngine& spare;
    const DataFilePaths& paths;
    PictureStore& pictures;
    DesktopSettings& desktop;
    AsideWindows& aside;   // reports that stay open while the machine is played
    StrategyDesk& charts;  // of all tables
    QWidget& window;       // the program's; dialogs are over it
    std::function<void()> showAllGames = {};
    std::function<void()> showStrategy = {};
    std::function<void()> showCompare = {};
    std::function<void()> showMeter = {};
    std::function<void()> showBankroll = {};
    HelpWindow* help = nullptr;  // made when it is first opened; goes with the window
};

// When a command may not be given. Practice with fixed hands does not count as a hand.
enum class Grey {
    kNever,
    kDuringHand,
    kMenuDuringHand,  // while its key may be used
    kAlways,
};

struct CommandRow {
    int id = 0;                 // of Commands.h
    const char* caption = "";   // with the letter that chooses it after a '&'
    int key = 0;                // at the machine, a Qt::Key; 0 = none
    const char* shortcut = "";  // of the menu; empty = none
    Grey grey = Grey::kNever;
    void (*run)(CommandDesk& desk, int id) = nullptr;
    bool (*isChecked)(const CommandDesk& desk, int id) = nullptr;  // nullptr: never
    bool atOnce = false;  // also while a flow runs, which has nothing to do with it
};

// The rows behind a popup, up to the next, are its entries.
struct PopupRow {
    const char* name;  // of the menu object
    const char* caption;
};
struct SeparatorRow {};

// The rows behind it, up to the end, are the entries of a submenu, of which one is chosen at a
// time.
struct ChoiceRow {
    const char* name;  // of the menu object
    const char* caption;
};
struct EndOfChoiceRow {};

// Entries for the games of the catalogue that are offered, from one id to another; their captions
// are their names.
struct GameRows {
    int firstId;
    int lastId;
};
struct UserGamesRow {  // the submenu of the player's own games
    const char* name;  // of its object
    const char* caption;
};
struct LastGameFilesRow {};  // the game files to go on in, with a separator behind them
struct NoMenuRow {};         // the commands behind it have a key alone

using MenuRow = std::variant<PopupRow, CommandRow, SeparatorRow, ChoiceRow, EndOfChoiceRow,
                             GameRows, UserGamesRow, LastGameFilesRow, NoMenuRow>;

std::span<const MenuRow> MenuRows();

// The command that a key of the machine stands for; kNoCommand when it stands for none.
int CommandOfKey(int key);

// By the id of a command or a game, as the machine stands. Of an id that is no command's, none is
// true.
bool CanBeChecked(int id);  // at some time
bool IsChecked(int id, const CommandDesk& desk);
bool IsDoneAtOnce(int id);
bool IsEnabled(int id, const GameEngine& engine);       // in the menus
bool IsEnabledByKey(int id, const GameEngine& engine);  // or by a press at the machine

// Whether it may be given is the caller's to look at.
void RunCommand(int id, CommandDesk& desk);

// Shows the report on the dealt hand over a window.
void ShowHandAnalysis(const CommandDesk& desk, QWidget& over);

// The same of a hand as it is typed, of any table, for a bet of five coins; nothing when the table
// has no such hand.
void ShowHandOfTable(const CommandDesk& desk, const TableOfGame& table, const std::string& hand);
