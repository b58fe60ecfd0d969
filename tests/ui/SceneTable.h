// A table whose display is the window's: the flows play on it, and the scene shows what would be
// seen. Questions are answered from a list; nothing is heard and no pause takes time.
#pragma once
#include <string>

#include "tests/game/FakePorts.h"
#include "ui/table/SceneDescription.h"
#include "ui/table/SceneDisplay.h"
#include "ui/table/TableScene.h"

class SceneTable {
  public:
    explicit SceneTable(const std::string& game = "Jacks or Better", int gameId = 300)
        : machine(game, gameId) {
        display.Attach(table);
        display.Repaint();
    }

    // The next hand is dealt of these cards, and drawn to.
    void Deal(std::string_view cards) {
        machine.Stack(cards);
        DealDraw(table);
    }
    void Draw(HoldMask mask) {
        machine.Hold(mask);
        display.Repaint();
        DealDraw(table);
    }

    std::string Words() const { return Describe(scene, engine.payTable, engine.deck.table); }

    // What a repaint would show.
    void ExpectAtRest(const std::string& when) const {
        const TableScene rest = SceneOf(table, scene.message);
        EXPECT_TRUE(scene == rest) << when << "\n"
                                   << Words() << "\n"
                                   << Describe(rest, engine.payTable, engine.deck.table);
    }

    TestMachine machine;
    GameEngine& engine = machine.engine;
    Recorder others{machine.engine};  // the ports that are not the display
    TableScene scene;
    std::function<void()> changed;  // may look at each change of the scene
    SceneDisplay display{scene, [this] {
                             if (changed) changed();
                         }};
    GameTable table{.engine = machine.engine,
                    .files = machine.files,
                    .tables = machine.tables,
                    .display = display,
                    .player = others,
                    .sounds = others,
                    .clock = others};
};
