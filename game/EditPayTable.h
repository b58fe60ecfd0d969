// The commands that open the pay table manager, and what the machine makes of it afterwards. They
// may be given while no hand is in play.
#pragma once
#include "game/PayTableEditor.h"

class PayTableManager {
  public:
    virtual ~PayTableManager() = default;

    // Nothing when cancelled.
    virtual std::optional<std::string> SelectsGame(const std::vector<std::string>& games,
                                                   const std::string& current) = 0;

    // Lets the player work with the editor until he is done: true. False when he cancels, which
    // takes nothing back that he has saved.
    virtual bool Edits(PayTableEditor& editor) = 0;
};

// For a game that the player selects.
void EditPayTable(GameTable& table, const DataFilePaths& paths, PayTableManager& manager);

// For the game and table that are played.
void EditCurrentPayTable(GameTable& table, const DataFilePaths& paths, PayTableManager& manager);

// A game of the player's own, by its id kFirstUserGameId..; one that has no pay table yet is made
// first. Cancelled, the current game goes on.
void ChooseUserGame(GameTable& table, int id, const DataFilePaths& paths, PayTableManager& manager);
