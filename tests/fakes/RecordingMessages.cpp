#include "tests/fakes/RecordingMessages.h"

#include <utility>

namespace zorvo {

RecordingMessages::RecordingMessages()
{
    gnErrNumber = 0;
    gsErrDescription.clear();
    reporterBefore_ =
        setFailureReporter([this](const auto& sTag, const auto& /*sMessage*/, const auto& /*bQuiet*/) {
            reports.push_back({sTag.value_or(std::string()), gnErrNumber});
        });
    handlerBefore_ = setMessageBoxHandler([this](const auto& sPrompt, int nStyle, const auto& sTitle) {
        boxes.push_back({sPrompt, nStyle, sTitle});
        if (whileBoxIsUp)
            whileBoxIsUp();
        return nAnswer;
    });
}

RecordingMessages::~RecordingMessages()
{
    setFailureReporter(std::move(reporterBefore_));
    setMessageBoxHandler(std::move(handlerBefore_));
}

std::vector<std::string> RecordingMessages::tags() const
{
    std::vector<std::string> result;
    for (const Report& report : reports)
        result.push_back(report.sTag);
    return result;
}

} // namespace zorvo
