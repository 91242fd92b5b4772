#pragma once

#include "platform/HelpViewer.h"

#include <string>
#include <vector>

namespace zorvo {

/// A help viewer that shows nothing and remembers what it was asked for.
class RecordingHelpViewer : public HelpViewer {
public:
    struct Shown {
        std::string sHelpFile;
        Command command = kDisplayTopic;
        std::uint32_t nData = 0;
    };

    std::uintptr_t show(std::uintptr_t /*owner*/, const std::string& helpFile, Command command,
                        std::uint32_t data) override
    {
        shown.push_back({helpFile, command, data});
        return 1;
    }
    void setTopMost(std::uintptr_t /*window*/, bool /*bTop*/) override {}

    std::vector<Shown> shown;
};

} // namespace zorvo
