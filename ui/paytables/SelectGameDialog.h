// Asks for one of a list of games.
#pragma once
#include <optional>
#include <string>
#include <vector>

class QWidget;

// The current game is selected, in any letter case; nothing is when it is not in the list, and OK
// waits until something is. Nothing when the question is cancelled.
std::optional<std::string> AskGame(const std::vector<std::string>& games,
                                   const std::string& current, QWidget* parent);
