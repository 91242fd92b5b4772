#include "creation/shortcomings.h"

#include "base/failureLog.h"
#include "creation/creationState.h"
#include "platform/machineAccess.h"

#include <vector>

namespace zorvo {

namespace {

constexpr const char* kTag = "TreeSupport.ProcessOneDoc ";

std::string sRawError(const RunTimeError& error)
{
    return "Error " + std::to_string(error.number()) + " - " + error.description();
}

} // namespace

void LogShortcomings(const std::string& sTemplatePath, const std::string& sName)
{
    const CreationState& state = creationState();
    const std::string sDocument =
        " (" + (sName.empty() ? std::string() : sName + " from ") + sTemplatePath + ")";
    std::vector<RunTimeError> failures = state.skippedFailures;
    failures.insert(failures.end(), state.failuresAfterSave.begin(), state.failuresAfterSave.end());
    bool bFirst = true;
    for (const RunTimeError& error : failures) {
        // Without a document every further call fails in this way.
        if (bFirst || error.number() != kObjectNotSet)
            LogFailure(kTag + sRawError(error) + sDocument);
        bFirst = false;
    }
    if (!state.sMissingOffice.empty())
        LogFailure(kTag + sRawError(RunTimeError(kCannotCreateObject, state.sMissingOffice)) + sDocument);
    if (!bFileExists(sTemplatePath))
        LogFailure(kTag + sRawError(RunTimeError(kFileNotFound)) + sDocument);
}

void Shortcomings::takeLastDocument(const std::string& sName)
{
    const CreationState& state = creationState();
    if (sMissingOffice_.empty())
        sMissingOffice_ = state.sMissingOffice;
    if (!state.skippedFailures.empty() || sName.empty()) {
        ++nIncomplete_;
        if (sReason_.empty() && !state.skippedFailures.empty())
            sReason_ = state.skippedFailures.front().description();
    } else if (bProfileWanted_ && !state.bProfileStuffed) {
        ++nWithoutProfile_;
    }
}

std::string Shortcomings::notice(int nOfAll) const
{
    if (!sMissingOffice_.empty())
        return sMissingOffice_;
    const std::string sOfAll = " of " + std::to_string(nOfAll) + " documents";
    std::string sText;
    if (nIncomplete_ != 0) {
        sText = std::to_string(nIncomplete_) + sOfAll + " could not be created completely.";
        if (!sReason_.empty())
            sText += " " + sReason_;
    }
    if (nWithoutProfile_ != 0) {
        const std::string sVerb = nWithoutProfile_ == 1 ? " was" : " were";
        sText += (sText.empty() ? "" : "\n") + std::to_string(nWithoutProfile_) + sOfAll + sVerb +
                 " created without the profile data.";
    }
    return sText;
}

} // namespace zorvo
