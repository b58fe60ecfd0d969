#include "ui/machine/Motion.h"

#include <gtest/gtest.h>

#include "game/flows/DoubleUp.h"
#include "game/flows/HandFlow.h"
#include "tests/game/FakePorts.h"

constexpr int kFrame = 16;  // milliseconds

// What moves in a moment, "turn 2 lit 0": 0..4 are the places.
std::string WhatMoves(const Moment& moment) {
    std::string text;
    const auto add = [&](const std::string& part) { text += (text.empty() ? "" : " ") + part; };
    for (std::size_t i = 0; i < kHandSize; ++i) {
        const PlaceMoment& place = moment.places[i];
        const std::string at = " " + std::to_string(i);
        constexpr const char* kMoves[] = {"", "turn", "leave", "come"};
        if (place.move != CardMove::kNone) add(kMoves[static_cast<int>(place.move)] + at);
        if (place.lit < 1) add("lit" + at);
        if (place.held < 1) add("held" + at);
    }
    if (!moment.message.from.empty()) add("paid");
    if (!moment.credits.from.empty()) add("credits");
    if (moment.verdict < 1) add("verdict");
    if (moment.celebration < 1) add("celebration");
    if (moment.waiting != 1) add("waiting");
    return text;
}

// The frames of a machine that is played on, as they come on a clock of its own.
struct Frames {
    explicit Frames(TestSeat& t) {
        t.ports.looks = [&](const Scene& before, const Scene& now) {
            const int pause = DelaysOf(t.engine.settings.speed).card;
            motion.Change(before, now, t.engine.payTable, pause, time);
        };
        t.ports.passes = [this](int milliseconds) { Pass(milliseconds); };
    }

    void Pass(int milliseconds) {
        for (int passed = 0; passed < milliseconds; passed += kFrame) Look(time + passed);
        time += milliseconds;
    }

    void Look(std::int64_t at) {
        const Moment moment = motion.At(at);
        const std::string moves = WhatMoves(moment);
        EXPECT_TRUE(moves.empty() || motion.Moves(at)) << moves;
        ExpectNoJump(moment, moves);
        last = moment;
        if (moves == now) {
            ++count;
            return;
        }
        Note();
        now = moves;
        count = 1;
    }

    // Nothing gets there in fewer than five frames, or goes back.
    void ExpectNoJump(const Moment& moment, const std::string& moves) const {
        for (std::size_t i = 0; i < kHandSize; ++i) {
            const PlaceMoment& place = moment.places[i];
            const double from = last.places[i].move == place.move ? last.places[i].moved : 0;
            if (place.move == CardMove::kNone) continue;
            EXPECT_GE(place.moved, from) << moves;
            EXPECT_LE(place.moved, from + 0.2) << moves;
        }
    }

    void Note() {
        if (!now.empty()) text += (text.empty() ? "" : ", ") + now + " x" + std::to_string(count);
    }

    // How often each was seen, in order, since the last time; and then rest.
    std::string Take() {
        Pass(10'000);
        EXPECT_FALSE(motion.Moves(time));
        EXPECT_EQ(motion.At(time), Moment{});
        Note();
        now.clear();
        return std::exchange(text, "");
    }

    Motion motion;
    std::int64_t time = 1000;
    Moment last;
    std::string now;
    int count = 0;
    std::string text;
};

struct SpeedCase {
    Speed speed;
    const char* deal;
    const char* hold;
    const char* draw;
};

class FramesAtSpeed : public testing::TestWithParam<SpeedCase> {};
INSTANTIATE_TEST_SUITE_P(
    Speeds, FramesAtSpeed,
    testing::Values(
        SpeedCase{Speed::kNormal,
                  "turn 0 x7, turn 1 x7, turn 2 x7, turn 3 x7, turn 4 x7, lit 0 lit 1 x13",
                  "held 0 x7",
                  "leave 2 leave 3 leave 4 x10, turn 2 x7, turn 3 x7, turn 4 x7, "
                  "lit 2 credits x5, lit 2 paid credits x8, paid credits x2"},
        SpeedCase{Speed::kFast, "", "", ""}));

TEST_P(FramesAtSpeed, AHandMovesStepByStepInsideItsPauses) {
    CreditTable t;
    t.engine.settings.speed = GetParam().speed;
    t.engine.settings.bet = 1;
    Frames frames(t);
    t.Deal("JS JD TC 9H 2S JC 4C 5C");
    EXPECT_EQ(frames.Take(), GetParam().deal);
    ToggleHold(t.seat, 0);
    EXPECT_EQ(frames.Take(), GetParam().hold);
    ToggleHold(t.seat, 1);
    frames.Take();
    DealDraw(t.seat);
    EXPECT_EQ(frames.Take(), GetParam().draw);
}

TEST(MotionTest, ABigWinGoesOnBesideTheFlowAndAWaitingPickAndItsEndAreMarked) {
    CreditTable t;  // at full speed
    Frames frames(t);
    t.Deal("TS JS QS KS 2S AS");
    frames.Take();
    t.Draw(0b11110);
    EXPECT_TRUE(frames.Take().starts_with("celebration x56"));
    t.engine.settings.speed = Speed::kNormal;
    StartDoubleUp(t.seat);
    EXPECT_TRUE(frames.Take().starts_with("waiting x"));
    t.answers = {"no"};
    PickDoubleUpCard(t.seat, 1);
    const std::string duel = frames.Take();
    EXPECT_TRUE(duel.starts_with("turn 1 held 1 x7, turn 2 x7, turn 3 x7, turn 4 x7, verdict x13"));
}

TEST(MotionTest, AnotherPictureEndsWhatMovedInTheOneBefore) {
    Scene before;
    Scene held = before;
    held.places[0].held = true;
    Scene duel = held;
    duel.doubleUp.shown = true;
    Motion motion;
    motion.Change(before, held, JacksOrBetter(), 100, 0);
    EXPECT_EQ(WhatMoves(motion.At(20)), "held 0");
    motion.Change(held, duel, JacksOrBetter(), 100, 20);
    EXPECT_EQ(WhatMoves(motion.At(40)), "waiting");
}
