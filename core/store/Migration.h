// Making the live data files of the shipped ones: at the first start, and when those of a release
// that knew one pay table a game are found.
#pragma once

class ProfileFile;
struct DataFilePaths;

// Does nothing when the main profile file says with "Ver" that it is of this release. Without a
// readable main profile file the shipped files become the live ones. Otherwise an earlier release's
// is there: it and its analysis cache are kept as "Tolvane.old" and "Game Analyses.old", the
// shipped ones take their places with the player's own games, and all game files of the data folder
// are brought to the layout with several pay tables a game.
//
// The shipped files are used up; when they lie elsewhere than the data, copies of them are.
// Whatever cannot be renamed, deleted, copied, read or written is left as it is, and the rest goes
// on. No file that is there is written over, but the backups of an earlier time.
void MigrateDataFiles(const DataFilePaths& paths, ProfileFile& file);
