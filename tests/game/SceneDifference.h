// What has changed between two scenes, a line for each part of the table that a hand moves.
#pragma once
#include <sstream>
#include <string>
#include <vector>

#include "game/seat/Scene.h"
#include "tests/core/TestGames.h"

class SceneDifference {
  public:
    SceneDifference(const Scene& before, const Scene& now, const CardTable& deck) : deck(deck) {
        const auto differs = [&](auto part) { return before.*part != now.*part; };
        if (differs(&Scene::doubleUp)) DoubleUp(before.doubleUp, now.doubleUp);
        if (before.buttons.doubleUp != now.buttons.doubleUp) {
            Add("double up button ", Look(now.buttons.doubleUp));
        }
        for (std::size_t i = 0; i < now.lines.size(); ++i) {
            if (before.lines[i] != now.lines[i]) Line(i, now.lines[i]);
        }
        for (std::size_t i = 0; i < now.places.size(); ++i)
            Place(i, before.places[i], now.places[i]);
        if (differs(&Scene::firstDraw)) Add("first draw ", CardName(now.firstDraw));
        if (differs(&Scene::bet)) Add("bet ", now.bet);
        if (differs(&Scene::message)) Add("message ", now.message);
        if (differs(&Scene::credits)) Add("credits ", now.credits);
    }

    std::vector<std::string> lines;

  private:
    template <class... Words>
    void Add(const Words&... words) {
        std::ostringstream line;
        (line << ... << words);
        lines.push_back(line.str());
    }

    void DoubleUp(const DoubleUpLook& before, const DoubleUpLook& look) {
        if (look.shown && look.stake != before.stake) {
            Add("double up ", look.stake, " to ", look.doubleUpTo);
        }
        if (look.shown && look.result != before.result) {
            Add("duel", Name(look.result, {" open", " won", " tied", " lost"}));
        }
        if (!look.shown) Add("double up gone");
    }
    void Line(std::size_t line, const LineLook& look) {
        Add("line ", line, Name(look.mark, {" plain", " won ", " won, cell dark "}),
            look.mark == LineMark::kPlain ? "" : std::to_string(look.payout));
    }
    void Place(std::size_t at, const PlaceLook& before, const PlaceLook& now) {
        if (before.held != now.held) Add("held ", at, now.held ? " on" : " off");
        if (before.pileDepth < now.pileDepth) Add("pile ", at, " ", now.pileDepth);
        if (before.card != now.card || before.pileTop != now.pileTop) {
            Add(now.pileTop ? "pile top " : "card ", at, " ", CardName(now.card));
        }
        if (before.holdButton != now.holdButton) Add("hold button ", at, " ", Look(now.holdButton));
    }
    template <class Value>
    static std::string Name(Value value, std::initializer_list<const char*> names) {
        return names.begin()[static_cast<std::size_t>(value)];
    }
    static std::string Look(ButtonLook look) { return Name(look, {"gone", "shown", "pressed"}); }
    std::string CardName(CardCode card) const {
        if (card == kCardBack) return "back";
        return card == kNoCard ? "none" : CardText(deck, card);
    }

    const CardTable& deck;
};
