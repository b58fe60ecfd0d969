#include "ui/machine/Motion.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "ui/machine/Highlights.h"

namespace {

constexpr int kLeastPause = 30;  // milliseconds: two frames; what is shorter is not seen to move
constexpr int kRollTime = 70;    // a count-up has 80 for each step
constexpr int kWaitingTime = 7200;
constexpr int kBeats = 6;
constexpr int kCelebrationTime = 9000;

// A discard has left well before the pause after it, of two and a half cards or two, is over.
int LeaveTime(int cardPause) { return cardPause * 3 / 2; }
int LightTime(int cardPause) { return cardPause * 2; }

CardMove MoveBetween(const PlaceLook& before, const PlaceLook& now) {
    if (before.card == now.card && before.pileTop == now.pileTop) return CardMove::kNone;
    if (before.card == kNoCard) return CardMove::kCome;
    const bool discarded = now.card == kNoCard || now.card == kCardBack;
    return discarded ? CardMove::kLeave : CardMove::kTurn;
}

bool CountsUp(const Scene& scene) { return scene.message.starts_with("PAID "); }

}  // namespace

double Motion::Track::Done(std::int64_t time) const {
    if (length <= 0) return 1;
    return std::clamp(static_cast<double>(time - start) / length, 0.0, 1.0);
}

void Motion::Track::BeginOrTurn(std::int64_t time, int newLength) {
    const double toGo = 1 - Done(time);
    start = time - std::llround(toGo * newLength);
    length = newLength;
}

void Motion::ChangePlace(Place& place, const PlaceLook& before, const PlaceLook& now, int cardPause,
                         std::int64_t time) {
    if (before.card != now.card || before.pileTop != now.pileTop) {
        place.from.move = MoveBetween(before, now);
        place.from.from = before.card;
        place.from.fromPileTop = before.pileTop;
        const bool leaves = place.from.move == CardMove::kLeave;
        place.card = {time, leaves ? LeaveTime(cardPause) : cardPause};
    }
    if (before.lit != now.lit) place.lit.BeginOrTurn(time, LightTime(cardPause));
    if (before.held != now.held) place.held.BeginOrTurn(time, cardPause);
}

void Motion::ChangeMeters(const Scene& before, const Scene& now, int cardPause, std::int64_t time) {
    const int length = cardPause > 0 && CountsUp(now) ? kRollTime : 0;
    if (before.message != now.message) {
        message = {before.message, {time, CountsUp(before) ? length : 0}};
    }
    if (before.credits != now.credits) credits = {before.credits, {time, length}};
}

void Motion::Change(const Scene& before, const Scene& now, const PayTable& table, int cardPause,
                    std::int64_t time) {
    const int pause = cardPause < kLeastPause ? 0 : cardPause;
    const bool otherPicture = before.doubleUp.shown != now.doubleUp.shown;
    if (otherPicture) End();
    for (std::size_t i = 0; i < places.size(); ++i) {
        const bool moves = before.places[i] != now.places[i] && !otherPicture;
        if (moves) ChangePlace(places[i], before.places[i], now.places[i], pause, time);
    }
    ChangeMeters(before, now, pause, time);
    if (before.doubleUp.result != now.doubleUp.result) {
        const bool open = now.doubleUp.result == DuelResult::kOpen;
        verdict = {time, open ? 0 : LightTime(pause)};
    }
    const int line = BigWinLine(now, table);
    if (line != BigWinLine(before, table)) celebration = {time, line < 0 ? 0 : kCelebrationTime};
    const Waiting waits = WaitingFor(now);
    if (waits != WaitingFor(before)) waiting = {time, waits == Waiting{} ? 0 : kWaitingTime};
}

bool Motion::Moves(std::int64_t time) const {
    const bool placeMoves = std::ranges::any_of(places, [time](const Place& place) {
        return place.card.Runs(time) || place.lit.Runs(time) || place.held.Runs(time);
    });
    return placeMoves || message.roll.Runs(time) || credits.roll.Runs(time) || verdict.Runs(time) ||
           celebration.Runs(time) || waiting.Runs(time);
}

Moment Motion::At(std::int64_t time) const {
    Moment moment;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Place& place = places[i];
        if (place.card.Runs(time)) moment.places[i] = place.from;
        moment.places[i].moved = place.card.Done(time);
        moment.places[i].lit = place.lit.Done(time);
        moment.places[i].held = place.held.Done(time);
    }
    if (message.roll.Runs(time)) moment.message = {message.from, message.roll.Done(time)};
    if (credits.roll.Runs(time)) moment.credits = {credits.from, credits.roll.Done(time)};
    moment.verdict = verdict.Done(time);
    moment.celebration = celebration.Done(time);
    // Beats that grow weaker, and end where they began.
    const double beat = waiting.Done(time);
    moment.waiting =
        1 + (1 - beat) * std::sin(beat * kBeats * 2 * std::numbers::pi) * (beat < 1 ? 1 : 0);
    return moment;
}
