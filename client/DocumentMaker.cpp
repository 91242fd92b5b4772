#include "client/DocumentMaker.h"

#include "base/failure.h"
#include "base/text.h"
#include "client/failureLine.h"
#include "creation/ProcessOneDoc.h"
#include "creation/creationState.h"
#include "creation/fileNaming.h"
#include "creation/officeApplications.h"
#include "platform/Files.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"
#include "window/messageBox.h"

#include <string_view>
#include <utility>
#include <vector>

namespace zorvo {

namespace {

/// What every Word and Excel file of the old formats begins with.
constexpr std::string_view kCompoundFileSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

/// Takes the place of the program's boxes as long as it lives: a text goes to a stream, and is kept.
class MessageNotes {
public:
    explicit MessageNotes(std::ostream& err)
    {
        handlerBefore_ = setMessageBoxHandler([this, &err](const auto& sPrompt, int, const auto&) {
            note(oneLine(sPrompt), err);
            return static_cast<int>(kMsgResultOk);
        });
        reporterBefore_ =
            setFailureReporter([this, &err](const auto& sTag, const auto& sMessage, const auto&) {
                note(sMessage ? oneLine(*sMessage)
                              : failureLine(RunTimeError(gnErrNumber, gsErrDescription)) + " (" +
                                    sTag.value_or("") + ")",
                     err);
            });
    }
    ~MessageNotes()
    {
        setMessageBoxHandler(std::move(handlerBefore_));
        setFailureReporter(std::move(reporterBefore_));
    }
    MessageNotes(const MessageNotes&) = delete;
    MessageNotes& operator=(const MessageNotes&) = delete;

    std::vector<std::string> texts;

private:
    void note(const std::string& sText, std::ostream& err)
    {
        err << sText << std::endl;
        texts.push_back(sText);
    }

    MessageBoxHandler handlerBefore_;
    FailureReporter reporterBefore_;
};

struct Extensions {
    const char* sTemplate;
    const char* sDocument;
};

Extensions extensionsFor(const std::string& sUpperTemplatePath)
{
    return sUpperTemplatePath.ends_with(".DOT") ? Extensions{".DOT", ".DOC"} : Extensions{".XLT", ".XLS"};
}

/// Why no new file can get a name, or nothing. Asked ahead, since the rule would go on and save over a file,
/// or to no name at all.
std::string namingObstacle(const std::string& sTemplatePath, const std::string& sFolder)
{
    const std::string sUpperPath = upperCase(sTemplatePath);
    const Extensions extensions = extensionsFor(sUpperPath);
    try {
        const std::string sBase = sBaseNameFor(sUpperPath, extensions.sTemplate, sFolder);
        if (sFreeFileName(sBase, extensions.sDocument))
            return {};
        const std::string sName = sBase.substr(sFolder.size());
        return "All names are taken in the folder, from " + sName + extensions.sDocument + " to " + sName +
               "_998" + extensions.sDocument;
    } catch (const RunTimeError&) {
        return "The template's path gives the new document no name";
    }
}

bool isOfficeFile(const std::string& sPath)
{
    try {
        return platform().files->read(sPath).starts_with(kCompoundFileSignature);
    } catch (const RunTimeError&) {
        return false;
    }
}

/// Why the document isn't made as ordered, or nothing.
std::string shortcoming(const MessageNotes& notes, const std::string& sPath)
{
    const CreationState& state = creationState();
    if (!notes.texts.empty())
        return notes.texts.front();
    if (!state.sMissingOffice.empty())
        return state.sMissingOffice;
    if (!state.skippedFailures.empty())
        return state.skippedFailures.front().description();
    if (!bFileExists(sPath))
        return "No file was written";
    return isOfficeFile(sPath) ? std::string() : "The file that was written is no Word or Excel file";
}

} // namespace

DocumentMaker::DocumentMaker(std::string sFolder, std::string sProfileData, std::ostream& err)
    : sFolder_(std::move(sFolder))
    , sProfileData_(std::move(sProfileData))
    , err_(err)
{
    creationState().bReplaceNothing = true;
    if (platform().office)
        platform().office->setNeverReplaceFiles(true);
}

DocumentMaker::~DocumentMaker()
{
    QuitOfficeApplications();
    ReleaseOfficeObjects();
    creationState().bReplaceNothing = false;
    if (platform().office)
        platform().office->setNeverReplaceFiles(false);
}

DocumentOutcome DocumentMaker::make(const SelectedDocument& document)
{
    DocumentOutcome outcome{.sTitle = document.sTitle.empty() ? document.sFileName : document.sTitle,
                            .sTemplate = platform().files->toNative(document.sFileName)};
    if (bFileExists(document.sFileName)) {
        outcome.sReason = namingObstacle(document.sFileName, sFolder_);
        if (!outcome.sReason.empty())
            return outcome;
    }
    const MessageNotes notes(err_);
    creationState().sMissingOffice.clear();
    std::string sFileName;
    ProcessOneDoc(document.sFileName, document.sType + "~" + document.sYear, sFolder_, sFileName, true, true,
                  sProfileData_);
    const std::string sPath = sFolder_ + sFileName;
    outcome.sReason = oneLine(shortcoming(notes, sPath));
    outcome.bCreated = outcome.sReason.empty();
    if (outcome.bCreated)
        outcome.sFile = platform().files->toNative(sPath);
    if (outcome.bCreated && !sProfileData_.empty())
        outcome.bProfile = creationState().bProfileStuffed;
    return outcome;
}

} // namespace zorvo
