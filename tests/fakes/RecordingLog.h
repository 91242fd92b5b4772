#pragma once

#include "base/failureLog.h"

#include <string>
#include <utility>
#include <vector>

namespace zorvo {

/// Keeps what goes to the log alone as long as this lives. What was installed before comes back.
class RecordingLog {
public:
    RecordingLog()
        : before_(setFailureLog([this](const std::string& sLine) { lines.push_back(sLine); }))
    {
    }
    ~RecordingLog() { setFailureLog(std::move(before_)); }
    RecordingLog(const RecordingLog&) = delete;
    RecordingLog& operator=(const RecordingLog&) = delete;

    std::vector<std::string> lines;

private:
    FailureLog before_;
};

} // namespace zorvo
