// Making the live data files of the shipped ones: at the first start, and when those of a release
// that knew one pay table a game are found.
#pragma once
#include <string>
#include <vector>

class ProfileFile;
struct DataFilePaths;

// Does nothing when the main profile file says with "Ver" that it is of this release, or is there
// and cannot be read. Without a main profile file the shipped files become the live ones; a game
// file or an analysis cache that is there already stays. Otherwise an earlier release's is there:
// it and its analysis cache are kept as "Tolvane.old" and "Game Analyses.old", in place of older
// backups, the shipped ones take their places with the player's own games, and all game files of
// the data folder are brought to the layout with several pay tables a game. The shipped files are
// used up; when they lie elsewhere than the data, copies of them are.
//
// The main profile file of this release comes into its place last, and by that the work is done. A
// program that ends before, however it ends, has lost nothing, and the next start goes on: each
// step can be done again. What goes wrong is returned, a sentence or two for each file, with what
// the player can do; then too the work is not done, everything of the player's is there, and the
// files should not be played on before a later call has succeeded.
std::vector<std::string> MigrateDataFiles(const DataFilePaths& paths, ProfileFile& file);
