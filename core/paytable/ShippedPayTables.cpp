#include "core/paytable/ShippedPayTables.h"

#include "core/profile/ProfileImage.h"

std::optional<std::string> ShippedSection(std::string_view section) {
    ProfileImage image;
    image.Parse(ShippedPayTables());
    const ProfileSection* found = image.FindSection(section);
    if (!found) return std::nullopt;
    return found->text;
}
