// A file that somebody has asked for by name, for the output of a command.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "core/profile/AtomicFile.h"

// A plain file, or none yet, gets the new contents as a whole when it is closed (FileReplacement).
// A device or a pipe is written to as it goes. So is the file that this program's own output or
// messages go to, behind what is there already: a file put in its place would not get the rest.
class OutputFile {
  public:
    // Opens the file; where that is a named pipe, waits for its reader.
    explicit OutputFile(const std::string& path);
    ~OutputFile();  // what was not closed leaves a plain file as it was
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // A failure is told by Close; what follows it is lost.
    void Write(std::string_view piece);

    // True when all has reached the file; asked again, the answer is the same.
    bool Close();
    // The same, but a plain file gets another name in the folder of the path, and the one there
    // stays as it was.
    bool CloseAs(const std::string& other);

    // The file that has the output: that of CloseAs, or a device or pipe as it was named.
    std::string Path() const { return replacement ? replacement->Path() : path; }

    // Why a step failed, in words of the system; empty when none did, or the system does not tell.
    std::string Problem() const;

  private:
    std::string path;
    std::optional<FileReplacement> replacement;
    int stream = -1;  // -1 = the file is replaced, or could not be opened
    bool failed = false;
    int error = 0;  // of a stream
    bool closed = false;
};

// Writes a whole output file at once. True when all has reached it.
bool WriteOutputFile(const std::string& path, std::string_view contents);
