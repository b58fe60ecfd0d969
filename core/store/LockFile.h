// Keeps two running programs from overwriting each other's data. The lock is the system's, on
// "Tolvane.lock" in the data folder: it ends with the process that holds it, however that ends. The
// file itself stays and says nothing by being there.
#pragma once
#include <string>

class LockFile {
  public:
    enum class State {
        kHeld,     // by this object, until it goes
        kTaken,    // another program, or another object, holds it
        kRefused,  // the folder is missing or cannot be written, or its disk knows no locks
    };

    // Tries once and does not wait.
    explicit LockFile(const std::string& folder);
    ~LockFile();
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    State GetState() const { return state; }

    // When taken, the process id of who holds it, to be shown; 0 when that is not known.
    int Holder() const { return holder; }

  private:
    void Try();
    void WriteHolder() const;
    int ReadHolder() const;

    int descriptor = -1;  // -1 = not open
    State state = State::kRefused;
    int holder = 0;
};
