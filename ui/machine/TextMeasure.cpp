#include "ui/machine/TextMeasure.h"

#include <QFontMetrics>
#include <QString>
#include <algorithm>

QSize QtTextMeasure::Measure(int fontHeight, std::string_view text) const {
    const QFontMetrics metrics(MachineFont(fontHeight));
    return {metrics.horizontalAdvance(QString::fromUtf8(text)), metrics.height()};
}

QFont MachineFont(int height) {
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setWeight(QFont::Bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    // A line is a good tenth higher than the pixel size, so this takes a few steps.
    for (int pixels = std::max(height, 1); pixels >= 1; --pixels) {
        font.setPixelSize(pixels);
        if (QFontMetrics(font).height() <= height) break;
    }
    return font;
}

int FittingFontHeight(const TextMeasure& measure, int height, std::string_view text, int width) {
    while (height > kReadableFontHeight && measure.Measure(height, text).width() > width) --height;
    return height;
}
