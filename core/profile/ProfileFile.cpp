#include "core/profile/ProfileFile.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "core/profile/AtomicFile.h"
#include "core/text/Numbers.h"

namespace {

std::string_view Cut(std::string_view value, std::size_t size) {
    if (value.size() < size) return value;
    return CutText(value, size < 2 ? 0 : size - 2);
}

}  // namespace

ProfileFile::~ProfileFile() { Flush(); }

std::string ProfileFile::GetString(std::string_view section, std::string_view key,
                                   std::string_view otherwise, std::size_t size,
                                   const std::string& path) {
    return std::string(Cut(FindValue(section, key, path).value_or(otherwise), size));
}

std::int32_t ProfileFile::GetInt(std::string_view section, std::string_view key,
                                 std::int32_t otherwise, const std::string& path) {
    const auto value = FindValue(section, key, path);
    return value ? ParseInt(*value) : otherwise;
}

std::int32_t ProfileFile::GetLong(std::string_view section, std::string_view key,
                                  std::int32_t otherwise, const std::string& path) {
    return GetInt(section, key, otherwise, path);
}

double ProfileFile::GetDouble(std::string_view section, std::string_view key, double otherwise,
                              const std::string& path) {
    const auto value = FindValue(section, key, path);
    return value ? ParseDouble(*value) : otherwise;
}

std::optional<std::string> ProfileFile::GetSectionText(std::string_view section,
                                                       const std::string& path) {
    Image* image = Load(path);
    const ProfileSection* found = image ? image->FindSection(section) : nullptr;
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
    Image* image = Load(path);
    if (!image) return;
    if (!key) {
        image->DeleteSection(*section);
    } else if (!value) {
        image->DeleteKey(*section, *key);
    } else {
        image->SetKey(*section, *key, *value);
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
    Image* image = Load(path);
    if (image) image->SetSectionText(section, text);
}

bool ProfileFile::RenameSection(std::string_view section, std::string_view newName,
                                const std::string& path) {
    Image* image = Load(path);
    return image && image->RenameSection(section, newName);
}

bool ProfileFile::DeleteSection(std::string_view section, const std::string& path) {
    Image* image = Load(path);
    return image && image->DeleteSection(section);
}

bool ProfileFile::IsDirty() const {
    return std::ranges::any_of(images, [](const auto& image) { return image->dirty; });
}

bool ProfileFile::Flush() {
    for (const auto& image : images) image->Write();
    std::erase_if(images, [this](const auto& image) {
        return !image->dirty && image.get() != current && !IsHeld(image->path);
    });
    return !IsDirty();
}

bool ProfileFile::Save(const std::string& path) {
    const Image* image = Load(path);
    Flush();
    return image && !image->dirty;
}

bool ProfileFile::Hold(const std::string& path) {
    LeaveHeld();
    held = path;
    current = Find(path);
    if (current || Read(path)) return true;
    Block(path);
    return false;
}

void ProfileFile::Block(const std::string& path) {
    LeaveHeld();
    held = path;
    Take(path);
    current = Add(path, "");
}

ProfileFile::Standing ProfileFile::StandingOf(const std::string& path) {
    Image* image = Find(path);
    if (!image || !image->stamp) return Standing::kNotRead;
    if (image->IsOnDisk()) return Standing::kOurs;
    std::error_code error;
    return std::filesystem::exists(path, error) || error ? Standing::kChanged : Standing::kMissing;
}

std::optional<std::string> ProfileFile::WholeText(const std::string& path) {
    const Image* image = Load(path);
    if (!image) return std::nullopt;
    return image->Contents();
}

// Saving first leaves nothing in the file's image but the change, so that giving it up loses
// nothing else.
bool ProfileFile::Change(const std::string& path, const std::function<void()>& change) {
    if (!Save(path)) return false;
    const std::string before = current->Contents();
    change();
    if (Save(path)) return true;
    if (Image* image = Load(path)) {
        image->Parse(before);
        image->dirty = false;
    }
    return false;
}

bool ProfileFile::Make(const std::string& path, std::string_view text,
                       const std::function<void()>& change) {
    LeaveCurrent();
    auto before = Take(path);
    current = Add(path, text);
    change();
    Image* made = Load(path);
    if (made && made->Replace()) return true;
    Forget(path);
    if (before) images.push_back(std::move(before));
    return false;
}

void ProfileFile::Forget(const std::string& path) { Take(path); }

void ProfileFile::Close() {
    Flush();
    images.clear();
    current = nullptr;
    held.clear();
}

// The image of the file, which becomes the current one; null when the file cannot be read.
ProfileFile::Image* ProfileFile::Load(const std::string& path) {
    if (current && SamePath(current->path, path)) {
        Refresh();
        return current;
    }
    LeaveCurrent();
    current = Find(path);
    return current ? current : Read(path);
}

ProfileFile::Image* ProfileFile::Read(const std::string& path) {
    // Whatever is changed from here on must be seen as changed later.
    const auto stamp = StampOf(path);
    const auto contents = ReadWholeFile(path);
    if (!contents) return nullptr;
    current = Add(path, "");
    current->TakeFile(*contents, stamp);
    return current;
}

ProfileFile::Image* ProfileFile::Add(const std::string& path, std::string_view text) {
    images.push_back(std::make_unique<Image>());
    Image* added = images.back().get();
    added->path = path;
    added->Parse(text);
    return added;
}

// What others have written into the current file is read, unless changes to it wait.
void ProfileFile::Refresh() {
    if (current->dirty || !current->stamp || IsHeld(current->path)) return;
    const auto now = StampOf(current->path);
    if (!now || now == current->stamp) return;
    const auto contents = ReadWholeFile(current->path);
    if (!contents) return;
    current->TakeFile(*contents, now);
}

void ProfileFile::LeaveCurrent() {
    Image* left = std::exchange(current, nullptr);
    if (!left) return;
    left->Write();
    if (!left->dirty && !IsHeld(left->path)) Take(left->path);
}

// What was blocked is given up; changes to a file that was read go on waiting.
void ProfileFile::LeaveHeld() {
    LeaveCurrent();
    held.clear();
    std::erase_if(images, [](const auto& image) { return !image->dirty || !image->stamp; });
}

// The image that is kept of the file; null when there is none.
ProfileFile::Image* ProfileFile::Find(const std::string& path) {
    const auto found = std::ranges::find_if(
        images, [&](const auto& image) { return SamePath(image->path, path); });
    return found == images.end() ? nullptr : found->get();
}

std::unique_ptr<ProfileFile::Image> ProfileFile::Take(const std::string& path) {
    const auto found = std::ranges::find_if(
        images, [&](const auto& image) { return SamePath(image->path, path); });
    if (found == images.end()) return nullptr;
    std::unique_ptr<Image> taken = std::move(*found);
    images.erase(found);
    if (taken.get() == current) current = nullptr;
    return taken;
}

bool ProfileFile::IsHeld(const std::string& path) const {
    return !held.empty() && SamePath(held, path);
}

// The value of a key, valid until the image changes; nothing when it is missing.
std::optional<std::string_view> ProfileFile::FindValue(std::string_view section,
                                                       std::string_view key,
                                                       const std::string& path) {
    Image* image = Load(path);
    return image ? image->FindValue(section, key) : std::nullopt;
}
