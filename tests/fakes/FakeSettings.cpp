#include "tests/fakes/FakeSettings.h"

#include "base/RunTimeError.h"
#include "base/text.h"

namespace zorvo {

std::optional<std::string> FakeSettings::get(const std::string& application, const std::string& section,
                                             const std::string& key)
{
    read.push_back({application, section, key, {}});
    if (onRead)
        onRead(key);
    const Section& entries = sections_[sectionName(application, section)];
    const auto found = entries.find(upperCase(key));
    if (found == entries.end())
        return std::nullopt;
    return found->second.sValue;
}

void FakeSettings::set(const std::string& application, const std::string& section, const std::string& key,
                       const std::string& value)
{
    if (nFailWrites != 0)
        throw RunTimeError(nFailWrites);
    written.push_back({application, section, key, value});
    if (onWrite)
        onWrite(key);
    Section& entries = sections_[sectionName(application, section)];
    const auto found = entries.find(upperCase(key));
    if (found == entries.end())
        entries[upperCase(key)] = {key, value};
    else
        found->second.sValue = value;
}

std::vector<std::pair<std::string, std::string>> FakeSettings::list(const std::string& application,
                                                                    const std::string& section)
{
    std::vector<std::pair<std::string, std::string>> rows;
    for (const auto& [folded, entry] : sections_[sectionName(application, section)])
        rows.emplace_back(entry.sKey, entry.sValue);
    return rows;
}

void FakeSettings::put(const std::string& key, const std::string& value)
{
    sections_[sectionName("ZorvoBrendle", "Settings")][upperCase(key)] = {key, value};
}

std::optional<std::string> FakeSettings::value(const std::string& key) const
{
    const auto section = sections_.find(sectionName("ZorvoBrendle", "Settings"));
    if (section == sections_.end())
        return std::nullopt;
    const auto entry = section->second.find(upperCase(key));
    if (entry == section->second.end())
        return std::nullopt;
    return entry->second.sValue;
}

std::string FakeSettings::sectionName(const std::string& application, const std::string& section)
{
    return application + '\n' + upperCase(section);
}

} // namespace zorvo
