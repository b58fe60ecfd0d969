// Reads charts as docs/strategy.md describes them, slowly and in plain steps. It shares no code
// with the product but the evaluation of hands.
#pragma once
#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/core/TestGames.h"

namespace second {

inline const std::string kOrder = "23456789TJQKA";

struct Card {
    int rank = -1;  // place in kOrder; -1 a joker
    int suit = 0;   // 1..4; others are none of the four
    bool wild = false;
};

// Everything a row may ask about, taken from the cards one by one.
struct Cards {
    std::vector<Card> held, out;
    std::string line;  // what all five are paid on, in the words of the page
    int lineNumber = -1;
    std::array<int, 13> count{};
    int naturals = 0, wilds = 0, jokers = 0, blanks = 0, group = -1, kicker = -1, straights = 0;
    bool suited = false, oneEyed = false, suitedWild = false;

    bool HasRank(int rank) const { return count[static_cast<std::size_t>(rank)] > 0; }
};

inline bool Stands(int rank, int straight) {  // straight 0 is A2345, 9 is TJQKA
    return straight == 0 ? rank == 12 || rank <= 3 : rank >= straight - 1 && rank <= straight + 3;
}

inline void Describe(Cards& cards, const std::set<int>& oneEyedSuits) {
    std::set<int> suits;
    for (const Card& card : cards.held) {
        if (card.rank < 0) ++cards.jokers;
        if (card.wild) ++cards.wilds;
        if (!card.wild && card.rank < 0) ++cards.blanks;
        if (card.wild || card.rank < 0) continue;
        ++cards.naturals;
        ++cards.count[static_cast<std::size_t>(card.rank)];
        suits.insert(card.suit >= 1 && card.suit <= 4 ? card.suit : 9);
    }
    cards.suited = suits.size() == 1 && *suits.begin() != 9;
    for (const Card& card : cards.held)
        if (cards.suited && card.wild && card.rank >= 0)
            cards.suitedWild = cards.suitedWild || suits.count(card.suit) > 0;
    cards.oneEyed = cards.suited && oneEyedSuits.count(*suits.begin()) > 0;
    for (int rank = 0; rank < 13; ++rank) {
        const auto count = [&](int r) { return cards.count[static_cast<std::size_t>(r)]; };
        if (count(rank) > 0 && (cards.group < 0 || count(rank) >= count(cards.group)))
            cards.group = rank;
    }
    for (int rank = 0; rank < 13; ++rank)
        if (rank != cards.group && cards.HasRank(rank)) cards.kicker = rank;
    const bool paired = std::ranges::any_of(cards.count, [](int n) { return n > 1; });
    for (int straight = 0; straight < 10 && cards.naturals > 0 && !paired; ++straight) {
        bool all = true;
        for (int rank = 0; rank < 13; ++rank)
            all = all && (!cards.HasRank(rank) || Stands(rank, straight));
        cards.straights += all ? 1 : 0;
    }
}

using Test = std::function<bool(const Cards&)>;

class Reader {
  public:
    explicit Reader(const PayTable& table) : table(table) {
        for (const PayLine& line : table.lines) names.push_back(NameOf(line.rank));
        for (std::size_t i = 0; i < table.lines.size(); ++i) {
            const bool pays = LineUnitPay(table, static_cast<int>(i), 5) > 0;
            if (names[i] != "pair" || !pays) continue;
            for (int rank = 0; rank < 13; ++rank)
                high[static_cast<std::size_t>(rank)] = rank == 12 || rank + 2 >= table.minPair;
        }
    }

    std::vector<std::vector<Test>> Read(const std::string& text) const {
        std::vector<std::vector<Test>> rows;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            line = line.substr(0, line.find('#'));
            const auto dot = line.find(". ");
            if (dot != std::string::npos) line = line.substr(dot + 2);
            if (line.find_first_not_of(' ') == std::string::npos) continue;
            std::vector<Test>& tests = rows.emplace_back();
            std::istringstream phrases(line);
            bool first = true;
            for (std::string phrase; std::getline(phrases, phrase, ',');) {
                std::istringstream in(phrase);
                std::vector<std::string> words;
                for (std::string word; in >> word;) words.push_back(word);
                tests.push_back(first ? HoldTest(words) : AskTest(words));
                first = false;
            }
        }
        return rows;
    }

    // In the words of the page; empty for lines that are passed over.
    static std::string NameOf(HandRank rank) {
        static const std::map<HandRank, std::string> names = {
            {kRoyalFlush, "royal flush"},
            {kWildRoyalFlush, "wild royal flush"},
            {kFiveWilds, "five wild cards"},
            {kFourWilds, "four wild cards"},
            {kFiveOfAKind, "five of a kind"},
            {kBonusFiveOfAKind, "five of a kind"},
            {kStraightFlush, "straight flush"},
            {kFiveOfAKindWithOneWild, "five of a kind"},
            {kFourOfAKind, "four of a kind"},
            {kBonusFourOfAKind, "four of a kind"},
            {kFullHouse, "full house"},
            {kFlush, "flush"},
            {kStraight, "straight"},
            {kThreeOfAKind, "three of a kind"},
            {kTwoPair, "two pair"},
            {kOnePair, "pair"},
            {kAllRedOrBlack, "one colour"}};
        const auto found = names.find(rank);
        return found == names.end() ? "" : found->second;
    }

  private:
    static std::string Join(const std::vector<std::string>& words, std::size_t from) {
        std::string text;
        for (std::size_t i = from; i < words.size(); ++i) text += (i > from ? " " : "") + words[i];
        return text;
    }
    static int Rank(char c) { return static_cast<int>(kOrder.find(c)); }
    static std::size_t Size(const Cards& c) { return c.held.size(); }
    bool IsHigh(int rank) const { return high[static_cast<std::size_t>(rank)]; }
    int Highs(const Cards& c) const {
        int highs = 0;
        for (int rank = 0; rank < 13; ++rank)
            highs += IsHigh(rank) ? c.count[static_cast<std::size_t>(rank)] : 0;
        return highs;
    }
    static bool OneRank(const Cards& c) {
        return c.naturals > 0 && c.count[static_cast<std::size_t>(c.group)] == c.naturals;
    }
    static bool Different(const Cards& c) {
        return std::ranges::all_of(c.count, [](int n) { return n < 2; });
    }

    Test HoldTest(const std::vector<std::string>& words) const {
        const Test hold = PlainHoldTest(words);
        if (words[0] == "pat") return hold;
        return [hold](const Cards& c) { return c.blanks == 0 && hold(c); };
    }

    Test PlainHoldTest(std::vector<std::string> words) const {
        if (words[0] == "pat") return PatTest(Join(words, 1));
        if (words[0] == "discard") return [](const Cards& c) { return Size(c) == 0; };
        const std::string text = Join(words, 0);
        const std::map<std::string, std::size_t> kinds = {{"pair", 2},
                                                          {"high pair", 2},
                                                          {"low pair", 2},
                                                          {"three of a kind", 3},
                                                          {"four of a kind", 4}};
        if (kinds.contains(text)) {
            return [this, n = kinds.at(text), word = words[0]](const Cards& c) {
                if (Size(c) != n || !OneRank(c)) return false;
                return word == "high" ? IsHigh(c.group) : word != "low" || !IsHigh(c.group);
            };
        }
        if (text == "two pair") {
            return
                [](const Cards& c) { return Size(c) == 4 && std::ranges::count(c.count, 2) == 2; };
        }
        if (text.ends_with("and a kicker")) {
            const std::size_t n = text.starts_with("pair") ? 3 : 4;
            return [n](const Cards& c) {
                return Size(c) == n && c.kicker >= 0 &&
                       c.count[static_cast<std::size_t>(c.kicker)] == 1 &&
                       c.count[static_cast<std::size_t>(c.group)] == c.naturals - 1;
            };
        }
        if (words.size() > 1 && words[0].size() == 1 && words[0] >= "1" && words[0] <= "4" &&
            kOrder.find(words[1]) == std::string::npos && words[1] != "suited" && words[1] != "W") {
            return CountedTest(static_cast<std::size_t>(words[0][0] - '0'), Join(words, 1));
        }
        return RanksTest(words);
    }

    Test CountedTest(std::size_t n, const std::string& what) const {
        return [this, n, what](const Cards& c) {
            if (Size(c) != n) return false;
            if (what == "to a royal flush") {
                for (int rank = 0; rank < 8; ++rank)
                    if (c.HasRank(rank)) return false;
                return c.suited;
            }
            if (what == "to a straight flush") return c.suited && c.straights > 0;
            if (what == "to a flush") return c.suited;
            if (what == "to a straight") return c.straights > 0;
            if (what.starts_with("high card"))
                return c.naturals == static_cast<int>(n) && Different(c) && Highs(c) == c.naturals;
            return what.starts_with("wild card") && c.wilds == static_cast<int>(n);
        };
    }

    static Test RanksTest(std::vector<std::string> words) {
        const bool suited = words.back() == "suited";
        if (suited) words.pop_back();
        return [words, suited](const Cards& c) {
            std::multiset<std::string> wanted(words.begin(), words.end()), held;
            for (const Card& card : c.held) {
                held.insert(
                    card.wild ? "W" : std::string(1, kOrder[static_cast<std::size_t>(card.rank)]));
            }
            return wanted == held && (!suited || c.suited);
        };
    }

    Test PatTest(std::string hand) const {
        const std::string better = " or better";
        const bool orBetter = hand.ends_with(better);
        if (orBetter) hand.resize(hand.size() - better.size());
        int last = -1;
        for (std::size_t i = 0; i < names.size(); ++i)
            if (names[i] == hand) last = static_cast<int>(i);
        return [hand, orBetter, last](const Cards& c) {
            if (Size(c) != 5 || c.lineNumber < 0) return false;
            return orBetter ? c.lineNumber <= last : c.line == hand;
        };
    }

    Test AskTest(const std::vector<std::string>& words) const {
        const std::string text = Join(words, 0);
        if (text == "suited") return [](const Cards& c) { return c.suited; };
        if (text == "unsuited") return [](const Cards& c) { return !c.suited; };
        if (text == "one-eyed suit") return [](const Cards& c) { return c.oneEyed; };
        if (text == "two-eyed suit") return [](const Cards& c) { return c.suited && !c.oneEyed; };
        if (text.ends_with("suited wild card"))
            return [no = text.starts_with("no")](const Cards& c) { return c.suitedWild != no; };
        if (text.ends_with("flush penalty") && !std::isdigit(text[0]))
            return PenaltyTest(text, FlushPenalty);
        if (text.ends_with("straight penalty")) return PenaltyTest(text, StraightPenalty);
        if (words[0] == "of" || words[0] == "kicker" || words[0] == "ranks") {
            const int low = Rank(words[1].front()), top = Rank(words[1].back());
            return [low, top, which = words[0]](const Cards& c) {
                if (which == "of") return c.group >= low && c.group <= top;
                if (which == "kicker") return c.kicker >= low && c.kicker <= top;
                for (int rank = 0; rank < 13; ++rank)
                    if (c.HasRank(rank) && (rank < low || rank > top)) return false;
                return true;
            };
        }
        if (words[0] == "with" || words[0] == "without" || words[0] == "discarding" ||
            words[0] == "not") {
            const bool present = words[0] == "with" || words[0] == "discarding";
            const bool held = words[0].starts_with("with");
            const std::string ranks = Join(words, words[0] == "not" ? 2 : 1);
            return [present, held, ranks](const Cards& c) {
                for (const char rank : ranks) {
                    if (rank == ' ') continue;
                    const auto has = [&](const Card& card) {
                        return !card.wild && card.rank == Rank(rank);
                    };
                    if (std::ranges::any_of(held ? c.held : c.out, has) != present) return false;
                }
                return true;
            };
        }
        return AmountTest(words[0], Join(words, 1));
    }

    static Test PenaltyTest(const std::string& text, bool (*penalty)(const Cards&)) {
        const bool wanted = !text.starts_with("no ");
        return [wanted, penalty](const Cards& c) { return penalty(c) == wanted; };
    }
    static bool FlushPenalty(const Cards& c) { return FlushPenalties(c) > 0; }
    static int FlushPenalties(const Cards& c) {
        if (!c.suited) return 0;
        int suit = 0;
        for (const Card& card : c.held)
            if (!card.wild) suit = card.suit;
        return static_cast<int>(std::ranges::count_if(c.out, [suit](const Card& card) {
            return !card.wild && card.rank >= 0 && card.suit == suit;
        }));
    }
    static int SuitsDiscarded(const Cards& c) {
        std::set<int> suits;
        for (const Card& card : c.out)
            if (!card.wild && card.rank >= 0 && card.suit <= 4) suits.insert(card.suit);
        return static_cast<int>(suits.size());
    }
    static bool StraightPenalty(const Cards& c) {
        for (int straight = 0; straight < 10 && c.naturals > 0; ++straight) {
            bool all = true;
            for (int rank = 0; rank < 13; ++rank)
                all = all && (!c.HasRank(rank) || Stands(rank, straight));
            for (const Card& card : c.out)
                if (all && !card.wild && card.rank >= 0 && !c.HasRank(card.rank) &&
                    Stands(card.rank, straight))
                    return true;
        }
        return false;
    }

    static int OpenStraights(const Cards& c) {
        int open = 0;
        for (int straight = 0; straight < 10 && c.straights > 0; ++straight) {
            bool stands = true;
            for (int rank = 0; rank < 13; ++rank)
                stands = stands && (!c.HasRank(rank) || Stands(rank, straight));
            for (const Card& card : c.out)
                if (!card.wild && card.rank >= 0 && !c.HasRank(card.rank))
                    stands = stands && !Stands(card.rank, straight);
            open += stands ? 1 : 0;
        }
        return open;
    }

    // The fewest ranks missing in a run of neighbours that holds them, the ace at either end.
    static int Gaps(const Cards& c) {
        int gaps = c.straights > 0 ? 99 : 0;
        for (int straight = 0; straight < 10; ++straight) {
            int lowest = 99, highest = -1, ranks = 0;
            for (int rank = 0; rank < 13; ++rank) {
                if (!c.HasRank(rank)) continue;
                const int at = rank == 12 && straight == 0 ? -1 : rank;
                lowest = std::min(lowest, at);
                highest = std::max(highest, at);
                ranks += Stands(rank, straight) ? 1 : 99;
            }
            if (ranks < 99) gaps = std::min(gaps, highest - lowest + 1 - ranks);
        }
        return gaps;
    }

    Test AmountTest(const std::string& amount, const std::string& what) const {
        const auto mark = amount.find_first_of("+-");
        const int least = std::stoi(amount);
        const int most = mark == std::string::npos ? least
                         : amount[mark] == '+'     ? 1000
                                                   : std::stoi(amount.substr(mark + 1));
        return [this, least, most, what](const Cards& c) {
            int number = -1;
            if (what == "straight" || what == "straights") number = c.straights;
            if (what == "gap" || what == "gaps") number = Gaps(c);
            if (what == "high card" || what == "high cards") number = Highs(c);
            if (what.find("straight") == 0 && what.find(" high card") != std::string::npos)
                number = c.straights + Highs(c);
            if (what.starts_with("wild card")) number = c.wilds;
            if (what.starts_with("joker")) number = c.jokers;
            if (what.starts_with("open straight")) number = OpenStraights(c);
            if (what.starts_with("flush penalt")) number = FlushPenalties(c);
            if (what.starts_with("suit")) number = SuitsDiscarded(c);
            if (what.starts_with("high") && what.ends_with("discarded")) {
                std::set<int> ranks;
                for (const Card& card : c.out)
                    if (!card.wild && card.rank >= 0 && IsHigh(card.rank)) ranks.insert(card.rank);
                number = static_cast<int>(ranks.size());
            }
            return number >= least && number <= most;
        };
    }

    const PayTable& table;
    std::vector<std::string> names;
    std::array<bool, 13> high{};
};

}  // namespace second
