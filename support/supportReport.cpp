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

#include <chrono>
#include <cstdio>
#include <optional>

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

/// "dddd, mmm d yyyy" and "hh:mm:ss AMPM".
std::string reportTime(const Machine::LocalTime& time)
{
    static constexpr const char* kDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                            "Thursday", "Friday", "Saturday"};
    static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::chrono::weekday day(std::chrono::sys_days(
        std::chrono::year(time.year) / std::chrono::month(static_cast<unsigned>(time.month)) /
        std::chrono::day(static_cast<unsigned>(time.day))));
    char clock[16];
    std::snprintf(clock, sizeof clock, "%02d:%02d:%02d %s", time.hour % 12 == 0 ? 12 : time.hour % 12,
                  time.minute, time.second, time.hour < 12 ? "AM" : "PM");
    return std::string(kDays[day.c_encoding()]) + ", " + kMonths[time.month - 1] + " " +
           std::to_string(time.day) + " " + std::to_string(time.year) + " " + clock;
}

/// Reads items as a data file gives them: one ends at a comma or a line end, a quoted one loses its quotes.
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
        while (!atEnd() && (sText_[nAt_] == ' ' || sText_[nAt_] == '\t'))
            ++nAt_;
        std::string sItem;
        if (!atEnd() && sText_[nAt_] == '"') {
            const auto nEnd = sText_.find('"', nAt_ + 1);
            sItem = sText_.substr(nAt_ + 1, nEnd == std::string::npos ? nEnd : nEnd - nAt_ - 1);
            nAt_ = nEnd == std::string::npos ? sText_.size() : nEnd + 1;
            skipTo(sText_.find_first_of(",\r\n", nAt_));
        } else {
            const auto nEnd = sText_.find_first_of(",\r\n", nAt_);
            sItem = trimBlanks(sText_.substr(nAt_, nEnd == std::string::npos ? nEnd : nEnd - nAt_));
            skipTo(nEnd);
        }
        return sItem;
    }

private:
    void skipTo(std::size_t nEnd)
    {
        if (nEnd == std::string::npos) {
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

} // namespace

std::string sSupportReportPath()
{
    return supportFolder(true) + GetCompanyID() + "SysOut.txt";
}

void WriteSupportReport()
{
    const std::string sReportPath = sSupportReportPath();
    const std::string sLogPath = sJoinPath(supportFolder(false), "Brendle.err");
    Files& files = *platform().files;
    std::string sReport = (supportHost().mainCaption ? supportHost().mainCaption() : std::string()) +
                          " properties as of " + reportTime(platform().machine->now()) + kLineEnd + kLineEnd +
                          "LOG REFERENCES -----" + kLineEnd;
    if (!bFileExists(sLogPath)) {
        sReport += std::string("There are no entries in the error log.") + kLineEnd + kLineEnd;
    } else if (files.size(sLogPath) >= kLongestLog) {
        sReport += "The entry log is too long to display. Use Notepad to review the file \"" + sLogPath +
                   "\"." + kLineEnd + kLineEnd;
    } else {
        try {
            sReport += logLines(files.read(sLogPath));
        } catch (const RunTimeError&) {
            files.write(sReportPath, sReport); // what was written before the failure stays
            throw;
        }
    }
    files.write(sReportPath, sReport);
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
    // Cuts off the blank, the quote and the percent sign of an argument such as a quoted "%1".
    const auto nPercent = sCommand.find('%');
    if (nPercent != std::string::npos)
        sCommand = trimBlanks(sCommand.substr(0, nPercent >= 2 ? nPercent - 2 : 0));
    platform().launcher->start(sCommand);
}

} // namespace zorvo
