#include "core/strategy/Candidates.h"

#include <algorithm>
#include <bit>
#include <unordered_map>

namespace {

using Bits = WordedHold::Bits;

std::uint64_t KeyOf(std::uint32_t look) {
    std::uint64_t key = (look + 1) * 0x9E3779B97F4A7C15U;  // splitmix64
    key = (key ^ (key >> 30)) * 0xBF58476D1CE4E5B9U;
    key = (key ^ (key >> 27)) * 0x94D049BB133111EBU;
    return key ^ (key >> 31);
}

// Gathers candidates, leaving out those whose looks others have.
class Gatherer {
  public:
    explicit Gatherer(const std::function<bool(std::uint32_t)>& isOfUse) : isOfUse(isOfUse) {}

    // The number of the candidate that has the looks then; kNone when these are of no use.
    std::uint32_t Add(Candidate candidate) {
        const bool wanted =
            candidate.row.base == Base::kNothing || std::ranges::any_of(candidate.looks, isOfUse);
        if (!wanted) return Candidate::kNone;
        std::uint64_t key = candidate.looks.size();
        for (const std::uint32_t look : candidate.looks) key += KeyOf(look);
        const auto next = static_cast<std::uint32_t>(candidates.size());
        const auto [entry, isNew] = numbers.try_emplace(key, next);
        if (isNew) candidates.push_back(std::move(candidate));
        return entry->second;
    }

    std::vector<Candidate> candidates;

  private:
    const std::function<bool(std::uint32_t)>& isOfUse;
    std::unordered_map<std::uint64_t, std::uint32_t> numbers;  // of candidates, by key
};

// The looks taken apart, to find those that a row fits.
class LooksApart {
  public:
    LooksApart(const Terms& terms, const LookIndex& index) : terms(terms) {
        for (std::size_t i = 0; i < index.Count(); ++i) {
            traits.push_back(TraitsOf(terms, index.At(i)));
        }
    }

    std::vector<std::uint32_t> LooksOf(const Row& row) const {
        std::vector<std::uint32_t> looks;
        for (std::uint32_t i = 0; i < traits.size(); ++i) {
            if (Fits(row, traits[i], terms)) looks.push_back(i);
        }
        return looks;
    }

    Bits BitsOf(const Row& row, const std::vector<std::uint32_t>& among) const {
        Bits bits((among.size() + 63) / 64);
        for (std::size_t i = 0; i < among.size(); ++i) {
            if (Fits(row, traits[among[i]], terms)) bits[i / 64] |= std::uint64_t{1} << (i % 64);
        }
        return bits;
    }

  private:
    const Terms& terms;
    std::vector<HoldTraits> traits;
};

void AddWords(const LooksApart& all, Words& words, WordedHold& hold) {
    for (const Word& word : words.For(hold.row)) {
        Row further = hold.row;
        word.add(further, word);
        Bits bits = all.BitsOf(further, hold.looks);
        std::size_t left = 0;
        for (const std::uint64_t part : bits) left += static_cast<std::size_t>(std::popcount(part));
        if (left == 0 || left == hold.looks.size()) continue;
        // Of words that leave the same, the first is enough.
        if (std::ranges::find(hold.bits, bits) != hold.bits.end()) continue;
        hold.words.push_back(word);
        hold.bits.push_back(std::move(bits));
    }
}

// The numbers of the hold's candidates with one word, by word.
std::vector<std::uint32_t> AddWithOneWord(Gatherer& gatherer, const WordedHold& hold,
                                          std::uint32_t plain) {
    std::vector<std::uint32_t> numbers;
    for (std::size_t i = 0; i < hold.words.size(); ++i) {
        Row row = hold.row;
        hold.words[i].add(row, hold.words[i]);
        numbers.push_back(
            gatherer.Add({row, hold.Chosen(hold.bits[i]), {plain, Candidate::kNone}}));
    }
    return numbers;
}

void AddWithTwoWords(Gatherer& gatherer, const WordedHold& hold,
                     const std::vector<std::uint32_t>& withOne) {
    for (std::size_t a = 0; a < hold.words.size(); ++a) {
        for (std::size_t b = a + 1; b < hold.words.size(); ++b) {
            if (!GoTogether(hold.words[a], hold.words[b])) continue;
            Bits both = hold.bits[a];
            for (std::size_t i = 0; i < both.size(); ++i) both[i] &= hold.bits[b][i];
            if (both == hold.bits[a] || both == hold.bits[b]) continue;
            Row row = hold.row;
            hold.words[a].add(row, hold.words[a]);
            hold.words[b].add(row, hold.words[b]);
            gatherer.Add({row, hold.Chosen(both), {withOne[a], withOne[b]}});
        }
    }
}

}  // namespace

std::vector<std::uint32_t> WordedHold::Chosen(const Bits& chosen) const {
    std::vector<std::uint32_t> left;
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        for (std::uint64_t word = chosen[i]; word != 0; word &= word - 1) {
            left.push_back(looks[i * 64 + static_cast<std::size_t>(std::countr_zero(word))]);
        }
    }
    return left;
}

std::vector<WordedHold> MakeWordedHolds(const Terms& terms, const PayTable& table,
                                        const LookIndex& index, const Wording& wording) {
    const LooksApart all(terms, index);
    Words words(terms, table, wording);
    std::vector<WordedHold> holds;
    for (const Row& row : Holdings(terms)) {
        WordedHold hold{row, all.LooksOf(row), {}, {}};
        if (hold.looks.empty()) continue;
        AddWords(all, words, hold);
        holds.push_back(std::move(hold));
    }
    return holds;
}

std::vector<Candidate> MakeCandidates(std::span<const WordedHold> holds,
                                      const std::function<bool(std::uint32_t)>& isOfUse) {
    Gatherer gatherer(isOfUse);
    std::vector<std::uint32_t> plain;
    for (const WordedHold& hold : holds) plain.push_back(gatherer.Add({hold.row, hold.looks}));
    std::vector<std::vector<std::uint32_t>> withOne;
    for (std::size_t i = 0; i < holds.size(); ++i) {
        withOne.push_back(AddWithOneWord(gatherer, holds[i], plain[i]));
    }
    for (std::size_t i = 0; i < holds.size(); ++i) {
        AddWithTwoWords(gatherer, holds[i], withOne[i]);
    }
    return std::move(gatherer.candidates);
}
