#include "core/analysis/BestHold.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <numeric>
#include <utility>

#include "core/analysis/AceOrder.h"
#include "core/analysis/Combinations.h"
#include "core/analysis/HoldCounts.h"
#include "core/analysis/WideVectors.h"

namespace {

constexpr std::size_t kAllHeld = 31;
constexpr std::uint8_t kAceKind = 0;

constexpr auto kSizeOf = [] {
    std::array<int, kHolds> sizes{};
    for (std::size_t subset = 0; subset < kHolds; ++subset) sizes[subset] = std::popcount(subset);
    return sizes;
}();

std::size_t Drawn(std::size_t held) { return static_cast<std::size_t>(kHandSize - kSizeOf[held]); }

}  // namespace

// The returns to choose from: those of Look, and what the holds are worth that can end in four aces
// in order as the cards lie.
struct BestHoldFinder::Choice {
    const Returns* plain;
    std::array<const AceHold*, 3> aceHolds{};
    std::size_t count = 0;

    void Offer(const AceHold& hold) { aceHolds[count++] = &hold; }
    const AceHold* Find(std::size_t held) const {
        for (std::size_t i = 0; i < count; ++i) {
            if (aceHolds[i]->held == held) return aceHolds[i];
        }
        return nullptr;
    }
    double Return(std::size_t held) const {
        const AceHold* const hold = Find(held);
        return hold ? hold->expectedReturn : (*plain)[held];
    }
};

bool BestHoldFinder::Serves(const PayTable& table) {
    if (table.gameId == kSneakPeakGameId || table.type == GameType::kPickEm ||
        table.type == GameType::kDoubleDraw) {
        return false;
    }
    return table.type == GameType::kAcesBonus || AceLine(table) < 0;
}

BestHoldFinder::BestHoldFinder(const LineTables& tables, const PayTable& table, int bet,
                               double coin)
    : tables(tables),
      coin(coin),
      ordered(table.type == GameType::kAcesBonus),
      aceLine(AceLine(table)) {
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        pays[i] = LineUnitPay(table, static_cast<int>(i), bet);
    }
    LineCounts counts;
    // One subset of each size serves to go through the sizes 0 to 4.
    for (std::size_t subset = 0; subset < kAllHeld; subset = subset * 2 + 1) {
        const int size = kSizeOf[subset];
        const std::uint32_t classes = size == 0 ? 1 : tables.Classes(size).Count();
        auto& worths = worth[static_cast<std::size_t>(size)];
        worths.reserve(classes);
        for (std::uint32_t number = 0; number < classes; ++number) {
            if (size == 0) {
                tables.Read<0>(0, counts);
            } else {
                tables.ReadClass(size, number, counts);
            }
            worths.push_back(
                std::inner_product(counts.begin(), counts.end(), pays.begin(), std::int64_t{0}));
        }
    }
    for (int drawn = 0; drawn <= kHandSize; ++drawn) {
        totalByDrawn[static_cast<std::size_t>(drawn)] =
            drawn == 0 ? 1 : Combinations(tables.DeckSize() - kHandSize, drawn);
    }
    for (std::size_t held = 0; held < kSubsets; ++held) {
        totals[held] = static_cast<double>(TotalFor(held));
    }
    if (ordered && aceLine >= 0) FindAceGains();
}

// What a draw gains that ends in the aces beside a card when they lie in order, by the card.
void BestHoldFinder::FindAceGains() {
    const auto to = static_cast<std::size_t>(aceLine);
    const auto gainOf = [&](std::size_t lane) { return lane > to ? pays[to] - pays[lane] : 0; };
    const bool extra = tables.DeckSize() > kExtraKind * kSuits;
    for (std::uint8_t kind = 1; kind < kExtraKind + (extra ? 1 : 0); ++kind) {
        for (std::uint8_t suit = 0; suit < (kind == kExtraKind ? 1 : kSuits); ++suit) {
            const CardFace face = tables.ToFace({kind, suit});
            aceGains[kind][suit] = gainOf(LaneOf(LineBesideAces(tables, face)));
        }
    }
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        gainOfAll += CountsBesideAces(tables)[lane] * gainOf(lane);
    }
}

// The distinct draws of a hold.
std::int64_t BestHoldFinder::TotalFor(std::size_t held) const { return totalByDrawn[Drawn(held)]; }

// Sorts the cards and looks up, for every subset, where the classes of its kinds stand: the suits,
// which come with each hand, then choose among these. Equal kinds come with rising suits, so
// sorting by kind alone sorts the cards.
void BestHoldFinder::SetKinds(const std::array<SetCard, kHandSize>& cards) {
    bool same = knowsKinds;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        same = same && kinds[i] == cards[i].kind;
        kinds[i] = cards[i].kind;
    }
    if (same) return;
    knowsKinds = true;
    std::iota(cardOfPlace.begin(), cardOfPlace.end(), std::size_t{0});
    std::ranges::stable_sort(cardOfPlace, {}, [this](std::size_t card) { return kinds[card]; });
    for (std::size_t subset = 1; subset < kAllHeld; ++subset) {
        std::uint32_t key = 0;
        int size = 0;
        for (std::size_t place = 0; place < kHandSize; ++place) {
            if ((subset >> place & 1) == 0) continue;
            key += SetKey::Add(size++, {kinds[cardOfPlace[place]], 0});
        }
        ofKinds[subset] = tables.Classes(size).Of(SetKey::Kinds(key));
    }
    aces = static_cast<std::size_t>(std::ranges::count(kinds, kAceKind));
}

// The subset's suits are those of the subset without its last card, and that card's behind them;
// they give its class, and the class its worth. The subset without its last card has a smaller
// number, so going through the numbers in order finds it done.
template <std::size_t Subset>
[[gnu::always_inline]] inline void BestHoldFinder::LookUpSubset() {
    constexpr std::size_t last = std::bit_width(Subset) - 1;
    constexpr std::size_t others = Subset ^ (std::size_t{1} << last);
    constexpr int place = std::popcount(others);
    suits[Subset] = suits[others] | static_cast<std::uint32_t>(sorted[last].suit) << (2 * place);
    classOf[Subset] = ofKinds[Subset].ClassOf(suits[Subset]);
    coins[Subset] = worth[place + 1][classOf[Subset]];
}

// Looks up what every subset is worth; written out one by one, so that the sizes and places are
// known to the compiler. All five cards are worth what their line pays.
template <std::size_t... Others>
void BestHoldFinder::LookUp(std::index_sequence<Others...>) {
    coins[0] = worth[0][0];
    (LookUpSubset<Others + 1>(), ...);
    line = tables.LineOfFive(sorted);
    coins[kAllHeld] = pays[LaneOf(line)];
}

// Inclusion and exclusion: from what the hands that hold a hold's cards are worth, it takes those
// that hold one of the discards besides, which leaves the worth of the hold's draws. For each of
// the five cards in turn, every subset without it loses the number of the same subset with it. For
// the first three cards these two lie one, two and four numbers apart, inside a vector of eight,
// and are brought together by shuffles, because compilers do not find them; for the last two cards
// they lie in different vectors.
TOLVANE_WIDE_VECTORS
void BestHoldFinder::ComputeReturns() {
    using Eight = std::int64_t __attribute__((vector_size(64)));
    Eight eights[4];
    std::memcpy(eights, coins.data(), sizeof eights);
    for (Eight& x : eights) {
        x -= __builtin_shufflevector(x, Eight{}, 1, 8, 3, 8, 5, 8, 7, 8);  // 8 is a zero
        x -= __builtin_shufflevector(x, Eight{}, 2, 3, 8, 8, 6, 7, 8, 8);
        x -= __builtin_shufflevector(x, Eight{}, 4, 5, 6, 7, 8, 8, 8, 8);
    }
    eights[0] -= eights[1];
    eights[2] -= eights[3];
    eights[0] -= eights[2];
    eights[1] -= eights[3];
    std::memcpy(coins.data(), eights, sizeof eights);
    for (std::size_t held = 0; held < kSubsets; ++held) {
        returns[held] = static_cast<double>(coins[held]) / totals[held] * coin;
    }
}

void BestHoldFinder::Look(const std::array<SetCard, kHandSize>& cards) {
    SetKinds(cards);
    for (std::size_t place = 0; place < kHandSize; ++place)
        sorted[place] = cards[cardOfPlace[place]];
    LookUp(std::make_index_sequence<kAllHeld - 1>());
    ComputeReturns();
    plainCounted = kSubsets;
    if (!ordered) return;
    if (aceLine >= 0) ValueAceHolds();
    FindGreatest();
}

// What a hold is worth when draws of it end in aces in order: those gain so many coins together.
BestHoldFinder::AceHold BestHoldFinder::WithAceGain(std::size_t held, std::int64_t gain) const {
    const std::int64_t orders = kDrawOrders[Drawn(held)];
    const std::int64_t total = TotalFor(held) * orders;
    const std::int64_t sum = coins[held] * orders + gain;
    return {held, static_cast<double>(sum) / static_cast<double>(total) * coin};
}

// Only holds of all aces of the hand, and of one card beside them, can end in four aces in order.
// Without an ace in the hand the four may come from either of the two first positions on.
void BestHoldFinder::ValueAceHolds() {
    const std::size_t allAces = (std::size_t{1} << aces) - 1;
    std::int64_t unseen = gainOfAll;
    for (std::size_t place = aces; place < kHandSize; ++place) unseen -= GainBeside(sorted[place]);
    acesHeld = WithAceGain(allAces, aces == 0 ? 2 * unseen : unseen);
    for (std::size_t place = aces; place < kHandSize; ++place) {
        acesAndOne[place] =
            WithAceGain(allAces | std::size_t{1} << place, GainBeside(sorted[place]));
    }
}

void BestHoldFinder::FindGreatest() {
    greatest = *std::ranges::max_element(returns);
    greatestHolds = 0;
    for (std::size_t held = 0; held < kSubsets; ++held) {
        greatestHolds |= static_cast<std::uint32_t>(returns[held] == greatest) << held;
    }
    oneBest = std::has_single_bit(greatestHolds);
    if (!ordered || aceLine < 0) return;
    oneBest = oneBest && IsBehind(acesHeld) &&
              std::all_of(acesAndOne.begin() + static_cast<std::ptrdiff_t>(aces), acesAndOne.end(),
                          [this](const AceHold& hold) { return IsBehind(hold); });
}

// Gives the draws of a hold that lie in order to the line of aces.
void BestHoldFinder::GiveToAceLine(std::size_t held, LineCounts& counts) const {
    Hand faces;
    for (std::size_t i = 0; i < kHandSize; ++i) faces[i] = tables.ToFace(sorted[i]);
    if (held == (std::size_t{1} << aces) - 1) {
        const LineCounts inOrder = UnseenBesideAces(tables, faces);
        for (int i = 0; i < (aces == 0 ? 2 : 1); ++i) MoveToAceLine(aceLine, inOrder, counts);
        return;
    }
    LineCounts beside{};
    const std::size_t place = static_cast<std::size_t>(std::bit_width(held)) - 1;
    beside[LaneOf(LineBesideAces(tables, faces[place]))] = 1;
    MoveToAceLine(aceLine, beside, counts);
}

// A hold can end in four aces in order only when the aces of the hand lie where the order wants
// them, from the first or the second position on. The fifth place, behind or before the four, may
// be held as well. Without aces both positions may do, and the hold of nothing is offered once.
void BestHoldFinder::OfferAceHolds(const Placement& placement, Choice& choice) const {
    bool offered = false;
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
        const std::size_t beside = first == 0 ? kHandSize - 1 : 0;
        bool inOrder = true;
        std::size_t placeBeside = 0;
        for (std::size_t place = 0; place < kHandSize; ++place) {
            const std::size_t position = placement[cardOfPlace[place]];
            if (place < aces && position != sorted[place].suit + first) inOrder = false;
            if (position == beside) placeBeside = place;
        }
        if (!inOrder) continue;
        if (!offered) choice.Offer(acesHeld);
        offered = true;
        choice.Offer(acesAndOne[placeBeside]);
    }
}

HoldMask BestHoldFinder::MaskOf(std::size_t held, const Placement& placement) const {
    HoldMask mask = 0;
    for (std::size_t place = 0; place < kHandSize; ++place) {
        if ((held >> place & 1) != 0) mask |= PositionBit(placement[cardOfPlace[place]]);
    }
    return mask;
}

// The draws of one hold by lane, by inclusion and exclusion over its discards: the hands that hold
// the held cards and the discards in out are added when out has an even number of cards, otherwise
// taken away (as a product with -1 modulo 2^32). out runs down through all subsets of the discards
// and ends with the empty one.
TOLVANE_WIDE_VECTORS
void BestHoldFinder::CountLines(std::size_t held, LineCounts& counts) const {
    counts.fill(0);
    const std::size_t discards = kAllHeld ^ held;
    for (std::size_t out = discards;; out = (out - 1) & discards) {
        if ((held | out) == kAllHeld) {
            counts[LaneOf(line)] += kSizeOf[out] % 2 == 0 ? 1U : ~0U;
        } else {
            LineCounts with;
            if ((held | out) == 0) {
                tables.Read<0>(0, with);
            } else {
                tables.ReadClass(kSizeOf[held | out], classOf[held | out], with);
            }
            const std::uint32_t sign = kSizeOf[out] % 2 == 0 ? 1U : ~0U;
            for (std::size_t lane = 0; lane < kLanes; ++lane) counts[lane] += sign * with[lane];
        }
        if (out == 0) return;
    }
}

// The draws of a hold by lane, those with four aces in order and the ordered ones included.
void BestHoldFinder::CountHold(std::size_t held, const Choice& choice, LineCounts& counts) const {
    CountLines(held, counts);
    if (ordered) {
        for (auto& count : counts) count *= kDrawOrders[Drawn(held)];
    }
    if (choice.Find(held)) GiveToAceLine(held, counts);
}

double BestHoldFinder::WinRate(std::size_t held, const Choice& choice) const {
    const std::int64_t total = TotalFor(held) * (ordered ? kDrawOrders[Drawn(held)] : 1);
    LineCounts counts;
    CountHold(held, choice, counts);
    return static_cast<double>(total - counts[kNothingLane]) / static_cast<double>(total);
}

// The subset of the greatest return. Standing pat wins a tie, otherwise the larger share of winning
// draws, then the lower mask. Ties are rare, and the shares are counted only for them.
std::size_t BestHoldFinder::Choose(const Choice& choice, const Placement& placement) const {
    Returns offered = *choice.plain;
    for (std::size_t i = 0; i < choice.count; ++i) {
        offered[choice.aceHolds[i]->held] = choice.aceHolds[i]->expectedReturn;
    }
    double most = offered[0];
    for (const double one : offered) most = std::max(most, one);
    if (offered[kAllHeld] == most) return kAllHeld;
    std::uint32_t tied = 0;
    for (std::size_t held = 0; held < kAllHeld; ++held) {
        tied |= static_cast<std::uint32_t>(offered[held] == most) << held;
    }
    auto best = static_cast<std::size_t>(std::countr_zero(tied));
    tied &= tied - 1;
    if (tied == 0) return best;
    double bestRate = WinRate(best, choice);
    for (; tied != 0; tied &= tied - 1) {
        const auto held = static_cast<std::size_t>(std::countr_zero(tied));
        const double rate = WinRate(held, choice);
        const bool lower = MaskOf(held, placement) < MaskOf(best, placement);
        if (rate > bestRate || (rate == bestRate && lower)) {
            best = held;
            bestRate = rate;
        }
    }
    return best;
}

// Most placements leave a single hold ahead of all that can end in aces in order.
bool BestHoldFinder::IsBehind(const AceHold& hold) const {
    return (greatestHolds >> hold.held & 1) == 0 && hold.expectedReturn < greatest;
}

bool BestHoldFinder::IsPlain(const Choice& choice) const {
    if (oneBest) return true;
    if (!std::has_single_bit(greatestHolds)) return false;
    return std::all_of(choice.aceHolds.begin(),
                       choice.aceHolds.begin() + static_cast<std::ptrdiff_t>(choice.count),
                       [this](const AceHold* hold) { return IsBehind(*hold); });
}

void BestHoldFinder::Best(const Placement& placement, BestHold& best) {
    Choice choice{&returns, {}, 0};
    const bool acesPay = ordered && aceLine >= 0;
    if (acesPay && !oneBest) OfferAceHolds(placement, choice);
    const bool plain = ordered && IsPlain(choice);
    const std::size_t held = plain ? static_cast<std::size_t>(std::countr_zero(greatestHolds))
                                   : Choose(choice, placement);
    best.mask = MaskOf(held, placement);
    best.cardsDrawn = static_cast<int>(Drawn(held));
    best.expectedReturn = choice.Return(held);
    best.totalHands = TotalFor(held) * (ordered ? kDrawOrders[Drawn(held)] : 1);
    if (plain && plainCounted == held) {
        best.counts = plainCounts;
        return;
    }
    CountHold(held, choice, best.counts);
    if (!plain) return;
    plainCounts = best.counts;
    plainCounted = held;
}
