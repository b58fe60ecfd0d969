// A pay table as it stands in the boxes of an editor, and as the keys and values of its section.
#pragma once
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/paytable/PayTable.h"

inline constexpr std::size_t kLongestTableText = 80;  // bytes of each text of a pay table

// Numbers are stored as typed; rank lists are typed with letters ("2,K,A").
struct PayLineTexts {
    HandRank rank = HandRank::kUnknown;  // kUnknown: none, which ends the table
    std::string description;             // at most 80 bytes, the short one after a ';'
    std::string payout;
    std::string maxPayout;
    std::string bonusQuads;
    std::string kickers;
    bool wildsOK = false;

    bool operator==(const PayLineTexts&) const = default;
};

struct PayTableTexts {
    GameType type = GameType::kStandard;
    bool usesWilds = false;
    std::string jokers;
    std::string wildRanks;
    std::string minPair;  // one rank
    std::string maxBet = "5";
    bool charlieBonus = false;
    bool redBlackBonus = false;
    bool spinBonus = false;
    bool targetBonus = false;
    std::array<PayLineTexts, kMaxPayLines> lines;

    bool operator==(const PayTableTexts&) const = default;
};

// The number of lines before the first one without a rank.
int LineCount(const PayTableTexts& table);

// The keys of a line, in the order in which they are written.
struct PayLineKeys {
    std::string rank, description, payout, maxPayout, bonusQuads, kickers, wildsOK;

    std::array<std::string, 7> All() const {
        return {rank, description, payout, maxPayout, bonusQuads, kickers, wildsOK};
    }
};
PayLineKeys KeysOfLine(int line);

struct KeyAndValue {
    std::string key;
    std::string value;

    bool operator==(const KeyAndValue&) const = default;
};

// What is stored of a table, in that order, "PayLines" last; its neighbours are not among it. A
// rank list that cannot be read is stored as an empty one.
std::vector<KeyAndValue> KeysOfTable(const PayTableTexts& table);

// The table that is stored so; the function gives the value of a key, nothing for one that is
// missing. Lines that are added to a table with wild jacks may be made with them; where other cards
// are wild, the player decides.
PayTableTexts TextsOfKeys(
    const std::function<std::optional<std::string>(const std::string& key)>& valueOf);
