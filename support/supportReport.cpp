#include "support/supportReport.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "base/text.h"
#include "branding/companyIdentity.h"
#include "platform/Files.h"
#include "platform/Launcher.h"
#include "platform/Machine.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"
#include "support/SupportHost.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

namespace zorvo {

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr std::uint64_t kLongestLog = 16384;

std::string supportFolder(bool bCreate)
{
    std::string sFolder;
    bGetDocsFolder(sFolder, "\\Halvern House\\Brendle\\", bCreate ? std::optional<bool>(true) : std::nullopt);
    return sFolder;
}

/// Date in words, and the time on the twelve-hour clock whatever the user's own.
std::string reportTime(const Machine::LocalTime& time)
{
    char clock[40];
    std::snprintf(clock, sizeof clock, " %02d:%02d:%02d %s", time.hour % 12 == 0 ? 12 : time.hour % 12,
                  time.minute, time.second, time.hour < 12 ? "AM" : "PM");
    return platform().machine->dateInWords(time) + clock;
}

/// Reads items as a data file gives them: one ends at a comma or a line end, a quoted one loses its quotes
/// and may hold both.
class ItemReader {
public:
    explicit ItemReader(std::string sText)
        : sText_(std::move(sText))
    {
    }

    bool atEnd() const { return nAt_ >= sText_.size(); }

    /// Throws RunTimeError 62 when nothing is left.
    std::string next()
    {
        if (atEnd())
            throw RunTimeError(kInputPastEnd);
        const auto nQuote = sText_.find_first_not_of(' ', nAt_);
        std::string sItem;
        if (nQuote != std::string::npos && sText_[nQuote] == '"') {
            const auto nEnd = std::min(sText_.find('"', nQuote + 1), sText_.size());
            sItem = sText_.substr(nQuote + 1, nEnd - nQuote - 1);
            skipPast(sText_.find_first_of(",\r\n", nEnd));
        } else {
            const auto nEnd = std::min(sText_.find_first_of(",\r\n", nAt_), sText_.size());
            sItem = sText_.substr(nAt_, nEnd - nAt_);
            skipPast(nEnd);
        }
        return sItem;
    }

private:
    void skipPast(std::size_t nEnd)
    {
        if (nEnd >= sText_.size()) {
            nAt_ = sText_.size();
            return;
        }
        nAt_ = nEnd + (sText_.compare(nEnd, 2, kLineEnd) == 0 ? 2 : 1);
    }

    std::string sText_;
    std::size_t nAt_ = 0;
};

/// The items as lines. The last one is read and then, the file being at its end, not written.
std::string logLines(const std::string& sLog)
{
    std::string sLines;
    ItemReader items(sLog);
    while (true) {
        const std::string sItem = items.next();
        if (items.atEnd())
            return sLines;
        sLines += sItem + kLineEnd;
    }
}

/// Cuts off what leads in a quoted argument such as "%1": a blank and the quote. Throws RunTimeError 5 for a
/// text too short to hold them.
std::string commandBefore(const std::string& sText)
{
    constexpr std::size_t kBlankAndQuote = 2;
    if (characterCount(sText) < kBlankAndQuote)
        throw RunTimeError(kInvalidCall);
    return trimBlanks(sText.substr(0, sText.size() - lastCharacters(sText, kBlankAndQuote).size()));
}

/// Adds to what is written already, so that a failure leaves the part before it.
void composeReport(std::string& sReport)
{
    const std::string sCaption = supportHost().mainCaption ? supportHost().mainCaption() : std::string();
    sReport += sCaption + " properties as of " + reportTime(platform().machine->now()) + kLineEnd + kLineEnd +
               "LOG REFERENCES -----" + kLineEnd;
    const std::string sLogPath = sJoinPath(supportFolder(false), "Brendle.err");
    if (!bFileExists(sLogPath))
        sReport += std::string("There are no entries in the error log.") + kLineEnd + kLineEnd;
    else if (platform().files->size(sLogPath) >= kLongestLog)
        sReport += "The entry log is too long to display. Use Notepad to review the file \"" + sLogPath +
                   "\"." + kLineEnd + kLineEnd;
    else
        sReport += logLines(platform().files->read(sLogPath));
}

} // namespace

std::string WriteSupportReport()
{
    std::string sReportPath = supportFolder(true) + GetCompanyID() + "SysOut.txt";
    Files& files = *platform().files;
    files.write(sReportPath,
                {}); // a report that can't be written ends here, before anything is loaded for it
    std::string sReport;
    try {
        composeReport(sReport);
    } catch (const RunTimeError&) {
        files.write(sReportPath, sReport);
        throw;
    }
    files.write(sReportPath, sReport);
    return sReportPath;
}

void StartInformationViewer()
{
    std::string sCommand =
        sGetRegValue(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\SharedTools\\MSInfo\\Path", "");
    if (sCommand.empty())
        sCommand =
            sGetRegValue(HKEY_LOCAL_MACHINE, "SOFTWARE\\Classes\\MSInfo.Document\\shell\\open\\command", "");
    if (sCommand.empty())
        return;
    const auto nPercent = sCommand.find('%');
    if (nPercent != std::string::npos)
        sCommand = commandBefore(sCommand.substr(0, nPercent));
    platform().launcher->start(sCommand);
}

} // namespace zorvo
