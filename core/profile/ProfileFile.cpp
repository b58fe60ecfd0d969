#include "core/profile/ProfileFile.h"

#include <algorithm>

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

std::string_view Cut(std::string_view value, std::size_t size) {
    if (value.size() < size) return value;
    return CutText(value, size < 2 ? 0 : size - 2);
}

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

ProfileFile::~ProfileFile() { Flush(); }

std::string ProfileFile::GetString(std::string_view section, std::string_view key,
                                   std::string_view otherwise, std::size_t size,
                                   const std::string& path) {
    if (!Load(path)) return std::string(Cut(otherwise, size));
    return std::string(Cut(FindValue(section, key).value_or(otherwise), size));
}

std::int32_t ProfileFile::GetInt(std::string_view section, std::string_view key,
                                 std::int32_t otherwise, const std::string& path) {
    if (!Load(path)) return otherwise;
    const auto value = FindValue(section, key);
    return value ? ParseInt(*value) : otherwise;
}

std::int32_t ProfileFile::GetLong(std::string_view section, std::string_view key,
                                  std::int32_t otherwise, const std::string& path) {
    return GetInt(section, key, otherwise, path);
}

double ProfileFile::GetDouble(std::string_view section, std::string_view key, double otherwise,
                              const std::string& path) {
    if (!Load(path)) return otherwise;
    const auto value = FindValue(section, key);
    return value ? ParseDouble(*value) : otherwise;
}

std::optional<std::string> ProfileFile::GetSectionText(std::string_view section,
                                                       const std::string& path) {
    if (!Load(path)) return std::nullopt;
    const Section* found = FindSection(section);
    if (!found) return std::nullopt;
    return found->text;
}

void ProfileFile::WriteString(std::optional<std::string_view> section,
                              std::optional<std::string_view> key,
                              std::optional<std::string_view> value, const std::string& path) {
    if (!section) {
        if (!key && !value) Flush();
        return;
    }
    if (!Load(path)) return;
    if (!key) {
        DeleteSection(*section, path);
    } else if (!value) {
        DeleteKey(*section, *key);
    } else {
        SetKey(*section, *key, *value);
    }
}

void ProfileFile::WriteInt(std::string_view section, std::string_view key, std::int32_t value,
                           const std::string& path) {
    WriteString(section, key, std::to_string(value), path);
}

void ProfileFile::WriteLong(std::string_view section, std::string_view key, std::int32_t value,
                            const std::string& path) {
    WriteInt(section, key, value, path);
}

void ProfileFile::WriteDouble(std::string_view section, std::string_view key, double value,
                              std::string_view format, const std::string& path) {
    WriteString(section, key, FormatDouble(format, value), path);
}

void ProfileFile::SetSectionText(std::string_view section, std::string_view text,
                                 const std::string& path) {
    if (!Load(path)) return;
    Section* target = FindOrAppendSection(section);
    if (!target) return;
    target->text.clear();
    while (!text.empty()) AppendLine(target->text, TakeLine(text));
    dirty = true;
}

bool ProfileFile::RenameSection(std::string_view section, std::string_view newName,
                                const std::string& path) {
    if (!Load(path) || !CanNameSection(newName)) return false;
    Section* found = FindSection(section);
    if (!found) return false;
    found->name = newName;
    dirty = true;
    return true;
}

bool ProfileFile::DeleteSection(std::string_view section, const std::string& path) {
    if (!Load(path)) return false;
    const Section* found = FindSection(section);
    if (!found) return false;
    sections.erase(sections.begin() + (found - sections.data()));
    dirty = true;
    return true;
}

bool ProfileFile::Flush() {
    FlushLoaded();
    std::erase_if(unsaved, [](const auto& file) { return ReplaceFile(file.path, file.contents); });
    return !IsDirty();
}

bool ProfileFile::Save(const std::string& path) {
    const bool canBeRead = Load(path);
    Flush();
    return canBeRead && !dirty;
}

void ProfileFile::Forget(const std::string& path) {
    if (loaded && SamePath(loadedPath, path)) Empty();
    if (const auto old = FindUnsaved(path); old != unsaved.end()) unsaved.erase(old);
}

void ProfileFile::Close() {
    Flush();
    Empty();
    unsaved.clear();
}

// Makes the image hold this file; false when it cannot be read.
bool ProfileFile::Load(const std::string& path) {
    if (loaded && SamePath(loadedPath, path)) return true;
    FlushLoaded();
    if (dirty) unsaved.push_back({loadedPath, Contents()});
    Empty();
    if (const auto kept = FindUnsaved(path); kept != unsaved.end()) {
        Parse(kept->contents);
        loadedPath = kept->path;
        loaded = dirty = true;
        unsaved.erase(kept);
        return true;
    }
    const auto contents = ReadWholeFile(path);
    if (!contents) return false;
    Parse(*contents);
    loadedPath = path;
    loaded = true;
    return true;
}

std::vector<ProfileFile::UnsavedFile>::iterator ProfileFile::FindUnsaved(const std::string& path) {
    return std::ranges::find_if(unsaved,
                                [&](const UnsavedFile& file) { return SamePath(file.path, path); });
}

void ProfileFile::FlushLoaded() {
    if (dirty) dirty = !ReplaceFile(loadedPath, Contents());
}

void ProfileFile::Empty() {
    sections.clear();
    preamble.clear();
    loadedPath.clear();
    loaded = false;
    dirty = false;
}

void ProfileFile::Parse(std::string_view contents) {
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

std::string ProfileFile::Contents() const {
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

// Null when it is missing.
ProfileFile::Section* ProfileFile::FindSection(std::string_view name) {
    if (name.empty()) return nullptr;
    const auto found = std::ranges::find_if(
        sections, [&](const Section& section) { return SameText(section.name, name); });
    return found == sections.end() ? nullptr : &*found;
}

// Null when it is missing and could not be read back under this name.
ProfileFile::Section* ProfileFile::FindOrAppendSection(std::string_view name) {
    if (Section* found = FindSection(name)) return found;
    if (!CanNameSection(name)) return nullptr;
    return &sections.emplace_back(Section{std::string(name), {}});
}

// Valid until the image changes.
std::optional<std::string_view> ProfileFile::FindValue(std::string_view section,
                                                       std::string_view key) {
    const Section* found = FindSection(section);
    if (!found) return std::nullopt;
    const auto line = FindKey(found->text, key);
    if (!line) return std::nullopt;
    return std::string_view(found->text).substr(line->value, line->end - line->value);
}

void ProfileFile::SetKey(std::string_view section, std::string_view key, std::string_view value) {
    if (!CanNameKey(key)) return;
    Section* target = FindOrAppendSection(section);
    if (!target) return;
    auto& text = target->text;
    const auto firstLine = TakeLine(value);
    if (const auto line = FindKey(text, key)) {
        text.replace(line->value, line->end - line->value, firstLine);
    } else {
        text.resize(WithoutTrailingBlankLines(text).size());
        if (!text.empty()) text += '\n';
        text += key;
        text += '=';
        AppendLine(text, firstLine);
    }
    dirty = true;
}

void ProfileFile::DeleteKey(std::string_view section, std::string_view key) {
    Section* found = FindSection(section);
    if (!found) return;
    const auto line = FindKey(found->text, key);
    if (!line) return;
    found->text.erase(line->start, line->end + 1 - line->start);
    dirty = true;
}

// Saving first leaves nothing in the file's image but the change, so that giving it up loses
// nothing else.
bool ChangeFile(ProfileFile& file, const std::string& path, const std::function<void()>& change) {
    if (!file.Save(path)) return false;
    change();
    if (file.Save(path)) return true;
    file.Forget(path);
    return false;
}
