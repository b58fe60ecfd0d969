// Game files that no machine has written: whatever they hold, the machine starts and can be played.
#include <gtest/gtest.h>

#include "game/saving/GameFile.h"
#include "game/saving/SaveGame.h"
#include "tests/game/FakePorts.h"

namespace {

std::string Garbage(std::size_t size) {
    std::string bytes;
    for (std::uint32_t x = 1; bytes.size() < size; x = x * 1'664'525 + 1'013'904'223) {
        bytes += static_cast<char>(x >> 24);
    }
    return bytes;
}

// Every key of a saved game but its name, and of its log, with the same value.
std::string AllKeys(const std::string& value) {
    TestSeat t;
    SaveGame(t);
    std::istringstream saved(t.machine.folder.Read("game.qdx") +
                             "Error0=\n[ActiveTbl]\nJacks or Better=\n");
    std::string text;
    for (std::string line; std::getline(saved, line); text += line + "\n") {
        const auto equals = line.find('=');
        if (equals != std::string::npos && !line.starts_with("GameName"))
            line.replace(equals + 1, std::string::npos, value);
    }
    return text;
}

std::vector<std::string> NastyFiles() {
    std::vector<std::string> files = {
        "",
        "no section at all",
        std::string(3, '\0'),
        "[main",
        "[main]\nGameName=" + std::string(100'000, 'x') + "\n",
        "[main]\nGameName=\nGameID=-1\n",
        "[main]\nGameName=Nobody's Poker\nGameID=9999\n[ActiveTbl]\nNobody's Poker=3\n",
        "[main]\nGameName=Deuces Wild\nGameID=300\n[ActiveTbl]\nDeuces Wild=77\n",
        "[main]\nGameName=Pick Em Poker\nBet=1000\nCredits=1\n",
        "[main]\nBet=-5\nCredits=-100\nCoin=-1\n",
        "[main]\nMode=4\n[Jacks or Better(0)]\nNextError=100\nError0=not a hand\nError1=,,,,,,,\n",
        "[Jacks or Better(0)]\nSetCard0=5\nSetCard1=5\nSetDraw0=5\nSetDraw1=60\n",
        Garbage(50'000),
    };
    for (const char* value :
         {"99999999999999999999", "-99999999999999999999", "garbage", "", "nan", "1e308"}) {
        files.push_back(AllKeys(value));
    }
    return files;
}

void ExpectPlayable(TestMachine& machine) {
    GameEngine& engine = machine.engine;
    EXPECT_FALSE(engine.payTable.lines.empty());
    EXPECT_GE(engine.settings.credits, 0);
    EXPECT_GE(engine.settings.bet, 1);
    EXPECT_GE(engine.statistics.nextError, 0);
    EnterDollars(engine, 100);
    EXPECT_GE(engine.settings.credits, 100);
    engine.settings.bet = engine.payTable.maxBet;
    for (const bool fixed : {false, true}) {
        engine.fixedHand = fixed;
        EXPECT_EQ(machine.DealOrDraw(), 0);
        for (const CardCode card : engine.hand) {
            EXPECT_GE(card, 0);
            EXPECT_LT(card, engine.deck.table.deckSize);
        }
        EXPECT_GE(machine.DealOrDraw(), 0);
        EXPECT_TRUE(engine.handOver);
    }
}

TEST(GameFileTest, NoFileKeepsTheMachineFromBeingPlayed) {
    for (const auto& contents : NastyFiles()) {
        SCOPED_TRACE(contents.substr(0, 200));
        TestSeat t;
        t.machine.folder.Write("game.qdx", contents);
        t.machine.file.Forget(t.machine.files.gamePath);
        LoadGameFile(t);
        ExpectPlayable(t.machine);

        EXPECT_TRUE(SaveGame(t));
        const std::string saved = t.machine.folder.Read("game.qdx");
        t.machine.file.Close();
        LoadGameFile(t);
        EXPECT_TRUE(SaveGame(t));
        EXPECT_EQ(t.machine.folder.Read("game.qdx"), saved) << "what was mended stays so";
    }
}

}  // namespace
