#include "core/store/AnalysisCache.h"

#include <algorithm>
#include <filesystem>

#include "core/profile/ProfileFile.h"
#include "core/store/ComputedFile.h"
#include "core/text/IsoTime.h"
#include "core/text/Numbers.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kDate = "Date";
constexpr std::string_view kPays = "Pays";
constexpr std::string_view kStopped = "Stopped";
constexpr std::string_view kMissing = "not found";

// To be raised when the analysis comes to give other figures for the same table.
constexpr int kRules = 1;

// Cells of the values, from 0.
constexpr std::size_t kFirstDrawCell = 1;
constexpr std::size_t kSummaryCell = 8;
constexpr std::size_t kReturnCell = 10;
constexpr std::size_t kVarianceCell = 11;
constexpr std::size_t kDenominatorCell = 7;

class TextOfNumbers {
  public:
    void Add(std::int64_t number) { text += std::to_string(number) + ','; }

    // The order in which ranks were typed does not matter.
    template <typename Ranks>
    void AddRanks(Ranks ranks) {
        std::ranges::sort(ranks);
        for (const int rank : ranks) Add(rank);
        text += ';';
    }

    const std::string& Text() const { return text; }

  private:
    std::string text;
};

// All fields are named here, so that a new one stops the build until it is decided whether it
// matters.
void AddLine(const PayLine& line, TextOfNumbers& to) {
    const auto& [rank, description, shortDescription, payout, maxPayout, bonusQuads, trailers,
                 wildsOK, sessionWins, totalWins] = line;
    for (const int number : {static_cast<int>(rank), payout, maxPayout, wildsOK ? 1 : 0}) {
        to.Add(number);
    }
    to.AddRanks(bonusQuads);
    to.AddRanks(trailers);
}

std::string PaysText(const PayTable& table) {
    const auto& [gameId, type, deckSize, jokers, wildRanks, minPair, maxBet, usesWilds,
                 charlieBonus, redBlackBonus, spinBonus, targetBonus, lines] = table;
    TextOfNumbers text;
    for (const int number :
         {kRules, static_cast<int>(type), deckSize, jokers, minPair, usesWilds ? 1 : 0}) {
        text.Add(number);
    }
    text.AddRanks(wildRanks);
    for (const PayLine& line : lines) AddLine(line, text);
    return text.Text();
}

// FNV-1a, of 64 bits: the same on every machine, unlike the hash of the standard library.
std::uint64_t HashOf(std::string_view text) {
    constexpr std::uint64_t kBasis = 0xCBF29CE484222325;
    constexpr std::uint64_t kPrime = 0x100000001B3;
    std::uint64_t hash = kBasis;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * kPrime;
    return hash;
}

// The number in a cell of a value, its commas left out; 0 for one that is missing or below 0.
double CellNumber(std::string_view value, std::size_t cell) {
    for (; cell > 0; --cell) {
        const auto end = value.find(';');
        if (end == std::string_view::npos) return 0;
        value.remove_prefix(end + 1);
    }
    std::string number(value.substr(0, value.find(';')));
    std::erase(number, ',');
    return std::max(ParseDouble(number), 0.0);
}

std::array<double, kDraws> ByDraw(const std::string& value, std::size_t firstCell) {
    std::array<double, kDraws> hands{};
    for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
        hands[drawn] = CellNumber(value, firstCell + drawn);
    }
    return hands;
}

StoredLine LineOf(const std::string& row) {
    return {ByDraw(row, kFirstDrawCell), CellNumber(row, kSummaryCell),
            CellNumber(row, kReturnCell), CellNumber(row, kVarianceCell)};
}

std::string ValueOf(const ProfileOnDisk& cache, const std::string& section, std::string_view key,
                    std::string_view otherwise = "") {
    return cache.file.GetString(section, key, otherwise, ProfileFile::kWholeValue, cache.path);
}

}  // namespace

std::string PaysHash(const PayTable& table) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::uint64_t hash = HashOf(PaysText(table));
    std::string text(16, '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, hash >>= 4) {
        *digit = kDigits[hash & 0xF];
    }
    return text;
}

AnalysisStamp StampOf(const GameTotals& totals, const PayTable& table, double coin,
                      std::int64_t now) {
    AnalysisStamp stamp{now, PaysHash(table), std::nullopt};
    if (!totals.cancelled) return stamp;
    const double wagered = totals.initHandsTotal * kFullBet * coin;
    const double share = totals.cost > 0 ? wagered / totals.cost : 0;
    stamp.stoppedAt = std::clamp(static_cast<int>(share * 100), 0, 99);
    return stamp;
}

void WriteToCache(const std::vector<AnalysisEntry>& entries, const AnalysisStamp& stamp,
                  const std::string& section, const ProfileOnDisk& cache) {
    PrepareComputedFile(cache);
    const auto write = [&](std::string_view key, std::optional<std::string_view> value) {
        cache.file.WriteString(section, key, value, cache.path);
    };
    // A table may have got more lines, whose rows are to stand before these.
    for (const std::string_view key : {kDate, kPays, kStopped}) write(key, std::nullopt);
    for (const AnalysisEntry& entry : entries) {
        if (!entry.key.empty()) write(entry.key, entry.value);
    }
    if (stamp.date) write(kDate, IsoTime(*stamp.date));
    write(kPays, stamp.pays);
    if (stamp.stoppedAt) write(kStopped, std::to_string(*stamp.stoppedAt) + " %");
}

double StoredAnalysis::Probability(const StoredLine& row, std::size_t drawn) const {
    if (initHandsTotal <= 0 || finalHands[drawn] <= 0) return 0;
    return initHands[drawn] / initHandsTotal * row.finalHands[drawn] / finalHands[drawn];
}

bool HasAnalysis(const ProfileOnDisk& cache, const std::string& section) {
    return !SameText(ValueOf(cache, section, "ER", kMissing), kMissing);
}

std::optional<StoredAnalysis> ReadAnalysis(const ProfileOnDisk& cache, const std::string& section,
                                           std::size_t lineCount) {
    if (!HasAnalysis(cache, section)) return std::nullopt;
    const auto value = [&](const std::string& key) { return ValueOf(cache, section, key); };
    StoredAnalysis analysis;
    analysis.stamp = ReadStamp(cache, section);
    analysis.coin = CellNumber(value("Coin"), 0);
    analysis.payoutPercent = CellNumber(value("Payout%"), 0);
    analysis.variance = CellNumber(value("Var"), 0);
    analysis.initHands = ByDraw(value("InitHands"), 0);
    analysis.initHandsTotal = CellNumber(value("InitHands"), kDraws);
    analysis.finalHands = ByDraw(value("Final"), 0);
    analysis.denominator = CellNumber(value("Final"), kDenominatorCell);
    for (std::size_t line = 0; line < lineCount; ++line) {
        analysis.lines.push_back(LineOf(value("Payline" + std::to_string(line))));
    }
    analysis.nothing = LineOf(value("Nothing"));
    return analysis;
}

AnalysisStamp ReadStamp(const ProfileOnDisk& cache, const std::string& section) {
    AnalysisStamp stamp;
    stamp.date = ParseIsoTime(ValueOf(cache, section, kDate));
    stamp.pays = ValueOf(cache, section, kPays);
    const std::string stopped = ValueOf(cache, section, kStopped);
    if (!stopped.empty()) stamp.stoppedAt = std::clamp(ParseInt(stopped), 0, 99);
    return stamp;
}

AnalysisStanding StandingOf(const AnalysisStamp& stamp, const PayTable& table) {
    if (stamp.pays.empty()) return AnalysisStanding::kUnknownPays;
    if (!SameText(stamp.pays, PaysHash(table))) return AnalysisStanding::kOtherPays;
    return stamp.stoppedAt ? AnalysisStanding::kStopped : AnalysisStanding::kWhole;
}

bool HoldsWhole(const ProfileOnDisk& cache, const std::string& section, const PayTable& table) {
    using enum AnalysisStanding;
    const auto standing = StandingOf(cache, section, table);
    return standing == kWhole || (standing == kUnknownPays && !ReadStamp(cache, section).stoppedAt);
}

AnalysisStanding StandingOf(const ProfileOnDisk& cache, const std::string& section,
                            const PayTable& table) {
    if (!HasAnalysis(cache, section)) return AnalysisStanding::kNone;
    return StandingOf(ReadStamp(cache, section), table);
}
