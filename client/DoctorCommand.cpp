#include "client/DoctorCommand.h"

#include "base/RunTimeError.h"
#include "client/doctor/Diagnosis.h"
#include "client/exitCodes.h"
#include "client/failureLine.h"
#include "platform/Platform.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/LinuxInspection.h"
#include "platform/linux/linuxPlatform.h"

namespace zorvo {

int runDoctorCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    const bool bJson = args.size() == 1 && args[0] == "--json";
    if (!args.empty() && !bJson) {
        err << "usage: brendle doctor [--json]\n";
        return kExitWrongUsage;
    }
    try {
        installLinuxPlatformToLookAt();
        platform().office = makeLibreOffice();
        LinuxInspection inspection;
        const Diagnosis diagnosis = diagnose(inspection);
        out << (bJson ? diagnosisJson(diagnosis) : diagnosisText(diagnosis));
        const std::size_t nFaults = diagnosis.faultCount();
        if (nFaults == 0)
            return kExitDone;
        err << nFaults << (nFaults == 1 ? " thing is" : " things are") << " wrong\n";
        return kExitFailed;
    } catch (const RunTimeError& error) {
        err << failureLine(error) << '\n';
        return kExitFailed;
    }
}

} // namespace zorvo
