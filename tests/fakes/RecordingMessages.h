#pragma once

#include "base/failure.h"
#include "window/messageBox.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zorvo {

/// Keeps the failure reports and the message boxes as long as this lives; nothing is shown. What was
/// installed before comes back.
class RecordingMessages {
public:
    struct Report {
        std::string sTag;
        std::int32_t nNumber = 0;
    };
    struct Box {
        std::string sPrompt;
        int nStyle = 0;
        std::string sTitle;
    };

    RecordingMessages();
    ~RecordingMessages();
    RecordingMessages(const RecordingMessages&) = delete;
    RecordingMessages& operator=(const RecordingMessages&) = delete;

    /// Tags of the reports, in order: what most tests compare.
    std::vector<std::string> tags() const;

    std::vector<Report> reports;
    std::vector<Box> boxes;
    /// The button that every box is left with.
    int nAnswer = kMsgResultOk;
    /// Run while a box is up.
    std::function<void()> whileBoxIsUp;

private:
    FailureReporter reporterBefore_;
    MessageBoxHandler handlerBefore_;
};

} // namespace zorvo
