// Keeps two running programs from overwriting each other's data. The lock is the system's, on a
// file that is there for nothing else: it ends with the process that holds it, however that ends.
#pragma once
#include <string>

class LockFile {
  public:
    enum class State {
        kHeld,      // by this object, until it goes
        kTaken,     // another program, or another object, holds it
        kRefused,   // the folder is missing, cannot be written or is full
        kNotKnown,  // it can, but its disk knows no locks, or something odd is in the lock's place
    };

    // Who holds a lock, as far as it is known.
    struct Holder {
        int process = 0;  // 0 = not known
        std::string user;
        std::string machine;

        // "process 4711 of ada on tower", with what is known of it; "another user" without
        // anything.
        std::string Text() const;
    };

    // Each tries once to take a lock and does not wait. The lock of a data folder is "Tolvane.lock"
    // in it, which stays and says nothing by being there. The lock of a game file is a hidden file
    // beside it, or beside the file behind a link, and goes with the lock.
    static LockFile OfDataFolder(const std::string& folder);
    static LockFile OfGameFile(const std::string& gamePath);

    ~LockFile();
    LockFile(LockFile&& other) noexcept;
    LockFile& operator=(LockFile&& other) noexcept;
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    State GetState() const { return state; }

    // Who holds the lock when the state is kTaken.
    const Holder& HeldBy() const { return holder; }

  private:
    LockFile(std::string path, bool passing);
    void Try();
    bool IsInPlace() const;
    void Release();

    std::string path;
    bool passing = false;  // the file goes with the lock
    int descriptor = -1;   // -1 = not open
    State state = State::kRefused;
    Holder holder;
};
