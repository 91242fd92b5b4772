#pragma once

#include "platform/HelpViewer.h"

#include <string>
#include <utility>
#include <vector>

namespace zorvo {

/// A help viewer that shows nothing and remembers what it was asked for.
class RecordingHelpViewer : public HelpViewer {
public:
    struct Shown {
        std::string sHelpFile;
        Command command = kDisplayTopic;
        std::uint32_t nData = 0;
        std::uintptr_t owner = 0;
    };

    std::uintptr_t show(std::uintptr_t owner, const std::string& helpFile, Command command,
                        std::uint32_t data) override
    {
        shown.push_back({helpFile, command, data, owner});
        return window;
    }
    void setTopMost(std::uintptr_t topWindow, bool bTop) override { raised.emplace_back(topWindow, bTop); }

    std::vector<Shown> shown;
    /// Window and state of each call that brings a window in front or lets it go back.
    std::vector<std::pair<std::uintptr_t, bool>> raised;
    /// What the viewer answers.
    std::uintptr_t window = 1;
};

} // namespace zorvo
