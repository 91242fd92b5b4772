#pragma once

#include "platform/Launcher.h"
#include "platform/linux/DosPaths.h"

namespace zorvo {

/// The port on the desktop's `xdg-open`, found in `PATH`. What is started is a process of its own and is
/// never waited for.
class LinuxLauncher : public Launcher {
public:
    explicit LinuxLauncher(DosPaths paths);

    /// 42 when the opener was started; 2 for a path where nothing is or a target that reads as an option, 31
    /// without an opener, 5 when it couldn't be started. `parameters` are for programs and don't travel.
    int open(const std::string& target, const std::string& parameters, const std::string& directory,
             Show show, std::uintptr_t ownerWindow = 0) override;

    /// The program, quoted or not, is a backslash path, a native one or a name in `PATH`; of an unquoted path
    /// with blanks the shortest part that is a program counts. Arguments that are backslash paths become
    /// native ones.
    void start(const std::string& commandLine) override;

private:
    DosPaths paths_;
};

} // namespace zorvo
