// One profile file as it is kept in memory (ProfileFile.h says what its names and values may be),
// and what was last seen of it on the disk.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/profile/FileStamp.h"

struct ProfileSection {
    std::string name;  // empty only for a header "[]", which no search finds
    std::string text;  // lines, each ended by '\n'
};

struct ProfileImage {
    std::string path;
    std::vector<ProfileSection> sections;
    std::string preamble;            // what stands before the first header, a byte order mark too
    bool dirty = false;              // has changes that wait to be written
    std::optional<FileStamp> stamp;  // of the file as read or written last; none = blocked
    std::size_t hash = 0;            // of its contents then

    // Takes a text for its own.
    void Parse(std::string_view contents);
    // Takes what has just been read of the file, which had this stamp before.
    void TakeFile(std::string_view contents, const std::optional<FileStamp>& ofFile);
    // What is to stand in the file.
    std::string Contents() const;

    // The section of that name; null when it is missing.
    ProfileSection* FindSection(std::string_view name);
    // The same, added at the end when it is missing; null when it could then not be read back under
    // this name.
    ProfileSection* FindOrAppendSection(std::string_view name);

    // The value of a key, valid until the image changes; nothing when it is missing.
    std::optional<std::string_view> FindValue(std::string_view section, std::string_view key);

    // Nothing when the names could not be read back.
    void SetKey(std::string_view section, std::string_view key, std::string_view value);
    void SetSectionText(std::string_view section, std::string_view text);
    // False when the section is missing, or the new name could not be read back.
    bool RenameSection(std::string_view section, std::string_view newName);

    void DeleteKey(std::string_view section, std::string_view key);
    // False when it is missing.
    bool DeleteSection(std::string_view name);

    // Whether the file is the one that was last read or written here.
    bool IsOnDisk();
    // Writes what waits to be written; true when nothing does any more.
    bool Write();
    // Writes it, whatever is there; false when the disk does not take it.
    bool Replace();
};
