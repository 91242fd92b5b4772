#pragma once

#include "platform/linux/office/OfficeInstallation.h"
#include "platform/linux/office/PrivateProfile.h"

#include <sys/types.h>

#include <cstdint>
#include <mutex>
#include <optional>

namespace zorvo {

/// An office process of our own without windows. It dies with the thread that started it, so that nothing is
/// left running when this program is killed. `start` belongs to that thread, the rest to any.
class OfficeProcess {
public:
    OfficeProcess(OfficeInstallation office, const PrivateProfile& profile, std::string pipe);
    /// Ends it.
    ~OfficeProcess();
    OfficeProcess(const OfficeProcess&) = delete;
    OfficeProcess& operator=(const OfficeProcess&) = delete;

    /// Throws RunTimeError 429; nothing starts any more after `kill`.
    void start();
    /// The exit code (128 and the number after a signal) once it has ended.
    std::optional<int> exitCode();
    void kill();

    pid_t pid() const { return process_; }
    /// Bytes of memory it holds now; 0 when it has ended.
    std::uint64_t residentMemory() const;

private:
    std::vector<std::string> arguments() const;

    OfficeInstallation office_;
    const PrivateProfile& profile_;
    std::string pipe_;
    std::mutex mutex_;
    pid_t process_ = 0;
    std::optional<int> exitCode_;
    bool bKilled_ = false;
};

} // namespace zorvo
