// The text files of named sections with key=value lines that everything is kept in. One object
// serves the whole program: every operation names the file it means, and naming another writes the
// first one back (if changed) and reads the other. Changes that the disk does not take, because it
// is full perhaps, are kept until it does: they are what is read of their file, and every flush
// tries again. For one thread.
//
// A file is written only while it is the one that was last read or written here: when somebody else
// has changed it, or taken it away, its changes wait as on a full disk. A file without changes of
// its own is read anew instead, but for the one that is held (Hold).
//
// A file that cannot be read is not loaded: reading gives the defaults, changes are dropped, and
// the next operation tries again. So no file is created by a change, and one read by halves is
// never written. Names of sections and keys are the same in either letter case (ASCII); of several
// the first counts. Paths too are compared so. docs/profile-files.md has the syntax.
//
// Callers may rely on 200 sections, names of 255 characters, 8191 characters a section and 511 a
// line; more is read, kept and written as well.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/profile/ProfileImage.h"

class ProfileFile {
  public:
    // Given to GetString for the size, it gets the value however long it is.
    static constexpr std::size_t kWholeValue = static_cast<std::size_t>(-1);

    ProfileFile() = default;
    ~ProfileFile();  // writes back what is not yet written
    ProfileFile(const ProfileFile&) = delete;
    ProfileFile& operator=(const ProfileFile&) = delete;

    // The value, or otherwise when the file, the section or the key is missing. A text of at most
    // size - 1 characters comes whole, a longer one is cut to its first size - 2.
    std::string GetString(std::string_view section, std::string_view key,
                          std::string_view otherwise, std::size_t size, const std::string& path);

    // The value read by the rules of ParseInt and ParseDouble: a key without a value reads as 0.
    // It is otherwise when the file, the section or the key is missing.
    std::int32_t GetInt(std::string_view section, std::string_view key, std::int32_t otherwise,
                        const std::string& path);
    std::int32_t GetLong(std::string_view section, std::string_view key, std::int32_t otherwise,
                         const std::string& path);
    double GetDouble(std::string_view section, std::string_view key, double otherwise,
                     const std::string& path);

    // The lines of the section, each ended by '\n', the blank ones before the next header included.
    // Nothing when the file or the section is missing.
    std::optional<std::string> GetSectionText(std::string_view section, const std::string& path);

    // Sets the key to the value up to its first line break. An existing line keeps its place and
    // the letter case of its key; a new one follows the section's last line that is not blank; a
    // new section follows the last one. Without a value the key's line is deleted; without a key
    // (whatever the value) the section; without a section, the key and the value absent too, it is
    // Flush, for whichever file. What could not be read back changes nothing: a new section whose
    // name is empty or holds ']' or a line break, a key that starts with '[' or holds '=' or a line
    // break.
    void WriteString(std::optional<std::string_view> section, std::optional<std::string_view> key,
                     std::optional<std::string_view> value, const std::string& path);

    // WriteString of the number; that of WriteDouble as FormatDouble writes it.
    void WriteInt(std::string_view section, std::string_view key, std::int32_t value,
                  const std::string& path);
    void WriteLong(std::string_view section, std::string_view key, std::int32_t value,
                   const std::string& path);
    void WriteDouble(std::string_view section, std::string_view key, double value,
                     std::string_view format, const std::string& path);

    // Replaces all lines of the section, which is appended when missing (unless its name could not
    // be read back). The text is taken as it stands, but blank lines at its end are not written,
    // and a line that starts with '[' will be read back as a header.
    void SetSectionText(std::string_view section, std::string_view text, const std::string& path);

    // Keeps the lines and the place. False when the section is missing or the new name could not be
    // read back.
    bool RenameSection(std::string_view section, std::string_view newName, const std::string& path);

    // False when it is missing.
    bool DeleteSection(std::string_view section, const std::string& path);

    // Whether there are changes, of whichever file, that have not reached the disk.
    bool IsDirty() const;

    // Writes all changes, of whichever files. False when that failed for one: it is as it was
    // before, and its changes wait for the next call.
    bool Flush();

    // Flush, and whether this file is written: false too when it cannot be read, and changes to it
    // were dropped.
    bool Save(const std::string& path);

    // Reads the file anew, unless changes to it wait, and holds it until another one is held: what
    // is read of it from now on is what was read now and changed here, whatever others do to it. So
    // what is computed from it is never mixed with what somebody else has put in its place. False
    // when it cannot be read: then it is blocked.
    bool Hold(const std::string& path);

    // Holds the file as an empty one, whatever is in it: changes are kept in memory, for WholeText,
    // and the file is never written.
    void Block(const std::string& path);

    enum class Standing {
        kOurs,     // the file is as it was last read or written here
        kChanged,  // by somebody else
        kMissing,
        kNotRead,  // it is blocked, or not loaded: it could not be read, or was never named
    };
    Standing StandingOf(const std::string& path);

    // All that would be written for the file now; nothing when it cannot be read.
    std::optional<std::string> WholeText(const std::string& path);

    // Changes the file as a whole or not at all, and saves it. False when it could not be saved,
    // before or after: nothing is left of the change then.
    bool Change(const std::string& path, const std::function<void()>& change);

    // Puts a file with this text, and the change made to it, in place of any that is there, at
    // once. False when it could not be written: what was there, or waits to be written there, is as
    // it was.
    bool Make(const std::string& path, std::string_view text, const std::function<void()>& change);

    // Gives up what is held of this file, changes too, for one that is replaced from outside.
    void Forget(const std::string& path);

    // Flush, after which nothing is held: what could not be written is given up.
    void Close();

  private:
    using Image = ProfileImage;

    Image* Load(const std::string& path);
    Image* Read(const std::string& path);
    Image* Add(const std::string& path, std::string_view text);
    void Refresh();
    void LeaveCurrent();
    void LeaveHeld();
    Image* Find(const std::string& path);
    std::unique_ptr<Image> Take(const std::string& path);
    bool IsHeld(const std::string& path) const;
    std::optional<std::string_view> FindValue(std::string_view section, std::string_view key,
                                              const std::string& path);

    // The current one, the one held, and those whose changes wait; one a file.
    std::vector<std::unique_ptr<Image>> images;
    Image* current = nullptr;  // of the file named last; null when it could not be read
    std::string held;          // its path; empty = none
};

// A profile file on the disk, and through what it is read and changed.
struct ProfileOnDisk {
    ProfileFile& file;  // outlives it
    std::string path;
};
