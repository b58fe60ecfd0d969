// What moves on the machine: from the changes of its scene and the time that has passed since, the
// moment to paint. The pauses of the flows know nothing of it, so all that stands in a pause has an
// end before that. Times are milliseconds of any clock that does not go back.
#pragma once
#include <array>
#include <cstdint>
#include <string>

#include "game/seat/Scene.h"
#include "ui/machine/Moment.h"

struct PayTable;

class Motion {
  public:
    // At that time the machine comes to show another scene. A card has cardPause milliseconds to
    // turn; where that is no time to see anything, as at full speed, all is there at once but what
    // waits for the player or goes on beside the flow.
    void Change(const Scene& before, const Scene& now, const PayTable& table, int cardPause,
                std::int64_t time);

    // All that moves is where it was going to.
    void End() { *this = {}; }

    bool Moves(std::int64_t time) const;
    Moment At(std::int64_t time) const;

  private:
    struct Track {
        std::int64_t start = 0;
        int length = 0;

        bool Runs(std::int64_t time) const { return time - start < length; }
        double Done(std::int64_t time) const;
        // Begins, or goes back from where it is: a light that is put out and lit at once stays.
        void BeginOrTurn(std::int64_t time, int newLength);
    };
    struct Place {
        PlaceMoment from;
        Track card;
        Track lit;
        Track held;
    };
    struct Meter {
        std::string from;
        Track roll;
    };

    void ChangePlace(Place& place, const PlaceLook& before, const PlaceLook& now, int cardPause,
                     std::int64_t time);
    void ChangeMeters(const Scene& before, const Scene& now, int cardPause, std::int64_t time);

    std::array<Place, kHandSize> places;
    Meter message;
    Meter credits;
    Track verdict;
    Track celebration;
    Track waiting;
};
