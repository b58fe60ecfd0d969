#include "cli/Terminal.h"

#include <unistd.h>
#include <csignal>
#include <iostream>

#include "cli/Commands.h"

namespace cli {
namespace {

volatile std::sig_atomic_t wanted = 0;

void Note(int /*signal*/) { wanted = 1; }

constexpr auto kPause = std::chrono::milliseconds(15);
constexpr std::size_t kBarWidth = 40;

}  // namespace

Interrupt::Interrupt() {
    wanted = 0;
    struct sigaction before {};
    sigaction(SIGINT, nullptr, &before);
    if (before.sa_handler == SIG_IGN) return;
    struct sigaction action {};
    action.sa_handler = Note;
    // Files are written to the end.
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigaction(SIGINT, &action, nullptr);
}

Interrupt::~Interrupt() {
    struct sigaction now {};
    sigaction(SIGINT, nullptr, &now);
    if (now.sa_handler == Note) std::signal(SIGINT, SIG_DFL);
}

bool Interrupt::Wanted() const { return wanted != 0; }

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
    const auto full = static_cast<std::size_t>(percent) * kBarWidth / 100;
    const std::string text = work + std::to_string(percent) + "% [" + std::string(full, '#') +
                             std::string(kBarWidth - full, '.') + "]" + note;
    // Percentages only rise, so that each line covers the one before.
    width = text.size();
    std::cerr << '\r' + text << std::flush;
}

void Tell(std::string_view message) { std::cerr << kProgramName << ": " << message << '\n'; }

}  // namespace cli
