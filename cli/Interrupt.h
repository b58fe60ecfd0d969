// Ctrl+C as a wish to stop and still have what is done so far.
#pragma once

// As long as it lives, the first Ctrl+C only sets a flag; a second one ends the program. Where the
// shell has told the program to take no notice of Ctrl+C, it takes none. At most one at a time.
class Interrupt {
  public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    bool Wanted() const;
};
