// Reads and grades charts as docs/strategy.md describes them, slowly and in plain steps. It shares
// no code with the product but the evaluation of hands.
#pragma once
#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <numeric>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "core/analysis/AceOrder.h"
#include "core/analysis/Combinations.h"
#include "core/analysis/GameAnalysis.h"
#include "tests/core/TestGames.h"

namespace second {

__extension__ using Wide = __int128;

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
    bool suited = false;

    bool HasRank(int rank) const { return count[static_cast<std::size_t>(rank)] > 0; }
};

inline bool Stands(int rank, int straight) {  // straight 0 is A2345, 9 is TJQKA
    return straight == 0 ? rank == 12 || rank <= 3 : rank >= straight - 1 && rank <= straight + 3;
}

inline void Describe(Cards& cards) {
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
        if (text.ends_with("flush penalty")) return PenaltyTest(text, FlushPenalty);
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
    static bool FlushPenalty(const Cards& c) {
        if (!c.suited) return false;
        int suit = 0;
        for (const Card& card : c.held)
            if (!card.wild) suit = card.suit;
        return std::ranges::any_of(c.out, [suit](const Card& card) {
            return !card.wild && card.rank >= 0 && card.suit == suit;
        });
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
            if (what.ends_with("discarded")) {
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

// Sums over all starting hands, in coins of a five-coin bet times `parts`.
struct Grade {
    Wide best = 0, worst = 0, bestReading = 0;
    std::int64_t hands = 0, ambiguous = 0, parts = 1;
    std::vector<std::int64_t> handsOfRow;  // the last: no row
    std::vector<Wide> lossOfRow;
};

// The hands whose suits, as sets of ranks, come in falling order stand for all that a renaming of
// suits makes of them; where jacks of two suits are wild, only pairs of suits are renamed.
inline std::int64_t Renamings(const PayTable& table, const CardTable& deck,
                              const std::vector<CardCode>& codes) {
    std::array<int, 4> suits{};
    int jokers = 0;
    for (const CardCode code : codes) {
        const CardInfo& card = deck.cards[static_cast<std::size_t>(code)];
        if (card.IsJoker()) ++jokers;
        if (card.suit >= 1 && card.suit <= 4)
            suits[static_cast<std::size_t>(card.suit - 1)] |= 1 << card.rank;
    }
    // Of jokers, those of the lowest slots stand for the others.
    int seen = 0;
    for (CardCode code = 0; code < deck.deckSize; ++code) {
        if (!deck.cards[static_cast<std::size_t>(code)].IsJoker()) continue;
        const bool held = std::ranges::find(codes, code) != codes.end();
        if (held != (seen++ < jokers)) return 0;
    }
    std::int64_t ways = jokers == 0 ? 1 : Combinations(table.jokers, jokers);
    if (table.type == GameType::kOneEyedJacks) {
        if (suits[0] < suits[1] || suits[2] < suits[3]) return 0;
        return ways * (suits[0] > suits[1] ? 2 : 1) * (suits[2] > suits[3] ? 2 : 1);
    }
    if (!std::ranges::is_sorted(suits, std::greater<>())) return 0;
    std::int64_t orders = 0;
    std::ranges::sort(suits);
    do ++orders;
    while (std::ranges::next_permutation(suits).found);
    return ways * orders;
}

inline Grade GradeSlowly(const PayTable& table, const std::string& chart) {
    const Reader reader(table);
    const auto rows = reader.Read(chart);
    const CardTable deck = BuildCardTable(DeckOf(table));
    const LineTables tables(table);
    Grade grade;
    grade.handsOfRow.resize(rows.size() + 1);
    grade.lossOfRow.resize(rows.size() + 1);
    for (int drawn = 1; drawn <= 5; ++drawn)
        grade.parts = std::lcm(grade.parts, Combinations(deck.deckSize - 5, drawn));
    HoldAnalysis analysis;
    ForEachChoice(deck, 5, [&](const std::vector<CardCode>& codes) {
        const std::int64_t weight = Renamings(table, deck, codes);
        if (weight == 0) return;
        AnalyzeHand(tables, table, {FacesOf(deck, codes), {}}, 5, 1, analysis);
        std::array<std::int64_t, 32> values{};
        std::vector<std::size_t> fitting;
        std::size_t row = rows.size();
        for (std::size_t mask = 0; mask < 32; ++mask) {
            const HoldResult& hold = analysis.holds[mask];
            for (std::size_t line = 0; line < table.lines.size(); ++line)
                values[mask] +=
                    hold.lineCounts[line] * LineUnitPay(table, static_cast<int>(line), 5);
            values[mask] *= grade.parts / hold.totalHands;
            Cards cards;
            for (std::size_t i = 0; i < 5; ++i) {
                const CardInfo& info = deck.cards[static_cast<std::size_t>(codes[i])];
                const Card card{info.IsJoker()   ? -1
                                : info.rank == 1 ? 12
                                                 : info.rank - 2,
                                info.suit, info.wild};
                (Holds(static_cast<int>(mask), static_cast<int>(i)) ? cards.held : cards.out)
                    .push_back(card);
            }
            if (mask == 31) {
                for (std::size_t line = 0; line < table.lines.size(); ++line)
                    if (hold.lineCounts[line] > 0) cards.lineNumber = static_cast<int>(line);
                if (cards.lineNumber >= 0)
                    cards.line = Reader::NameOf(
                        table.lines[static_cast<std::size_t>(cards.lineNumber)].rank);
            }
            Describe(cards);
            for (std::size_t i = 0; i <= row && i < rows.size(); ++i) {
                if (!std::ranges::all_of(rows[i], [&](const Test& test) { return test(cards); }))
                    continue;
                if (i < row) fitting.clear();
                row = i;
                fitting.push_back(mask);
                break;
            }
        }
        if (fitting.empty()) fitting.push_back(0);
        std::int64_t worst = values[fitting[0]], best = worst;
        for (const std::size_t mask : fitting) {
            worst = std::min(worst, values[mask]);
            best = std::max(best, values[mask]);
        }
        const std::int64_t most = std::ranges::max(values);
        grade.best += Wide{most} * weight;
        grade.worst += Wide{worst} * weight;
        grade.bestReading += Wide{best} * weight;
        grade.hands += weight;
        grade.ambiguous += worst < best ? weight : 0;
        grade.handsOfRow[row] += weight;
        grade.lossOfRow[row] += Wide{most - worst} * weight;
    });
    return grade;
}

}  // namespace second
