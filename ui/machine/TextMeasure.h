// How large the machine's texts are. The layout asks through an interface, so that its arithmetic
// can be tried with made-up fonts and without a screen.
#pragma once
#include <QFont>
#include <QSize>
#include <string_view>

// No text of the machine is ever written smaller than this, in pixels.
inline constexpr int kReadableFontHeight = 8;

class TextMeasure {
  public:
    virtual ~TextMeasure() = default;

    // Width of one line of text (UTF-8) and height of a line, in pixels, in the machine's font of
    // that height.
    virtual QSize Measure(int fontHeight, std::string_view text) const = 0;
};

// Measures with MachineFont; needs a QGuiApplication.
class QtTextMeasure : public TextMeasure {
  public:
    QSize Measure(int fontHeight, std::string_view text) const override;
};

// The table's font, bold Arial or what stands for it here. A height is that of a whole line,
// accents and descents included, in pixels: the font has the largest pixel size whose line is no
// higher, so that rows of that height hold it. Heights below 1 count as 1. Text is placed without
// hinting: it is as wide when painted at any screen scale as when it was measured.
QFont MachineFont(int height);

// The largest height up to the given one at which text is no wider than width; never below
// kReadableFontHeight, even where the text stays too wide then, and never above height.
int FittingFontHeight(const TextMeasure& measure, int height, std::string_view text, int width);
