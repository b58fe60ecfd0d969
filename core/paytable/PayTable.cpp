#include "core/paytable/PayTable.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "core/profile/ProfileFile.h"
#include "core/text/Numbers.h"
#include "core/text/Ranks.h"

namespace {

constexpr std::size_t kTextSize = 81;  // texts of a pay table have at most 80 bytes
constexpr std::size_t kMaxShortDescription = 10;

// One section of the main profile file, and the readers of its keys.
class TableReader {
  public:
    TableReader(const ProfileOnDisk& main, std::string section)
        : main(main), section(std::move(section)) {}

    int Int(const std::string& key, int otherwise) const {
        return main.file.GetInt(section, key, otherwise, main.path);
    }
    bool Flag(const std::string& key) const { return Int(key, 0) != 0; }
    std::string Text(const std::string& key) const {
        return main.file.GetString(section, key, "", kTextSize, main.path);
    }
    std::vector<int> Ranks(const std::string& key, std::size_t limit) const;

  private:
    const ProfileOnDisk& main;
    std::string section;
};

std::vector<int> TableReader::Ranks(const std::string& key, std::size_t limit) const {
    const std::string text = Text(key);
    std::vector<int> ranks;
    for (const int number : ReadRankNumbers(text, text.size() + 1)) {
        const int rank = number == 14 ? 1 : number;
        if (rank >= 1 && rank <= 13 && ranks.size() < limit) ranks.push_back(rank);
    }
    return ranks;
}

void SplitDescription(const std::string& text, PayLine& line) {
    const auto semicolon = text.find(';');
    line.description = text.substr(0, semicolon);
    line.shortDescription = semicolon == std::string::npos
                                ? std::string(RankInfo(line.rank).shortName)
                                : std::string(CutText(std::string_view(text).substr(semicolon + 1),
                                                      kMaxShortDescription));
}

PayLine ReadLine(const TableReader& reader, int index) {
    const std::string i = std::to_string(index);
    PayLine line;
    line.rank = HandRankFromNumber(reader.Int("Rank" + i, 0));
    SplitDescription(reader.Text("Descr" + i), line);
    line.payout = std::max(0, reader.Int("Payout" + i, 0));
    line.maxPayout = std::max(0, reader.Int("MaxPayout" + i, 0));
    line.bonusQuads = reader.Ranks("BonusQuads" + i, kMaxLineRanks);
    line.trailers = reader.Ranks("Trailer" + i, kMaxLineRanks);
    line.wildsOK = reader.Flag("WildsOK" + i);
    return line;
}

GameType TypeFromNumber(int number) {
    return number >= 1 && number <= 6 ? static_cast<GameType>(number) : GameType::kStandard;
}

int LineCount(const TableReader& reader) {
    return std::clamp(reader.Int("PayLines", 0), 0, kMaxPayLines);
}

}  // namespace

std::string TableSection(const std::string& gameName, int tableIndex) {
    return gameName + "(" + std::to_string(tableIndex) + ")";
}

PayTable LoadPayTable(const ProfileOnDisk& main, const TableOfGame& wanted,
                      const std::string& gamePath) {
    const std::string section = TableSection(wanted.gameName, wanted.tableIndex);
    const TableReader reader(main, section);
    PayTable table;
    table.gameId = wanted.gameId;
    table.type = TypeFromNumber(reader.Int("Type", 1));
    table.usesWilds = reader.Flag("UsesWilds");
    SetWildCards(table, reader.Int("Jokers", 0), reader.Ranks("WildCard", kTextSize));
    table.minPair = reader.Int("MinPair", 15);
    table.maxBet = std::max(1, reader.Int("MaxBet", kFullBet));
    table.charlieBonus = reader.Flag("CharlieBonus");
    table.redBlackBonus = reader.Flag("RBBonus");
    table.spinBonus = reader.Flag("SpinBonus");
    table.targetBonus = reader.Flag("TgtBonus");
    for (int i = 0; i < LineCount(reader); ++i) table.lines.push_back(ReadLine(reader, i));

    // The wins come last, because naming another file makes the engine read that one.
    for (std::size_t i = 0; !gamePath.empty() && i < table.lines.size(); ++i) {
        const std::string key = "Payline" + std::to_string(i) + "Won";
        table.lines[i].totalWins = std::max(0, main.file.GetInt(section, key, 0, gamePath));
    }
    return table;
}

bool TableExists(const ProfileOnDisk& main, const std::string& gameName, int tableIndex) {
    return LineCount(TableReader(main, TableSection(gameName, tableIndex))) > 0;
}

std::vector<int> TableChain(const ProfileOnDisk& main, const std::string& gameName) {
    std::vector<int> chain;
    int index = 0;
    while (index >= 0 && std::ranges::find(chain, index) == chain.end() &&
           TableExists(main, gameName, index)) {
        chain.push_back(index);
        index = main.file.GetInt(TableSection(gameName, index), "NextIndex", -1, main.path);
    }
    return chain;
}

void SetWildCards(PayTable& table, int jokers, std::span<const int> wildRanks) {
    const bool fifthAce = table.type == GameType::kFiveAces;
    table.jokers = fifthAce ? 0 : std::clamp(jokers, 0, kMaxJokers);
    table.deckSize = fifthAce ? 53 : 52 + table.jokers;
    table.wildRanks.fill(kNoWildRank);
    auto next = table.wildRanks.begin();
    for (const int rank : wildRanks) {
        const bool named = std::find(table.wildRanks.begin(), next, rank) != next;
        if (!named && next != table.wildRanks.end()) *next++ = rank;
    }
}

DeckDescription DeckOf(const PayTable& table) {
    DeckDescription deck;
    deck.deckSize = table.deckSize;
    deck.jokers = table.jokers;
    deck.fifthAce = table.type == GameType::kFiveAces;
    deck.oneEyedJacksWild = table.type == GameType::kOneEyedJacks;
    deck.usesWilds = table.usesWilds;
    deck.wildRanks = table.wildRanks;
    return deck;
}

bool HasLine(const PayTable& table, HandRank rank) {
    return std::ranges::any_of(table.lines,
                               [rank](const PayLine& line) { return line.rank == rank; });
}

int LineCoinPay(const PayLine& line) {
    return line.maxPayout > line.payout ? line.maxPayout / kFullBet : line.payout;
}

int LineUnitPay(const PayTable& table, int line, int bet) {
    if (line < 0 || line >= static_cast<int>(table.lines.size()) || bet < 1) return 0;
    const PayLine& payLine = table.lines[static_cast<std::size_t>(line)];
    if (bet == kFullBet) return payLine.maxPayout;
    constexpr std::int64_t largest = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(std::int64_t{payLine.payout} * bet, largest));
}
