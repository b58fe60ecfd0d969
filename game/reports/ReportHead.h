// What the figures of a report belong to, for the head of its table and of what is saved.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "game/reports/ReportTable.h"

struct GameEngine;

// "Game", "Table" (its index), "Bet" ("5 coins") and "Coin" ("$0.25").
std::vector<ReportFact> GameFacts(const GameEngine& engine);

// "Date" by the wall clock of this place: "2026-11-23 18:44". The time is in seconds since the
// epoch.
ReportFact DateFact(std::int64_t time);

// The title and a line for each fact, "Game: Deuces Wild".
std::string HeadLines(const std::string& title, std::span<const ReportFact> facts);
