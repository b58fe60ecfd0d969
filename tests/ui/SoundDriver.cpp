// SoundDriver FOLDER: plays the wave files of the folder as the program does, one for each line of
// its input, which names the file without its ending; "to-end" waits for the end of the cash.
// Answers with the seconds of the monotonic clock before and after.
#include <QCoreApplication>
#include <array>
#include <chrono>
#include <iostream>
#include <string>

#include "ui/machine/QtSounds.h"

double Now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 2) return 2;
    QtSounds sounds(QString::fromLocal8Bit(argv[1]), [] { return false; });
    constexpr std::array kWaves{"cash",     "click", "arrow", "applause",
                                "drumroll", "card",  "hold",  "button"};
    std::cout.precision(15);
    for (std::string line; std::getline(std::cin, line);) {
        const double before = Now();
        for (std::size_t i = 0; i < kWaves.size(); ++i) {
            if (line == kWaves[i]) sounds.Play(static_cast<Wave>(i));
        }
        if (line == "to-end") sounds.PlayToEnd(Wave::kCash);
        if (line == "beep") sounds.Sound(Beep::kDefault);
        if (line == "exclamation") sounds.Sound(Beep::kExclamation);
        std::cout << before << ' ' << Now() << std::endl;
    }
    return 0;
}
