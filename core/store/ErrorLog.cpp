#include "core/store/ErrorLog.h"

#include <algorithm>

#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"
#include "core/text/IsoTime.h"
#include "core/text/Numbers.h"

namespace {

constexpr std::size_t kEntryBuffer = 81;

std::string ErrorKey(int index) { return "Error" + std::to_string(index); }

// Takes the field that the next separator ends off the text; empty, as is a field without
// characters, when no separator follows.
std::string_view TakeField(std::string_view& text) {
    const auto end = text.find_first_of(kListSeparators);
    if (end == std::string_view::npos) return {};
    const auto field = text.substr(0, end);
    text.remove_prefix(end + 1);
    return field;
}

bool HasField(std::string_view text) {
    return text.find_first_of(kListSeparators) != std::string_view::npos;
}

CardCode TakeCard(std::string_view& text) {
    if (!HasField(text)) return kNoCard;
    const CardCode code = ParseInt(TakeField(text));
    return code >= 0 && code < kCardBack ? code : kNoCard;
}

HoldMask TakeMask(std::string_view& text) {
    const HoldMask mask = ParseInt(TakeField(text));
    return mask >= 0 && mask <= kStandPat ? mask : 0;
}

void WriteCounts(const ProfileOnDisk& game, const std::string& section, const ErrorCounts& counts,
                 std::string_view format) {
    game.file.WriteInt(section, "NextError", counts.nextError, game.path);
    game.file.WriteLong(section, "PlayErrors", counts.playErrors, game.path);
    game.file.WriteDouble(section, "BestER", counts.bestReturns, format, game.path);
    game.file.WriteDouble(section, "ErrCost", counts.errorCosts, format, game.path);
}

// Moves the entries first + 1 to last, with their dates, down by one; the last one stays as well.
void MoveDown(const ProfileOnDisk& game, const std::string& section, int first, int last) {
    const auto& [file, path] = game;
    const std::string dates = ErrorDatesSection(section);
    for (int i = first; i < last; ++i) {
        file.WriteString(
            section, ErrorKey(i),
            file.GetString(section, ErrorKey(i + 1), "", ProfileFile::kWholeValue, path), path);
        const std::string date =
            file.GetString(dates, ErrorKey(i + 1), "", ProfileFile::kWholeValue, path);
        file.WriteString(dates, ErrorKey(i), date.empty() ? std::nullopt : std::optional(date),
                         path);
    }
}

}  // namespace

std::string ErrorDatesSection(const std::string& section) {
    return std::string(kErrorDates) + section;
}

std::string FormatEntry(const ErrorLogEntry& entry) {
    std::string text;
    for (const CardCode code : entry.hand) text += std::to_string(code) + ',';
    for (const CardCode code : entry.draws) text += std::to_string(code) + ',';
    return text + std::to_string(entry.best) + ',' + std::to_string(entry.player) +
           FormatDouble(",%.4f", entry.bestReturn) + FormatDouble(",%.4f", entry.playerReturn);
}

ErrorLogEntry ParseEntry(std::string_view text) {
    ErrorLogEntry entry;
    for (CardCode& code : entry.hand) code = TakeCard(text);
    for (CardCode& code : entry.draws) code = TakeCard(text);
    entry.best = TakeMask(text);
    entry.player = TakeMask(text);
    if (!HasField(text)) return entry;
    entry.bestReturn = ParseDouble(TakeField(text));
    while (HasField(text)) TakeField(text);
    entry.playerReturn = ParseDouble(text);
    return entry;
}

std::string ReadErrorText(const ProfileOnDisk& game, const std::string& section, int index) {
    return game.file.GetString(section, ErrorKey(index), "", kEntryBuffer, game.path);
}

std::int64_t ReadErrorDate(const ProfileOnDisk& game, const std::string& section, int index) {
    return ParseIsoTime(game.file.GetString(ErrorDatesSection(section), ErrorKey(index), "",
                                            kEntryBuffer, game.path))
        .value_or(0);
}

void AppendError(const ProfileOnDisk& game, const std::string& section, const ErrorLogEntry& entry,
                 std::int32_t& nextError) {
    nextError = std::clamp(nextError, 0, kErrorLogSize);
    if (nextError == kErrorLogSize) MoveDown(game, section, 0, --nextError);
    const std::string key = ErrorKey(nextError++);
    game.file.WriteString(section, key, FormatEntry(entry), game.path);
    std::optional<std::string> date;
    if (entry.date != 0) date = IsoTime(entry.date);
    game.file.WriteString(ErrorDatesSection(section), key, date, game.path);
}

bool SaveErrorCounts(const ProfileOnDisk& game, const std::string& section,
                     const ErrorCounts& counts) {
    WriteCounts(game, section, counts, "%-9.4f");
    return game.file.Save(game.path);
}

bool ClearErrorLog(const ProfileOnDisk& game, const std::string& section) {
    game.file.WriteInt(section, "NextError", 0, game.path);  // a new one stands before the entries
    for (int i = 0; i < kErrorLogSize; ++i) {
        game.file.WriteString(section, ErrorKey(i), "", game.path);
    }
    game.file.DeleteSection(ErrorDatesSection(section), game.path);
    WriteCounts(game, section, ErrorCounts(), "%3.2f");
    return game.file.Save(game.path);
}

bool DeleteError(const ProfileOnDisk& game, const std::string& section, int index,
                 std::int32_t& nextError) {
    const auto isEntry = [&](int i) {
        return i >= 0 && i < kErrorLogSize && !ReadErrorText(game, section, i).empty();
    };
    if (!isEntry(index)) return true;
    int last = index;
    while (isEntry(last + 1)) ++last;
    MoveDown(game, section, index, last);
    game.file.WriteString(section, ErrorKey(last), "", game.path);
    game.file.WriteString(ErrorDatesSection(section), ErrorKey(last), std::nullopt, game.path);
    if (index < nextError) --nextError;
    game.file.WriteInt(section, "NextError", nextError, game.path);
    return game.file.Save(game.path);
}
