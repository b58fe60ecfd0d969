// Files as a whole: telling them apart, reading one, and writing one so that its old contents are
// there until the new ones are, whatever happens in between.
#pragma once
#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// Whether two paths name one file. ASCII letters in either case are the same, unless the file
// system tells two such files apart and has both.
bool SamePath(const std::string& a, const std::string& b);

// Whether two paths lead to one file that is there, by links or other spellings too, or name one.
bool SameFile(const std::string& a, const std::string& b);

// What is in a file. Nothing when the path names something else than a plain file, or when not all
// of it could be read.
std::optional<std::string> ReadWholeFile(const std::string& path);

// Writes all contents, going on where the system has taken only a part or was interrupted. False
// when the rest could not be written.
bool WriteAll(int descriptor, std::string_view contents);

// A file that is written anew while its old contents stay in their place. The new contents go to a
// working file beside it, are brought to the disk and renamed over the old file by Commit; without
// Commit nothing changes. A symbolic link stays: the file behind it is replaced. The new file has
// the mode of the old one, and its owner and group where the system lets us; a missing file is
// created.
//
// The working file is named ".tolvane-new-" and 128 random bits, is created exclusively and never
// through a link: whoever else may write to the folder can neither foresee it nor lay anything in
// its way. A program that is killed in the middle may leave it. It is in nobody's way, and a
// replacement in the same folder an hour or more later takes it away.
class FileReplacement {
  public:
    // Cannot begin when the path names something else than a plain file, or when its folder takes
    // no new file.
    explicit FileReplacement(const std::string& path);
    ~FileReplacement();  // gives up what is not committed and leaves nothing of it
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    // False once a step has failed; nothing that follows helps then.
    bool Write(std::string_view piece);

    // Puts the new contents into place. True when the file has them; otherwise it is as it was, as
    // when it may not be written (as when opening it for writing). To be called at most once.
    bool Commit();
    // The same under another name beside the file, behind the links, which stays as it was and may
    // be one that must not be written.
    bool CommitAs(const std::string& path);

    // The file that gets or has got the contents, behind the links.
    std::string Path() const { return target.string(); }

    // The error number of the step that failed; 0 = none has, or the system does not tell.
    int Error() const { return error; }

  private:
    void GiveUp();
    bool Fail();

    std::filesystem::path target;  // behind the links
    std::string workingName;
    int descriptor = -1;  // -1 = could not begin, failed or ended
    mode_t mode = 0;      // of the old file; 0 = there was none
    int error = 0;
};

// Gives the file at path these contents, as FileReplacement does. False when any step fails: the
// old file is then as it was, and nothing is left beside it.
bool ReplaceFile(const std::string& path, std::string_view contents);

// What an error number means, in words: "No space left on device".
std::string SystemErrorText(int error);

// Gives a file another name in its folder, in place of any file that has it. False when nothing
// changed.
bool RenameFile(const std::string& from, const std::string& to);
