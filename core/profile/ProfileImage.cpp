#include "core/profile/ProfileImage.h"

#include <algorithm>
#include <functional>

#include "core/profile/AtomicFile.h"
#include "core/text/Numbers.h"

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Takes the first line off the text, without its line break. All carriage returns before the line
// feed belong to the break: dropping only the last would shorten the line again at every reading.
std::string_view TakeLine(std::string_view& text) {
    const auto end = text.find('\n');
    const auto line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line.substr(0, line.find_last_not_of('\r') + 1);
}

void AppendLine(std::string& text, std::string_view line) {
    text += line;
    text += '\n';
}

std::string_view WithoutTrailingBlankLines(std::string_view text) {
    return text.substr(0, text.find_last_not_of('\n') + 1);
}

bool CanNameSection(std::string_view name) {
    return !name.empty() && name.find_first_of("]\n") == std::string_view::npos;
}

bool CanNameKey(std::string_view key) {
    return !key.starts_with('[') && key.find_first_of("=\n") == std::string_view::npos;
}

std::size_t HashOf(std::string_view contents) { return std::hash<std::string_view>()(contents); }

// Where a key's line stands in the text of its section.
struct KeyLine {
    std::size_t start = 0;
    std::size_t value = 0;
    std::size_t end = 0;  // its line feed
};

std::optional<KeyLine> FindKey(std::string_view text, std::string_view key) {
    for (std::size_t start = 0; start < text.size();) {
        const auto end = text.find('\n', start);
        const auto line = text.substr(start, end - start);
        const auto equals = line.find('=');
        if (equals != std::string_view::npos && SameText(line.substr(0, equals), key)) {
            return KeyLine{start, start + equals + 1, end};
        }
        start = end + 1;
    }
    return std::nullopt;
}

}  // namespace

void ProfileImage::Parse(std::string_view contents) {
    sections.clear();
    preamble.clear();
    if (contents.starts_with(kByteOrderMark)) {
        preamble = kByteOrderMark;
        contents.remove_prefix(kByteOrderMark.size());
    }
    while (!contents.empty()) {
        const auto line = TakeLine(contents);
        if (line.starts_with('[')) {
            const auto name = line.substr(1);
            sections.push_back({std::string(name.substr(0, name.find(']'))), {}});
        } else {
            AppendLine(sections.empty() ? preamble : sections.back().text, line);
        }
    }
}

void ProfileImage::TakeFile(std::string_view contents, const std::optional<FileStamp>& ofFile) {
    Parse(contents);
    stamp = ofFile;
    hash = HashOf(contents);
}

std::string ProfileImage::Contents() const {
    std::string contents = preamble;
    for (const auto& section : sections) {
        contents += '[';
        contents += section.name;
        contents += "]\n";
        contents += WithoutTrailingBlankLines(section.text);
        contents += "\n\n";
    }
    return contents;
}

ProfileSection* ProfileImage::FindSection(std::string_view name) {
    if (name.empty()) return nullptr;
    const auto found = std::ranges::find_if(
        sections, [&](const ProfileSection& section) { return SameText(section.name, name); });
    return found == sections.end() ? nullptr : &*found;
}

ProfileSection* ProfileImage::FindOrAppendSection(std::string_view name) {
    if (ProfileSection* found = FindSection(name)) return found;
    if (!CanNameSection(name)) return nullptr;
    return &sections.emplace_back(ProfileSection{std::string(name), {}});
}

std::optional<std::string_view> ProfileImage::FindValue(std::string_view section,
                                                        std::string_view key) {
    const ProfileSection* found = FindSection(section);
    if (!found) return std::nullopt;
    const auto line = FindKey(found->text, key);
    if (!line) return std::nullopt;
    return std::string_view(found->text).substr(line->value, line->end - line->value);
}

void ProfileImage::SetKey(std::string_view section, std::string_view key, std::string_view value) {
    if (!CanNameKey(key)) return;
    ProfileSection* target = FindOrAppendSection(section);
    if (!target) return;
    auto& text = target->text;
    const auto firstLine = TakeLine(value);
    if (const auto line = FindKey(text, key)) {
        const std::size_t length = line->end - line->value;
        if (std::string_view(text).substr(line->value, length) == firstLine) return;
        text.replace(line->value, length, firstLine);
    } else {
        text.resize(WithoutTrailingBlankLines(text).size());
        if (!text.empty()) text += '\n';
        text += key;
        text += '=';
        AppendLine(text, firstLine);
    }
    dirty = true;
}

void ProfileImage::SetSectionText(std::string_view section, std::string_view text) {
    ProfileSection* target = FindOrAppendSection(section);
    if (!target) return;
    target->text.clear();
    while (!text.empty()) AppendLine(target->text, TakeLine(text));
    dirty = true;
}

bool ProfileImage::RenameSection(std::string_view section, std::string_view newName) {
    ProfileSection* found = CanNameSection(newName) ? FindSection(section) : nullptr;
    if (!found) return false;
    found->name = newName;
    dirty = true;
    return true;
}

void ProfileImage::DeleteKey(std::string_view section, std::string_view key) {
    ProfileSection* found = FindSection(section);
    if (!found) return;
    const auto line = FindKey(found->text, key);
    if (!line) return;
    found->text.erase(line->start, line->end + 1 - line->start);
    dirty = true;
}

bool ProfileImage::DeleteSection(std::string_view name) {
    const ProfileSection* found = FindSection(name);
    if (!found) return false;
    sections.erase(sections.begin() + (found - sections.data()));
    dirty = true;
    return true;
}

// A file that was copied, or taken away and brought back, is still the same by what is in it.
bool ProfileImage::IsOnDisk() {
    const auto now = StampOf(path);
    if (!now || !stamp) return false;
    if (now == stamp) return true;
    const auto contents = ReadWholeFile(path);
    if (!contents || HashOf(*contents) != hash) return false;
    stamp = now;
    return true;
}

bool ProfileImage::Write() { return !dirty || (IsOnDisk() && Replace()); }

bool ProfileImage::Replace() {
    const std::string contents = Contents();
    if (!ReplaceFile(path, contents)) return false;
    stamp = StampOf(path);
    hash = HashOf(contents);
    dirty = false;
    return true;
}
