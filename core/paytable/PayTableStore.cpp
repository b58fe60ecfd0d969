#include "core/paytable/PayTableStore.h"

#include <algorithm>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "core/text/Numbers.h"
#include "core/text/Ranks.h"

namespace {

constexpr std::string_view kUserGames = "User Games";
constexpr std::string_view kUnfinished = "Unfinished";
constexpr std::size_t kTextSize = 81;  // texts of a pay table have at most 80 bytes
constexpr std::size_t kStoredIdLength = 4;
constexpr int kHighAce = 14;  // as which a lowest pair of aces is stored

struct LineKeys {
    std::string rank, description, payout, maxPayout, bonusQuads, kickers, wildsOK;
};

LineKeys KeysOf(int line) {
    const std::string i = std::to_string(line);
    return {"Rank" + i,       "Descr" + i,   "Payout" + i, "MaxPayout" + i,
            "BonusQuads" + i, "Trailer" + i, "WildsOK" + i};
}

// One section of the main profile file.
class TableSectionAccess {
  public:
    TableSectionAccess(const ProfileOnDisk& main, const std::string& gameName, int tableIndex)
        : file(main.file), path(main.path), section(TableSection(gameName, tableIndex)) {}

    std::string Text(const std::string& key, std::string_view otherwise = "") const {
        return file.GetString(section, key, otherwise, kTextSize, path);
    }
    int Int(const std::string& key, int otherwise) const {
        return file.GetInt(section, key, otherwise, path);
    }
    bool Flag(const std::string& key) const { return Int(key, 0) != 0; }
    std::string Ranks(const std::string& key) const { return FormatRankList(Text(key)); }

    void Write(const std::string& key, std::string_view value) const {
        file.WriteString(section, key, value, path);
    }
    void Write(const std::string& key, int value) const {
        file.WriteInt(section, key, value, path);
    }
    void WriteRanks(const std::string& key, const std::string& typed) const {
        Write(key, ParseRankList(typed).value_or(""));
    }
    // Removes a key; false when there was none.
    bool Remove(const std::string& key) const {
        constexpr std::string_view kNone = "\n";  // no value holds a line break
        if (file.GetString(section, key, kNone, ProfileFile::kWholeValue, path) == kNone) {
            return false;
        }
        file.WriteString(section, key, std::nullopt, path);
        return true;
    }

  private:
    ProfileFile& file;
    const std::string& path;
    std::string section;
};

PayLineTexts ReadLine(const TableSectionAccess& table, int index) {
    const LineKeys keys = KeysOf(index);
    PayLineTexts line;
    line.rank = HandRankFromNumber(table.Int(keys.rank, -1));
    line.description = table.Text(keys.description);
    line.payout = table.Text(keys.payout);
    line.maxPayout = table.Text(keys.maxPayout);
    line.bonusQuads = table.Ranks(keys.bonusQuads);
    line.kickers = table.Ranks(keys.kickers);
    line.wildsOK = table.Flag(keys.wildsOK);
    return line;
}

void WriteLine(const TableSectionAccess& table, int index, const PayLineTexts& line) {
    const LineKeys keys = KeysOf(index);
    table.Write(keys.rank, static_cast<int>(line.rank));
    table.Write(keys.description, line.description);
    table.Write(keys.payout, line.payout);
    table.Write(keys.maxPayout, line.maxPayout);
    table.WriteRanks(keys.bonusQuads, line.bonusQuads);
    table.WriteRanks(keys.kickers, line.kickers);
    table.Write(keys.wildsOK, line.wildsOK ? 1 : 0);
}

bool RemoveLine(const TableSectionAccess& table, int index) {
    const LineKeys keys = KeysOf(index);
    bool found = false;
    for (const auto& key : {keys.rank, keys.description, keys.payout, keys.maxPayout,
                            keys.bonusQuads, keys.kickers, keys.wildsOK}) {
        found = table.Remove(key) || found;
    }
    return found;
}

std::string StoredMinPair(const std::string& typed) {
    if (typed.empty()) return "";
    const int rank = ParseInt(ParseRankList(typed).value_or(""));
    return std::to_string(rank == 1 ? kHighAce : rank);
}

void WriteSettings(const TableSectionAccess& section, const PayTableTexts& table) {
    section.Write("Type", static_cast<int>(table.type));
    section.Write("UsesWilds", table.usesWilds ? 1 : 0);
    section.Write("Jokers", table.jokers);
    section.WriteRanks("WildCard", table.wildRanks);
    section.Write("MinPair", StoredMinPair(table.minPair));
    section.Write("MaxBet", table.maxBet);
    section.Write("CharlieBonus", table.charlieBonus ? 1 : 0);
    section.Write("RBBonus", table.redBlackBonus ? 1 : 0);
    section.Write("SpinBonus", table.spinBonus ? 1 : 0);
    section.Write("TgtBonus", table.targetBonus ? 1 : 0);
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
    WriteSettings(section, table);
    const int count = LineCount(table);
    for (int i = 0; i < count; ++i) WriteLine(section, i, table.lines[static_cast<std::size_t>(i)]);
    section.Write("PayLines", count);
    for (int i = count; RemoveLine(section, i) || i < kMaxPayLines; ++i) {
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

int LineCount(const PayTableTexts& table) {
    const auto end = std::ranges::find(table.lines, HandRank::kUnknown, &PayLineTexts::rank);
    return static_cast<int>(end - table.lines.begin());
}

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
    constexpr std::string_view kTaken = "Error Dates ";
    if (SameText(name.substr(0, kTaken.size()), kTaken)) {
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
    PayTableTexts table;
    const int type = section.Int("Type", 1);
    if (type >= 1 && type <= 6) table.type = static_cast<GameType>(type);
    const bool wildJacks = table.type == GameType::kOneEyedJacks;
    for (PayLineTexts& line : table.lines) line.wildsOK = wildJacks;
    table.usesWilds = section.Flag("UsesWilds");
    table.jokers = section.Text("Jokers");
    table.wildRanks = section.Ranks("WildCard");
    table.minPair = section.Ranks("MinPair");
    table.maxBet = section.Text("MaxBet", "5");
    table.charlieBonus = section.Flag("CharlieBonus");
    table.redBlackBonus = section.Flag("RBBonus");
    table.spinBonus = section.Flag("SpinBonus");
    table.targetBonus = section.Flag("TgtBonus");
    const int count = std::clamp(section.Int("PayLines", 0), 0, kMaxPayLines);
    for (int i = 0; i < count; ++i) table.lines[static_cast<std::size_t>(i)] = ReadLine(section, i);
    return table;
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
    const auto chain = TableChain(files.main, game.gameName);
    const int last = chain.empty() ? -1 : chain.back();
    int index = last + 1;
    // A file edited by hand may have a table there that the chain does not lead to.
    while (!chain.empty() && TableExists(files.main, game.gameName, index)) ++index;
    if (index > kLastTableIndex) return std::nullopt;
    const bool written = files.main.file.Change(files.main.path, [&] {
        if (last >= 0)
            TableSectionAccess(files.main, game.gameName, last).Write("NextIndex", index);
        Write(files, {game.gameId, game.gameName, index}, table, {-1, last});
    });
    return written ? std::optional(index) : std::nullopt;
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
