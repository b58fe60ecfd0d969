// POSIX, as AtomicFile is.
#include "core/profile/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace {

// The standard output or error, if that is the file; -1 otherwise.
int OwnOutput(const struct stat& file) {
    for (const int own : {STDOUT_FILENO, STDERR_FILENO}) {
        struct stat status = {};
        if (fstat(own, &status) == 0 && status.st_dev == file.st_dev &&
            status.st_ino == file.st_ino) {
            return own;
        }
    }
    return -1;
}

// A plain file among the own outputs is shared, so that what either writes follows the other's.
int OpenStream(const std::string& path, const struct stat& status) {
    const int own = S_ISREG(status.st_mode) ? OwnOutput(status) : -1;
    return own >= 0 ? fcntl(own, F_DUPFD_CLOEXEC, 0) : open(path.c_str(), O_WRONLY | O_CLOEXEC);
}

}  // namespace

OutputFile::OutputFile(const std::string& path) : path(path) {
    struct stat status = {};
    const bool exists = stat(path.c_str(), &status) == 0;
    if (!exists || (S_ISREG(status.st_mode) && OwnOutput(status) < 0)) {
        replacement.emplace(path);
    } else {
        stream = OpenStream(path, status);
        failed = stream < 0;
        if (failed) error = errno;
    }
}

OutputFile::~OutputFile() {
    if (stream >= 0) close(stream);
}

void OutputFile::Write(std::string_view piece) {
    if (failed || closed) return;
    failed = !(replacement ? replacement->Write(piece) : WriteAll(stream, piece));
    if (failed) error = errno;
}

bool OutputFile::Close() {
    if (std::exchange(closed, true)) return !failed;
    if (replacement) {
        failed = failed || !replacement->Commit();
    } else if (stream >= 0) {
        failed = close(std::exchange(stream, -1)) != 0 || failed;
    }
    return !failed;
}

bool OutputFile::CloseAs(const std::string& other) {
    if (!replacement || failed || closed) return Close();
    closed = true;
    failed = !replacement->CommitAs(other);
    return !failed;
}

std::string OutputFile::Problem() const {
    const int number = replacement ? replacement->Error() : error;
    return failed && number != 0 ? SystemErrorText(number) : "";
}

bool WriteOutputFile(const std::string& path, std::string_view contents) {
    OutputFile file(path);
    file.Write(contents);
    return file.Close();
}
