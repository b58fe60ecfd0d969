#include "game/ShowTable.h"

#include <gtest/gtest.h>

#include "game/DoubleUp.h"
#include "game/HandFlow.h"
#include "tests/game/FakePorts.h"

namespace {

struct ShowTableTest : testing::Test, TestTable {
    TableScene& scene = table.scene;
};

TEST_F(ShowTableTest, AWinIsMarkedInTheColumnOfTheBet) {
    engine.settings.bet = 8;  // announced in the fifth column
    Deal("JS JD TC 9H 2S JC 4C 5C");
    EXPECT_EQ(scene.lines[8], (LineLook{LineMark::kWon, 8, 4}));
    Draw(0b11000);
    EXPECT_EQ(scene.lines[8], LineLook{});
    EXPECT_EQ(scene.lines[6], (LineLook{LineMark::kWon, 24, 4}));
    engine.finalLine = 99;
    ShowAtRest(table);
    EXPECT_TRUE(std::ranges::all_of(scene.lines, [](const auto& line) {
        return line == LineLook{};
    })) << "a line that is not there";
}

TEST_F(ShowTableTest, ADecidedPickIsShownFaceUpWithItsMark) {
    engine.hand = {1, 2, 3, 4, 5};
    engine.held = {false, false, true, false, false};
    engine.doubleUpPick = engine.doubleUpClosed = true;
    ShowAtRest(table);
    EXPECT_EQ(scene.places[2].card, 2);
    EXPECT_TRUE(scene.places[2].held);
    engine.doubleUpClosed = false;
    ShowAtRest(table);
    EXPECT_EQ(scene.places[2].card, kCardBack);
    EXPECT_FALSE(scene.places[2].held);
}

TEST_F(ShowTableTest, AButtonStaysDownUntilItIsReleasedAndOneThatIsNotThereDoesNotGoDown) {
    PressButton(scene.buttons.deal);
    PressButton(scene.buttons.doubleUp);
    EXPECT_EQ(scene.buttons.doubleUp, ButtonLook::kHidden);
    ShowAtRest(table);
    EXPECT_EQ(scene.buttons.deal, ButtonLook::kPressed);
    engine.doubleUpPick = true;  // takes it off the table
    ShowAtRest(table);
    PressButton(scene.places[1].holdButton);
    ReleaseAllButtons(scene);
    EXPECT_EQ(scene.places[1].holdButton, ButtonLook::kReleased);
    EXPECT_EQ(scene.buttons.deal, ButtonLook::kHidden);
}

}  // namespace
