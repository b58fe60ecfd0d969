// What a command line is about: the folder of the data, the game in it, its pay table with the
// deck, and the bet on it.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "cli/ChosenTable.h"
#include "cli/Commands.h"
#include "core/cards/CardTable.h"
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

// The game is meant by its id, or by its name in any letter case. Of several pays for one line the
// last counts, and a note on standard error says so.
std::optional<Failure> ChooseTable(const Options& options, ChosenTable& chosen);

// The table of that index of every game that has one, in the order of the catalogue. A pay goes to
// each that has the line; a note on standard error names the others.
std::optional<Failure> ChooseTableOfEveryGame(const Options& options,
                                              std::vector<ChosenTable>& chosen);

// count distinct cards of the deck.
std::optional<Failure> ReadCards(const std::string& text, const CardTable& deck, std::size_t count,
                                 std::vector<CardCode>& cards);

// "AS", "W", ... by position.
std::vector<std::string> CardTexts(const CardTable& deck, const std::vector<CardCode>& cards);

}  // namespace cli
