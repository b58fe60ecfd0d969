// CrashChild FILE: saves the game file over and over, going on from the number that it holds, until
// it is killed. Each save is told on the standard output, as the number before and its negative
// after it, in the machine's own 32 bits. Ends with 1 when a save fails.
#include <unistd.h>

#include "tests/core/store/CrashState.h"

namespace {

void Tell(std::int32_t number) {
    if (write(STDOUT_FILENO, &number, sizeof number) != sizeof number) _exit(2);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    const std::string path = arguments[1];
    ProfileFile file;
    for (std::int32_t n = file.GetInt("main", "Credits", 0, path) + 1;; ++n) {
        Tell(n);
        if (!SaveNumber(file, path, n)) return 1;
        Tell(-n);
    }
}
