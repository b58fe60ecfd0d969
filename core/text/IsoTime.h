// Times as files keep them: the same in every country and time zone.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

// "2026-11-23T20:15:09Z", in universal time, for seconds since 1970; empty when there is no such
// time.
std::string IsoTime(std::int64_t seconds);

// The seconds of such a text; nothing of any other.
std::optional<std::int64_t> ParseIsoTime(const std::string& text);
