// The text files of named sections with key=value lines that everything is kept in. One object
// serves the whole program: it holds one file in memory, every operation names the file it means,
// and naming another writes the first one back (if changed) and reads the other. Changes that the
// disk does not take, because it is full perhaps, are kept until it does: they are what is read of
// their file, and every flush tries again. For one thread.
//
// A file that cannot be read is not loaded: reading gives the defaults, changes are dropped, and
// the next operation tries again. So a file is never created here, and one read by halves is never
// written. Names of sections and keys are the same in either letter case (ASCII); of several the
// first counts. Paths too are compared so. docs/profile-files.md has the syntax.
//
// Callers may rely on 200 sections, names of 255 characters, 8191 characters a section and 511 a
// line; more is read, kept and written as well.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class ProfileFile {
  public:
    // As the size of GetString: the value however long it is.
    static constexpr std::size_t kWholeValue = static_cast<std::size_t>(-1);

    ProfileFile() = default;
    ~ProfileFile();  // writes back what is not yet written
    ProfileFile(const ProfileFile&) = delete;
    ProfileFile& operator=(const ProfileFile&) = delete;

    // The value, or otherwise when the file, the section or the key is missing. A text of at most
    // size - 1 characters comes whole, a longer one is cut to its first size - 2.
    std::string GetString(std::string_view section, std::string_view key,
                          std::string_view otherwise, std::size_t size, const std::string& path);

    // By the rules of ParseInt and ParseDouble: a key without a value reads as 0. otherwise when
    // the file, the section or the key is missing.
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
    bool IsDirty() const { return dirty || !unsaved.empty(); }

    // Writes all changes, of whichever files. False when that failed for one: it is as it was
    // before, and its changes wait for the next call.
    bool Flush();

    // Flush, and whether this file is written: false too when it cannot be read, and changes to it
    // were dropped.
    bool Save(const std::string& path);

    // Gives up what is held of this file, for one that is replaced from outside.
    void Forget(const std::string& path);

    // Flush, after which nothing is held: what could not be written is given up.
    void Close();

  private:
    struct Section {
        std::string name;  // empty only for a header "[]", which no search finds
        std::string text;  // lines, each ended by '\n'
    };

    // Of a file that is not loaded any more and could not be written.
    struct UnsavedFile {
        std::string path;
        std::string contents;
    };

    bool Load(const std::string& path);
    std::vector<UnsavedFile>::iterator FindUnsaved(const std::string& path);
    void FlushLoaded();
    void Empty();
    void Parse(std::string_view contents);
    std::string Contents() const;
    Section* FindSection(std::string_view name);
    Section* FindOrAppendSection(std::string_view name);
    std::optional<std::string_view> FindValue(std::string_view section, std::string_view key);
    void SetKey(std::string_view section, std::string_view key, std::string_view value);
    void DeleteKey(std::string_view section, std::string_view key);

    std::vector<Section> sections;
    std::string preamble;  // what stands before the first header, a byte order mark too
    std::string loadedPath;
    bool loaded = false;
    bool dirty = false;
    std::vector<UnsavedFile> unsaved;  // one a file, never the loaded one
};

// Changes the file of that path as a whole or not at all, and saves it. False when it could not be
// saved, before or after: nothing is left of the change then.
bool ChangeFile(ProfileFile& file, const std::string& path, const std::function<void()>& change);
