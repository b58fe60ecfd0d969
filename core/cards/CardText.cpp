#include "core/cards/CardText.h"

#include <algorithm>

#include "core/text/Ranks.h"

namespace {

constexpr std::string_view kSuitChars = "?SHCD$";
constexpr std::string_view kBlanks = " \t\n\v\f\r";
constexpr std::size_t kMaxQuoted = 20;

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    for (;;) {
        const auto start = text.find_first_not_of(kBlanks);
        if (start == std::string_view::npos) return words;
        text.remove_prefix(start);
        words.push_back(text.substr(0, text.find_first_of(kBlanks)));
        text.remove_prefix(words.back().size());
    }
}

// The suit that a character names; kNoSuit when it names none.
int SuitFromChar(char c) {
    const char upper = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    const auto suit = kSuitChars.find(upper);
    return suit == std::string_view::npos ? kNoSuit : static_cast<int>(suit);
}

std::string Quoted(std::string_view word) {
    const bool tooLong = word.size() > kMaxQuoted;
    return "\"" + std::string(word.substr(0, kMaxQuoted)) + (tooLong ? "..." : "") + "\"";
}

bool IsJoker(std::string_view word) { return word == "W" || word == "w"; }

CardCode FindJoker(const CardTable& table, int number) {
    const std::string name = "Joker " + std::to_string(number);
    const auto end = table.cards.begin() + table.deckSize;
    const auto found = std::find_if(table.cards.begin(), end,
                                    [&](const CardInfo& card) { return card.name == name; });
    return found == end ? kNoCard : static_cast<CardCode>(found - table.cards.begin());
}

int JokerCount(const CardTable& table) {
    return static_cast<int>(std::count_if(table.cards.begin(), table.cards.begin() + table.deckSize,
                                          [](const CardInfo& card) { return card.rank == 0; }));
}

std::string MissingJoker(const CardTable& table) {
    const int jokers = JokerCount(table);
    if (jokers == 0) return "\"W\": this game's deck holds no joker";
    return "\"W\": this game's deck holds only " + std::to_string(jokers) +
           (jokers == 1 ? " joker" : " jokers");
}

// The card that a word names, or kNoCard and the problem.
CardCode ReadCard(std::string_view word, const CardTable& table, int jokersBefore,
                  std::string& problem) {
    if (IsJoker(word)) {
        const CardCode joker = FindJoker(table, jokersBefore + 1);
        if (joker == kNoCard) problem = MissingJoker(table);
        return joker;
    }
    const bool ten = word.size() == 3 && word.starts_with("10");
    const int rank = ten ? 10 : word.size() == 2 ? RankFromChar(word[0]) : -1;
    const int suit = ten || word.size() == 2 ? SuitFromChar(word.back()) : kNoSuit;
    if (rank == 0 && suit != kNoSuit) {
        problem = Quoted(word) + ": a joker is written W, without a suit";
        return kNoCard;
    }
    if (rank <= 0 || suit == kNoSuit) {
        problem =
            Quoted(word) +
            " is not a card: write a rank A 2..9 T J Q K and a suit S H C D, such as TS or 9d";
        return kNoCard;
    }
    const CardCode card = FindCard(table, rank, suit);
    if (card == kNoCard) problem = Quoted(word) + ": this game's deck does not hold that card";
    return card;
}

std::string WrongCount(std::size_t given, std::size_t wanted) {
    return std::to_string(given) + (given == 1 ? " card" : " cards") + " given where " +
           std::to_string(wanted) + " are needed";
}

}  // namespace

char SuitChar(int suit) {
    const auto at = static_cast<std::size_t>(suit);
    return kSuitChars[suit > 0 && at < kSuitChars.size() ? at : 0];
}

ParsedCards ParseCards(std::string_view text, const CardTable& table, std::size_t count) {
    ParsedCards parsed;
    const auto words = Words(text);
    int jokers = 0;
    for (const auto word : words) {
        const CardCode card = ReadCard(word, table, jokers, parsed.problem);
        if (card == kNoCard) return {{}, parsed.problem};
        if (IsJoker(word)) ++jokers;
        if (std::ranges::find(parsed.cards, card) != parsed.cards.end()) {
            return {{}, Quoted(word) + " is given twice: a deck holds each card once"};
        }
        parsed.cards.push_back(card);
    }
    if (parsed.cards.size() != count) return {{}, WrongCount(words.size(), count)};
    return parsed;
}

std::string CardText(const CardTable& table, CardCode card) {
    const CardFace face = FaceOf(table, card);
    if (face.IsEmpty()) return "__";
    std::string text(1, RankChar(face.rank));
    if (!face.IsJoker()) text += SuitChar(face.suit);
    return text;
}
