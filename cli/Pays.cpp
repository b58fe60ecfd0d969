#include "cli/Pays.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "cli/Texts.h"
#include "core/text/Numbers.h"

namespace cli {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();

struct Pay {
    std::string given;  // the whole text
    std::string line;
    int payout = 0;
    int maxPayout = 0;
};

bool IsNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Coins from 0 to the limit; otherwise the problem says what is wrong.
int ReadCoins(std::string_view text, int limit, std::string& problem) {
    int coins = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, coins);
    const bool negative = text.starts_with('-') && IsNumber(text.substr(1));
    if (negative) {
        problem = ": a line pays 0 or more";
    } else if (!IsNumber(text)) {
        problem = ": a pay is a whole number of coins, such as \"FLUSH=5\" or \"FLUSH=5:25\"";
    } else if (error != std::errc() || coins > limit) {
        problem = " is too large: a line pays at most " + std::to_string(limit) +
                  (limit < kMost ? " a coin" : " coins");
    }
    return problem.empty() && stop == end ? coins : 0;
}

// The line is what stands before the last sign of equality: descriptions may hold others.
Pay ReadPay(const std::string& text, std::string& problem) {
    const auto sign = text.rfind('=');
    if (sign == std::string::npos || sign == 0) {
        problem = ": write a line and its pay, such as \"FLUSH=5\"";
        return {};
    }
    Pay pay{text, text.substr(0, sign), 0, 0};
    const std::string_view coins = std::string_view(text).substr(sign + 1);
    const auto colon = coins.find(':');
    if (colon == std::string_view::npos) {
        pay.payout = ReadCoins(coins, kMost / kFullBet, problem);
        pay.maxPayout = pay.payout * kFullBet;
    } else {
        pay.payout = ReadCoins(coins.substr(0, colon), kMost, problem);
        if (problem.empty()) pay.maxPayout = ReadCoins(coins.substr(colon + 1), kMost, problem);
    }
    return pay;
}

// Those of that description, otherwise the one of that number.
std::vector<std::size_t> FindLines(const PayTable& table, std::string_view name) {
    std::vector<std::size_t> lines;
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        if (SameText(table.lines[i].description, name)) lines.push_back(i);
    }
    if (!lines.empty() || !IsNumber(name)) return lines;
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    if (error == std::errc() && number < table.lines.size()) lines.push_back(number);
    return lines;
}

std::vector<std::string> Descriptions(std::span<const ChosenTable> tables) {
    std::vector<std::string> descriptions;
    for (const ChosenTable& chosen : tables) {
        for (const PayLine& line : chosen.payTable.lines) {
            const bool known = std::ranges::any_of(descriptions, [&](const std::string& other) {
                return SameText(other, line.description);
            });
            if (!known) descriptions.push_back(line.description);
        }
    }
    return descriptions;
}

class PayChanger {
  public:
    PayChanger(const std::string& option, std::span<ChosenTable> tables,
               std::vector<std::string>& notes)
        : option(option), tables(tables), notes(notes), givenFor(tables.size()) {}

    std::optional<Failure> Give(const std::string& text) {
        std::string problem;
        const Pay pay = ReadPay(text, problem);
        if (!problem.empty()) return Failure{kWrongUse, Named(text) + problem};
        std::vector<std::string> without;
        for (std::size_t i = 0; i < tables.size(); ++i) {
            const auto line = FindLine(tables[i].payTable, pay.line);
            if (line) {
                Change(i, *line, pay);
            } else {
                without.push_back(Quoted(tables[i].place.gameName));
            }
        }
        if (without.size() == tables.size()) return Failure{kWrongUse, Named(text) + WhyNone(pay)};
        if (!without.empty()) {
            Note(Named(text) + ": no such line in " + Listed(without) + ", whose pays stay");
        }
        return std::nullopt;
    }

  private:
    std::string Named(const std::string& text) const { return option + " " + Quoted(text); }

    std::string WhyNone(const Pay& pay) const {
        if (tables.size() == 1) return ": " + WhyNoLine(tables.front(), pay.line);
        return ": no game has a line " + Quoted(pay.line) +
               DidYouMean(pay.line, Descriptions(tables));
    }

    void Change(std::size_t table, std::size_t number, const Pay& pay) {
        ChosenTable& chosen = tables[table];
        auto& given = givenFor[table];
        given.resize(chosen.payTable.lines.size());
        if (!given[number].empty()) {
            Note(Named(pay.given) + " takes the place of " + Quoted(given[number]) +
                 ": the last for a line counts");
        } else {
            auto& changes = chosen.payChanges;
            changes.insert(std::ranges::upper_bound(changes, number), number);
        }
        given[number] = pay.given;
        chosen.payTable.lines[number].payout = pay.payout;
        chosen.payTable.lines[number].maxPayout = pay.maxPayout;
    }

    void Note(const std::string& note) {
        if (std::ranges::find(notes, note) == notes.end()) notes.push_back(note);
    }

    const std::string& option;
    std::span<ChosenTable> tables;
    std::vector<std::string>& notes;
    std::vector<std::vector<std::string>> givenFor;  // by table and line
};

}  // namespace

std::optional<std::size_t> FindLine(const PayTable& table, std::string_view name) {
    const auto lines = FindLines(table, name);
    if (lines.size() != 1) return std::nullopt;
    return lines.front();
}

std::string WhyNoLine(const ChosenTable& chosen, std::string_view name) {
    const std::string game = Quoted(chosen.place.gameName);
    const auto lines = FindLines(chosen.payTable, name);
    if (lines.size() > 1) {
        std::vector<std::string> numbers;
        for (const std::size_t line : lines) numbers.push_back(std::to_string(line));
        return game + " has several such lines: name one by its number, " + Alternatives(numbers);
    }
    if (IsNumber(name)) {
        return game + " has no line " + Quoted(name) + ": its lines are 0 to " +
               std::to_string(chosen.payTable.lines.size() - 1);
    }
    return game + " has no line " + Quoted(name) + DidYouMean(name, Descriptions({&chosen, 1}));
}

std::optional<Failure> ChangePays(const std::vector<std::string>& pays, const std::string& option,
                                  std::span<ChosenTable> tables, std::vector<std::string>& notes) {
    PayChanger changer(option, tables, notes);
    for (const std::string& pay : pays) {
        if (auto failure = changer.Give(pay)) return failure;
    }
    return std::nullopt;
}

}  // namespace cli
