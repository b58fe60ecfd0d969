// What the figures of a report belong to, for the head of its table and of what is saved.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "game/reports/ReportTable.h"

struct GameEngine;
struct TableOfGame;

// "1 coin", "5 coins".
std::string BetText(int bet);

// "Game", "Table" (its index), "Bet" ("5 coins") and "Coin" ("$0.25").
std::vector<ReportFact> GameFacts(const GameEngine& engine);

// The same of any table, at a bet of so many coins of so many dollars.
std::vector<ReportFact> GameFacts(const TableOfGame& table, int bet, double coin);

// "Date" by the wall clock of this place: "2026-11-23 18:44". The time is in seconds since the
// epoch.
ReportFact DateFact(std::int64_t time);

// The title and a line for each fact, "Game: Deuces Wild".
std::string HeadLines(const std::string& title, std::span<const ReportFact> facts);
