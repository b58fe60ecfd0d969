// The palettes of usual desktops, as they come.
#pragma once
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <memory>
#include <utility>
#include <vector>

inline QPalette DarkPalette() {
    QPalette dark(QColor(49, 54, 59), QColor(49, 54, 59));  // button and window
    dark.setColor(QPalette::Base, QColor(35, 38, 41));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(role, QColor(239, 240, 241));
        dark.setColor(QPalette::Disabled, role, QColor(110, 113, 117));
    }
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    dark.setColor(QPalette::HighlightedText, QColor(239, 240, 241));
    dark.setColor(QPalette::Link, QColor(0, 0, 255));
    return dark;
}

inline std::vector<std::pair<const char*, QPalette>> UsualPalettes() {
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create("Fusion"));
    return {{"light", fusion->standardPalette()}, {"dark", DarkPalette()}};
}
