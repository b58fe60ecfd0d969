// POSIX, since the standard library has no locks between processes.
#include "core/store/LockFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>

#include "core/text/Numbers.h"

namespace {

constexpr mode_t kOrdinaryMode = 0666;  // less the umask
constexpr std::size_t kLongestHolder = 16;

}  // namespace

// Programs started by this one must not inherit the lock and hold on to it.
LockFile::LockFile(const std::string& folder)
    : descriptor(open((std::filesystem::path(folder) / "Tolvane.lock").c_str(),
                      O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kOrdinaryMode)) {
    if (descriptor >= 0) Try();
}

LockFile::~LockFile() {
    if (descriptor < 0) return;
    if (state == State::kHeld) {
        [[maybe_unused]] const int ignored = ftruncate(descriptor, 0);
    }
    close(descriptor);
}

// flock, not the locks of fcntl: those would be lost as soon as any code of this process closed the
// file.
void LockFile::Try() {
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        state = State::kHeld;
        WriteHolder();
    } else if (errno == EWOULDBLOCK) {
        state = State::kTaken;
        holder = ReadHolder();
    }
}

// A full disk costs the others the name of the holder, not the lock.
void LockFile::WriteHolder() const {
    const std::string text = std::to_string(getpid()) + "\n";
    if (ftruncate(descriptor, 0) != 0) return;
    [[maybe_unused]] const ssize_t ignored = pwrite(descriptor, text.data(), text.size(), 0);
}

int LockFile::ReadHolder() const {
    std::array<char, kLongestHolder> text{};
    const ssize_t length = pread(descriptor, text.data(), text.size(), 0);
    if (length <= 0) return 0;
    return std::max(0, ParseInt(std::string_view(text.data(), static_cast<std::size_t>(length))));
}
