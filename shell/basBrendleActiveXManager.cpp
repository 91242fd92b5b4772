#include "shell/basBrendleActiveXManager.h"

#include "base/RunTimeError.h"
#include "platform/ObjectCreator.h"
#include "platform/ObjectService.h"
#include "platform/Platform.h"
#include "shell/shellState.h"
#include "window/messageBox.h"

namespace zorvo {

namespace {

constexpr const char* kFramework = "Brendle.ActXManager";

LateBoundPtr attachToRunning()
{
    try {
        return platform().objects->attach(kFramework);
    } catch (const RunTimeError&) {
        return nullptr; // none runs: one is created instead
    }
}

} // namespace

void ConnectActXManager(const std::string& sCaption)
{
    shellState().sActXCaption = sCaption;
    shellState().objActXManager = attachToRunning();
    if (shellState().objActXManager)
        return;
    try {
        shellState().objActXManager = platform().objects->createByProgId(kFramework);
    } catch (const RunTimeError& error) {
        ReportActXFailure(error.number(), error.description());
        return;
    }
    if (!shellState().objActXManager)
        ReportActXFailure(0, "");
}

void ReleaseActXManager()
{
    shellState().objActXManager.reset();
}

void ReportActXFailure(std::int32_t nError, const std::string& sDescription)
{
    // Not the branded box: without the framework no wording can be relied on.
    showMessageBox("The Brendle application cannot be created. The error is:\r\n\r\n" +
                       std::to_string(nError) + " " + sDescription +
                       "\r\n\r\nPlease try to uninstall and then reinstall the Brendle framework.",
                   kMsgExclamation, shellState().sActXCaption);
    ReleaseActXManager();
    platform().service->endProcess();
}

} // namespace zorvo
