#include "cli/ProgressBar.h"

#include <unistd.h>

#include <iostream>

namespace {

constexpr auto kPause = std::chrono::milliseconds(15);
constexpr std::size_t kBarWidth = 40;

}  // namespace

ProgressBar::ProgressBar(std::string work, std::string note)
    : work(std::move(work)), note(std::move(note)), onTerminal(isatty(STDERR_FILENO) == 1) {}

ProgressBar::~ProgressBar() {
    if (width > 0) std::cerr << '\r' + std::string(width, ' ') + '\r' << std::flush;
}

void ProgressBar::Show(double done, double all) {
    if (!onTerminal) return;
    const int percent = static_cast<int>(done / all * 100);
    if (percent == shownPercent) return;
    const auto now = Clock::now();
    if (now - lastDrawn < kPause) return;
    lastDrawn = now;
    shownPercent = percent;
    Draw(percent);
}

void ProgressBar::Draw(int percent) {
    const auto full = static_cast<std::size_t>(percent) * kBarWidth / 100;
    const std::string text = work + std::to_string(percent) + "% [" + std::string(full, '#') +
                             std::string(kBarWidth - full, '.') + "]" + note;
    // Percentages only rise, so that each line covers the one before.
    width = text.size();
    std::cerr << '\r' + text << std::flush;
}
