#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zorvo {

/// The user's settings: application, section, key, all texts. Every call goes to the store, since another
/// process may have written meanwhile.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    virtual std::optional<std::string> get(const std::string& application, const std::string& section,
                                           const std::string& key) = 0;
    /// Replaces the store whole or not at all, nothing of another key is lost. Throws RunTimeError 75 when it
    /// can't be written.
    virtual void set(const std::string& application, const std::string& section, const std::string& key,
                     const std::string& value) = 0;
    /// Keys and values of a section, by key.
    virtual std::vector<std::pair<std::string, std::string>> list(const std::string& application,
                                                                  const std::string& section) = 0;
};

} // namespace zorvo
