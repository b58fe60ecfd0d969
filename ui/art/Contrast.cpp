#include "ui/art/Contrast.h"

#include <array>
#include <cmath>

namespace {

constexpr double kMuchOnSelection =
    7;                      // what high contrast is at least where something is selected
constexpr int kSteps = 64;  // between a colour and black or white

using enum QPalette::ColorRole;
struct TextRole {
    QPalette::ColorRole text;
    QPalette::ColorRole ground;
};
constexpr std::array kTexts = {
    TextRole{WindowText, Window},    TextRole{Text, Base},
    TextRole{ButtonText, Button},    TextRole{ToolTipText, ToolTipBase},
    TextRole{PlaceholderText, Base}, TextRole{Link, Base},
    TextRole{LinkVisited, Base},
};
constexpr std::array kGroups = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

// Relative luminance, 0 to 1.
double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor Between(const QColor& from, const QColor& to, int step) {
    const auto mix = [step](int a, int b) { return a + (b - a) * step / kSteps; };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

}  // namespace

double Contrast(const QColor& a, const QColor& b) {
    const double x = Luminance(a) + 0.05;
    const double y = Luminance(b) + 0.05;
    return x > y ? x / y : y / x;
}

QColor ReadableOn(const QColor& ground, const QColor& text) {
    const bool dark = Contrast(ground, Qt::white) > Contrast(ground, Qt::black);
    QColor moved = text;
    moved.setAlpha(255);
    const QColor start = Between(ground, moved, kSteps * text.alpha() / 255);
    if (Contrast(ground, start) >= kReadable) return text;
    for (int step = 1; step <= kSteps; ++step) {
        moved = Between(start, dark ? Qt::white : Qt::black, step);
        if (Contrast(ground, moved) >= kReadable) break;
    }
    return moved;
}

QPalette Readable(QPalette palette) {
    for (const QPalette::ColorGroup group : kGroups) {
        const auto move = [&](QPalette::ColorRole moved, QPalette::ColorRole fixed) {
            const QColor before = palette.color(group, moved);
            const QColor readable = ReadableOn(palette.color(group, fixed), before);
            if (readable != before) palette.setColor(group, moved, readable);
        };
        for (const TextRole& role : kTexts) move(role.text, role.ground);
        move(Highlight, HighlightedText);
    }
    return palette;
}

bool IsHighContrast(const QPalette& palette) {
    const auto contrast = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
        return Contrast(palette.color(QPalette::Active, text),
                        palette.color(QPalette::Active, ground));
    };
    return contrast(WindowText, Window) >= kHighContrast && contrast(Text, Base) >= kHighContrast &&
           contrast(ButtonText, Button) >= kHighContrast &&
           contrast(HighlightedText, Highlight) >= kMuchOnSelection;
}

QPalette InHighContrast(QPalette palette) {
    const bool dark =
        Contrast(palette.color(Window), Qt::white) > Contrast(palette.color(Window), Qt::black);
    const QColor ground = dark ? Qt::black : Qt::white;
    const QColor text = dark ? Qt::white : Qt::black;
    for (const auto role :
         {Window, Base, AlternateBase, Button, ToolTipBase, HighlightedText, Light, Midlight}) {
        palette.setColor(role, ground);
    }
    for (const auto role :
         {WindowText, Text, ButtonText, ToolTipText, Highlight, Mid, Dark, PlaceholderText}) {
        palette.setColor(role, text);
    }
    const QColor link = dark ? QColor(255, 255, 0) : QColor(0, 0, 160);
    for (const auto role : {Link, LinkVisited}) palette.setColor(role, link);
    const QColor greyed = dark ? QColor(170, 170, 170) : QColor(85, 85, 85);
    for (const auto role : {WindowText, Text, ButtonText})
        palette.setColor(QPalette::Disabled, role, greyed);
    return palette;
}
