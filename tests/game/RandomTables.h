// Random pay tables that can be saved, and random edits of them.
#pragma once
#include <random>

#include "core/text/Ranks.h"
#include "game/paytables/PayTableLines.h"

class RandomTables {
  public:
    explicit RandomTables(unsigned seed) : random(seed) {}

    int Below(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }
    bool Coin() { return Below(2) == 1; }

    // Any byte that a text can have, umlauts and what other formats part cells by among them.
    std::string Text() {
        static const std::string letters[] = {"A", "z", "\u00e4", "\"", ",", ";",
                                              "=", "]", "[",      " ",  "'", "7"};
        std::string text;
        for (int i = Below(20); i >= 0; --i) text += letters[Below(12)];
        return text;
    }

    std::string Ranks(int most) {
        std::string ranks;
        for (int i = Below(most + 1); i > 0; --i) {
            ranks += (ranks.empty() ? "" : ",") + std::string(1, RankChar(1 + Below(13)));
        }
        return ranks;
    }

    PayTableTexts Table() {
        for (;;) {
            PayTableTexts table = Draft();
            if (!FindProblem(table)) return table;
        }
    }

    // As a player edits: a field, a box, a line.
    void Edit(PayTableTexts& table) {
        PayLineTexts& line = table.lines[static_cast<std::size_t>(Below(kMaxPayLines))];
        switch (Below(9)) {
            case 0:
                return void(line.payout = std::to_string(Below(900)));
            case 1:
                return void(line.description = Text());
            case 2:
                return ChooseRank(line, HandRankFromNumber(Below(18) - 1));
            case 3:
                return CheckWilds(table, !table.usesWilds);
            case 4:
                return CheckType(table, GameType::kOneEyedJacks, Coin());
            case 5:
                return DeleteLine(table, Below(kMaxPayLines));
            case 6:
                return void(InsertLine(table, Below(kMaxPayLines)) || DuplicateLine(table, 3));
            case 7:
                return MoveLine(table, Below(kMaxPayLines), Below(kMaxPayLines));
            default:
                table.wildRanks = Ranks(5);
        }
    }

  private:
    PayTableTexts Draft() {
        PayTableTexts table;
        table.type = static_cast<GameType>(1 + Below(6));
        table.usesWilds = Coin();
        if (Coin()) table.jokers = std::to_string(Below(6));
        table.wildRanks = Ranks(5);
        table.minPair = Ranks(1);
        table.maxBet = std::to_string(1 + Below(1000));
        for (bool* flag :
             {&table.charlieBonus, &table.redBlackBonus, &table.spinBonus, &table.targetBonus}) {
            *flag = Coin();
        }
        for (int i = Below(kMaxPayLines); i >= 0; --i) {
            table.lines[static_cast<std::size_t>(i)] = {HandRankFromNumber(Below(kRankCount)),
                                                        Text(),
                                                        std::to_string(1 + Below(4000)),
                                                        std::to_string(1 + Below(99999)),
                                                        Ranks(13),
                                                        Ranks(13),
                                                        Coin()};
        }
        return table;
    }

    std::mt19937 random;
};
