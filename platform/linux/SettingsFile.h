#pragma once

#include "platform/SettingsStore.h"

#include <chrono>
#include <string>

namespace zorvo {

/// The settings in one text file per application, `<folder>/<application>/settings.ini`. A write reads the
/// file, changes one line and puts a whole new file in its place, all under a lock beside it, so that two
/// processes lose nothing of each other. Nothing is kept between calls.
class SettingsFile : public SettingsStore {
public:
    /// In the user's configuration folder.
    SettingsFile();
    explicit SettingsFile(std::string folder, std::chrono::milliseconds patience = std::chrono::seconds(10));

    /// A file that can't be read gives nothing here; `requireReadable` tells.
    std::optional<std::string> get(const std::string& application, const std::string& section,
                                   const std::string& key) override;
    /// Throws RunTimeError 61 for a full disk, else 75; the old file then stays. An application whose name is
    /// no folder name is 5.
    void set(const std::string& application, const std::string& section, const std::string& key,
             const std::string& value) override;
    std::vector<std::pair<std::string, std::string>> list(const std::string& application,
                                                          const std::string& section) override;

    /// Throws RunTimeError 75 when there is a file that can't be read.
    void requireReadable(const std::string& application) const;

private:
    std::string fileOf(const std::string& application) const;

    std::string folder_;
    std::chrono::milliseconds patience_;
};

} // namespace zorvo
