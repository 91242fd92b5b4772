#include "shell/errorLog.h"

#include "base/failure.h"
#include "branding/companyIdentity.h"
#include "platform/Files.h"
#include "platform/Machine.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"

namespace zorvo {

namespace {

constexpr const char* kLogFolder = "\\Halvern House\\Brendle\\";
constexpr const char* kLogName = "Brendle.err";

std::string sStampedLine(const std::string& sLine)
{
    Machine& machine = *platform().machine;
    const Machine::LocalTime now = machine.now();
    return GetCompanyID() + " " + machine.shortDate(now) + " " + machine.timeOfDay(now) + " " + sLine +
           "\r\n";
}

void appendLine(const std::string& sLine)
{
    std::string sFolder;
    if (!bGetDocsFolder(sFolder))
        return;
    sFolder += kLogFolder;
    MakeNestedFolder(sFolder);
    platform().files->append(sFolder + "\\" + kLogName, sStampedLine(sLine));
}

} // namespace

void WriteErrorLine(const std::string& sLine)
{
    const std::int32_t nPending = gnErrNumber;
    try {
        appendLine(sLine);
    } catch (const RunTimeError&) { // a log that can't be written never stops the report
    }
    gnErrNumber = nPending;
}

} // namespace zorvo
