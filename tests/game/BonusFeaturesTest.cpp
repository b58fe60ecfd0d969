#include "game/BonusFeatures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "game/DoubleUp.h"
#include "game/HandFlow.h"
#include "tests/game/FakePorts.h"

namespace {

// Shows credits, bets five coins at full speed. Chance is decided beforehand: the table gets a seed
// whose draws are as wanted.
struct FeatureTable : TestTable {
    FeatureTable() {
        ports.logsOwned = true;
        engine.settings.showDollar = false;
        engine.settings.speed = Speed::kFast;
    }

    // Wanted looks at a generator that draws the same as the table's will.
    void Decide(const std::function<bool(CombinedRandom)>& wanted) {
        for (std::uint32_t seed = 1;; ++seed) {
            table.random.RandomInit(seed);
            if (wanted(table.random)) return;
        }
    }

    void PlayHand(std::string_view cards) {
        machine.Stack(cards, 5);
        DealDraw(table);
        engine.held.fill(true);
        DealDraw(table);
        TakeLog();
    }
};

constexpr std::string_view kNothing = "2S 4D 6C 8H TS";
constexpr std::string_view kAllRed = "2D 4D 6H 8H TD";

// A multiplier's mean over all 200 draws, in two hundredths.
int SumOver200(int (*multiplier)(int)) {
    int sum = 0;
    for (int draw = 1; draw <= 200; ++draw) sum += multiplier(draw);
    return sum;
}

TEST(BonusFeaturesTest, TheMultipliersHaveTheirMeans) {
    EXPECT_EQ(SumOver200(SpinMultiplier), 3331);
    EXPECT_EQ(SumOver200(TargetMultiplier), 1142);
    EXPECT_EQ(SpinMultiplier(9), 50);
    EXPECT_EQ(TargetMultiplier(200), 15);
}

TEST(BonusFeaturesTest, SpinAndTargetEachFollowOneHandIn150NeverBoth) {
    FeatureTable t;
    t.engine.payTable.spinBonus = t.engine.payTable.targetBonus = true;
    int spins = 0;
    int targets = 0;
    for (int i = 0; i < 30'000; ++i) {
        t.engine.spinPending = t.engine.targetPending = false;
        MaybeStartSpinOrTarget(t);
        spins += t.engine.spinPending ? 1 : 0;
        targets += t.engine.targetPending ? 1 : 0;
        ASSERT_FALSE(t.engine.spinPending && t.engine.targetPending);
    }
    EXPECT_NEAR(spins, 200, 57);  // four standard deviations
    EXPECT_NEAR(targets, 200, 57);
}

TEST(BonusFeaturesTest, ASpinSlowsDownAndPaysItsLastValue) {
    FeatureTable t;
    t.engine.payTable.spinBonus = true;
    t.Decide([](CombinedRandom random) {
        if (random.IRandom(1, 150) != 2) return false;
        for (int i = 1; i < 30; ++i) random.IRandom(1, 200);
        return SpinMultiplier(random.IRandom(1, 200)) == 50;
    });
    t.machine.Stack(kNothing, 5);
    DealDraw(t);
    t.engine.held.fill(true);
    t.TakeLog();
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), R"(pause 1
message GAME OVER, label SPIN, play cash, spin ready, spin value 
)");
    Spin(t);
    EXPECT_EQ(t.TakeSteps(),
              R"(spin lit, play to end drumroll, spin hidden, spin value 125, play click, pause 150
spin value 75, play click, pause 150
spin value 45, play click, pause 150
spin value 75, play click, pause 150
spin value 150, play click, pause 150
spin value 75, play click, pause 200
spin value 45, play click, pause 200
spin value 45, play click, pause 200
spin value 30, play click, pause 200
spin value 30, play click, pause 200
spin value 75, play click, pause 250
spin value 100, play click, pause 250
spin value 35, play click, pause 250
spin value 45, play click, pause 250
spin value 45, play click, pause 250
spin value 35, play click, pause 300
spin value 30, play click, pause 300
spin value 75, play click, pause 300
spin value 175, play click, pause 300
spin value 75, play click, pause 300
spin value 100, play click, pause 350
spin value 35, play click, pause 350
spin value 30, play click, pause 350
spin value 175, play click, pause 350
spin value 100, play click, pause 350
spin value 75, play click, pause 400
spin value 30, play click, pause 400
spin value 100, play click, pause 400
spin value 100, play click, pause 400
spin value 250, play click, pause 400
message 250 Bonus Credits, owns 345, credits 345, play applause, pause 4000
hide spin
)");
    EXPECT_EQ(t.engine.settings.credits, 95 + 250);
    EXPECT_EQ(t.engine.statistics.bonusCredits, (Counter{250, 250}));
    EXPECT_EQ(t.engine.statistics.bonusTries.total, 1);
    Spin(t);
    EXPECT_EQ(t.TakeLog(), "") << "once";
}

TEST(BonusFeaturesTest, ThreeShotsPayWhatTheyHit) {
    FeatureTable t;
    t.engine.payTable.targetBonus = true;
    t.Decide([](CombinedRandom random) { return random.IRandom(1, 150) == 149; });
    t.PlayHand(kNothing);
    ASSERT_TRUE(t.engine.targetPending);
    t.table.target.values = {5, 100, 10, 25, 50};
    Shoot(t, 0);
    Shoot(t, 0);
    Shoot(t, 7);
    EXPECT_EQ(t.TakeSteps(), "play arrow, target 0 shot 5, message 5 Bonus Credits\n");
    Shoot(t, 1);
    t.TakeLog();
    Shoot(t, 2);
    EXPECT_EQ(t.TakeSteps(),
              R"(play arrow, target 2 shot 10, message 115 Bonus Credits, owns 210, pause 1000
target 3 missed 25, target 4 missed 50, play applause, pause 4000
credits 210, target 0 gone, target 1 gone, target 2 gone, target 3 gone, target 4 gone, label 
)");
    EXPECT_EQ(t.engine.settings.credits, 95 + 115);
    EXPECT_EQ(t.engine.statistics.bonusCredits.total, 115);
    EXPECT_EQ(t.engine.statistics.bonusTries.total, 1);
}

// The second guess and all later ones are red when wanted, black otherwise.
void DecideColours(FeatureTable& t, std::initializer_list<bool> red) {
    t.Decide([&](CombinedRandom random) {
        return std::ranges::all_of(
            red, [&](bool wanted) { return (random.IRandom(2, 1000) % 2 == 1) == wanted; });
    });
}

TEST(BonusFeaturesTest, TheFirstGuessIsRightAndAWrongOnePaysThoseBefore) {
    FeatureTable t;
    t.engine.payTable.redBlackBonus = true;
    t.machine.Stack(kAllRed, 5);
    DealDraw(t);
    t.engine.held.fill(true);
    t.TakeLog();
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), R"(pause 1
message GAME OVER, play cash, red or black shown
)");

    GuessColour(t, CardColour::kBlack);
    EXPECT_EQ(t.TakeSteps(), R"(choice black, play click, panel red, pause 250
play click, panel black, pause 250
play click, panel red, pause 250
play click, panel black, pause 250
play click, panel red, pause 250
play click, panel black, pause 250
play click, panel red, pause 250
play click, panel black, pause 250
play click, panel red, pause 250
play click, panel black, pause 250
pause 2000
play cash, message 5 Bonus Credits, choice none
)");
    EXPECT_EQ(t.engine.settings.credits, 95) << "nothing is paid yet";
    DecideColours(t, {true, false});
    GuessColour(t, CardColour::kRed);
    EXPECT_TRUE(t.engine.redBlackPending);
    t.TakeLog();
    GuessColour(t, CardColour::kRed);
    EXPECT_EQ(t.TakeSteps(), R"(choice red, play click, panel red, pause 250
play click, panel black, pause 250
play click, panel red, pause 250
play click, panel black, pause 250
play click, panel red, pause 250
play click, panel black, pause 250
play click, panel red, pause 250
play click, panel black, pause 250
play click, panel red, pause 250
play click, panel black, pause 250
pause 2000
owns 105, credits 105, message 10 Bonus Credits, red or black gone
)");
    EXPECT_EQ(t.engine.settings.credits, 95 + 10);
    EXPECT_EQ(t.engine.statistics.bonusCredits.total, 10);
    EXPECT_EQ(t.engine.statistics.bonusTries.total, 3);
}

TEST(BonusFeaturesTest, FiveCardsOfOneColourAreNeededAndTheFlag) {
    FeatureTable t;
    t.PlayHand(kAllRed);
    EXPECT_FALSE(t.engine.redBlackPending);
    t.engine.payTable.redBlackBonus = true;
    t.PlayHand(kNothing);
    EXPECT_FALSE(t.engine.redBlackPending);
    t.PlayHand("2S 4S 6C 8C TS");
    EXPECT_TRUE(t.engine.redBlackPending);
}

TEST(BonusFeaturesTest, FeaturesPlayedInOneAnotherAndADoubleUpBetweenKeepTheirStakes) {
    FeatureTable t;
    t.engine.payTable.redBlackBonus = t.engine.payTable.targetBonus = true;
    t.Decide([](CombinedRandom random) { return random.IRandom(1, 150) == 149; });
    t.PlayHand("JD JH 6H 8H TD");
    ASSERT_TRUE(t.engine.redBlackPending && t.engine.targetPending && t.engine.doubleUpOffered);
    const int owned = t.engine.settings.credits;
    t.table.target.values = {5, 5, 5, 5, 5};
    GuessColour(t, CardColour::kRed);
    Shoot(t, 0);
    StartDoubleUp(t);
    SettleFeatures(t);
    EXPECT_EQ(t.engine.settings.credits, owned + 5 + 5) << "one right guess, one shot";
    EXPECT_EQ(t.engine.statistics.bonusCredits.total, 10);
    EXPECT_FALSE(FeaturePending(t.engine));
}

TEST(BonusFeaturesTest, WithoutSoundsNothingIsPlayedAndThePausesRemain) {
    FeatureTable t;
    t.engine.settings.sounds = false;
    t.engine.spinPending = true;
    Spin(t);
    const std::string log = t.TakeLog();
    EXPECT_EQ(log.find("play"), std::string::npos);
    EXPECT_NE(log.find("pause 400\n"), std::string::npos);
}

}  // namespace
