#include "game/CreditHistory.h"

#include <gtest/gtest.h>

namespace {

using Stretch = CreditHistory::Stretch;

constexpr auto kMost = static_cast<std::int64_t>(CreditHistory::kMostStretches);

struct CreditHistoryTest : testing::Test {
    std::vector<Stretch> Kept() const {
        return {history.Stretches().begin(), history.Stretches().end()};
    }
    CreditHistory history;
};

TEST_F(CreditHistoryTest, EveryHandOfAShortSessionIsKept) {
    history.Begin(100);
    history.Record(1, 95);
    history.Record(2, 140);
    EXPECT_EQ(history.Start(), 100);
    EXPECT_EQ(Kept(), (std::vector<Stretch>{{95, 95, 95}, {140, 140, 140}}));
}

TEST_F(CreditHistoryTest, WhatChangesAfterAHandBelongsToIt) {
    history.Begin(0);
    history.Record(0, 100);  // money entered before the first hand
    EXPECT_EQ(history.Start(), 100);
    history.Record(1, 140);
    history.Record(1, 95);  // the win was lost in a double up
    EXPECT_EQ(Kept(), (std::vector<Stretch>{{95, 95, 95}}));
    EXPECT_EQ(history.Hands(), 1);
}

TEST_F(CreditHistoryTest, ACourseMayBeginInTheMiddleOfASession) {
    history.Begin(100, 10);
    history.Record(10, 300);  // money entered
    EXPECT_EQ(history.Start(), 300);
    EXPECT_EQ(history.Hands(), 0);
    history.Record(11, 295);
    history.Record(11, 395);
    EXPECT_EQ(Kept(), (std::vector<Stretch>{{395, 395, 395}}));
}

TEST_F(CreditHistoryTest, ALongSessionKeepsItsPeaksInFewerStretches) {
    history.Begin(1000);
    for (std::int64_t hand = 1; hand <= kMost; ++hand) history.Record(hand, 1000);
    EXPECT_EQ(history.HandsPerStretch(), 1);
    history.Record(kMost + 1, 5000);
    EXPECT_EQ(history.HandsPerStretch(), 2);
    EXPECT_EQ(history.Stretches().size(), CreditHistory::kMostStretches / 2 + 1);
    history.Record(kMost + 2, 7);
    EXPECT_EQ(Kept().back(), (Stretch{7, 5000, 7}));
    history.Record(kMost + 2, 9);
    EXPECT_EQ(Kept().back(), (Stretch{7, 5000, 9}));
    for (std::int64_t hand = kMost + 3; hand <= 40 * kMost; ++hand) history.Record(hand, 800);
    EXPECT_EQ(history.HandsPerStretch(), 64);
    EXPECT_EQ(history.Stretches().size(), 40U * CreditHistory::kMostStretches / 64);
    EXPECT_EQ(history.Stretches()[kMost / 64], (Stretch{7, 5000, 800}));
    EXPECT_EQ(history.Hands(), 40 * kMost);
}

TEST_F(CreditHistoryTest, ANewSessionForgetsTheOld) {
    for (std::int64_t hand = 1; hand <= 2 * kMost; ++hand) history.Record(hand, 5);
    history.Begin(77);
    EXPECT_EQ(history.Start(), 77);
    EXPECT_EQ(history.Hands(), 0);
    EXPECT_TRUE(history.Stretches().empty());
    history.Record(1, 72);
    EXPECT_EQ(Kept(), (std::vector<Stretch>{{72, 72, 72}}));
}

}  // namespace
