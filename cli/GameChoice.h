// Every game there is, built in or the player's own, and the one that is meant by a name or an id.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Command.h"

class ProfileFile;

struct CatalogueGame {
    int id = 0;
    std::string name;
    bool offered = false;  // stands in the Games menu
};

// All built-in games by rising id, those that the catalogue's look-ups pass over too, then the
// player's own in slot order.
std::vector<CatalogueGame> CatalogueGames(ProfileFile& file, const std::string& mainPath);

// By id, or by name in any letter case.
std::optional<Failure> ChooseGame(std::string_view text, const std::vector<CatalogueGame>& games,
                                  CatalogueGame& chosen);
