// A file of what can be computed again, such as analyses and strategy charts.
#pragma once
#include "core/profile/ProfileFile.h"

// Before it is written: makes an empty one where there is none, which is what a profile file starts
// from, and gives up what waits to be written to one that others have changed or taken away, as it
// never could be.
void PrepareComputedFile(const ProfileOnDisk& computed);
