// The pay table that a command line asks for, with its deck, and the bet on it.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "cli/Command.h"
#include "cli/GameChoice.h"
#include "core/cards/CardTable.h"
#include "core/paytable/PayTable.h"

struct ChosenTable {
    CatalogueGame game;
    int index = 0;
    PayTable payTable;
    CardTable deck;
    int bet = 0;  // 1..payTable.maxBet; when none was given, five or the most that the table takes
};

std::optional<Failure> ChooseTable(const Options& options, ChosenTable& chosen);

// The table of that index of every game that has one, in the order of the catalogue.
std::optional<Failure> ChooseTableOfEveryGame(const Options& options,
                                              std::vector<ChosenTable>& chosen);

// count distinct cards of the deck.
std::optional<Failure> ReadCards(const std::string& text, const CardTable& deck, std::size_t count,
                                 std::vector<CardCode>& cards);

// "AS", "W", ... by position.
std::vector<std::string> CardTexts(const CardTable& deck, const std::vector<CardCode>& cards);
