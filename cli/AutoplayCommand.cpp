#include "cli/Commands.h"

#include <chrono>
#include <nlohmann/json.hpp>
#include <numeric>
#include <string_view>

#include "cli/CsvTable.h"
#include "cli/TableChoice.h"
#include "cli/Terminal.h"
#include "cli/TextTable.h"
#include "cli/Texts.h"
#include "core/analysis/LineTableCache.h"
#include "core/profile/ProfileFile.h"
#include "game/engine/Autoplay.h"
#include "game/reports/StatisticsReport.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

// What was played, and on what.
struct Session {
    ChosenTable chosen;
    std::uint32_t seed = 0;
    std::int64_t hands = 0;
    double seconds = 0;
    GameEngine engine;

    double Return() const {
        const Statistics& counted = engine.statistics;
        return static_cast<double>(counted.creditsWon.total) / counted.creditsPlayed.total;
    }
    double HandsPerSecond() const { return static_cast<double>(hands) / seconds; }
};

void SetUp(const Options& options, LineTableCache& tables, Session& session) {
    GameEngine& engine = session.engine;
    SetCurrentTable(engine.settings, session.chosen.place);
    engine.settings.bet = session.chosen.bet;
    engine.settings.coin = options.coin;
    UseTable(engine, session.chosen.payTable, tables);
    session.seed = options.seed.value_or(static_cast<std::uint32_t>(SystemSeconds()));
    // A deck is built in an order of the clock's.
    std::iota(engine.deck.order.begin(), engine.deck.order.end(), 0);
    engine.deck.random.RandomInit(session.seed);
}

// Without a game file: nothing that is played here is stored.
void Play(std::int64_t hands, Session& session) {
    ProfileFile none;
    const GameFiles files{none, "", ""};
    const Interrupt interrupt;
    ProgressBar bar("Hands played...", "");
    const auto start = std::chrono::steady_clock::now();
    session.hands = PlayHands(session.engine, files, hands, [&](std::int64_t played) {
        bar.Show(static_cast<double>(played), static_cast<double>(hands));
        return !interrupt.Wanted();
    });
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    session.seconds = time.count();
}

std::string AsJson(const Session& session, double coin) {
    const ChosenTable& chosen = session.chosen;
    Json json = {{"game", chosen.place.gameName},
                 {"table", chosen.place.tableIndex},
                 {"bet", chosen.bet},
                 {"coin", coin},
                 {"hands", session.hands},
                 {"seed", session.seed},
                 {"counters", Json::object()},
                 {"lines", Json::array()}};
    for (const CounterKey& key : CounterKeys()) {
        json["counters"][std::string(key.key)] = (session.engine.statistics.*key.counter).total;
    }
    for (const PayLine& line : session.engine.payTable.lines) {
        json["lines"].push_back(line.sessionWins);
    }
    AddPayChanges(chosen, json);
    json["return"] = session.Return();
    json["handsPerSecond"] = session.HandsPerSecond();
    return JsonText(json);
}

// The counters by their keys, then the lines.
std::string AsCsv(const Session& session) {
    CsvTable table({"kind", "name", "value"});
    table.AddRow({"run", "seed", session.seed});
    table.AddRow({"run", "hands", session.hands});
    table.AddRow({"run", "return", session.Return()});
    for (const CounterKey& key : CounterKeys()) {
        table.AddRow({"counter", key.key, (session.engine.statistics.*key.counter).total});
    }
    for (const PayLine& line : session.engine.payTable.lines) {
        table.AddRow({"line", line.description, line.sessionWins});
    }
    return table.Text();
}

std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return "";
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

// The report's lines are a label, the session's value and the value of all time, with tabs between
// them. A run is a session of its own, so one of the two is enough.
void AddBox(std::string_view box, TextTable& table) {
    while (!box.empty()) {
        const auto end = box.find("\r\n");
        const auto line = box.substr(0, end);
        box.remove_prefix(end == std::string_view::npos ? box.size() : end + 2);
        const auto tab = line.find('\t');
        if (tab == 0 || tab == std::string_view::npos) continue;  // headings
        const auto value = line.substr(tab + 1);
        const std::string number = Trimmed(value.substr(0, value.find('\t')));
        if (number != "Session") table.AddRow({Trimmed(line.substr(0, tab)), number}, {});
    }
    table.AddRow({"", ""}, {});
}

// Empty of a game of which the run and "analyze" tell the same.
std::string WhatIsNotPlayed(const ChosenTable& chosen) {
    if (chosen.payTable.type != GameType::kDoubleDraw) return "";
    return "Automatic play makes no second draw: in the long run it returns less than the analysis "
           "of this\ngame says, which counts that draw.\n";
}

std::string AsText(const Session& session, double coin) {
    const GameEngine& engine = session.engine;
    TextTable table({{"statistics"}, {"of the run", true}, {""}});
    AddBox(StatisticsHands(engine, engine.statistics.sessionStart), table);
    AddBox(StatisticsCredits(engine), table);
    AddBox(StatisticsErrors(engine), table);
    AddBox(StatisticsLines(engine, StatisticsDisplay::kHands), table);
    const ChosenTable& chosen = session.chosen;
    return Heading(chosen, chosen.bet, coin) + ", seed " + std::to_string(session.seed) + "\n\n" +
           table.Text() + WhatIsNotPlayed(chosen);
}

void AddArguments(CLI::App& parser, Options& options) {
    AddGame(parser, options);
    AddCsv(parser, options);
    AddHandsAndSeed(parser, options);
    AddBet(parser, options);
    AddNote(
        parser,
        "Every hand is dealt from the whole deck and played with its best hold. Nothing is doubled "
        "up,\nno feature is played, and in the double-draw games no second draw is made.");
}

std::optional<Failure> RunAutoplay(const Options& options, std::string& output) {
    Session session;
    if (auto failure = ChooseTable(options, session.chosen)) return failure;
    LineTableCache tables;
    SetUp(options, tables, session);
    Play(options.hands, session);
    if (options.csv) {
        output += AsCsv(session);
    } else {
        output += options.json ? AsJson(session, options.coin) : AsText(session, options.coin);
    }
    if (session.hands == options.hands) return std::nullopt;
    return Failure{kFailed, "cancelled: " + std::to_string(session.hands) + " of " +
                                std::to_string(options.hands) + " hands were played"};
}

}  // namespace

Command AutoplayCommand() {
    return {"autoplay", "Plays hands with the best holds and prints the statistics", AddArguments,
            RunAutoplay};
}

}  // namespace cli
