// The steps by which this process changes the disk, counted, so that a test can end the process, or
// fill the disk, at exactly one of them. A step is one call of the C library that writes, syncs,
// renames, deletes or makes something, whoever calls it, the C++ library included: DiskSteps.cpp
// defines these functions anew, and the program's own come first.
#pragma once

namespace disk {

enum class Fate {
    kKilled,     // before the step
    kCutInHalf,  // in the middle of the step; only writes are counted then
    kFull,       // the process lives on, but from this step on no more room is given
};

// From now on, counting anew: the step of that number, from 1, meets its fate. 0: none does.
void Begin(int step, Fate fate);

// The steps since then.
int Count();

}  // namespace disk
