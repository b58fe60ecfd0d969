// The sanitizers' own versions of these functions are passed over with those of the C library.
#include "tests/core/store/DiskSteps.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>

namespace disk {

namespace {

int count = 0;
int fatal = 0;  // the number of the step; 0 = none
Fate fate = Fate::kKilled;

enum class Next { kGoOn, kHalf, kRefused };

// Every step begins here.
Next Step(bool needsRoom, bool isWrite) {
    if (fate == Fate::kCutInHalf && !isWrite) return Next::kGoOn;
    ++count;
    if (fatal == 0 || count < fatal) return Next::kGoOn;
    if (fate == Fate::kKilled) kill(getpid(), SIGKILL);
    if (fate == Fate::kCutInHalf) return Next::kHalf;
    if (!needsRoom) return Next::kGoOn;
    errno = ENOSPC;
    return isWrite && count == fatal ? Next::kHalf : Next::kRefused;
}

ssize_t Write(int file, const void* data, size_t size, off_t offset) {
    const bool isConsole = file <= STDERR_FILENO;
    const Next next = isConsole ? Next::kGoOn : Step(size > 0, true);
    if (next == Next::kRefused) return -1;
    if (next == Next::kHalf) size = (size + 1) / 2;
    const ssize_t written = offset < 0 ? syscall(SYS_write, file, data, size)
                                       : syscall(SYS_pwrite64, file, data, size, offset);
    if (next == Next::kHalf && fate == Fate::kCutInHalf) kill(getpid(), SIGKILL);
    return written;
}

bool IsRefused(bool needsRoom) { return Step(needsRoom, false) == Next::kRefused; }

template <class... Arguments>
int Do(bool needsRoom, long call, Arguments... arguments) {
    return IsRefused(needsRoom) ? -1 : static_cast<int>(syscall(call, arguments...));
}

}  // namespace

void Begin(int step, Fate itsFate) {
    count = 0;
    fatal = step;
    fate = itsFate;
}

int Count() { return count; }

}  // namespace disk

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = static_cast<mode_t>((flags & O_CREAT) != 0 ? va_arg(rest, int) : 0);
    va_end(rest);
    const bool changes = (flags & (O_CREAT | O_TRUNC)) != 0 || (flags & O_ACCMODE) != O_RDONLY;
    if (changes && disk::IsRefused((flags & O_CREAT) != 0)) return -1;
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}
ssize_t write(int file, const void* data, size_t size) { return disk::Write(file, data, size, -1); }
ssize_t pwrite(int file, const void* data, size_t size, off_t offset) {
    return disk::Write(file, data, size, offset);
}
int ftruncate(int file, off_t size) noexcept { return disk::Do(false, SYS_ftruncate, file, size); }
int fsync(int file) { return disk::Do(false, SYS_fsync, file); }
int fdatasync(int file) { return disk::Do(false, SYS_fdatasync, file); }
int fchmod(int file, mode_t mode) noexcept { return disk::Do(false, SYS_fchmod, file, mode); }
int fchown(int file, uid_t owner, gid_t group) noexcept {
    return disk::Do(false, SYS_fchown, file, owner, group);
}
int rename(const char* from, const char* to) noexcept {
    return disk::Do(false, SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0);
}
int link(const char* from, const char* to) noexcept {
    return disk::Do(true, SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0);
}
int symlink(const char* target, const char* path) noexcept {
    return disk::Do(true, SYS_symlinkat, target, AT_FDCWD, path);
}
int unlink(const char* path) noexcept { return disk::Do(false, SYS_unlinkat, AT_FDCWD, path, 0); }
int rmdir(const char* path) noexcept {
    return disk::Do(false, SYS_unlinkat, AT_FDCWD, path, AT_REMOVEDIR);
}
int remove(const char* path) noexcept {
    struct stat status = {};
    const bool isFolder = lstat(path, &status) == 0 && S_ISDIR(status.st_mode);
    return isFolder ? rmdir(path) : unlink(path);
}
int mkdir(const char* path, mode_t mode) noexcept {
    return disk::Do(true, SYS_mkdirat, AT_FDCWD, path, mode);
}

}  // extern "C"
