#include "core/text/Ranks.h"

#include <gtest/gtest.h>

TEST(RanksTest, EveryRankHasItsCharacterInEitherLetterCase) {
    std::string shown;
    for (int rank = -1; rank <= 15; ++rank) shown += RankChar(rank);
    EXPECT_EQ(shown, "?WA23456789TJQKA?");
    for (int rank = 0; rank <= 13; ++rank) EXPECT_EQ(RankFromChar(RankChar(rank)), rank);
    EXPECT_EQ(RankFromChar('t'), 10);
    for (const char c : {'1', '0', 'B', ' ', '?', '\0', '\xFF'})
        EXPECT_EQ(RankFromChar(c), -1) << c;
}

TEST(RanksTest, ATypedListIsStoredAsNumbersOrFailsAsAWhole) {
    // The first letter of a word decides; blanks beside another separator, or at an end, part
    // nothing.
    for (const std::string list :
         {"   =", "2, k,a=2,13,1", "2;7:10 K=2,7,10,13", "  ace,King=1,13", "+5,14,3x=5,14,3",
          "A,2,3,4,5,6,7,8,9,T,J,Q,K=1,2,3,4,5,6,7,8,9,10,11,12,13", " 2  ;  3  K  =2,3,13"}) {
        const auto at = list.find('=');
        EXPECT_EQ(ParseRankList(list.substr(0, at)), list.substr(at + 1)) << list;
    }
    for (const auto* typed : {"2,,3", "2 , ,3", " ,2", "2, ", ",", "2,x", "0", "W", "-",
                              "A,2,3,4,5,6,7,8,9,T,J,Q,K,A"}) {
        EXPECT_EQ(ParseRankList(typed), std::nullopt) << typed;
    }
}

TEST(RanksTest, AStoredListIsShownInLetters) {
    EXPECT_EQ(FormatRankList(""), "");
    EXPECT_EQ(FormatRankList("14;12:11 10"), "A,Q,J,T");
    EXPECT_EQ(FormatRankList("0,15,-1,x"), "0,15,-1,0");
    EXPECT_EQ(FormatRankList("1,2,3,4,5,6,7,8,9,10,11,12,13,2"), "A,2,3,4,5,6,7,8,9,T,J,Q,K");
}

TEST(RanksTest, NumbersOfAStoredListStopAtTheLimit) {
    using Numbers = std::vector<int>;
    EXPECT_EQ(ReadRankNumbers("1,2,3", 2), Numbers({1, 2}));
    EXPECT_EQ(ReadRankNumbers("2 ;K", 5), Numbers({2, 0, 0}));
}
