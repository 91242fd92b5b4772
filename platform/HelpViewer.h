#pragma once

#include <cstdint>
#include <string>

namespace zorvo {

/// The viewer of compiled help, a program of its own.
class HelpViewer {
public:
    enum Command {
        kDisplayTopic = 0,
        kDisplayContents = 1,
        kDisplayIndex = 2,
        kContext = 15,
        kCloseAll = 18
    };

    virtual ~HelpViewer() = default;

    /// A handle of the viewer's window, 0 when nothing could be shown. `owner` is a window handle or 0.
    virtual std::uintptr_t show(std::uintptr_t owner, const std::string& helpFile, Command command,
                                std::uint32_t data) = 0;
    /// Brings the window in front of all others, or lets it go back in the row.
    virtual void setTopMost(std::uintptr_t window, bool bTop) = 0;
};

} // namespace zorvo
