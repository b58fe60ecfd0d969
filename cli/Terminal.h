// What passes between a command and the terminal besides its answer.
#pragma once
#include <chrono>
#include <string>
#include <string_view>

namespace cli {

// A line on standard error, in the program's name.
void Tell(std::string_view message);

// Ctrl+C as a wish to stop and still have what is done so far. As long as this lives, the first
// Ctrl+C only sets a flag; a second one ends the program. Where the shell has told the program to
// take no notice of Ctrl+C, it takes none. At most one at a time.
class Interrupt {
  public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    bool Wanted() const;
};

// How far long work has come, in one line of the terminal. Nothing is drawn when standard
// error is none.
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

    std::string work;
    std::string note;
    bool onTerminal;
    int shownPercent = -1;
    std::size_t width = 0;  // of the line as it stands there
    Clock::time_point lastDrawn;
};

}  // namespace cli
