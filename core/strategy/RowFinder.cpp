#include "core/strategy/RowFinder.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::size_t kMostProblems = 120;
constexpr std::size_t kMostNodes = 150;  // taken apart, of a problem
constexpr double kLeastGain = 1e-8;      // percent: smaller ones are not looked for

double SumOver(const WordedHold::Bits& bits, const std::vector<double>& values) {
    double sum = 0;
    for (std::size_t i = 0; i < bits.size(); ++i) {
        for (std::uint64_t word = bits[i]; word != 0; word &= word - 1) {
            sum += values[i * 64 + static_cast<std::size_t>(std::countr_zero(word))];
        }
    }
    return sum;
}

}  // namespace

std::optional<RowFinder::Found> RowFinder::Find(Board& board, double gain) {
    most = std::max(gain, kLeastGain);
    found.reset();
    for (const Problem& problem : Problems(board, most)) {
        if (problem.hope <= most) break;
        Solve(board, problem);
    }
    return found;
}

// Holds with places, those first that promise most.
std::vector<RowFinder::Problem> RowFinder::Problems(const Board& board, double gain) const {
    std::vector<Problem> problems;
    std::vector<double> ofLook(board.Rows());
    for (std::size_t i = 0; i < holds.size(); ++i) {
        std::vector<double> hopes(board.Rows());
        for (const std::uint32_t look : holds[i].looks) {
            board.GainsOf(look, ofLook);
            for (std::size_t place = 0; place < hopes.size(); ++place) {
                hopes[place] += std::max(ofLook[place], 0.0);
            }
        }
        for (std::size_t place = 0; place < hopes.size(); ++place) {
            if (hopes[place] > gain) problems.push_back({hopes[place], i, place});
        }
    }
    std::ranges::stable_sort(problems, std::ranges::greater(), &Problem::hope);
    problems.resize(std::min(problems.size(), kMostProblems));
    return problems;
}

void RowFinder::Solve(Board& board, const Problem& problem) {
    const WordedHold& hold = holds[problem.hold];
    std::vector<double> ofLook(board.Rows());
    gains.clear();
    for (const std::uint32_t look : hold.looks) {
        board.GainsOf(look, ofLook);
        gains.push_back(ofLook[problem.place]);
    }
    Node root{problem.hope, {}, 0, WordedHold::Bits((hold.looks.size() + 63) / 64)};
    for (std::size_t i = 0; i < hold.looks.size(); ++i) {
        root.bits[i / 64] |= std::uint64_t{1} << (i % 64);
    }
    const auto lessHope = [](const Node& a, const Node& b) { return a.hope < b.hope; };
    std::vector<Node> nodes = {std::move(root)};
    for (std::size_t steps = 0; steps < kMostNodes && !nodes.empty(); ++steps) {
        std::ranges::pop_heap(nodes, lessHope);
        const Node node = std::move(nodes.back());
        nodes.pop_back();
        if (node.hope <= most) break;
        const std::size_t before = nodes.size();
        if (node.count < kMostWords) Expand(hold, node, nodes);
        for (std::size_t end = before + 1; end <= nodes.size(); ++end) {
            Try(board, hold, nodes[end - 1]);
            std::push_heap(nodes.begin(), nodes.begin() + static_cast<std::ptrdiff_t>(end),
                           lessHope);
        }
    }
}

void RowFinder::Try(Board& board, const WordedHold& hold, const Node& node) {
    if (SumOver(node.bits, gains) <= most) return;
    Candidate candidate{hold.row, hold.Chosen(node.bits)};
    const auto change = board.BestInsertion(candidate.looks);
    if (-change.loss <= most) return;
    for (std::size_t i = 0; i < node.count; ++i) {
        const Word& word = hold.words[node.words[i]];
        word.add(candidate.row, word);
    }
    most = -change.loss;
    found = {std::move(candidate), change};
}

// The node with each word behind its last, where this leaves something to hope for.
void RowFinder::Expand(const WordedHold& hold, const Node& node, std::vector<Node>& nodes) const {
    std::vector<std::size_t> promising;
    for (std::size_t i = 0; i < node.bits.size(); ++i) {
        for (std::uint64_t word = node.bits[i]; word != 0; word &= word - 1) {
            const std::size_t look = i * 64 + static_cast<std::size_t>(std::countr_zero(word));
            if (gains[look] > 0) promising.push_back(look);
        }
    }
    const std::size_t first = node.count == 0 ? 0 : node.words[node.count - 1] + std::size_t{1};
    for (std::size_t word = first; word < hold.words.size(); ++word) {
        const auto clashes = [&](std::uint16_t other) {
            return !GoTogether(hold.words[other], hold.words[word]);
        };
        if (std::any_of(node.words.begin(), node.words.begin() + node.count, clashes)) continue;
        const WordedHold::Bits& bits = hold.bits[word];
        double hope = 0;
        for (const std::size_t look : promising) {
            if ((bits[look / 64] >> (look % 64) & 1) != 0) hope += gains[look];
        }
        if (hope <= most) continue;
        Node further = node;
        further.hope = hope;
        for (std::size_t i = 0; i < bits.size(); ++i) further.bits[i] &= bits[i];
        if (further.bits == node.bits) continue;
        further.words[further.count++] = static_cast<std::uint16_t>(word);
        nodes.push_back(std::move(further));
    }
}
