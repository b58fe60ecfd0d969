#include "game/engine/PlayErrorText.h"

#include "core/store/ErrorLog.h"
#include "core/text/Numbers.h"
#include "core/text/Ranks.h"
#include "game/engine/GameEngine.h"

namespace {

char RankOf(CardFace card) { return card.IsEmpty() ? '?' : RankChar(card.rank); }

std::string AmountLine(std::string_view label, double amount) {
    return std::string(label) + FormatDouble("%-9.4f", amount) + "\r\n";
}

}  // namespace

std::string HoldText(const GameEngine& engine, const HandCards& hand, CardCode firstDraw,
                     HoldMask mask) {
    const Hand faces = FacesOf(engine.deck.table, hand);
    std::string text = "_____";
    if (IsPickEm(engine)) {
        text[0] = RankOf(faces[0]);
        text[1] = RankOf(faces[1]);
        const bool left = mask == kLeftPile;
        text[left ? 3 : 4] = RankOf(left ? faces[2] : FaceOf(engine.deck.table, firstDraw));
        return text;
    }
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (Holds(mask, i)) text[i] = RankOf(faces[i]);
    }
    return text;
}

std::string BestPlayErrorText(const GameEngine& engine, const ErrorLogEntry& entry) {
    const double cost = entry.bestReturn - entry.playerReturn;
    return HoldText(engine, entry.hand, entry.draws[0], entry.best) +
           " is the best play for this hand. Continue?\r\n\r\n" +
           AmountLine("Best Play Return ($): ", entry.bestReturn) +
           AmountLine("Your Play Return ($): ", entry.playerReturn) +
           AmountLine("Cost of error ($): ", cost) +
           AmountLine("Cost in Coin: ", cost / engine.settings.coin) + "\r\n";
}
