#include "game/reports/HandReport.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

#include "core/cards/CardText.h"
#include "core/store/ErrorLog.h"
#include "core/text/Amount.h"
#include "game/engine/Dealing.h"
#include "game/engine/PlayErrorText.h"
#include "game/reports/HoldLine.h"

namespace {

constexpr int kThirdCardPlace = 3;
constexpr int kOtherPilePlace = 4;

// "1:12.50"; "0" for what never happens.
std::string Odds(double total, double times) {
    return times > 0 ? "1:" + FormatDecimals("%-9.2f", total / times) : "0";
}

// The cards of a hand that an analysis looks at.
std::span<const CardCode> SeenCards(const GameEngine& engine, const HandCards& hand) {
    return std::span(hand).first(IsPickEm(engine) ? 3 : hand.size());
}

// The replacement cards without those that the hand holds now: none can come out of the deck again.
HandCards DrawsBeside(const GameEngine& engine) {
    const auto seen = SeenCards(engine, engine.dealtCopy);
    HandCards draws = engine.statistics.setDraws;
    auto* rest = std::remove_if(draws.begin(), draws.end(), [&](CardCode code) {
        return std::ranges::find(seen, code) != seen.end();
    });
    std::fill(rest, draws.end(), kNoCard);
    return draws;
}

// The cards that make up the hand to those who type it.
std::vector<CardCode> CardsToType(const GameEngine& engine) {
    const auto seen = SeenCards(engine, engine.dealtCopy);
    std::vector<CardCode> cards(seen.begin(), seen.end());
    if (IsPickEm(engine) || IsSneakPeak(engine)) cards.push_back(engine.drawCards[0]);
    return cards;
}

void TakeHand(GameEngine& spare) {
    spare.hand = spare.dealtCopy = spare.statistics.setCards;
    spare.drawCards = DrawsBeside(spare);
    spare.held = {};
    spare.playedHold.reset();
    spare.handOver = true;
    AnalyzeDealtHand(spare);
}

// Of the draws that win or of those that lose, which make that share of the return.
std::string DrawsCell(const HoldResult& hold, std::int64_t draws, HandDisplay display,
                      const char* share) {
    if (display == HandDisplay::kHands) return FormatCount(draws);
    if (display == HandDisplay::kShareOfReturn) return share;
    return Odds(static_cast<double>(hold.totalHands), static_cast<double>(draws));
}

// "1:12.50" of odds that are known; "0" for what never happens.
std::string LineText(const HoldLine& line, HandDisplay display) {
    if (line.Draws() == 0) return "0";
    const std::string mark = line.IsDrawnAgain() ? "*" : "";
    if (display == HandDisplay::kHands) return mark + FormatCount(line.Draws());
    if (display == HandDisplay::kShareOfReturn)
        return mark + FormatDecimals("%-6.2f", line.Share());
    return mark + (line.Odds() > 0 ? "1:" + FormatDecimals("%-9.2f", line.Odds()) : "0");
}

std::string Row(const GameEngine& engine, HoldMask hold, HandDisplay display) {
    const HoldResult& result = ResultOf(engine, hold);
    const bool sure = result.nothing == 0 && display == HandDisplay::kOdds;
    const auto winners =
        sure ? "1:1" : DrawsCell(result, result.totalHands - result.nothing, display, "100.00");
    std::string text = HoldPattern(engine, hold) + '\t' +
                       FormatDecimals("%-9.4f", result.expectedReturn) + '\t' +
                       FormatCount(result.totalHands) + '\t' + winners + '\t' +
                       DrawsCell(result, result.nothing, display, "0");
    for (std::size_t line = engine.payTable.lines.size(); line-- > 0;) {
        text += '\t' + LineText({engine, hold, line}, display);
    }
    return text + "\r\n";
}

}  // namespace

void LendHand(const GameEngine& player, GameEngine& spare) {
    spare.settings.bet = player.settings.bet;
    spare.settings.coin = player.settings.coin;
    spare.statistics.setCards = player.dealtCopy;
    spare.statistics.setDraws = player.statistics.setDraws;
    // A fixed hand may have left some of them to the deal.
    for (std::size_t i = 0; i < kHandSize; ++i) {
        CardCode& draw = spare.statistics.setDraws[i];
        if (draw == kNoCard) draw = player.drawCards[i];
    }
    TakeHand(spare);
    spare.held = player.held;
    spare.playedHold = player.playedHold;
    spare.handOver = player.handOver;
}

bool LendLoggedHand(const ErrorLogEntry& entry, GameEngine& spare) {
    spare.statistics.setCards = entry.hand;
    spare.statistics.setDraws = entry.draws;
    if (!TakeFixedHand(spare)) return false;
    spare.playedHold = entry.player;
    return true;
}

bool TakeFixedHand(GameEngine& spare) {
    spare.fixedHand = false;  // the editor has set it, but what is dealt next is not this hand
    const Statistics& chosen = spare.statistics;
    const auto seen = SeenCards(spare, chosen.setCards);
    if (std::ranges::find(seen, kNoCard) != seen.end()) return false;
    if (IsPickEm(spare) && chosen.setDraws[0] == kNoCard) return false;
    TakeHand(spare);
    return true;
}

std::string HandInWords(const GameEngine& engine) {
    std::string text;
    for (const CardCode code : CardsToType(engine)) {
        text += (text.empty() ? "" : " ") + CardText(engine.deck.table, code);
    }
    return text;
}

std::string TakeTypedHand(GameEngine& spare, std::string_view text) {
    // The card that Sneak Peak shows may stay as it is.
    const std::size_t all = CardsToType(spare).size();
    const bool five =
        IsSneakPeak(spare) && ParseCards(text, spare.deck.table, kHandSize).problem.empty();
    const auto parsed = ParseCards(text, spare.deck.table, five ? kHandSize : all);
    if (!parsed.problem.empty()) return parsed.problem;
    Statistics& fixed = spare.statistics;
    const std::size_t inHand = IsPickEm(spare) ? all - 1 : kHandSize;
    std::copy_n(parsed.cards.begin(), inHand, fixed.setCards.begin());
    if (parsed.cards.size() > inHand) {
        // It may be another of the draw cards, which the old one then replaces.
        auto& first = fixed.setDraws[0];
        std::ranges::replace(fixed.setDraws, parsed.cards.back(), first);
        first = parsed.cards.back();
    }
    TakeHand(spare);
    return {};
}

std::optional<HoldMask> PlayersHold(const GameEngine& engine) {
    if (!IsPickEm(engine)) return engine.handOver ? engine.playedHold : HeldMask(engine);
    // A pile that was drawn to lies in the hand behind the player's two cards.
    if (engine.playedHold == kStandPat) return kLeftPile;
    if (engine.playedHold == kPlayersTwo) return kRightPile;
    return engine.playedHold;
}

bool IsAnalyzed(const GameEngine& spare) {
    return ResultOf(spare, spare.analysis.best).totalHands > 0;
}

std::vector<HoldMask> HoldsByReturn(const GameEngine& spare) {
    if (!IsAnalyzed(spare)) return {};
    std::vector<HoldMask> order(kHolds);
    std::iota(order.begin(), order.end(), 0);
    for (std::size_t i = 0; i < kHolds; ++i) {
        for (std::size_t j = i + 1; j < kHolds; ++j) {
            if (ResultOf(spare, order[i]).expectedReturn < ResultOf(spare, order[j]).expectedReturn)
                std::swap(order[i], order[j]);
        }
    }
    if (IsPickEm(spare)) {
        std::erase_if(order, [](HoldMask hold) { return hold != kLeftPile && hold != kRightPile; });
    }
    return order;
}

std::string HoldPattern(const GameEngine& spare, HoldMask hold) {
    std::string text = HoldText(spare, spare.dealtCopy, spare.drawCards[0], hold);
    const int known = ResultOf(spare, hold).knownCardPosition;
    if (known >= 0) text[static_cast<std::size_t>(known)] = 'D';
    return text;
}

Hand PlacesOf(const GameEngine& engine, const HandCards& hand, CardCode firstDraw) {
    Hand places = FacesOf(engine.deck.table, hand);
    if (!IsPickEm(engine)) return places;
    places[kThirdCardPlace] = places[kPickEmGap];
    places[kPickEmGap] = {};
    places[kOtherPilePlace] = FaceOf(engine.deck.table, firstDraw);
    return places;
}

std::string HandReport(const GameEngine& spare, HandDisplay display) {
    std::string text = "Hand\tExp Ret ($)\tHands\tWinners\tLosers";
    const auto& lines = spare.payTable.lines;
    std::for_each(lines.rbegin(), lines.rend(),
                  [&](const PayLine& line) { text += '\t' + line.shortDescription; });
    text += "\r\n\r\n";
    if (!IsAnalyzed(spare))
        return text + "This hand is not complete: change it to see its holds.\r\n";
    for (const HoldMask hold : HoldsByReturn(spare)) text += Row(spare, hold, display);
    return text;
}
