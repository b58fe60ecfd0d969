// The kinds of hand that a pay line can pay, and what each asks of the counts taken from a hand.
#pragma once
#include <array>
#include <string_view>

// The value is the number that pay table files hold. kUnknown stands for a number that names no
// rank; no hand is of that kind.
enum class HandRank : int {
    kUnknown = -1,
    kRoyalFlush = 0,
    kFiveOfAKind = 1,
    kBonusFourOfAKind = 2,
    kWildRoyalFlush = 3,
    kStraightFlush = 4,
    kFourOfAKind = 5,
    kFullHouse = 6,
    kFlush = 7,
    kStraight = 8,
    kThreeOfAKind = 9,
    kTwoPair = 10,
    kOnePair = 11,
    kFiveWilds = 12,
    kFourWilds = 13,
    kBonusFiveOfAKind = 14,
    kFiveOfAKindWithOneWild = 15,
    kFourAcesInOrder = 16,
    kAllRedOrBlack = 17,
    kFiveCardCharlie = 18,
};

inline constexpr int kRankCount = 19;

// Required counts; 0 = not tested. kFiveOfAKindWithOneWild, kFourAcesInOrder, kAllRedOrBlack and
// the wild-count ranks are recognised by tests of their own; their pairs only say that the hand is
// made of matching ranks.
struct HandRankInfo {
    std::string_view longName;
    std::string_view shortName;
    int pairs = 0;  // pairs of equal rank: 1, 2, 3 (trips), 4 (full house), 6 (quads), 10 (quints)
    int straightSteps = 0;  // 4 = straight
    int suitPairs = 0;      // 10 = all five of one suit
    int royalCards = 0;     // cards from ten to ace, wild cards included
    int wildsNeeded = 0;
};

// All of kUnknown's requirements are 0 and its names are empty.
const HandRankInfo& RankInfo(HandRank rank);

// kUnknown for a number outside 0..18.
HandRank HandRankFromNumber(int number);
