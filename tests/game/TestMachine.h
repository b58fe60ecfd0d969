// A machine on the shipped pay tables and a game file of its own, with a deck that can be stacked.
#pragma once
#include <algorithm>
#include <fstream>

#include "core/analysis/LineTableCache.h"
#include "core/profile/ProfileFile.h"
#include "core/store/DataFiles.h"
#include "game/engine/Dealing.h"
#include "game/engine/Money.h"
#include "tests/core/TestGames.h"
#include "tests/core/profile/TemporaryFolder.h"

// A file of tests/data, or by "../" of another folder of the tests.
inline std::string TestData(const std::string& name) {
    std::ostringstream text;
    text << std::ifstream(TOLVANE_TEST_DATA "/" + name, std::ios::binary).rdbuf();
    return text.str();
}

class TestMachine {
  public:
    explicit TestMachine(const std::string& game = "Jacks or Better", int gameId = 300)
        : files{file, TOLVANE_DATA_FOLDER "/Tolvane.ini", folder.Write("game.qdx", "[main]\n")} {
        engine.deck.clock = [] { return std::int64_t{1'790'000'000}; };
        engine.settings.credits = 100;
        file.Hold(files.gamePath);
        Play(game, gameId);
    }

    void Play(const std::string& game, int gameId) {
        engine.settings.gameName = game;
        engine.settings.gameId = gameId;
        LoadGame(engine, files, tables);
    }

    // The next deal takes these cards, five for the hand and the rest to draw.
    void Stack(std::string_view cards) {
        const auto blanks = static_cast<std::size_t>(std::ranges::count(cards, ' '));
        Stack(cards, blanks + 1);
    }
    void Stack(std::string_view cards, std::size_t count) {
        StackDeck(engine.deck, engine.payTable, cards, count);
    }

    // What was won.
    int DealOrDraw() { return ::DealOrDraw(engine, files); }
    int Deal(std::string_view cards) {
        Stack(cards);
        return DealOrDraw();
    }
    int Draw(HoldMask mask) {
        Hold(mask);
        return DealOrDraw();
    }

    void Hold(HoldMask mask) { HoldCards(engine, mask); }

    // What the counters of the session have counted, "HandsPlayed 2, HandsWon 1"; with "/9" behind
    // it a total that is another.
    std::string Counted() const {
        std::string text;
        for (const auto& [key, counter] : CounterKeys()) {
            const auto& [session, total] = engine.statistics.*counter;
            if (session == 0 && total == 0) continue;
            text += (text.empty() ? "" : ", ") + std::string(key) + " " + std::to_string(session);
            if (total != session) text += "/" + std::to_string(total);
        }
        return text;
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
    DataFilePaths paths{.folder = folder.Path() + "/",
                        .releaseFolder = "",
                        .mainProfile = folder.Path("Tolvane.ini"),
                        .defaultGame = folder.Path("Default.qdx"),
                        .analysisCache = folder.Path("Game Analyses.ini"),
                        .strategyCharts = folder.Path("Strategy Charts.ini")};
    GameEngine engine;
};
