#include "ui/charts/ChartParts.h"

#include <QPalette>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kDarkGround = 128;  // lightness below which a ground is dark

QColor Between(const QColor& a, const QColor& b, double share) {
    return QColor::fromRgbF(static_cast<float>(a.redF() + (b.redF() - a.redF()) * share),
                            static_cast<float>(a.greenF() + (b.greenF() - a.greenF()) * share),
                            static_cast<float>(a.blueF() + (b.blueF() - a.blueF()) * share));
}

}  // namespace

ChartColours ColoursOf(const QPalette& palette) {
    const QColor ground = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const bool dark = ground.lightness() < kDarkGround;
    return {ground, text, Between(ground, text, 0.25),
            dark ? QColor(0x6c, 0xb2, 0xf0) : QColor(0x1f, 0x66, 0xa8),
            dark ? QColor(0xf2, 0xa3, 0x5a) : QColor(0xb3, 0x54, 0x00)};
}

double RoundStep(double least, double smallest) {
    if (least <= smallest) return smallest;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least * (1 - 1e-9)) return std::max(factor * power, smallest);
    }
    return 10 * power;
}
