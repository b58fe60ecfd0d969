#include "core/paytable/PayTableStore.h"

#include <algorithm>
#include <vector>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "core/text/Numbers.h"

namespace {

constexpr std::string_view kUserGames = "User Games";
constexpr std::string_view kUnfinished = "Unfinished";
constexpr std::size_t kTextSize = 81;  // texts of a pay table have at most 80 bytes
constexpr std::size_t kStoredIdLength = 4;

// One section of the main profile file.
class TableSectionAccess {
  public:
    TableSectionAccess(const ProfileOnDisk& main, const std::string& gameName, int tableIndex)
        : file(main.file), path(main.path), section(TableSection(gameName, tableIndex)) {}

    // Nothing when the key is missing.
    std::optional<std::string> Value(const std::string& key) const {
        constexpr std::string_view kNone = "\n";  // no value holds a line break
        std::string value = file.GetString(section, key, kNone, kTextSize, path);
        if (value == kNone) return std::nullopt;
        return value;
    }
    int Int(const std::string& key, int otherwise) const {
        return file.GetInt(section, key, otherwise, path);
    }

    void Write(const std::string& key, std::string_view value) const {
        file.WriteString(section, key, value, path);
    }
    void Write(const std::string& key, int value) const {
        file.WriteInt(section, key, value, path);
    }
    // Removes a key; false when there was none.
    bool Remove(const std::string& key) const {
        if (!Value(key)) return false;
        file.WriteString(section, key, std::nullopt, path);
        return true;
    }

  private:
    ProfileFile& file;
    const std::string& path;
    std::string section;
};

bool RemoveLine(const TableSectionAccess& table, int index) {
    bool found = false;
    for (const auto& key : KeysOfLine(index).All()) found = table.Remove(key) || found;
    return found;
}

void WriteSlot(const PayTableFiles& files, int gameId, const std::string& name) {
    if (!IsUserGame(gameId)) return;
    const int slot = gameId - kFirstUserGameId + 1;
    files.main.file.WriteString(kUserGames, std::to_string(slot),
                                std::to_string(gameId) + "," + name, files.main.path);
}

void Write(const PayTableFiles& files, const TableOfGame& place, const PayTableTexts& table,
           const TableLinks& links) {
    WriteSlot(files, place.gameId, place.gameName);
    const TableSectionAccess section(files.main, place.gameName, place.tableIndex);
    if (links.next) section.Write("NextIndex", *links.next);
    if (links.previous) section.Write("PrevIndex", *links.previous);
    for (const auto& [key, value] : KeysOfTable(table)) section.Write(key, value);
    for (int i = LineCount(table); RemoveLine(section, i) || i < kMaxPayLines; ++i) {
    }
}

std::string EmptySlotName(int slot) { return "User Game " + std::to_string(slot); }

// Writes the note into the change that it is about, so that both reach the disk at once.
void Note(const PayTableFiles& files, const TableEdit& edit) {
    if (files.gamePath.empty()) return;
    const auto write = [&](std::string_view key, const std::string& value) {
        files.main.file.WriteString(kUnfinished, key, value, files.main.path);
    };
    write("Edit", std::to_string(static_cast<int>(edit.kind)));
    write("Game", edit.gameName);
    write("Table", std::to_string(edit.tableIndex));
    write("NewName", edit.newName);
    write("GameFile", files.gamePath);
}

}  // namespace

bool IsUserGame(int gameId) {
    return gameId >= kFirstUserGameId && gameId < kFirstUserGameId + kMaxUserGames;
}

std::string UserGameName(const ProfileOnDisk& main, int slot) {
    const std::string stored = main.file.GetString(kUserGames, std::to_string(slot), "",
                                                   ProfileFile::kWholeValue, main.path);
    if (stored.size() <= kStoredIdLength + 1) return EmptySlotName(slot);
    return stored.substr(kStoredIdLength + 1);
}

std::string GameNameProblem(std::string_view name) {
    if (name.empty()) return "Game name can not be blank";
    if (name.size() > kLongestGameName) {
        return "Game name can not be longer than 80 characters";
    }
    const bool hasLineBreak = std::ranges::any_of(name, [](char c) { return c >= 0 && c < ' '; });
    if (hasLineBreak || name.starts_with('[') || name.find_first_of("]=") != std::string::npos) {
        return "Game name can not contain ] or = or line breaks, and can not begin with [";
    }
    // Where a game file keeps the dates of the errors of a game, which would mix with the
    // statistics.
    if (SameText(name.substr(0, kErrorDates.size()), kErrorDates)) {
        return "Game name can not begin with Error Dates";
    }
    if (name.front() == ' ' || name.back() == ' ') {
        return "Game name can not begin or end with a blank";
    }
    return "";
}

PayTableTexts ReadPayTableTexts(const ProfileOnDisk& main, const std::string& gameName,
                                int tableIndex) {
    const TableSectionAccess section(main, gameName, tableIndex);
    return TextsOfKeys([&](const std::string& key) { return section.Value(key); });
}

int NextTable(const ProfileOnDisk& main, const std::string& gameName, int tableIndex) {
    return TableSectionAccess(main, gameName, tableIndex).Int("NextIndex", -1);
}

int PreviousTable(const ProfileOnDisk& main, const std::string& gameName, int tableIndex) {
    return TableSectionAccess(main, gameName, tableIndex).Int("PrevIndex", -1);
}

bool WritePayTable(const PayTableFiles& files, const TableOfGame& place, const PayTableTexts& table,
                   const TableLinks& links) {
    return files.main.file.Change(files.main.path, [&] {
        Write(files, place, table, links);
        Note(files, {TableEdit::Kind::kTableWritten, place.gameName, place.tableIndex});
    });
}

std::optional<int> AppendTable(const PayTableFiles& files, const TableOfGame& game,
                               const PayTableTexts& table) {
    return AppendTables(files, game, {&table, 1});
}

std::optional<int> AppendTables(const PayTableFiles& files, const TableOfGame& game,
                                std::span<const PayTableTexts> tables) {
    const auto chain = TableChain(files.main, game.gameName);
    int last = chain.empty() ? -1 : chain.back();
    std::vector<int> indices;
    for (int index = last + 1; indices.size() < tables.size(); ++index) {
        if (index > kLastTableIndex) return std::nullopt;
        // A file edited by hand may have a table there that the chain does not lead to.
        if (chain.empty() || !TableExists(files.main, game.gameName, index)) {
            indices.push_back(index);
        }
    }
    const bool written = files.main.file.Change(files.main.path, [&] {
        for (std::size_t i = 0; i < tables.size(); ++i) {
            if (last >= 0) {
                TableSectionAccess(files.main, game.gameName, last).Write("NextIndex", indices[i]);
            }
            Write(files, {game.gameId, game.gameName, indices[i]}, tables[i], {-1, last});
            last = indices[i];
        }
    });
    return written ? std::optional(indices.front()) : std::nullopt;
}

bool WriteTableSection(const PayTableFiles& files, const TableOfGame& place,
                       std::string_view text) {
    const TableSectionAccess section(files.main, place.gameName, place.tableIndex);
    return files.main.file.Change(files.main.path, [&] {
        const auto next = section.Value("NextIndex");
        const auto previous = section.Value("PrevIndex");
        files.main.file.SetSectionText(TableSection(place.gameName, place.tableIndex), text,
                                       files.main.path);
        if (next) section.Write("NextIndex", *next);
        if (previous) section.Write("PrevIndex", *previous);
        Note(files, {TableEdit::Kind::kTableWritten, place.gameName, place.tableIndex});
    });
}

bool UnlinkTable(const PayTableFiles& files, const std::string& gameName, int tableIndex) {
    const TableEdit edit{TableEdit::Kind::kTableDeleted, gameName, tableIndex};
    const bool unlinked = files.main.file.Change(files.main.path, [&] {
        const int next = NextTable(files.main, gameName, tableIndex);
        const int previous = PreviousTable(files.main, gameName, tableIndex);
        files.main.file.DeleteSection(TableSection(gameName, tableIndex), files.main.path);
        if (TableExists(files.main, gameName, previous)) {
            TableSectionAccess(files.main, gameName, previous).Write("NextIndex", next);
        }
        if (TableExists(files.main, gameName, next)) {
            TableSectionAccess(files.main, gameName, next).Write("PrevIndex", previous);
        }
        Note(files, edit);
    });
    if (unlinked) FollowInAnalyses(files, edit);
    return unlinked;
}

bool DeleteGameTables(const PayTableFiles& files, const TableOfGame& game) {
    const TableEdit edit{TableEdit::Kind::kGameDeleted, game.gameName};
    const bool deleted = files.main.file.Change(files.main.path, [&] {
        FollowInSections(files.main, edit);
        WriteSlot(files, game.gameId, EmptySlotName(game.gameId - kFirstUserGameId + 1));
        Note(files, edit);
    });
    if (deleted) FollowInAnalyses(files, edit);
    return deleted;
}

bool RenameGameTables(const PayTableFiles& files, const TableOfGame& game,
                      const std::string& newName) {
    if (!GameNameProblem(newName).empty()) return false;
    const TableEdit edit{TableEdit::Kind::kGameRenamed, game.gameName, 0, newName};
    const bool renamed = files.main.file.Change(files.main.path, [&] {
        FollowInSections(files.main, edit);
        WriteSlot(files, game.gameId, newName);
        Note(files, edit);
    });
    if (renamed) FollowInAnalyses(files, edit);
    return renamed;
}

std::optional<TableEdit> ReadUnfinishedEdit(const ProfileOnDisk& main) {
    const auto text = [&](std::string_view key) {
        return main.file.GetString(kUnfinished, key, "", ProfileFile::kWholeValue, main.path);
    };
    constexpr int kKinds = 4;
    const int kind = main.file.GetInt(kUnfinished, "Edit", -1, main.path);
    if (kind < 0 || kind >= kKinds || text("Game").empty()) return std::nullopt;
    return TableEdit{static_cast<TableEdit::Kind>(kind), text("Game"),
                     main.file.GetInt(kUnfinished, "Table", 0, main.path), text("NewName"),
                     text("GameFile")};
}

void FinishEdit(const ProfileOnDisk& main) {
    main.file.DeleteSection(kUnfinished, main.path);
    main.file.Flush();
}

// No game has the new name, so what stands there is left over. What is renamed already stays.
void FollowInSections(const ProfileOnDisk& profile, const TableEdit& edit) {
    const auto& [file, path] = profile;
    const bool ofTable =
        edit.kind == TableEdit::Kind::kTableWritten || edit.kind == TableEdit::Kind::kTableDeleted;
    const int first = ofTable ? edit.tableIndex : 0;
    const int last = ofTable ? edit.tableIndex : kLastTableIndex;
    for (int i = first; i <= last; ++i) {
        const std::string section = TableSection(edit.gameName, i);
        if (edit.kind != TableEdit::Kind::kGameRenamed) {
            file.DeleteSection(section, path);
        } else if (file.GetSectionText(section, path)) {
            const std::string renamed = TableSection(edit.newName, i);
            if (!SameText(section, renamed)) file.DeleteSection(renamed, path);
            file.RenameSection(section, renamed, path);
        }
    }
}

// What the disk does not take now, a later flush brings there.
void FollowInAnalyses(const PayTableFiles& files, const TableEdit& edit) {
    FollowInSections({files.main.file, files.analysisPath}, edit);
    files.main.file.Flush();
}
