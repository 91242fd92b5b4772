#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What new documents know of their client. Free of Qt and of the other floors: the component that runs
/// inside the office uses it too.
namespace zorvo {

/// Names of the fields, which are also those of the document properties.
inline constexpr const char* kClientName = "ClientName";
inline constexpr const char* kPeriodEnd = "PeriodEnd";
inline constexpr const char* kPreparedBy = "PreparedBy";
inline constexpr const char* kReviewedBy = "ReviewedBy";
inline constexpr const char* kEngagementType = "EngagementType";

struct ProfileField {
    std::string sName;
    std::string sValue;
    friend bool operator==(const ProfileField&, const ProfileField&) = default;
};

using ProfileData = std::vector<ProfileField>;

/// Lines "Name=value" in UTF-8. Empty lines, lines that begin with "#" or have no name are passed over,
/// blanks around names and values go, and of two values for a field the last one holds. The five fields are
/// known by other ways of writing them too ("client name", "preparer"); any other name stays as it is.
ProfileData parseProfile(std::string_view text);

/// The text of the fields that have a value, one line each. Breaks inside a value become blanks.
std::string profileText(const ProfileData& profile);

/// Empty when the profile has no such field.
std::string profileValue(const ProfileData& profile, std::string_view name);

} // namespace zorvo
