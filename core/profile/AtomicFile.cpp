// The one place of the profile files that needs POSIX: the standard library can neither bring a
// file to the disk nor ask whether it may be written.
#include "core/profile/AtomicFile.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <system_error>
#include <utility>

#include "core/text/Numbers.h"

namespace {

constexpr std::size_t kReadSize = 65536;
constexpr int kMaxLinks = 40;  // as many as the system itself follows
constexpr std::string_view kNewName = ".tolvane-new-";
constexpr std::size_t kRandomBytes = 16;
constexpr std::string_view kHexDigits = "0123456789abcdef";
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

// The name does not hold the target's, which may already be as long as a name can be. Empty when
// the system has no random bits.
std::string NewName() {
    std::array<std::uint8_t, kRandomBytes> bits{};
    if (getrandom(bits.data(), bits.size(), 0) != static_cast<ssize_t>(bits.size())) return "";
    std::string name(kNewName);
    for (const std::uint8_t byte : bits) {
        name += kHexDigits[byte >> 4];
        name += kHexDigits[byte & 0xF];
    }
    return name;
}

// Earlier releases put two numbers there, or "game".
bool IsNewName(std::string_view name) {
    if (!name.starts_with(kNewName)) return false;
    const std::string_view rest = name.substr(kNewName.size());
    if (rest.size() == 2 * kRandomBytes) {
        return rest.find_first_not_of(kHexDigits) == std::string_view::npos;
    }
    return rest == "game" ||
           (!rest.empty() && rest.find_first_not_of("0123456789-") == std::string_view::npos);
}

// What killed programs have left. The age decides and not the process of the name: on a shared disk
// that may run on another machine.
void RemoveLeftovers(const std::filesystem::path& folder) {
    const auto tooOld = std::filesystem::file_time_type::clock::now() - kLeftAfter;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    while (!error && entry != std::filesystem::directory_iterator()) {
        std::error_code ignored;
        if (IsNewName(entry->path().filename().string()) &&
            entry->symlink_status(ignored).type() == std::filesystem::file_type::regular) {
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

// Whether it is not there or may be written; otherwise errno says why not.
bool MayBeReplaced(const std::filesystem::path& file) {
    return faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) == 0 || errno == ENOENT;
}

std::filesystem::path FolderOf(const std::filesystem::path& path) {
    return path.has_parent_path() ? path.parent_path() : ".";
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

bool WriteAll(int descriptor, std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t written = write(descriptor, contents.data(), contents.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        contents.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Not mkstemp: it would give a file that is new for good the mode of a private one.
FileReplacement::FileReplacement(const std::string& path) {
    error = ELOOP;
    const auto behind = BehindLinks(path);
    if (!behind || behind->empty()) return;
    target = *behind;
    struct stat old = {};
    const bool exists = stat(target.c_str(), &old) == 0;
    error = exists && S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
    if (exists && !S_ISREG(old.st_mode)) return;
    if (exists) mode = old.st_mode & kPermissionBits;

    error = EACCES;
    const auto folder = FolderOf(target);
    RemoveLeftovers(folder);
    const std::string name = NewName();
    if (name.empty()) return;
    workingName = (folder / name).string();
    descriptor = open(workingName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                      exists ? kPrivateMode : kOrdinaryMode);
    error = descriptor < 0 ? errno : 0;
    if (descriptor >= 0 && exists && !CopyOwnerAndMode(descriptor, old)) {
        Fail();
        GiveUp();
    }
}

FileReplacement::~FileReplacement() { GiveUp(); }

void FileReplacement::GiveUp() {
    if (descriptor < 0) return;
    close(std::exchange(descriptor, -1));
    unlink(workingName.c_str());
}

// Notes why.
bool FileReplacement::Fail() {
    error = errno;
    return false;
}

bool FileReplacement::Write(std::string_view piece) {
    if (descriptor < 0) return false;
    if (WriteAll(descriptor, piece)) return true;
    Fail();
    GiveUp();
    return false;
}

bool FileReplacement::Commit() {
    if (descriptor < 0) return false;
    if (!MayBeReplaced(target)) {
        Fail();
        GiveUp();
        return false;
    }
    const bool written = fsync(descriptor) == 0 || Fail();
    // A network file system may report here only that it could not write.
    const bool closed = close(std::exchange(descriptor, -1)) == 0 || Fail();
    if (!written || !closed || (std::rename(workingName.c_str(), target.c_str()) != 0 && !Fail())) {
        unlink(workingName.c_str());
        return false;
    }
    SyncFolder(FolderOf(target));
    return true;
}

bool FileReplacement::CommitAs(const std::string& path) {
    if (descriptor < 0) return false;
    target = FolderOf(target) / std::filesystem::path(path).filename();
    // It is not to be protected as the old file is, or it could not be written again.
    if (mode != 0) fchmod(descriptor, mode | S_IWUSR);
    return Commit();
}

bool ReplaceFile(const std::string& path, std::string_view contents) {
    FileReplacement file(path);
    return file.Write(contents) && file.Commit();
}

std::string SystemErrorText(int error) { return std::generic_category().message(error); }

bool RenameFile(const std::string& from, const std::string& to) {
    if (std::rename(from.c_str(), to.c_str()) != 0) return false;
    SyncFolder(FolderOf(to));
    return true;
}
