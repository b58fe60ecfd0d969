// The saves of the crash test: of the save's number n everything in the file is made, so that a
// file with parts of two saves is none of them, and its size goes up and down.
#pragma once
#include <cstdint>
#include <string>

#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"
#include "core/store/Session.h"

inline bool SaveNumber(ProfileFile& file, const std::string& path, std::int32_t n) {
    MachineSettings settings;
    settings.credits = n;
    settings.bet = 1 + n % 5;
    settings.mode = static_cast<PlayMode>(1 + n % 4);
    settings.coin = n % 2 == 0 ? 0.25 : 0.5;
    settings.creditsEntered = 3 * n;
    settings.dollarIn = n + 100;
    settings.sounds = n % 3 == 0;
    Statistics statistics;
    for (const auto& [key, counter] : CounterKeys()) (statistics.*counter).Add(n);
    statistics.bestReturns.Add(0.25 * n);
    PayTable table;
    table.lines.resize(9);
    for (auto& line : table.lines) line.totalWins = n;
    const std::string notes(static_cast<std::size_t>(n % 97 * 100), static_cast<char>('a' + n % 7));
    file.SetSectionText("Notes", notes + "\n", path);
    return SaveSettings(file, path, {settings, statistics, table}, false, 0);
}
