#pragma once

#include "platform/HelpViewer.h"
#include "platform/linux/DosPaths.h"

#include <string>

namespace zorvo {

/// The port on `brendle-help`, a process of its own that outlives ours: the commands travel to it over the
/// session bus, which starts it for the first one.
class LinuxHelpViewer : public HelpViewer {
public:
    /// `program` is the native path of the viewer, for a bus that can't start it by its name.
    LinuxHelpViewer(DosPaths paths, std::string program);

    /// `helpFile` is a backslash path. Returns when the window stands; 0 when the viewer can't be had or has
    /// nothing to show, which it tells the user itself. While it waits, calls to our own objects are served.
    /// Nothing is started to close windows.
    std::uintptr_t show(std::uintptr_t owner, const std::string& helpFile, Command command,
                        std::uint32_t data) override;
    void setTopMost(std::uintptr_t window, bool bTop) override;

private:
    DosPaths paths_;
    std::string program_;
};

} // namespace zorvo
