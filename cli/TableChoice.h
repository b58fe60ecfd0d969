// What a command line is about: the folder of the data, the game in it, its pay table with the
// deck, and the bet on it.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "core/cards/CardTable.h"
#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"

namespace cli {

// The folder that data are written to: the named one, otherwise where the window program keeps its
// own. Empty when the system knows no such place.
std::string DataFolder(const std::optional<std::string>& named);

struct CatalogueGame {
    int id = 0;
    std::string name;
    bool offered = false;  // stands in the Games menu
};

struct Catalogue {
    ProfileOnDisk Main() { return {file, mainPath}; }

    ProfileFile file;
    std::string mainPath;  // of the main profile file, which holds the pay tables
    // All built-in games by rising id, those that the catalogue's look-ups pass over too, then the
    // player's own in slot order.
    std::vector<CatalogueGame> games;
};

// The main profile file is Tolvane.ini in the named folder, or, as long as that holds none, the
// shipped release file there. Without a name it is in the folder where the window program keeps its
// data (its own when that can be written, otherwise the user's), and the shipped one is beside the
// program. One that is there and cannot be read is a failure: others would answer for it.
std::optional<Failure> OpenCatalogue(const Options& options, Catalogue& catalogue);

struct ChosenTable {
    TableOfGame place;
    PayTable payTable;
    CardTable deck;
    int bet = 0;  // 1..payTable.maxBet; when none was given, five or the most that the table takes
};

// The game is meant by its id, or by its name in any letter case.
std::optional<Failure> ChooseTable(const Options& options, ChosenTable& chosen);

// The table of that index of every game that has one, in the order of the catalogue.
std::optional<Failure> ChooseTableOfEveryGame(const Options& options,
                                              std::vector<ChosenTable>& chosen);

// "Jacks or Better (300), table 0, bet 5 x $1.00"; the coin in dollars.
std::string Heading(const ChosenTable& chosen, int bet, double coin);

// count distinct cards of the deck.
std::optional<Failure> ReadCards(const std::string& text, const CardTable& deck, std::size_t count,
                                 std::vector<CardCode>& cards);

// "AS", "W", ... by position.
std::vector<std::string> CardTexts(const CardTable& deck, const std::vector<CardCode>& cards);

}  // namespace cli
