#include "game/paytables/TableTextFile.h"

#include <algorithm>
#include <optional>

#include "core/paytable/PayTableStore.h"
#include "core/text/Numbers.h"
#include "core/text/WholeNumber.h"

namespace {

using enum FormField;

constexpr auto kPayLines = "PayLines";

// A key that a table may have, and what its value is.
struct KnownKey {
    enum class Kind { kText, kFlag, kNumber, kNeighbour };

    std::string key;
    std::optional<FieldPlace> place;  // nothing where the form has no field of it
    Kind kind = Kind::kText;
    int least = 0;  // of a number
    int most = 0;
};

std::vector<KnownKey> MakeKnownKeys() {
    using enum KnownKey::Kind;
    std::vector<KnownKey> keys = {
        {"NextIndex", {}, kNeighbour},
        {"PrevIndex", {}, kNeighbour},
        {"Type", {}, kNumber, 1, 6},
        {"UsesWilds", {{kWilds}}, kFlag},
        {"Jokers", {{kJokers}}},
        {"WildCard", {{kWildRanks}}},
        {"MinPair", {{kMinPair}}},
        {"MaxBet", {{kMaxBet}}},
        {"CharlieBonus", {}, kFlag},
        {"RBBonus", {}, kFlag},
        {"SpinBonus", {}, kFlag},
        {"TgtBonus", {}, kFlag},
        {kPayLines, {}, kNumber, 0, kMaxPayLines},
    };
    for (int line = 0; line < kMaxPayLines; ++line) {
        const PayLineKeys names = KeysOfLine(line);
        keys.push_back({names.rank, {{kRank, line}}, kNumber, 0, kRankCount - 1});
        keys.push_back({names.description, {{kDescription, line}}});
        keys.push_back({names.payout, {{kPayout, line}}});
        keys.push_back({names.maxPayout, {{kMaxPayout, line}}});
        keys.push_back({names.bonusQuads, {{kBonusQuads, line}}});
        keys.push_back({names.kickers, {{kKickers, line}}});
        keys.push_back({names.wildsOK, {{kWildsOK, line}}, kFlag});
    }
    return keys;
}

const KnownKey* FindKey(std::string_view key) {
    static const std::vector<KnownKey> known = MakeKnownKeys();
    const auto found =
        std::ranges::find_if(known, [key](const KnownKey& k) { return SameText(k.key, key); });
    return found == known.end() ? nullptr : &*found;
}

// What is wrong with a value; empty when nothing is.
std::string ValueProblem(const KnownKey& key, const std::string& value) {
    const auto number = PlainWholeNumber(value);
    switch (key.kind) {
        case KnownKey::Kind::kFlag:
            return value == "0" || value == "1" ? "" : "is neither 0 nor 1.";
        case KnownKey::Kind::kNumber:
            if (number && ParseInt(*number) >= key.least && ParseInt(*number) <= key.most)
                return "";
            return "is no whole number from " + std::to_string(key.least) + " to " +
                   std::to_string(key.most) + ".";
        case KnownKey::Kind::kNeighbour:
            return number ? "" : "is no whole number.";
        case KnownKey::Kind::kText:
            break;
    }
    return TextProblem(value);
}

class Reader {
  public:
    TablesRead Read(std::string_view text) {
        text = WithoutMark(text);
        while (!text.empty() && read.problem.empty()) {
            ++line;
            TakeLine(TakeTextLine(text));
        }
        if (read.problem.empty()) EndTable();
        if (read.problem.empty() && read.tables.empty()) {
            read.problem =
                "There is no pay table in it: it begins with a line such as "
                "[Jacks or Better(0)].";
        }
        if (!read.problem.empty()) read.tables.clear();
        return read;
    }

  private:
    void Refuse(std::string_view word, std::string_view problem) {
        read.problem = LineProblemText(line, word, problem);
    }

    void TakeLine(std::string_view text) {
        if (text.find_first_not_of(" \t") == std::string_view::npos) return;
        if (text.starts_with('[')) {
            EndTable();
            if (read.problem.empty()) BeginTable(text);
        } else {
            TakeKey(text);
        }
    }

    void BeginTable(std::string_view header) {
        const std::string_view section = header.substr(1, header.find(']') - 1);
        const auto open = section.rfind('(');
        const bool isTable = header.find(']') != std::string_view::npos &&
                             open != std::string_view::npos && section.ends_with(')');
        const auto index =
            isTable ? PlainWholeNumber(section.substr(open + 1, section.size() - open - 2))
                    : std::nullopt;
        if (!index) return Refuse(header, "is no pay table, such as [Jacks or Better(0)].");
        draft.emplace();
        values.clear();
        draft->line = line;
        draft->table.gameName = section.substr(0, open);
        draft->table.tableIndex = ParseInt(*index);
        const std::string problem = PlaceProblem(draft->table.gameName, draft->table.tableIndex);
        if (!problem.empty()) return Refuse(section, problem);
        const bool again = std::ranges::any_of(read.tables, [&](const NamedTable& table) {
            return SameText(table.gameName, draft->table.gameName) &&
                   table.tableIndex == draft->table.tableIndex;
        });
        if (again) Refuse(section, "is there twice.");
    }

    void TakeKey(std::string_view text) {
        const auto equals = text.find('=');
        if (!draft) return Refuse(text, "stands before the first pay table.");
        if (equals == std::string_view::npos) return Refuse(text, "has no \"=\".");
        const KnownKey* key = FindKey(text.substr(0, equals));
        if (!key) return Refuse(text.substr(0, equals), "is no key of a pay table.");
        const std::string value(text.substr(equals + 1));
        if (!values.emplace(key->key, value).second) return Refuse(key->key, "is there twice.");
        const std::string problem = ValueProblem(*key, value);
        if (!problem.empty()) return Refuse(value, problem);
        if (key->place) draft->Place(*key->place, line, value);
        if (key->key == kPayLines) lineOfCount = line;
    }

    void EndTable() {
        if (!draft) return;
        draft->table.texts = TextsOfKeys([this](const std::string& key) {
            const auto found = values.find(key);
            return found == values.end() ? std::nullopt : std::optional(found->second);
        });
        read.problem = MissingLine();
        if (read.problem.empty()) read.problem = draft->Problem();
        read.tables.push_back(std::move(draft->table));
        draft.reset();
    }

    // A mail may have lost a line, or its end. Without a rank the table would end there, and nobody
    // would see it.
    std::string MissingLine() const {
        const auto stored = values.find(kPayLines);
        if (stored == values.end()) return LineProblemText(draft->line, kPayLines, "is missing.");
        const int count = ParseInt(stored->second);
        const int found = LineCount(draft->table.texts);
        if (found >= count) return "";
        return LineProblemText(lineOfCount, KeysOfLine(found).rank,
                               "is missing: PayLines is " + std::to_string(count) + ".");
    }

    TablesRead read;
    std::optional<TableDraft> draft;
    std::map<std::string, std::string> values;  // of the draft, by KnownKey::key
    int line = 0;
    int lineOfCount = 0;  // where PayLines stands
};

}  // namespace

std::string TablesAsText(std::span<const NamedTable> tables) {
    std::string text;
    for (const NamedTable& table : tables) {
        text += "[" + TableSection(table.gameName, table.tableIndex) + "]\n";
        for (const auto& [key, value] : KeysOfTable(WithPlainNumbers(table.texts))) {
            text += key;
            text += "=" + value + "\n";
        }
        text += "\n";
    }
    return text;
}

TablesRead ReadTablesText(std::string_view text) { return Reader().Read(text); }
