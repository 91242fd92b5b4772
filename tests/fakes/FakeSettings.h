#pragma once

#include "platform/SettingsStore.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace zorvo {

/// A settings store in memory, recording what is written and asked.
class FakeSettings : public SettingsStore {
public:
    struct Access {
        std::string sApplication;
        std::string sSection;
        std::string sKey;
        std::string sValue; // empty for a read
    };

    std::optional<std::string> get(const std::string& application, const std::string& section,
                                   const std::string& key) override;
    void set(const std::string& application, const std::string& section, const std::string& key,
             const std::string& value) override;
    std::vector<std::pair<std::string, std::string>> list(const std::string& application,
                                                          const std::string& section) override;

    /// Section "Settings" of "ZorvoBrendle", where nearly all of the program's settings lie. `put` isn't
    /// recorded.
    void put(const std::string& key, const std::string& value);
    std::optional<std::string> value(const std::string& key) const;

    /// While it isn't 0, every `set` throws this number and stores nothing.
    int nFailWrites = 0;

    /// Run ahead of each reading and writing.
    std::function<void(const std::string& sKey)> onRead;
    std::function<void(const std::string& sKey)> onWrite;

    std::vector<Access> written;
    std::vector<Access> read;

private:
    struct Entry {
        std::string sKey;
        std::string sValue;
    };
    using Section = std::map<std::string, Entry>; // by upper-cased key

    static std::string sectionName(const std::string& application, const std::string& section);

    std::map<std::string, Section> sections_;
};

} // namespace zorvo
