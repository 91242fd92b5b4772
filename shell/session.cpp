#include "shell/session.h"

#include "base/sessionState.h"
#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"
#include "shell/shellState.h"

namespace zorvo {

void InitSession(bool bDFS)
{
    DeleteFileQuietly(sDFSMarkerPath());
    sessionState().bReturnSelection = bDFS;
    sessionState().sSelectedDocuments.clear();
}

std::string sDFSMarkerPath()
{
    std::string& sPath = shellState().sMarkerPath;
    if (sPath.empty()) {
        std::string sFolder;
        bGetDocsFolder(sFolder, "\\Halvern House\\Brendle\\", true);
        sPath = sFolder + "DFS_DFK.txt";
    }
    return sPath;
}

void WriteDFSResult(std::string& sText)
{
    sText = trimBlanks(sText);
    if (sText.empty())
        return;
    std::string sLine = replaceAll(sText, "\u2019", "'");
    sLine = replaceAll(sLine, "\u2014", "-");
    sLine = replaceAll(sLine, "\"", "|");
    platform().files->write(sDFSMarkerPath(), "\"" + sLine + "\"\r\n");
}

} // namespace zorvo
