#include "core/paytable/PayTableTexts.h"

#include <algorithm>

#include "core/text/Numbers.h"
#include "core/text/Ranks.h"

namespace {

constexpr int kHighAce = 14;  // as which a lowest pair of aces is stored

std::string StoredRanks(const std::string& typed) { return ParseRankList(typed).value_or(""); }

std::string StoredMinPair(const std::string& typed) {
    if (typed.empty()) return "";
    const int rank = ParseInt(StoredRanks(typed));
    return std::to_string(rank == 1 ? kHighAce : rank);
}

std::string StoredFlag(bool flag) { return flag ? "1" : "0"; }

// The values of a section, with what is read where there is none.
class Values {
  public:
    using ValueOf = std::function<std::optional<std::string>(const std::string& key)>;

    explicit Values(const ValueOf& valueOf) : valueOf(valueOf) {}

    std::string Text(const std::string& key, std::string_view otherwise = "") const {
        return valueOf(key).value_or(std::string(otherwise));
    }
    int Int(const std::string& key, int otherwise) const {
        const auto value = valueOf(key);
        return value ? ParseInt(*value) : otherwise;
    }
    bool Flag(const std::string& key) const { return Int(key, 0) != 0; }
    std::string Ranks(const std::string& key) const { return FormatRankList(Text(key)); }

  private:
    const ValueOf& valueOf;
};

PayLineTexts ReadLine(const Values& values, int index) {
    const PayLineKeys keys = KeysOfLine(index);
    PayLineTexts line;
    line.rank = HandRankFromNumber(values.Int(keys.rank, -1));
    line.description = values.Text(keys.description);
    line.payout = values.Text(keys.payout);
    line.maxPayout = values.Text(keys.maxPayout);
    line.bonusQuads = values.Ranks(keys.bonusQuads);
    line.kickers = values.Ranks(keys.kickers);
    line.wildsOK = values.Flag(keys.wildsOK);
    return line;
}

}  // namespace

int LineCount(const PayTableTexts& table) {
    const auto end = std::ranges::find(table.lines, HandRank::kUnknown, &PayLineTexts::rank);
    return static_cast<int>(end - table.lines.begin());
}

PayLineKeys KeysOfLine(int line) {
    const std::string i = std::to_string(line);
    return {"Rank" + i,       "Descr" + i,   "Payout" + i, "MaxPayout" + i,
            "BonusQuads" + i, "Trailer" + i, "WildsOK" + i};
}

std::vector<KeyAndValue> KeysOfTable(const PayTableTexts& table) {
    std::vector<KeyAndValue> keys = {
        {"Type", std::to_string(static_cast<int>(table.type))},
        {"UsesWilds", StoredFlag(table.usesWilds)},
        {"Jokers", table.jokers},
        {"WildCard", StoredRanks(table.wildRanks)},
        {"MinPair", StoredMinPair(table.minPair)},
        {"MaxBet", table.maxBet},
        {"CharlieBonus", StoredFlag(table.charlieBonus)},
        {"RBBonus", StoredFlag(table.redBlackBonus)},
        {"SpinBonus", StoredFlag(table.spinBonus)},
        {"TgtBonus", StoredFlag(table.targetBonus)},
    };
    const int count = LineCount(table);
    for (int i = 0; i < count; ++i) {
        const PayLineTexts& line = table.lines[static_cast<std::size_t>(i)];
        const std::array<std::string, 7> values = {
            std::to_string(static_cast<int>(line.rank)),
            line.description,
            line.payout,
            line.maxPayout,
            StoredRanks(line.bonusQuads),
            StoredRanks(line.kickers),
            StoredFlag(line.wildsOK),
        };
        const auto names = KeysOfLine(i).All();
        for (std::size_t k = 0; k < names.size(); ++k) keys.push_back({names[k], values[k]});
    }
    keys.push_back({"PayLines", std::to_string(count)});
    return keys;
}

PayTableTexts TextsOfKeys(const Values::ValueOf& valueOf) {
    const Values values(valueOf);
    PayTableTexts table;
    const int type = values.Int("Type", 1);
    if (type >= 1 && type <= 6) table.type = static_cast<GameType>(type);
    const bool wildJacks = table.type == GameType::kOneEyedJacks;
    for (PayLineTexts& line : table.lines) line.wildsOK = wildJacks;
    table.usesWilds = values.Flag("UsesWilds");
    table.jokers = values.Text("Jokers");
    table.wildRanks = values.Ranks("WildCard");
    table.minPair = values.Ranks("MinPair");
    table.maxBet = values.Text("MaxBet", "5");
    table.charlieBonus = values.Flag("CharlieBonus");
    table.redBlackBonus = values.Flag("RBBonus");
    table.spinBonus = values.Flag("SpinBonus");
    table.targetBonus = values.Flag("TgtBonus");
    const int count = std::clamp(values.Int("PayLines", 0), 0, kMaxPayLines);
    for (int i = 0; i < count; ++i) table.lines[static_cast<std::size_t>(i)] = ReadLine(values, i);
    return table;
}
