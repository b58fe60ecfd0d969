// POSIX, since the standard library has no locks between processes.
#include "core/store/LockFile.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <utility>

#include "core/text/Numbers.h"

namespace fs = std::filesystem;

namespace {

constexpr mode_t kOrdinaryMode = 0666;  // less the umask
constexpr std::size_t kLongestHolder = 512;
constexpr std::size_t kLongestName = 256;
constexpr int kTries = 10;

// Opens a lock file, never through a link, which may lead anywhere, and without waiting for a pipe.
// A file of another
// user may often be read and not written, and can be locked all the same. Programs started by this
// one must not inherit the lock and hold on to it. -1 with errno when there is no such file.
int Open(const std::string& path) {
    constexpr int kAlways = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    int descriptor = open(path.c_str(), O_RDWR | O_CREAT | kAlways, kOrdinaryMode);
    const int problem = errno;
    if (descriptor < 0) descriptor = open(path.c_str(), O_RDONLY | kAlways);
    struct stat opened = {};
    const bool plain =
        descriptor >= 0 && fstat(descriptor, &opened) == 0 && S_ISREG(opened.st_mode);
    if (plain) return descriptor;
    if (descriptor >= 0) close(descriptor);
    errno = problem;
    return -1;
}

// Whether a file that errno says could not be made lacks room, and not a place.
bool IsFull() { return errno == ENOSPC || errno == EDQUOT; }

bool CanWrite(const fs::path& folder) {
    return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::string UserName() {
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 4096> buffer{};
    const bool known =
        getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found;
    return known ? std::string(entry.pw_name) : std::to_string(geteuid());
}

std::string MachineName() {
    std::array<char, kLongestName> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? std::string(name.data()) : "";
}

// A full disk costs the others the name of the holder, not the lock.
void WriteHolder(int descriptor) {
    const std::string text =
        std::to_string(getpid()) + "\n" + UserName() + "\n" + MachineName() + "\n";
    if (ftruncate(descriptor, 0) != 0) return;
    [[maybe_unused]] const ssize_t ignored = pwrite(descriptor, text.data(), text.size(), 0);
}

// What is shown must not depend on who has written the file.
std::string TakeName(std::string_view& text) {
    const auto end = text.find('\n');
    std::string name(text.substr(0, std::min(end, kLongestName)));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    std::erase_if(name, [](char c) { return static_cast<unsigned char>(c) < ' '; });
    return name;
}

LockFile::Holder ReadHolder(int descriptor) {
    std::array<char, kLongestHolder> buffer{};
    const ssize_t length = pread(descriptor, buffer.data(), buffer.size(), 0);
    if (length <= 0) return {};
    std::string_view text(buffer.data(), static_cast<std::size_t>(length));
    LockFile::Holder holder;
    holder.process = std::max(0, ParseInt(TakeName(text)));
    holder.user = TakeName(text);
    holder.machine = TakeName(text);
    return holder;
}

}  // namespace

std::string LockFile::Holder::Text() const {
    if (process == 0) return "another user";
    std::string text = "process " + std::to_string(process);
    if (!user.empty()) text += " of " + user;
    if (!machine.empty()) text += " on " + machine;
    return text;
}

LockFile LockFile::OfDataFolder(const std::string& folder) {
    return {(fs::path(folder) / "Tolvane.lock").string(), false};
}

LockFile LockFile::OfGameFile(const std::string& gamePath) {
    std::error_code error;
    const fs::path behind = fs::weakly_canonical(gamePath, error);
    const fs::path file = error ? fs::path(gamePath) : behind;
    return {(file.parent_path() / ("." + file.filename().string() + ".lock")).string(), true};
}

LockFile::LockFile(std::string lockPath, bool goesWithTheLock)
    : path(std::move(lockPath)), passing(goesWithTheLock) {
    // Whoever held it may take the file away between its opening and the lock.
    for (int i = 0; i < kTries; ++i) {
        Try();
        if (state != State::kHeld || IsInPlace()) break;
        close(std::exchange(descriptor, -1));
        state = State::kNotKnown;
    }
    if (state == State::kHeld) WriteHolder(descriptor);
}

LockFile::~LockFile() { Release(); }

LockFile::LockFile(LockFile&& other) noexcept
    : path(std::move(other.path)),
      passing(other.passing),
      descriptor(std::exchange(other.descriptor, -1)),
      state(std::exchange(other.state, State::kRefused)),
      holder(std::move(other.holder)) {}

LockFile& LockFile::operator=(LockFile&& other) noexcept {
    if (this == &other) return *this;
    Release();
    path = std::move(other.path);
    passing = other.passing;
    descriptor = std::exchange(other.descriptor, -1);
    state = std::exchange(other.state, State::kRefused);
    holder = std::move(other.holder);
    return *this;
}

// flock, not the locks of fcntl: those would be lost as soon as any code of this process closed the
// file.
void LockFile::Try() {
    descriptor = Open(path);
    if (descriptor < 0) {
        const bool noRoom = IsFull();
        const bool writable = CanWrite(fs::path(path).parent_path());
        state = writable && !noRoom ? State::kNotKnown : State::kRefused;
    } else if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        state = State::kHeld;
    } else if (errno == EWOULDBLOCK) {
        state = State::kTaken;
        holder = ReadHolder(descriptor);
    } else {
        state = State::kNotKnown;
    }
}

bool LockFile::IsInPlace() const {
    struct stat opened = {};
    struct stat there = {};
    return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &there) == 0 &&
           opened.st_dev == there.st_dev && opened.st_ino == there.st_ino;
}

void LockFile::Release() {
    if (descriptor < 0) return;
    if (state == State::kHeld) {
        [[maybe_unused]] int ignored = ftruncate(descriptor, 0);
        // It goes while it is locked, so that nobody else can have begun to rely on it.
        if (passing && IsInPlace()) ignored = unlink(path.c_str());
    }
    close(std::exchange(descriptor, -1));
}
