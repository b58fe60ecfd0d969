// JSON as it is printed.
#pragma once
#include <nlohmann/json_fwd.hpp>
#include <string>

// One line with its end. Doubles read back exactly; bytes that are no UTF-8, as an old pay table
// file may hold, become U+FFFD.
std::string JsonText(const nlohmann::ordered_json& json);
