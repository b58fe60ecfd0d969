#include <algorithm>
#include <cctype>
#include <charconv>
#include <iterator>
#include <optional>
#include <vector>

#include "core/strategy/RowText.h"
#include "core/strategy/RowWords.h"

namespace {

using namespace row_words;

// A line cut into words. A comma ends a phrase, and is no part of its word.
struct Word {
    std::string text;
    bool endsPhrase = false;
};

std::vector<Word> WordsOf(std::string_view text) {
    std::vector<Word> words;
    bool inWord = false;
    for (const char c : text) {
        const bool blank = std::isspace(static_cast<unsigned char>(c)) != 0;
        if (c == ',' && !words.empty()) words.back().endsPhrase = true;
        if (blank || c == ',') {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        words.back().text += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return words;
}

// Reads the words of one phrase after the other. Of all that was tried in vain, the try that came
// furthest tells what is wrong.
class RowReader {
  public:
    explicit RowReader(std::string_view text) : words(WordsOf(text)) {}

    ReadRow Read() {
        ReadRow result;
        phraseEnd = EndOfPhrase(0);
        bool good = ReadBase();
        while (good && at < words.size()) {
            phraseEnd = EndOfPhrase(at);
            good = ReadQualifier();
        }
        result.row = row;
        result.valid = good;
        if (good) return result;
        result.problem.word = static_cast<int>(furthest) + 1;
        if (furthest < words.size()) result.problem.found = words[furthest].text;
        for (const std::string& text : expected) {
            result.problem.expected += (result.problem.expected.empty() ? "" : ", ") + text;
        }
        return result;
    }

  private:
    std::size_t EndOfPhrase(std::size_t from) const {
        while (from < words.size() && !words[from].endsPhrase) ++from;
        return std::min(from + 1, words.size());
    }

    bool Fail(std::size_t where, std::string_view what) {
        if (refused) return false;
        if (where > furthest) {
            furthest = where;
            expected.clear();
        }
        if (where == furthest && std::ranges::find(expected, what) == expected.end()) {
            expected.emplace_back(what);
        }
        return false;
    }

    // Nothing else is tried then.
    bool Refuse(std::size_t where, std::string_view what) {
        furthest = where;
        expected = {std::string(what)};
        refused = true;
        return false;
    }

    // The words of the text stand at the place; place goes behind them.
    bool Take(std::string_view text, std::size_t& place) {
        std::size_t next = place;
        for (const Word& wanted : WordsOf(text)) {
            if (next >= phraseEnd || words[next].text != wanted.text) {
                return Fail(next, wanted.text);
            }
            ++next;
        }
        place = next;
        return true;
    }

    bool AtPhraseEnd(std::size_t place) {
        return place == phraseEnd || Fail(place, "a comma or the end of the line");
    }

    bool Accept(std::size_t place) {
        if (!AtPhraseEnd(place)) return false;
        at = place;
        return true;
    }

    std::optional<std::int8_t> Number(std::string_view text) const {
        int number = 0;
        const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
        if (read.ec != std::errc() || read.ptr != text.data() + text.size() || number < 0 ||
            number >= Amount::kNoEnd) {
            return std::nullopt;
        }
        return static_cast<std::int8_t>(number);
    }

    std::optional<std::int8_t> Rank(std::string_view text) const {
        const char c = text.size() == 1
                           ? static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])))
                           : '?';
        const auto place = kRankChars.find(c);
        if (place == std::string_view::npos) return std::nullopt;
        return static_cast<std::int8_t>(place);
    }

    bool ReadPat() {
        std::size_t start = at;
        if (!Take("pat", start)) return false;
        for (std::size_t hand = 0; hand < kPatHands; ++hand) {
            std::size_t place = start;
            if (!Take(kPatNames[hand], place)) continue;
            row.base = Base::kPat;
            row.pat = static_cast<PatHand>(hand);
            if (place < phraseEnd && words[place].text == "or") {
                if (!Take("or better", place)) return false;
                row.orBetter = true;
            }
            if (Accept(place)) return true;
        }
        return false;
    }

    bool ReadNamed() {
        for (const BaseName& name : kBaseNames) {
            std::size_t place = at;
            std::optional<std::int8_t> count = static_cast<std::int8_t>(name.count);
            row.height = Height::kAny;
            if (name.count == 0) {
                count = place < phraseEnd ? Number(words[place].text) : std::nullopt;
                const int least =
                    name.base == Base::kHighCards || name.base == Base::kWildCards ? 1 : 2;
                if (!count || *count < least || *count > 4) continue;
                ++place;
            } else if (name.name == "pair" && place < phraseEnd) {
                const std::string& word = words[place].text;
                if (word == "high") row.height = Height::kHigh;
                if (word == "low") row.height = Height::kLow;
                if (row.height != Height::kAny) ++place;
            }
            const bool one = count == 1 && name.name.ends_with('s');
            if (!Take(one ? name.name.substr(0, name.name.size() - 1) : name.name, place)) continue;
            if (!Accept(place)) continue;
            row.base = name.base;
            row.count = name.base == Base::kNothing ? std::int8_t{0} : *count;
            return true;
        }
        row.height = Height::kAny;
        return false;
    }

    bool ReadRanks() {
        std::vector<std::int8_t> ranks;
        std::size_t place = at;
        for (; place < phraseEnd; ++place) {
            const auto rank = Rank(words[place].text);
            if (!rank) break;
            ranks.push_back(*rank);
        }
        if (ranks.empty() || ranks.size() > row.ranks.size()) {
            return Fail(at, "\"pat\", a number, a rank, a kind of hand or \"discard everything\"");
        }
        if (place < phraseEnd && words[place].text == "suited") {
            row.suiting = Suiting::kSuited;
            ++place;
        }
        if (!Accept(place)) return false;
        std::ranges::sort(ranks, [](int a, int b) {
            if (a == kWildRank || b == kWildRank) return b == kWildRank && a != kWildRank;
            return a > b;
        });
        std::ranges::copy(ranks, row.ranks.begin());
        row.base = Base::kRanks;
        row.count = static_cast<std::int8_t>(ranks.size());
        return true;
    }

    // The furthest try of all three tells what is wrong. A number of cards may look like a rank.
    bool ReadBase() {
        if (ReadPat() || ReadNamed()) return true;
        if (at + 1 < phraseEnd && words[at + 1].text == "to" && furthest <= at + 1) {
            return Refuse(at, "a number of cards from 2 to 4");
        }
        return ReadRanks();
    }

    std::optional<Amount> ReadAmount(std::string_view text) const {
        if (text.ends_with('+')) {
            const auto least = Number(text.substr(0, text.size() - 1));
            if (!least || *least == 0) return std::nullopt;
            return Amount{*least, Amount::kNoEnd};
        }
        const auto dash = text.find('-');
        const auto least = Number(text.substr(0, dash));
        const auto most = dash == std::string_view::npos ? least : Number(text.substr(dash + 1));
        if (!least || !most || *most < *least) return std::nullopt;
        return Amount{*least, *most};
    }

    bool ReadAmountPhrase() {
        const auto amount = ReadAmount(words[at].text);
        if (!amount) return Fail(at, "an amount such as 2, 2+ or 0-1");
        for (const AmountName& name : kAmountNames) {
            for (const std::string_view noun : {name.many, name.one}) {
                std::size_t place = at + 1;
                if (!Take(noun, place) || !AtPhraseEnd(place)) continue;
                if (!(row.*name.amount).IsAny()) return Refuse(at, "each amount once");
                at = place;
                row.*name.amount = *amount;
                return true;
            }
        }
        return false;
    }

    bool ReadSpan(const SpanName& name) {
        std::size_t place = at;
        if (!Take(name.word, place)) return false;
        const std::string text = place < phraseEnd ? words[place].text : "";
        const auto dash = text.find('-');
        const auto low = Rank(std::string_view(text).substr(0, dash));
        const auto high =
            dash == std::string::npos ? low : Rank(std::string_view(text).substr(dash + 1));
        if (!low || !high || *low > *high || *high > kAceRank || !(row.*name.span).IsAny()) {
            return Fail(place, "a rank or a span of ranks such as 2-4");
        }
        if (!Accept(place + 1)) return false;
        row.*name.span = {*low, *high};
        return true;
    }

    bool ReadSet(const SetName& name) {
        std::size_t place = at;
        if (!Take(name.word, place)) return false;
        RankSet ranks = 0;
        for (; place < phraseEnd; ++place) {
            const auto rank = Rank(words[place].text);
            if (!rank || *rank > kAceRank) return Fail(place, "a rank");
            ranks |= static_cast<RankSet>(1 << *rank);
        }
        if (ranks == 0) return Fail(place, "a rank");
        row.*name.ranks |= ranks;
        return Accept(place);
    }

    bool ReadQualifier() {
        for (const FlagName& flag : kFlagNames) {
            std::size_t place = at;
            if (Take(flag.text, place) && Accept(place)) {
                flag.set(row);
                return true;
            }
        }
        if (std::ranges::any_of(kSpanNames, [this](const auto& name) { return ReadSpan(name); }) ||
            std::ranges::any_of(kSetNames, [this](const auto& name) { return ReadSet(name); })) {
            return true;
        }
        return ReadAmountPhrase();
    }

    std::vector<Word> words;
    std::size_t at = 0;
    std::size_t phraseEnd = 0;
    std::size_t furthest = 0;
    bool refused = false;
    std::vector<std::string> expected;
    Row row;
};

}  // namespace

ReadRow ParseRow(std::string_view text) { return RowReader(text).Read(); }
