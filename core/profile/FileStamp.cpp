// POSIX, since the standard library knows neither devices nor inodes.
#include "core/profile/FileStamp.h"

#include <sys/stat.h>

std::optional<FileStamp> StampOf(const std::string& path) {
    struct stat now = {};
    if (stat(path.c_str(), &now) != 0 || !S_ISREG(now.st_mode)) return std::nullopt;
    return FileStamp{now.st_dev, now.st_ino, now.st_size, now.st_mtim.tv_sec, now.st_mtim.tv_nsec};
}
