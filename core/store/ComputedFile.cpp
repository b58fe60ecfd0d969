#include "core/store/ComputedFile.h"

#include <filesystem>

#include "core/profile/AtomicFile.h"

namespace fs = std::filesystem;

void PrepareComputedFile(const ProfileOnDisk& computed) {
    using Standing = ProfileFile::Standing;
    const std::string& path = computed.path;
    const Standing standing = computed.file.StandingOf(path);
    if (standing == Standing::kChanged || standing == Standing::kMissing) {
        computed.file.Forget(path);
    }
    std::error_code error;
    fs::create_directories(fs::path(path).parent_path(), error);
    if (!fs::exists(path, error)) ReplaceFile(path, "");
}
