#include "core/store/AnalysisFiles.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <span>
#include <string_view>

#include "core/cards/CardText.h"
#include "core/text/Amount.h"
#include "core/text/Ranks.h"

namespace {

constexpr std::string_view kColumns =
    "Payout;Draw 0;Draw 1;Draw 2;Draw 3;Draw 4;Draw 5;Total;Summary;Odds;%Return;Variance";
constexpr std::string_view kDetailColumns =
    "Hand;BestPlay;CardsDrawn;ER;SuitCombos;TotHands;Nothing;";
constexpr std::size_t kBufferSize = 1 << 18;
// More than any line takes: cards and hold 21 characters, a double in fixed notation at most 317,
// and 18 more numbers of at most 20.
constexpr std::size_t kLongestLine = 1024;
constexpr double kWholeNumberLimit = 1e15;  // whole numbers below are exact in 64 bits

std::size_t LineCount(const PayTable& table) {
    return std::min(table.lines.size(), static_cast<std::size_t>(kMaxPayLines));
}

std::string Hands(double hands) { return FormatDecimals("%19.0lf", hands); }

std::string Money(double value) { return FormatDecimals("%19.4lf", value); }

// The numbers of hands, each followed by a semicolon.
std::string HandsByDraw(std::span<const double, kDraws> hands) {
    std::string text;
    for (const double number : hands) text += Hands(number) + ';';
    return text;
}

std::string Odds(const GameTotals& totals, double summary) {
    return "1:" + FormatDecimals("%.2f", summary == 0 ? 0 : totals.denominator / summary);
}

std::string LineRow(const GameTotals& totals, const PayTable& table, std::size_t line) {
    std::array<double, kDraws> hands{};
    for (std::size_t drawn = 0; drawn < kDraws; ++drawn) hands[drawn] = totals.final[drawn][line];
    const std::string payout = std::to_string(LineCoinPay(table.lines[line]));
    return FormatNumber(payout, false, false) + ';' + HandsByDraw(hands) +
           Hands(totals.total[line]) + ';' + Hands(totals.summary[line]) + ';' +
           Odds(totals, totals.summary[line]) + ';' +
           FormatDecimals("%.2f", LinePercentReturn(totals, table, line)) + ';' +
           Money(totals.lineVariance[line]);
}

std::string NothingRow(const GameTotals& totals) {
    return "0;" + HandsByDraw(totals.nothing) + Hands(totals.nothingTotal) + ';' +
           Hands(totals.summaryNothing) + ';' + Odds(totals, totals.summaryNothing) + ";0.00;" +
           Money(totals.nothingVariance);
}

std::string DetailHeader(const PayTable& table) {
    std::string header(kDetailColumns);
    for (std::size_t line = LineCount(table); line-- > 0;) {
        header += table.lines[line].description;
        if (line > 0) header += ';';
    }
    return header + '\n';
}

// Writes a Detail line into memory that is large enough: a line is some twenty short pieces, and a
// string that looks after its length at each of them takes twice the time.
class LineWriter {
  public:
    explicit LineWriter(std::span<char> room) : next(room.data()), end(room.data() + room.size()) {}

    void Char(char c) { *next++ = c; }

    template <typename Integer>
    void Number(Integer number) {
        next = std::to_chars(next, end, number).ptr;
    }

    // Writes a number as a stream does: six significant digits, an exponent for the very large and
    // small.
    void Double(double value) {
        next = std::to_chars(next, end, value, std::chars_format::general, 6).ptr;
    }

    // Writes a whole number, or up to six decimals.
    void Weight(double weight) {
        if (std::trunc(weight) == weight && std::abs(weight) < kWholeNumberLimit) {
            return Number(static_cast<std::int64_t>(weight));
        }
        next = std::to_chars(next, end, weight, std::chars_format::fixed, 6).ptr;
        while (next[-1] == '0') --next;
        if (next[-1] == '.') --next;
    }

    void Card(CardFace face) {
        Char(face.IsEmpty() ? '_' : RankChar(face.rank));
        if (!face.IsJoker()) Char(face.IsEmpty() ? '_' : SuitChar(face.suit));
    }

    void Cards(const Hand& cards) {
        for (std::size_t i = 0; i < kHandSize; ++i) {
            if (i > 0) Char(' ');
            Card(cards[i]);
        }
    }

    void Hold(const Hand& cards, HoldMask mask) {
        for (std::size_t i = 0; i < kHandSize; ++i) {
            const bool held = Holds(mask, i) && !cards[i].IsEmpty();
            Char(held ? RankChar(cards[i].rank) : '_');
        }
    }

    const char* End() const { return next; }

  private:
    char* next;
    char* end;
};

void WriteLine(LineWriter& to, const PlayedHand& hand, std::size_t lineCount) {
    to.Cards(hand.cards);
    to.Char(';');
    to.Hold(hand.cards, hand.best.mask);
    to.Char(';');
    to.Number(hand.best.cardsDrawn);
    to.Char(';');
    to.Double(hand.best.expectedReturn);
    to.Char(';');
    to.Weight(hand.weight);
    to.Char(';');
    to.Number(hand.best.totalHands);
    to.Char(';');
    to.Number(hand.best.counts[kNothingLane]);
    to.Char(';');
    for (std::size_t line = lineCount; line-- > 0;) {
        to.Number(hand.best.counts[line]);
        if (line > 0) to.Char(';');
    }
    to.Char('\n');
}

}  // namespace

std::vector<AnalysisEntry> AnalysisEntries(const GameTotals& totals, const PayTable& table,
                                           double coin) {
    std::vector<AnalysisEntry> entries = {
        {"Coin", "Coin", FormatDecimals("%5.2f", coin)},
        {"ER", "ER ($)", Money(totals.er)},
        {"Cost", "Break Even ($)", Money(totals.cost)},
        {"Payout%", "Payout%", Money(totals.payoutPercent)},
        {"Var", "Var", Money(totals.variance)},
        {"", "", std::string(kColumns)},
        {"InitHands", "Init Hands;", HandsByDraw(totals.initHands) + Hands(totals.initHandsTotal)},
        {"Final", "Final Hands;",
         HandsByDraw(totals.finalHands) + Hands(totals.finalHandsTotal) + ';' +
             Hands(totals.denominator)},
    };
    for (std::size_t line = 0; line < LineCount(table); ++line) {
        entries.push_back({"Payline" + std::to_string(line), table.lines[line].description,
                           LineRow(totals, table, line)});
    }
    entries.push_back({"Nothing", "NOTHING", NothingRow(totals)});
    return entries;
}

std::string SummaryText(const std::vector<AnalysisEntry>& entries) {
    std::string text;
    for (const AnalysisEntry& entry : entries) text += entry.label + ';' + entry.value + '\n';
    return text;
}

std::string SummaryFileName(const std::string& gameName, int tableIndex) {
    return TableSection(gameName, tableIndex) + " Summary.txt";
}

std::string DetailFileName(const std::string& gameName, int tableIndex) {
    return TableSection(gameName, tableIndex) + " Detail.txt";
}

std::string PartialFileName(const std::string& name) {
    const auto ending = std::min(name.rfind('.'), name.size());
    return name.substr(0, ending) + " partial" + name.substr(ending);
}

DetailFile::DetailFile(const std::string& path, const PayTable& table)
    : lineCount(LineCount(table)), file(path), buffer(kBufferSize, '\0') {
    file.Write(DetailHeader(table));
}

DetailFile::~DetailFile() { Close(); }

void DetailFile::Write(const PlayedHand& hand) {
    if (buffer.size() - used < kLongestLine) Flush();
    LineWriter writer{std::span(buffer).subspan(used)};
    WriteLine(writer, hand, lineCount);
    used = static_cast<std::size_t>(writer.End() - buffer.data());
}

bool DetailFile::Close() {
    Flush();
    return file.Close();
}

bool DetailFile::CloseAs(const std::string& path) {
    Flush();
    return file.CloseAs(path);
}

void DetailFile::Flush() {
    file.Write({buffer.data(), used});
    used = 0;
}
