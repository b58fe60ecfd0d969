// The one place of the profile files that needs POSIX: the standard library can neither bring a
// file to the disk nor ask whether it may be written.
#include "core/profile/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>

#include "core/text/Numbers.h"

namespace {

constexpr std::size_t kReadSize = 65536;
constexpr int kMaxLinks = 40;          // as many as the system itself follows
constexpr int kMaxNameAttempts = 100;  // leftovers of crashed programs may hold the first names
constexpr std::string_view kNewName = ".tolvane-new-";
constexpr std::chrono::hours kLeftAfter(1);  // no write takes as long
constexpr mode_t kPrivateMode = 0600;
constexpr mode_t kOrdinaryMode = 0666;  // less the umask
constexpr mode_t kPermissionBits = 07777;

// The file behind the links, which need not exist; nothing when the links run in a circle.
std::optional<std::filesystem::path> BehindLinks(std::filesystem::path path) {
    std::error_code error;
    for (int links = 0; links < kMaxLinks; ++links) {
        if (!std::filesystem::is_symlink(path, error)) return path;
        path = path.parent_path() / std::filesystem::read_symlink(path, error);
        if (error) return std::nullopt;
    }
    return std::nullopt;
}

struct NewFile {
    int descriptor = -1;  // -1 = could not be created
    std::string name;
};

// The name does not hold the target's, which may already be as long as a name can be. Not mkstemp:
// it would give a file that is new for good the mode of a private one.
NewFile CreateIn(const std::filesystem::path& folder, mode_t mode) {
    NewFile file;
    for (int attempt = 0; attempt < kMaxNameAttempts; ++attempt) {
        const std::string name =
            std::string(kNewName) + std::to_string(getpid()) + "-" + std::to_string(attempt);
        file.name = (folder / name).string();
        file.descriptor = open(file.name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (file.descriptor >= 0 || errno != EEXIST) break;
    }
    return file;
}

bool IsNewName(std::string_view name) {
    return name.starts_with(kNewName) && name.size() > kNewName.size() &&
           name.find_first_not_of("0123456789-", kNewName.size()) == std::string_view::npos;
}

// What killed programs have left. The age decides and not the process of the name: on a shared disk
// that may run on another machine.
void RemoveLeftovers(const std::filesystem::path& folder) {
    const auto tooOld = std::filesystem::file_time_type::clock::now() - kLeftAfter;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    while (!error && entry != std::filesystem::directory_iterator()) {
        std::error_code ignored;
        if (IsNewName(entry->path().filename().string()) && entry->is_regular_file(ignored)) {
            const auto written = entry->last_write_time(ignored);
            if (!ignored && written < tooOld) std::filesystem::remove(entry->path(), ignored);
        }
        entry.increment(error);
    }
}

bool CopyOwnerAndMode(int descriptor, const struct stat& old) {
    struct stat now = {};
    if (fstat(descriptor, &now) != 0) return false;
    const bool otherOwner = now.st_uid != old.st_uid || now.st_gid != old.st_gid;
    // Only the administrator may give a file away; the group alone may still be allowed.
    if (otherOwner && fchown(descriptor, old.st_uid, old.st_gid) != 0) {
        [[maybe_unused]] const int ignored = fchown(descriptor, static_cast<uid_t>(-1), old.st_gid);
    }
    return fchmod(descriptor, old.st_mode & kPermissionBits) == 0;
}

bool WriteAll(int descriptor, std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t written = write(descriptor, contents.data(), contents.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        contents.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// The rename itself has succeeded by now, and some file systems cannot sync a folder: no failure.
void SyncFolder(const std::filesystem::path& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    fsync(descriptor);
    close(descriptor);
}

}  // namespace

bool SamePath(const std::string& a, const std::string& b) {
    if (a == b || !SameText(a, b)) return a == b;
    std::error_code error;
    const bool both = std::filesystem::exists(a, error) && std::filesystem::exists(b, error);
    return !both || std::filesystem::equivalent(a, b, error);
}

bool SameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return SamePath(a, b) || (std::filesystem::equivalent(a, b, error) && !error);
}

// Plain files only: a folder opens but cannot be read, a pipe would be waited for, a device has no
// end.
std::optional<std::string> ReadWholeFile(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::string contents;
    std::string piece(kReadSize, '\0');
    while (file) {
        file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        contents.append(piece, 0, static_cast<std::size_t>(file.gcount()));
    }
    if (file.bad()) return std::nullopt;
    return contents;
}

bool ReplaceFile(const std::string& path, std::string_view contents) {
    const auto target = BehindLinks(path);
    if (!target) return false;
    struct stat old = {};
    const bool exists = stat(target->c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) return false;
    if (exists && faccessat(AT_FDCWD, target->c_str(), W_OK, AT_EACCESS) != 0) return false;

    const auto folder = target->has_parent_path() ? target->parent_path() : ".";
    RemoveLeftovers(folder);
    const NewFile file = CreateIn(folder, exists ? kPrivateMode : kOrdinaryMode);
    if (file.descriptor < 0) return false;
    const bool written = (!exists || CopyOwnerAndMode(file.descriptor, old)) &&
                         WriteAll(file.descriptor, contents) && fsync(file.descriptor) == 0;
    const bool closed = close(file.descriptor) == 0;  // a network file system may report here only
    if (!written || !closed || std::rename(file.name.c_str(), target->c_str()) != 0) {
        unlink(file.name.c_str());
        return false;
    }
    SyncFolder(folder);
    return true;
}
