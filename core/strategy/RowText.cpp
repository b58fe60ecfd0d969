#include "core/strategy/RowText.h"

#include <algorithm>
#include <iterator>

#include "core/strategy/RowWords.h"

namespace {

using namespace row_words;

char RankChar(int rank) { return kRankChars[static_cast<std::size_t>(rank)]; }

std::string AmountText(const Amount& amount, std::string_view one, std::string_view many) {
    const std::string least = std::to_string(amount.least);
    if (amount.most == Amount::kNoEnd) return least + "+ " + std::string(many);
    if (amount.most != amount.least) {
        return least + "-" + std::to_string(amount.most) + " " + std::string(many);
    }
    return least + " " + std::string(amount.least == 1 ? one : many);
}

std::string SpanText(const RankSpan& span) {
    std::string text(1, RankChar(span.low));
    if (span.high != span.low) text += std::string("-") + RankChar(span.high);
    return text;
}

std::string BaseText(const Row& row) {
    if (row.base == Base::kPat) {
        return "pat " + std::string(kPatNames[static_cast<std::size_t>(row.pat)]) +
               (row.orBetter ? " or better" : "");
    }
    if (row.base == Base::kRanks) {
        std::string text;
        for (const std::int8_t rank : row.ranks) {
            if (rank >= 0) text += std::string(text.empty() ? "" : " ") + RankChar(rank);
        }
        return text;
    }
    const auto found = std::ranges::find_if(kBaseNames, [&row](const BaseName& name) {
        return name.base == row.base && (name.count == 0 || name.base == Base::kNothing ||
                                         name.base == Base::kTwoPair || name.count == row.count);
    });
    std::string text(found == std::end(kBaseNames) ? "" : found->name);
    if (found != std::end(kBaseNames) && found->count == 0) {
        if (row.count == 1 && text.ends_with('s')) text.pop_back();
        text = std::to_string(row.count) + " " + text;
    }
    if (row.height == Height::kHigh) return "high " + text;
    return (row.height == Height::kLow ? "low " : "") + text;
}

}  // namespace

std::string RowText(const Row& row) {
    std::string text = BaseText(row);
    for (const FlagName& flag : kFlagNames) {
        if (!flag.isSet(row)) continue;
        const bool joined = row.base == Base::kRanks && flag.text == "suited";
        text += (joined ? " " : ", ") + std::string(flag.text);
    }
    for (const AmountName& name : kAmountNames) {
        const Amount& amount = row.*name.amount;
        if (!amount.IsAny()) text += ", " + AmountText(amount, name.one, name.many);
    }
    for (const SpanName& name : kSpanNames) {
        const RankSpan& span = row.*name.span;
        if (!span.IsAny()) text += ", " + std::string(name.word) + " " + SpanText(span);
    }
    for (const SetName& name : kSetNames) {
        if (row.*name.ranks == 0) continue;
        text += ", " + std::string(name.word);
        for (int rank = kAceRank; rank >= 0; --rank) {
            if ((row.*name.ranks >> rank & 1) != 0) text += std::string(" ") + RankChar(rank);
        }
    }
    return text;
}
