#include "core/store/Session.h"

#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"

namespace {

constexpr std::string_view kElapsedTime = "ElapsedTime";
constexpr std::int64_t kSecondsPerMinute = 60;
constexpr double kMinutesPerHour = 60.0;

std::string CurrentSection(const MachineSettings& settings) {
    return TableSection(settings.gameName, settings.activeTable);
}

double StoredHours(const ProfileOnDisk& game, const MachineSettings& settings) {
    return game.file.GetDouble(CurrentSection(settings), kElapsedTime, 0.0, game.path);
}

void StartClock(Statistics& statistics, double hoursSoFar, std::int64_t now) {
    statistics.elapsedBase = hoursSoFar;
    statistics.sessionStart = now;
    statistics.sessionHours = 0;
}

double WholeMinutesInHours(std::int64_t start, std::int64_t now) {
    const std::int64_t minutes = now > start ? (now - start) / kSecondsPerMinute : 0;
    return static_cast<double>(minutes) / kMinutesPerHour;
}

}  // namespace

void LoadSettings(const ProfileOnDisk& game, MachineSettings& settings, Statistics& statistics,
                  std::int64_t now) {
    ReadSettings(game, settings);
    StartClock(statistics, StoredHours(game, settings), now);
}

void WriteSession(const ProfileOnDisk& game, const StoredState& state, bool startSession,
                  std::int64_t now) {
    WriteSettings(game, state.settings);
    WriteStatistics(game, CurrentSection(state.settings), state.statistics, state.table);
    UpdateElapsedTime(game, state, startSession, now);
}

bool SaveSettings(const ProfileOnDisk& game, const StoredState& state, bool startSession,
                  std::int64_t now) {
    WriteSession(game, state, startSession, now);
    return game.file.Save(game.path);
}

void UpdateElapsedTime(const ProfileOnDisk& game, const StoredState& state, bool startSession,
                       std::int64_t now) {
    Statistics& statistics = state.statistics;
    if (startSession) {
        StartClock(statistics, StoredHours(game, state.settings), now);
        ClearSession(statistics, state.table);
        return;
    }
    statistics.sessionHours = WholeMinutesInHours(statistics.sessionStart, now);
    game.file.WriteDouble(CurrentSection(state.settings), kElapsedTime,
                          statistics.elapsedBase + statistics.sessionHours, "%.2f", game.path);
}

void ResetStatistics(const ProfileOnDisk& game, const StoredState& state, std::int64_t now) {
    Statistics cleared;
    cleared.setCards = state.statistics.setCards;
    cleared.setDraws = state.statistics.setDraws;
    state.statistics = cleared;
    state.settings.creditsEntered = 0;
    for (auto& line : state.table.lines) line.sessionWins = line.totalWins = 0;
    StartClock(state.statistics, 0, now);
    game.file.WriteDouble(CurrentSection(state.settings), kElapsedTime, 0, "%3.2f", game.path);
}
