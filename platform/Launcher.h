#pragma once

#include <cstdint>
#include <string>

namespace zorvo {

/// Opening an address or a file with what the user's desktop has for it, and starting a command.
class Launcher {
public:
    enum class Show { normal = 1, maximised = 3 };

    virtual ~Launcher() = default;

    /// `target` is an address or a backslash path, also with "file://" in front. The code is the platform's:
    /// above 32 is success. Nothing is raised: callers do not look. `ownerWindow` is the native handle of the
    /// window that asks, 0 for none.
    virtual int open(const std::string& target, const std::string& parameters, const std::string& directory,
                     Show show, std::uintptr_t ownerWindow = 0) = 0;

    /// Starts a command line with a normal window and doesn't wait. Throws RunTimeError 53 when there is no
    /// such program.
    virtual void start(const std::string& commandLine) = 0;
};

} // namespace zorvo
