// The rules by which the boxes of a pay table work together while it is edited, and what it needs
// to be a table.
#pragma once
#include <optional>
#include <string>

#include "core/paytable/PayTableStore.h"

enum class FormField {
    kName,
    kOneEyedJacks,
    kFiveAces,
    kPickEm,
    kWilds,
    kJokers,
    kWildRanks,
    kMinPair,
    kMaxBet,
    kRank,  // from here on the fields of a line
    kDescription,
    kPayout,
    kMaxPayout,
    kBonusQuads,
    kKickers,
    kWildsOK,
};

struct FieldPlace {
    FormField field = FormField::kName;
    int line = 0;  // 0..kMaxPayLines - 1, of the fields of a line

    bool operator==(const FieldPlace&) const = default;
};

struct FormProblem {
    std::string text;
    FieldPlace where;
    bool ofLine = false;  // of the line at where
};

// Whether a line of that rank asks for what stands in its Bonus/Quads or Kicker, kBonusQuads or
// kKickers.
bool TakesRanks(HandRank rank, FormField list);

// Whether a text can be stored as ranks: empty, or up to 13 of 2-9, T, J, Q, K and A.
bool IsRankList(const std::string& typed);

// The boxes for whole numbers as the files keep them: "4,000" as "4000". What is no whole number
// stays.
PayTableTexts WithPlainNumbers(PayTableTexts table);

// Wild cards in play or not: so may then the lines be made with them. Without them there are no
// jokers either.
void CheckWilds(PayTableTexts& table, bool checked);

// Checks or unchecks the box of a type other than kStandard. Single jacks are wild cards of their
// own; with the other types there are none.
void CheckType(PayTableTexts& table, GameType type, bool checked);

// Describes the line by the names of its rank.
void ChooseRank(PayLineTexts& line, HandRank rank);

// The first thing that is missing or wrong; lines after the first one without a rank do not count.
std::optional<FormProblem> FindProblem(const PayTableTexts& table);

// The table that is read after these texts have been stored, without descriptions. The texts have
// no problem.
PayTable TableOf(const PayTableTexts& texts, int gameId);
