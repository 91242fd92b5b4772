#include "companions/profileData.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zorvo {

namespace {

constexpr std::array<std::pair<std::string_view, const char*>, 13> kWaysOfWriting = {{
    {"clientname", kClientName},
    {"client", kClientName},
    {"periodend", kPeriodEnd},
    {"period", kPeriodEnd},
    {"preparedby", kPreparedBy},
    {"preparer", kPreparedBy},
    {"preparername", kPreparedBy},
    {"reviewedby", kReviewedBy},
    {"reviewer", kReviewedBy},
    {"reviewername", kReviewedBy},
    {"engagementtype", kEngagementType},
    {"engagement", kEngagementType},
    {"typeofengagement", kEngagementType},
}};

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view kBlank = " \t\r\n";
    const auto nFirst = text.find_first_not_of(kBlank);
    if (nFirst == std::string_view::npos)
        return {};
    return text.substr(nFirst, text.find_last_not_of(kBlank) - nFirst + 1);
}

/// Lower-case letters alone; beyond ASCII a name has no other way of writing.
std::string lettersOf(std::string_view name)
{
    std::string letters;
    for (const char character : name) {
        if (character >= 'A' && character <= 'Z')
            letters += static_cast<char>(character - 'A' + 'a');
        else if (character != ' ' && character != '_' && character != '-')
            letters += character;
    }
    return letters;
}

std::string fieldName(std::string_view name)
{
    const std::string letters = lettersOf(name);
    const auto* const found = std::find_if(kWaysOfWriting.begin(), kWaysOfWriting.end(),
                                           [&](const auto& way) { return way.first == letters; });
    return found == kWaysOfWriting.end() ? std::string(name) : found->second;
}

void setField(ProfileData& profile, ProfileField field)
{
    const auto found = std::find_if(profile.begin(), profile.end(),
                                    [&](const ProfileField& each) { return each.sName == field.sName; });
    if (found == profile.end())
        profile.push_back(std::move(field));
    else
        found->sValue = std::move(field.sValue);
}

void takeLine(ProfileData& profile, std::string_view line)
{
    const auto nEquals = line.find('=');
    const std::string_view name = trimmed(line.substr(0, nEquals));
    if (nEquals != std::string_view::npos && !name.empty() && name.front() != '#')
        setField(profile, {fieldName(name), std::string(trimmed(line.substr(nEquals + 1)))});
}

} // namespace

ProfileData parseProfile(std::string_view text)
{
    ProfileData profile;
    while (!text.empty()) {
        const auto nEnd = std::min(text.find_first_of("\r\n"), text.size());
        takeLine(profile, text.substr(0, nEnd));
        text.remove_prefix(std::min(nEnd + 1, text.size()));
    }
    return profile;
}

std::string profileText(const ProfileData& profile)
{
    std::string text;
    for (const ProfileField& field : profile) {
        std::string sValue(trimmed(field.sValue));
        std::replace_if(
            sValue.begin(), sValue.end(), [](char each) { return each == '\r' || each == '\n'; }, ' ');
        if (!sValue.empty())
            text.append(field.sName).append("=").append(sValue).append("\n");
    }
    return text;
}

std::string profileValue(const ProfileData& profile, std::string_view name)
{
    const auto found = std::find_if(profile.begin(), profile.end(),
                                    [&](const ProfileField& field) { return field.sName == name; });
    return found == profile.end() ? std::string() : found->sValue;
}

} // namespace zorvo
