#include "cli/NearestNames.h"

#include <algorithm>
#include <cstddef>
#include <tuple>

#include "cli/Texts.h"

namespace {

constexpr std::size_t kMaxSuggested = 3;
constexpr std::size_t kMaxTyped = 80;  // no name is longer: the time stays bounded

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

// Insertions, deletions and replacements of one character each.
std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row[b.size()];
}

struct Candidate {
    std::size_t score = 0;  // 0 when the name contains what was typed
    std::size_t distance = 0;
    std::string name;
};

}  // namespace

std::vector<std::string> NearestNames(std::string_view typed,
                                      const std::vector<std::string>& names) {
    const std::string wanted = LowerCase(typed.substr(0, kMaxTyped));
    std::vector<Candidate> candidates;
    for (const std::string& name : names) {
        const std::string lower = LowerCase(name);
        const std::size_t distance = EditDistance(wanted, lower);
        const bool contained = wanted.size() > 1 && lower.find(wanted) != std::string::npos;
        candidates.push_back({contained ? 0 : distance, distance, name});
    }
    std::ranges::stable_sort(candidates, [](const Candidate& a, const Candidate& b) {
        return std::tie(a.score, a.distance) < std::tie(b.score, b.distance);
    });
    std::vector<std::string> nearest;
    for (const Candidate& candidate : candidates) {
        if (nearest.size() == kMaxSuggested || candidate.score > candidates.front().score + 1) {
            break;
        }
        nearest.push_back(candidate.name);
    }
    return nearest;
}

std::string DidYouMean(std::string_view typed, const std::vector<std::string>& names) {
    std::vector<std::string> quoted;
    for (const std::string& name : NearestNames(typed, names)) quoted.push_back(Quoted(name));
    return quoted.empty() ? "" : ": did you mean " + Alternatives(quoted) + "?";
}
