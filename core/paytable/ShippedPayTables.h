// The pay tables as the program came with them, whatever has become of the files since.
#pragma once
#include <optional>
#include <string>
#include <string_view>

// The whole text, in the syntax of profile files.
std::string_view ShippedPayTables();

// The lines of a section, each ended by '\n', as the section of a profile file has them; nothing
// when none is shipped.
std::optional<std::string> ShippedSection(std::string_view section);
