// Writing pay tables to the main profile file. A game's tables form a chain from its table 0 on;
// indices are never given anew, so that a chain may skip numbers.
//
// A change is done as a whole or not at all: what returns false has left the main profile file as
// it was. Analyses of tables that are gone go with them; that of a table whose pays have changed is
// left to the caller, as is the end of a note (TableEdit).
#pragma once
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/paytable/PayTableTexts.h"
#include "core/profile/ProfileFile.h"

inline constexpr int kLastTableIndex = 254;
inline constexpr std::size_t kLongestGameName = 80;  // bytes

struct PayTableFiles {
    ProfileOnDisk main;
    std::string analysisPath;  // need not exist
    std::string chartsPath{};  // of strategies; need not exist, empty = there are none
    std::string gamePath{};  // in use; when it is given, changes that other files follow are noted
};

// A change in the main profile file that other files follow: the analyses, and in the game room the
// game files. It is noted there with the change itself, in the section "Unfinished", until all have
// followed, so that the next start goes on where a program has ended in between. Following can be
// repeated. Of two notes the later one counts.
struct TableEdit {
    enum class Kind { kTableWritten, kTableDeleted, kGameDeleted, kGameRenamed };

    Kind kind = Kind::kTableWritten;
    std::string gameName;
    int tableIndex = 0;      // of a table
    std::string newName{};   // of a game that is renamed
    std::string gamePath{};  // in use at that time
};

// The edit that a note in the file says was begun and not finished; nothing when there is none.
std::optional<TableEdit> ReadUnfinishedEdit(const ProfileOnDisk& main);
void FinishEdit(const ProfileOnDisk& main);

// What a file keeps in sections of tables that are not what they were is removed, or renamed with
// their game: in memory, and of the analyses, as far as the disk takes it now, there too.
void FollowInSections(const ProfileOnDisk& profile, const TableEdit& edit);
void FollowInAnalyses(const PayTableFiles& files, const TableEdit& edit);

// The neighbours in the chain: -1 none; nothing leaves what is stored.
struct TableLinks {
    std::optional<int> next;
    std::optional<int> previous;
};
inline constexpr TableLinks kStoredLinks{};
inline constexpr TableLinks kNoNeighbours{-1, -1};

bool IsUserGame(int gameId);

// What is stored with user game slot 1..10; a slot without a game has the name "User Game 1" to
// "User Game 10".
std::string UserGameName(const ProfileOnDisk& main, int slot);

// Why the files could not keep a game under this name, as a sentence; empty when they can.
std::string GameNameProblem(std::string_view name);

// Everything is empty and the bet 5 where the table does not exist.
PayTableTexts ReadPayTableTexts(const ProfileOnDisk& main, const std::string& gameName,
                                int tableIndex);

// The index of the next and the previous table, as stored; -1 none.
int NextTable(const ProfileOnDisk& main, const std::string& gameName, int tableIndex);
int PreviousTable(const ProfileOnDisk& main, const std::string& gameName, int tableIndex);

// Keys of lines that the table does not have any more are removed. The name of a user game goes to
// its slot.
bool WritePayTable(const PayTableFiles& files, const TableOfGame& place, const PayTableTexts& table,
                   const TableLinks& links);

// Adds a table after the last one of the chain and returns its index: the first one after it that
// no table has, 0 for a game without tables. Nothing when the last index is taken. Here and below
// a game is meant whatever its table index.
std::optional<int> AppendTable(const PayTableFiles& files, const TableOfGame& game,
                               const PayTableTexts& table);

// Adds several tables, which are not none, so and at once. The index of the first one; the others
// have those behind it that no table had. Nothing when there are not as many left.
std::optional<int> AppendTables(const PayTableFiles& files, const TableOfGame& game,
                                std::span<const PayTableTexts> tables);

// Gives the section of a table this text, each line ended by '\n', but leaves its neighbours.
bool WriteTableSection(const PayTableFiles& files, const TableOfGame& place, std::string_view text);

// Removes a table, of index 1 or more, from the chain and from the files.
bool UnlinkTable(const PayTableFiles& files, const std::string& gameName, int tableIndex);

// Removes all tables of a user game, those behind a gap too, and empties its slot.
bool DeleteGameTables(const PayTableFiles& files, const TableOfGame& game);

// Gives all tables of a user game, their analyses and its slot another name, which no game has.
bool RenameGameTables(const PayTableFiles& files, const TableOfGame& game,
                      const std::string& newName);
