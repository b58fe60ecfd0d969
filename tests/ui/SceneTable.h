// A table whose display is the window's: the flows play on it, and the scene shows what would be
// seen. Questions are answered from a list; nothing is heard and no pause takes time.
#pragma once
#include <string>

#include "tests/game/FakePorts.h"
#include "ui/table/SceneDisplay.h"
#include "ui/table/TableScene.h"

class SceneTable {
  public:
    explicit SceneTable(const std::string& game = "Jacks or Better", int gameId = 300)
        : machine(game, gameId) {
        display.Attach(table);
        display.Repaint();
        changes = 0;
    }

    TableScene AtRest() const { return SceneOf(table, scene.message); }

    TestMachine machine;
    GameEngine& engine = machine.engine;
    Recorder others{machine.engine};  // the ports that are not the display
    TableScene scene;
    int changes = 0;                // of the scene
    std::function<void()> changed;  // may look at each
    SceneDisplay display{scene, [this] {
                             ++changes;
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
