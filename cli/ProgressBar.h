// How far long work has come, in one line of the terminal. Nothing is drawn when standard
// error is none.
#pragma once
#include <chrono>
#include <string>

class ProgressBar {
  public:
    // "Analyzing game..." and the like stands before the percentage, the note behind the bar.
    ProgressBar(std::string work, std::string note);
    ~ProgressBar();  // leaves the line blank
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    // May be called as often as one likes: drawn is only a new whole percentage, and not before the
    // last one could be read.
    void Show(double done, double all);

  private:
    using Clock = std::chrono::steady_clock;

    void Draw(int percent);

    std::string work;
    std::string note;
    bool onTerminal;
    int shownPercent = -1;
    std::size_t width = 0;  // of the line as it stands there
    Clock::time_point lastDrawn;
};
