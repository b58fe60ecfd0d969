// What is said on standard error.
#pragma once
#include <string_view>

// A line in the program's name.
void Tell(std::string_view message);
