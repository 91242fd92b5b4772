#include "branding/brandedFiles.h"

#include "base/failure.h"
#include "branding/companyIdentity.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"

namespace zorvo {

std::string GetBrandedFilePath(const std::string& sFileName)
{
    const std::string sProgram = GetZorvoPath(true);
    const std::string sCompany = GetCompanyID();
    if (sCompany != kDefaultCompany) {
        std::string sOwn = sProgram + sCompany + "\\" + sFileName;
        if (bFileExists(sOwn))
            return sOwn;
    }
    std::string sPicture = sProgram + "Images\\" + sFileName;
    return bFileExists(sPicture) ? sPicture : sProgram + sFileName;
}

PicturePtr LoadBrandedPicture(const std::string& sName)
{
    const std::string sFileName = sName.find('.') == std::string::npos ? sName + ".bmp" : sName;
    std::string sPath;
    try {
        sPath = GetBrandedFilePath(sFileName);
        return Picture::fromBytes(platform().files->read(sPath));
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("basBranding.LoadBrandedPicture(" + sFileName + ")",
                    "There is an error retrieving the branding picture:\r\n\r\n" + sPath +
                        "\r\n\r\nPlease first repair or then uninstall to re-install Zorvo's Brendle to fix."
                        "\r\n\r\nIf this problem persists please contact Zorvo Support at (800) 555-0142.");
        return nullptr;
    }
}

} // namespace zorvo
