// Whether a file is still the one that was read or written, told without reading it again.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;     // bytes
    std::int64_t seconds = 0;  // of the last change of the contents, since 1970
    std::int64_t nanoseconds = 0;

    bool operator==(const FileStamp&) const = default;
};

// The stamp of the file behind the links; nothing when there is none, or something else than a
// plain file.
std::optional<FileStamp> StampOf(const std::string& path);
