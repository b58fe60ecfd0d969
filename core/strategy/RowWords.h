// The words of rows, by which they are printed and read.
#pragma once
#include <array>
#include <string_view>

#include "core/strategy/Row.h"

namespace row_words {

inline constexpr std::string_view kRankChars = "23456789TJQKAW";

inline constexpr std::array<std::string_view, kPatHands> kPatNames = {
    "royal flush",    "wild royal flush", "five wild cards", "four wild cards",
    "five of a kind", "straight flush",   "four of a kind",  "full house",
    "flush",          "straight",         "three of a kind", "two pair",
    "pair",           "one colour"};

struct BaseName {
    Base base;
    int count;  // 0: the number stands before the name
    std::string_view name;
};
inline constexpr BaseName kBaseNames[] = {
    {Base::kOfAKind, 2, "pair"},
    {Base::kOfAKind, 3, "three of a kind"},
    {Base::kOfAKind, 4, "four of a kind"},
    {Base::kOfAKindAndOne, 2, "pair and a kicker"},
    {Base::kOfAKindAndOne, 3, "three of a kind and a kicker"},
    {Base::kTwoPair, 4, "two pair"},
    {Base::kNothing, 5, "discard everything"},
    {Base::kToRoyalFlush, 0, "to a royal flush"},
    {Base::kToStraightFlush, 0, "to a straight flush"},
    {Base::kToFlush, 0, "to a flush"},
    {Base::kToStraight, 0, "to a straight"},
    {Base::kHighCards, 0, "high cards"},
    {Base::kWildCards, 0, "wild cards"},
};

struct AmountName {
    Amount Row::*amount;
    std::string_view one;
    std::string_view many;
};
inline constexpr AmountName kAmountNames[] = {
    {&Row::straights, "straight", "straights"},
    {&Row::gaps, "gap", "gaps"},
    {&Row::highCards, "high card", "high cards"},
    {&Row::straightsAndHighCards, "straight or high card", "straights and high cards"},
    {&Row::wildCards, "wild card", "wild cards"},
    {&Row::jokers, "joker", "jokers"},
    {&Row::openStraights, "open straight", "open straights"},
    {&Row::flushPenalties, "flush penalty", "flush penalties"},
    {&Row::suitsDiscarded, "suit discarded", "suits discarded"},
    {&Row::highDiscards, "high card discarded", "high cards discarded"},
};

struct SpanName {
    RankSpan Row::*span;
    std::string_view word;
};
inline constexpr SpanName kSpanNames[] = {
    {&Row::of, "of"}, {&Row::kicker, "kicker"}, {&Row::all, "ranks"}};

struct SetName {
    RankSet Row::*ranks;
    std::string_view word;
};
inline constexpr SetName kSetNames[] = {{&Row::with, "with"},
                                        {&Row::without, "without"},
                                        {&Row::discarding, "discarding"},
                                        {&Row::notDiscarding, "not discarding"}};

struct FlagName {
    std::string_view text;
    bool (*isSet)(const Row& row);
    void (*set)(Row& row);
};
inline constexpr FlagName kFlagNames[] = {
    {"suited", [](const Row& row) { return row.suiting == Suiting::kSuited; },
     [](Row& row) { row.suiting = Suiting::kSuited; }},
    {"unsuited", [](const Row& row) { return row.suiting == Suiting::kUnsuited; },
     [](Row& row) { row.suiting = Suiting::kUnsuited; }},
    {"one-eyed suit", [](const Row& row) { return row.suiting == Suiting::kOneEyed; },
     [](Row& row) { row.suiting = Suiting::kOneEyed; }},
    {"two-eyed suit", [](const Row& row) { return row.suiting == Suiting::kTwoEyed; },
     [](Row& row) { row.suiting = Suiting::kTwoEyed; }},
    {"no suited wild card", [](const Row& row) { return row.suitedWild == Condition::kAbsent; },
     [](Row& row) { row.suitedWild = Condition::kAbsent; }},
    {"suited wild card", [](const Row& row) { return row.suitedWild == Condition::kPresent; },
     [](Row& row) { row.suitedWild = Condition::kPresent; }},
    {"no flush penalty", [](const Row& row) { return row.flushPenalty == Condition::kAbsent; },
     [](Row& row) { row.flushPenalty = Condition::kAbsent; }},
    {"flush penalty", [](const Row& row) { return row.flushPenalty == Condition::kPresent; },
     [](Row& row) { row.flushPenalty = Condition::kPresent; }},
    {"no straight penalty",
     [](const Row& row) { return row.straightPenalty == Condition::kAbsent; },
     [](Row& row) { row.straightPenalty = Condition::kAbsent; }},
    {"straight penalty", [](const Row& row) { return row.straightPenalty == Condition::kPresent; },
     [](Row& row) { row.straightPenalty = Condition::kPresent; }},
};

}  // namespace row_words
