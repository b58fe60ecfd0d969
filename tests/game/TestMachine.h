// A machine on the shipped pay tables and a game file of its own, with a deck that can be stacked.
#pragma once
#include <fstream>

#include "core/analysis/LineTableCache.h"
#include "core/profile/ProfileFile.h"
#include "game/Dealing.h"
#include "game/MachineCommands.h"
#include "tests/core/TestGames.h"
#include "tests/core/profile/TemporaryFolder.h"

class TestMachine {
  public:
    explicit TestMachine(const std::string& game = "Jacks or Better", int gameId = 300)
        : files{file, TOLVANE_DATA_FOLDER "/Tolvane.ini", folder.Write("game.qdx", "[main]\n")} {
        engine.deck.clock = [] { return std::int64_t{1'790'000'000}; };
        engine.settings.gameName = game;
        engine.settings.gameId = gameId;
        engine.settings.credits = 100;
        LoadGame(engine, files, tables);
    }

    // The next deal takes these cards, five for the hand and the rest to draw.
    void Stack(std::string_view cards, std::size_t count) {
        const auto codes = Cards(engine.payTable, cards, count);
        auto next = engine.deck.order.begin();
        for (const CardCode code : codes) {
            const auto end = engine.deck.order.begin() + engine.deck.table.deckSize;
            std::iter_swap(next, std::find(next, end, code));
            ++next;
        }
    }

    int DealOrDraw() { return ::DealOrDraw(engine, files); }

    void Hold(HoldMask mask) {
        for (int i = 0; i < kHandSize; ++i)
            engine.held[static_cast<std::size_t>(i)] = Holds(mask, i);
    }

    std::string HandText() const {
        std::string text;
        for (const CardCode card : engine.hand) text += CardText(engine.deck.table, card) + " ";
        return text;
    }

    TemporaryFolder folder;
    ProfileFile file;
    LineTableCache tables;
    GameFiles files;
    GameEngine engine;
};
