#include "core/whatif/Meter.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <tuple>
#include <utility>

#include "core/strategy/Grade.h"
#include "core/whatif/HoldWords.h"

namespace {

constexpr std::int64_t kHandsBetweenReports = 4096;

// The table without what the line pays, and with a coin for it alone: the worth of a hold at a
// meter is that on the first and so many times that on the second.
PayTable WithoutLine(PayTable table, std::size_t line) {
    table.lines[line].maxPayout = 0;
    return table;
}

PayTable LineAlone(PayTable table, std::size_t line) {
    for (PayLine& other : table.lines) other.maxPayout = 0;
    table.lines[line].maxPayout = 1;
    return table;
}

// Where one hold becomes better than another, as a reduced fraction.
struct Crossing {
    std::int64_t coins = 0;
    std::int64_t parts = 1;

    double AsNumber() const { return static_cast<double>(coins) / static_cast<double>(parts); }
    bool IsBefore(const Crossing& other) const {
        return static_cast<Worth>(coins) * other.parts < static_cast<Worth>(other.coins) * parts;
    }
    bool operator==(const Crossing&) const = default;
    auto operator<=>(const Crossing&) const = default;
};

// The straight lines of a hand's holds.
struct HoldLines {
    const std::array<std::int64_t, kSubsets>& base;
    const std::array<std::int64_t, kSubsets>& slope;

    // The best hold at a meter of 0 and just above it.
    std::size_t First() const {
        std::size_t best = 0;
        for (std::size_t held = 1; held < kSubsets; ++held) {
            if (std::pair(base[held], slope[held]) > std::pair(base[best], slope[best])) {
                best = held;
            }
        }
        return best;
    }

    // The hold that is the next to be best, and from where on; the same one when it is the last.
    std::size_t After(std::size_t now, Crossing& crossing) const {
        std::size_t next = now;
        for (std::size_t held = 0; held < kSubsets; ++held) {
            if (slope[held] <= slope[now]) continue;
            const Crossing at{base[now] - base[held], slope[held] - slope[now]};
            const bool sooner = next == now || at.IsBefore(crossing);
            const bool steeper = next != now && !crossing.IsBefore(at) && slope[held] > slope[next];
            if (!sooner && !steeper) continue;
            crossing = at;
            next = held;
        }
        return next;
    }
};

}  // namespace

// Reads the hands of a table and gathers their corners.
struct MeterCurve::Reader {
    Reader(MeterCurve& curve, const PayTable& table, std::size_t line, double first, double last)
        : curve(curve),
          parted(WithoutLine(table, line), LineAlone(table, line)),
          terms(parted.LinesOfA(), table),
          first(first),
          last(last) {}

    void Read(const WhatIfProgress& progress) {
        std::int64_t visited = 0;
        const auto visit = [&](const StartingHand& base, const StartingHand& slope) {
            Add(base, slope);
            if (++visited % kHandsBetweenReports != 0 || !progress) return true;
            return progress(static_cast<double>(visited) / static_cast<double>(kMostClasses));
        };
        curve.cancelled = !parted.ForEach(visit);
        const auto hands = static_cast<Worth>(parted.Hands().Count());
        curve.oneCoinOfEach = hands * parted.Hands().PartsOfCoin();
        curve.bet = curve.oneCoinOfEach * kFullBet;
        JoinPieces();
        ListTurningPoints();
    }

    void Add(const StartingHand& base, const StartingHand& slope) {
        const HoldLines lines{base.values, slope.values};
        std::size_t now = lines.First();
        start.base += static_cast<Worth>(lines.base[now]) * base.weight;
        start.slope += static_cast<Worth>(lines.slope[now]) * base.weight;
        bool looked = false;
        for (Crossing at;;) {
            const std::size_t next = lines.After(now, at);
            if (next == now) return;
            const double coins = at.AsNumber();
            const Worth rise = static_cast<Worth>(at.parts) * base.weight;
            corners.push_back({coins, -static_cast<Worth>(at.coins) * base.weight, rise});
            if (coins > first && coins <= last) {
                if (!looked) LookAtHand(terms, base, LookAt::kHeldCards, looks);
                looked = true;
                AddTurningPoint(at, base, now, next, rise);
            }
            now = next;
        }
    }

    void AddTurningPoint(Crossing at, const StartingHand& hand, std::size_t from, std::size_t to,
                         Worth rise) {
        const std::int64_t divisor = std::gcd(at.coins, at.parts);
        at = {at.coins / divisor, at.parts / divisor};
        Turn& turn = turns[{at, HoldWords(terms, looks[from]), HoldWords(terms, looks[to])}];
        if (turn.hands == 0) {
            for (std::size_t i = 0; i < kHandSize; ++i) {
                turn.example[i] = parted.LinesOfA().ToFace(hand.cards[i]);
            }
        }
        turn.hands += hand.weight;
        turn.rise += rise;
    }

    void JoinPieces() {
        std::ranges::sort(corners, {}, &Piece::from);
        curve.pieces = {start};
        for (const Piece& corner : corners) {
            Piece piece = curve.pieces.back();
            piece.base += corner.base;
            piece.slope += corner.slope;
            if (piece.from < corner.from) {
                piece.from = corner.from;
                curve.pieces.push_back(piece);
            } else {
                curve.pieces.back() = piece;
            }
        }
    }

    void ListTurningPoints() {
        for (const auto& [key, turn] : turns) {
            const auto& [at, from, to] = key;
            const double cost =
                static_cast<double>(turn.rise) / static_cast<double>(curve.bet) * 100;
            curve.turningPoints.push_back(
                {at.AsNumber(), from, to, turn.hands, cost, turn.example});
        }
        std::ranges::stable_sort(curve.turningPoints, [](const auto& a, const auto& b) {
            return std::pair(a.coins, -a.costPerCoin) < std::pair(b.coins, -b.costPerCoin);
        });
    }

    // There are as many in an ordinary deck; in others it only serves to tell the progress.
    static constexpr std::int64_t kMostClasses = 134'459;

    struct Turn {
        std::int64_t hands = 0;
        Worth rise = 0;
        Hand example;
    };

    MeterCurve& curve;
    TwoTables parted;
    Terms terms;
    double first;
    double last;
    HandLooks looks{};
    Piece start;
    std::vector<Piece> corners;  // where a hand turns, and what its line changes by there
    std::map<std::tuple<Crossing, std::string, std::string>, Turn> turns;
};

double CostOfIgnoring(const TurningPoint& point, double coins) {
    return std::max(0.0, coins - point.coins) * point.costPerCoin;
}

std::string MeterCurve::WhyNot(const PayTable& table) { return TwoTables::WhyNoPlainPlay(table); }

MeterCurve::MeterCurve(const PayTable& table, std::size_t line, double first, double last,
                       const WhatIfProgress& progress) {
    Reader(*this, table, line, first, last).Read(progress);
}

const MeterCurve::Piece& MeterCurve::PieceAt(double coins) const {
    const auto after = std::ranges::upper_bound(pieces, coins, {}, &Piece::from);
    return after == pieces.begin() ? pieces.front() : *std::prev(after);
}

double MeterCurve::Return(double coins) const {
    const Piece& piece = PieceAt(coins);
    const auto worth = static_cast<long double>(piece.base) +
                       static_cast<long double>(piece.slope) * static_cast<long double>(coins);
    return static_cast<double>(worth / static_cast<long double>(bet) * 100);
}

double MeterCurve::Probability(double coins) const {
    return static_cast<double>(PieceAt(coins).slope) / static_cast<double>(oneCoinOfEach);
}

std::optional<double> MeterCurve::BreakEven() const {
    if (pieces.front().base >= bet) return 0;
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece) {
        if (piece->slope <= 0) break;
        const double coins =
            static_cast<double>(bet - piece->base) / static_cast<double>(piece->slope);
        if (coins >= piece->from) return coins;
    }
    return std::nullopt;
}
