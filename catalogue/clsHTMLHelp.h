#pragma once

#include "platform/HelpViewer.h"

#include <cstdint>
#include <string>

namespace zorvo {

/// Wraps the viewer of compiled help: works out which file the running company reads, shows it in front, and
/// closes its windows when the instance ends.
class clsHTMLHelp {
public:
    clsHTMLHelp() = default;
    ~clsHTMLHelp();
    clsHTMLHelp(const clsHTMLHelp&) = delete;
    clsHTMLHelp& operator=(const clsHTMLHelp&) = delete;

    /// The owner window, 0 for none.
    std::uintptr_t hWnd() const { return mhWnd_; }
    void setHWnd(std::uintptr_t hWnd) { mhWnd_ = hWnd; }

    void HTMLHelpContext(std::uint32_t nContext);
    void HTMLHelpDisplayContentsAndIndex();
    void HTMLHelpDisplayTOC();
    void HTMLHelpDisplayTopic();

private:
    void show(HelpViewer::Command command, std::uint32_t nData);
    std::string sHelpFile();
    void BringHelpToFront() const;

    std::string msHelpFile_;
    std::uintptr_t mhHelpWindow_ = 0;
    std::uintptr_t mhWnd_ = 0;
    /// Another company reads a copy in the user's profile: which file was copied last, and where to.
    std::string msLastSource_;
    std::string msLastCopy_;
};

} // namespace zorvo
