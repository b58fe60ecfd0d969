#include "core/strategy/CardLayout.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/text/Ranks.h"

namespace {

constexpr double kMargin = 4;
constexpr double kGutter = 4;  // between the columns
constexpr double kTitleSize = 3.6;
constexpr double kFiguresSize = 2.5;
constexpr double kPaysSize = 2;
constexpr double kLargest = 3.2;
constexpr double kSmallest = 0.2;
constexpr double kReadable = 1.9;  // smaller only without examples
constexpr double kSizeStep = 0.05;

// In sizes of the letters.
constexpr double kPitch = 1.22;
constexpr double kBase = 0.95;
constexpr double kRowGap = 0.3;
constexpr double kNumberGap = 0.5;
constexpr double kExampleGap = 0.8;
constexpr double kSuitSize = 0.62;
constexpr double kCardGap = 0.22;

// Thousandths of the size, from the blank on: the widths that the fonts of every PDF have.
constexpr std::array<int, 95> kWidths = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333,  278, 278, 556, 556, 556,
    556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667,
    611, 778, 722, 278, 500, 667, 556, 833, 722, 778, 667, 778, 722, 667,  611, 722, 667, 944, 667,
    667, 611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278,  556, 556, 222, 222, 500,
    222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,  500, 334, 260, 334, 584};
constexpr int kOtherWidth = 600;
// A reader that has another font has a wider one, mostly.
constexpr double kSpare = 1.15;

double WidthOf(const std::string& text, double size) {
    int width = 0;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= 0x80 && code < 0xC0) continue;  // the rest of a character
        const auto at = static_cast<std::size_t>(code) - ' ';
        width += code >= ' ' && at < kWidths.size() ? kWidths[at] : kOtherWidth;
    }
    return width * size * kSpare / 1000;
}

// Lines of at most that width, a word that is longer being one of its own.
std::vector<std::string> Wrapped(const std::string& text, double width, double size) {
    std::vector<std::string> lines;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        const std::string word = text.substr(at, end - at);
        if (!lines.empty() && WidthOf(lines.back() + " " + word, size) <= width) {
            lines.back() += " " + word;
        } else {
            lines.push_back(word);
        }
        at = end + 1;
    }
    if (lines.empty()) lines.emplace_back();
    return lines;
}

double ExampleWidth(const std::vector<CardFace>& example, double size) {
    double width = 0;
    for (const CardFace face : example) {
        width += WidthOf(std::string(1, RankChar(face.rank)), size) + kCardGap * size;
        if (!face.IsJoker()) width += kSuitSize * size;
    }
    return width;
}

class Layouter {
  public:
    Layouter(const ChartCard& card, int columns, double size, bool examples)
        : card(card), columns(columns), size(size), examples(examples) {}

    // Nothing when there is not room enough.
    std::optional<CardPage> LayOut() {
        LayOutHead();
        const double top = y;
        const double bottom = kCardHeight - kMargin;
        const double width =
            (kCardWidth - 2 * kMargin - (columns - 1) * kGutter) / static_cast<double>(columns);
        int column = 0;
        left = kMargin;
        for (std::size_t i = 0; i < card.lines.size(); ++i) {
            if (y + LayOutLine(i, width, false) > bottom) {
                if (++column == columns) return std::nullopt;
                left += width + kGutter;
                y = top;
                if (y + LayOutLine(i, width, false) > bottom) return std::nullopt;
            }
            y += LayOutLine(i, width, true);
        }
        if (column > 0) {
            const double middle = left - kGutter / 2;
            page.rules.push_back({middle, top, middle, bottom});
        }
        return std::move(page);
    }

  private:
    void LayOutHead() {
        const double width = kCardWidth - 2 * kMargin;
        const auto add = [&](const std::string& text, double letters, bool bold) {
            for (std::string& line : Wrapped(text, width, letters)) {
                page.texts.push_back(
                    {kMargin, y + kBase * letters, letters, bold, std::move(line)});
                y += kPitch * letters;
            }
        };
        add(card.title, kTitleSize, true);
        add(card.date + ", " + card.figures, kFiguresSize, false);
        add(card.pays, kPaysSize, false);
        y += kRowGap * kFiguresSize;
        page.rules.push_back({kMargin, y, kCardWidth - kMargin, y});
        y += kRowGap * kFiguresSize;
    }

    // The height of a line of the chart, which may take several.
    double LayOutLine(std::size_t number, double width, bool draw) {
        const auto& [words, example] = card.lines[number];
        const double indent = WidthOf(std::to_string(card.lines.size()), size) + kNumberGap * size;
        const double room = width - indent;
        const auto lines = Wrapped(words, room, size);
        double top = y;
        if (draw) {
            const std::string text = std::to_string(number + 1);
            page.texts.push_back({left + indent - kNumberGap * size - WidthOf(text, size),
                                  top + kBase * size, size, true, text});
        }
        for (const std::string& line : lines) {
            if (draw) {
                page.texts.push_back({left + indent, top + kBase * size, size, false, line});
            }
            top += kPitch * size;
        }
        const double wide = ExampleWidth(example, size);
        if (examples && wide > 0) {
            const bool beside = WidthOf(lines.back(), size) + kExampleGap * size + wide <= room;
            if (beside) top -= kPitch * size;
            if (draw) LayOutExample(example, left + width - wide, top);
            top += kPitch * size;
        }
        return top + kRowGap * size - y;
    }

    void LayOutExample(const std::vector<CardFace>& example, double at, double top) {
        for (const CardFace face : example) {
            const std::string rank(1, RankChar(face.rank));
            page.texts.push_back({at, top + kBase * size, size, false, rank});
            at += WidthOf(rank, size);
            if (!face.IsJoker()) {
                const double mark = kSuitSize * size;
                page.suits.push_back({at, top + kBase * size - mark, mark, face.suit});
                at += mark;
            }
            at += kCardGap * size;
        }
    }

    const ChartCard& card;
    int columns;
    double size;
    bool examples;
    CardPage page;
    double left = kMargin;
    double y = kMargin;
};

}  // namespace

// The largest letters that fit; of two ways at the same size, the one column.
CardPage LayOutCard(const ChartCard& card) {
    for (const auto& [examples, smallest] :
         {std::pair(true, kReadable), std::pair(false, kSmallest)}) {
        const auto steps = static_cast<int>((kLargest - smallest) / kSizeStep);
        for (int step = 0; step <= steps; ++step) {
            const double size = kLargest - step * kSizeStep;
            for (const int columns : {1, 2}) {
                if (auto page = Layouter(card, columns, size, examples).LayOut()) return *page;
            }
        }
    }
    return {};
}
