// One change to any file at all. The first line of the input is the change, OPsection|key|value
// with one letter for OP, the rest is the file. Beyond not crashing: what was not changed is still
// there, what is read again is what was in memory, and writing what was read changes nothing.
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "core/profile/ProfileFile.h"

namespace {

constexpr auto kWhole = ProfileFile::kWholeValue;

void Require(bool holds) {
    if (!holds) std::abort();
}

std::string TakeUpTo(char end, std::string_view& text) {
    const auto piece = text.substr(0, text.find(end));
    text.remove_prefix(std::min(text.size(), piece.size() + 1));
    return std::string(piece);
}

std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The lines that are not blank, headers without what follows their name.
std::vector<std::string> LinesOf(std::string_view contents) {
    if (contents.starts_with("\xEF\xBB\xBF")) contents.remove_prefix(3);
    std::vector<std::string> lines;
    while (!contents.empty()) {
        auto line = TakeUpTo('\n', contents);
        while (line.ends_with('\r')) line.pop_back();
        if (line.starts_with('[')) line = line.substr(0, line.find(']')) + "]";
        if (!line.empty()) lines.push_back(line);
    }
    return lines;
}

// All lines but at most one are there, in their order, and at most a header and a key line have
// come.
void RequireOneLineChanged(std::string_view before, std::string_view after) {
    const auto a = LinesOf(before);
    const auto b = LinesOf(after);
    const auto same = std::ranges::mismatch(a, b);
    const auto tail = std::mismatch(a.rbegin(), std::make_reverse_iterator(same.in1), b.rbegin(),
                                    std::make_reverse_iterator(same.in2));
    Require(tail.first.base() - same.in1 <= 1);
    Require(tail.second.base() - same.in2 <= 2);
}

void RequireStable(const std::string& path) {
    std::string written[2];
    for (auto& contents : written) {
        ProfileFile file;
        file.WriteString("stable", "k", "v", path);
        Require(file.Flush());
        contents = ReadAll(path);
    }
    Require(written[0] == written[1]);
}

std::string_view WithoutBlankEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of('\n') + 1);
}

struct Change {
    char operation = ' ';
    std::string section, key, value;
};

Change TakeChange(std::string_view& input) {
    const auto line = TakeUpTo('\n', input);
    std::string_view rest = line;
    Change change;
    if (!rest.empty()) change.operation = rest.front();
    rest.remove_prefix(std::min<std::size_t>(rest.size(), 1));
    change.section = TakeUpTo('|', rest);
    change.key = TakeUpTo('|', rest);
    change.value = rest;
    return change;
}

void Apply(const Change& change, ProfileFile& file, const std::string& path) {
    const auto& [operation, section, key, value] = change;
    switch (operation) {
        case 'k':
            return file.WriteString(section, key, std::nullopt, path);
        case 'x':
            return file.WriteString(section, std::nullopt, std::nullopt, path);
        case 'r':
            return void(file.RenameSection(section, key, path));
        case 't':
            return file.SetSectionText(section, value, path);
        case 'i':
            return file.WriteInt(section, key, file.GetInt(section, key, 7, path), path);
        case 'd':
            return file.WriteDouble(section, key, file.GetDouble(section, key, 7, path), value,
                                    path);
        default:
            return file.WriteString(section, key, value, path);
    }
}

void Check(const Change& change, std::string_view before, const std::string& path) {
    const auto& [operation, section, key, value] = change;
    ProfileFile file;
    Apply(change, file, path);
    const bool changed = file.IsDirty();
    const auto kept = file.GetString(section, key, "none", kWhole, path);
    const auto text = file.GetSectionText(section, path);
    Require(file.Flush());
    const auto after = ReadAll(path);
    if (!changed) Require(after == before);
    if (operation != 'x' && operation != 't') RequireOneLineChanged(before, after);
    // A text may hold headers of its own, and is then read back as several sections.
    if (operation != 't' || !value.starts_with('[')) {
        ProfileFile again;
        Require(again.GetString(section, key, "none", kWhole, path) == kept);
        const auto textAgain = again.GetSectionText(section, path);
        Require(textAgain.has_value() == text.has_value());
        if (text) Require(WithoutBlankEnd(*textAgain) == WithoutBlankEnd(*text));
    }
    RequireStable(path);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string path = (std::filesystem::temp_directory_path() /
                                     ("tolvane-profile-fuzz-" + std::to_string(getpid()) + ".ini"))
                                        .string();
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto change = TakeChange(input);
    std::ofstream(path, std::ios::binary) << input;
    Check(change, input, path);
    std::filesystem::remove(path);
    return 0;
}
