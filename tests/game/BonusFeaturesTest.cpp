#include "game/flows/BonusFeatures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "game/flows/DoubleUp.h"
#include "tests/game/FakePorts.h"

namespace {

// Chance is decided beforehand: the table gets a seed whose draws are as wanted.
struct BonusFeaturesTest : testing::Test, CreditTable {
    // Wanted looks at a generator that draws the same as the table's will.
    void Decide(const std::function<bool(CombinedRandom)>& wanted) {
        for (std::uint32_t seed = 1;; ++seed) {
            seat.random.RandomInit(seed);
            if (wanted(seat.random)) return;
        }
    }
    void DecideTarget() {
        Decide([](CombinedRandom random) { return random.IRandom(1, 150) == 149; });
    }
    // The second guess and all later ones are red when wanted, black otherwise.
    void DecideColours(std::initializer_list<bool> red) {
        Decide([&](CombinedRandom random) {
            return std::ranges::all_of(
                red, [&](bool wanted) { return (random.IRandom(2, 1000) % 2 == 1) == wanted; });
        });
    }

    void PlayHand(std::string_view cards) {
        Deal(cards);
        Draw(kStandPat);
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

TEST_F(BonusFeaturesTest, TheMultipliersHaveTheirMeans) {
    EXPECT_EQ(SumOver200(SpinMultiplier), 3331);
    EXPECT_EQ(SumOver200(TargetMultiplier), 1142);
}

TEST_F(BonusFeaturesTest, SpinAndTargetEachFollowOneHandIn150NeverBoth) {
    engine.payTable.spinBonus = engine.payTable.targetBonus = true;
    int spins = 0;
    int targets = 0;
    for (int i = 0; i < 30'000; ++i) {
        engine.spinPending = engine.targetPending = false;
        MaybeStartSpinOrTarget(seat);
        spins += engine.spinPending ? 1 : 0;
        targets += engine.targetPending ? 1 : 0;
        ASSERT_FALSE(engine.spinPending && engine.targetPending);
    }
    EXPECT_NEAR(spins, 200, 57);  // four standard deviations
    EXPECT_NEAR(targets, 200, 57);
}

TEST_F(BonusFeaturesTest, ASpinSlowsDownAndPaysItsLastValue) {
    PlayHand(kNothing);
    engine.spinPending = true;
    ShowAtRest(seat);
    EXPECT_EQ(seat.scene.featureLabel, "SPIN");
    std::vector<std::string> values;
    ports.looks = [&](const Scene& before, const Scene& now) {
        if (now.spin.value != before.spin.value) values.push_back(now.spin.value);
    };
    Spin(seat);
    for (const int pause : {150, 200, 250, 300, 350, 400}) {
        EXPECT_EQ(std::ranges::count(log, "pause " + std::to_string(pause)), 5);
    }
    EXPECT_EQ(std::ranges::count(log, "play click"), 30);
    const std::string bonus = values.end()[-2];
    EXPECT_EQ(seat.scene.message, bonus + " Bonus Credits");
    EXPECT_EQ(seat.scene, SceneOf(seat));
    EXPECT_EQ(machine.Counted(),
              "CreditsPlayed 5, HandsPlayed 1, BonusCredits " + bonus + ", BonusTrys 1");
    Spin(seat);
    EXPECT_EQ(engine.settings.credits, 95 + ParseInt(bonus)) << "once";
}

TEST_F(BonusFeaturesTest, ThreeShotsPayWhatTheyHit) {
    engine.payTable.targetBonus = true;
    DecideTarget();
    PlayHand(kNothing);
    ASSERT_TRUE(engine.targetPending);
    seat.target.values = {5, 100, 10, 25, 50};
    for (const int target : {0, 0, 7, 1}) Shoot(seat, target);
    EXPECT_EQ(std::ranges::count(log, "play arrow"), 2);
    EXPECT_EQ(seat.scene.targets[1], (TargetLook{TargetFace::kShot, 100}));
    std::array<TargetLook, kTargets> end;
    ports.looks = [&](const Scene& before, const Scene&) {
        if (before.targets[4].face == TargetFace::kMissed) end = before.targets;
    };
    Shoot(seat, 2);
    EXPECT_EQ(end[2], (TargetLook{TargetFace::kShot, 10}));
    EXPECT_EQ(end[4], (TargetLook{TargetFace::kMissed, 50}));
    EXPECT_EQ(seat.scene.message, "115 Bonus Credits");
    EXPECT_EQ(seat.scene.credits, "210");
    EXPECT_EQ(seat.scene, SceneOf(seat));
    EXPECT_EQ(machine.Counted(), "CreditsPlayed 5, HandsPlayed 1, BonusCredits 115, BonusTrys 1");
}

TEST_F(BonusFeaturesTest, TheFirstGuessIsRightAndAWrongOnePaysThoseBefore) {
    engine.payTable.redBlackBonus = true;
    PlayHand(kAllRed);
    EXPECT_EQ(log.back(), "play cash");
    GuessColour(seat, CardColour::kBlack);
    EXPECT_EQ(std::ranges::count(log, "play click"), 10);
    EXPECT_EQ(log.back(), "message 5 Bonus Credits");
    EXPECT_EQ(engine.settings.credits, 95) << "nothing is paid yet";
    DecideColours({true, false});
    GuessColour(seat, CardColour::kRed);
    EXPECT_EQ(seat.scene.redBlack.lit, CardColour::kRed);
    GuessColour(seat, CardColour::kRed);
    EXPECT_FALSE(seat.scene.redBlack.shown);
    EXPECT_EQ(seat.scene.message, "10 Bonus Credits");
    EXPECT_EQ(seat.scene.credits, "105");
    EXPECT_EQ(machine.Counted(), "CreditsPlayed 5, HandsPlayed 1, BonusCredits 10, BonusTrys 3");
}

TEST_F(BonusFeaturesTest, FiveCardsOfOneColourAreNeededAndTheFlag) {
    PlayHand(kAllRed);
    EXPECT_FALSE(engine.redBlackPending);
    engine.payTable.redBlackBonus = true;
    PlayHand(kNothing);
    EXPECT_FALSE(engine.redBlackPending);
    PlayHand("2S 4S 6C 8C TS");
    EXPECT_TRUE(engine.redBlackPending);
}

TEST_F(BonusFeaturesTest, FeaturesPlayedInOneAnotherArePaidOutAsIfTheyHadBeenPlayedOn) {
    engine.payTable.redBlackBonus = engine.payTable.targetBonus = true;
    for (const bool begun : {false, true}) {
        DecideTarget();
        PlayHand("JD JH 6H 8H TD");
        ASSERT_TRUE(engine.redBlackPending && engine.targetPending && engine.doubleUpOffered);
        seat.target.values = {1, 10, 100, 1000, 10000};
        engine.spinPending = true;
        Decide([&](CombinedRandom random) {
            return (!begun || random.IRandom(2, 1000) % 2 == 1) &&
                   SpinMultiplier(random.IRandom(1, 200)) == 50;
        });
        if (begun) {
            GuessColour(seat, CardColour::kRed);
            GuessColour(seat, CardColour::kRed);
            Shoot(seat, 1);
        }
        StartDoubleUp(seat);
        const int owned = engine.settings.credits;
        const Counter tries = engine.statistics.bonusTries;
        engine.statistics.bonusCredits = {};
        SettleFeatures(seat);
        const int bonus = begun ? 10 + (10 + 1 + 100) + 250 : 5 + (1 + 10 + 100) + 250;
        EXPECT_EQ(engine.settings.credits, owned + bonus);
        EXPECT_EQ(engine.statistics.bonusCredits.total, bonus);
        EXPECT_EQ(engine.statistics.bonusTries.total - tries.total, begun ? 1 : 3);
        EXPECT_FALSE(FeaturePending(engine));
        EXPECT_EQ(seat.scene.message, "250 Bonus Credits") << "of the last one, the spin";
        EXPECT_EQ(seat.scene, SceneOf(seat));
        SettleFeatures(seat);
        EXPECT_EQ(engine.settings.credits, owned + bonus) << "once";
    }
}

TEST_F(BonusFeaturesTest, WithoutSoundsNothingIsPlayedAndThePausesRemain) {
    engine.settings.sounds = false;
    engine.spinPending = true;
    Spin(seat);
    const std::string steps = TakeLog();
    EXPECT_EQ(steps.find("play"), std::string::npos);
    EXPECT_NE(steps.find("pause 400\n"), std::string::npos);
}

}  // namespace
