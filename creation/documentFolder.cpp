#include "creation/documentFolder.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "branding/BrandedMsgBox.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/SpecialFolders.h"
#include "platform/machineAccess.h"
#include "window/messageBox.h"

namespace zorvo {

namespace {

/// A folder that the machine doesn't have gives an empty text, which every path contains.
bool bRefused(const std::string& sPath, SpecialFolders::Id folder, const std::string& sMessage,
              std::string& sStatus)
{
    if (sPath.find(GetSpecialFolder(folder)) == std::string::npos)
        return false;
    BrandedMsgBox(sMessage, kMsgInformation);
    sStatus = "Please re-select the document folder.";
    return true;
}

} // namespace

std::string sFolderOfText(const std::string& sText)
{
    return platform().files->fromNative(trimBlanks(sText));
}

std::string sTextOfFolder(const std::string& sPath)
{
    return platform().files->toNative(sPath);
}

bool bFolderExists(const std::string& sPath)
{
    return !sPath.empty() && platform().files->folderExists(sPath);
}

bool bValidFolder(std::string& sPath, std::string& sStatus)
{
    try {
        sPath = trimBlanks(sPath);
        return bFolderExists(sPath) &&
               !bRefused(sPath, SpecialFolders::kInternetCache,
                         "Your document folder cannot reside in a temporary folder.", sStatus) &&
               !bRefused(sPath, SpecialFolders::kNetworkNeighbourhood,
                         "Your document folder cannot be a network neighborhood folder.", sStatus);
    } catch (const RunTimeError&) { // a folder that can't be judged isn't taken
        return false;
    }
}

bool bAcceptFolder(const std::string& sPath, std::string& sStatus)
{
    if (sPath.empty()) {
        sStatus = " Please select a document folder.";
        return false;
    }
    if (!bFolderExists(sPath)) {
        sStatus = " The document folder does not exist. To create a folder, edit the Document Folder text "
                  "then click Create Folder.";
        return false;
    }
    std::string sChecked = sPath;
    return bValidFolder(sChecked, sStatus);
}

bool bCreateFolder(const std::string& sPath, std::string& sStatus)
{
    if (sPath.empty()) {
        sStatus = " To create a folder, select then edit the Document Folder text then click Create Folder.";
        return false;
    }
    if (bFolderExists(sPath)) {
        sStatus = " Document folder already exists. To create a new folder, edit the text in the Document "
                  "Folder field then click Create Folder.";
        return false;
    }
    MakeNestedFolder(sPath);
    sStatus = " The document folder has been created.";
    return true;
}

} // namespace zorvo
