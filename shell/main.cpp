#include "creation/ProcessSelectedDocs.h"
#include "platform/ObjectService.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "platform/linux/DBusObjectCreator.h"
#include "platform/linux/DBusObjectService.h"
#include "platform/linux/FontListAhead.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/LinuxHelpViewer.h"
#include "platform/linux/PageProcess.h"
#include "platform/linux/display.h"
#include "platform/linux/environmentFolders.h"
#include "platform/linux/linuxPlatform.h"
#include "shell/ReportError.h"
#include "shell/automationClasses.h"
#include "shell/forms/QtShellForms.h"
#include "window/Form.h"

#include <QApplication>

#include <iostream>

/// The automation server. The object service of the platform starts it for a first client; it has no command
/// line.
int main(int argc, char** argv)
{
    if (!zorvo::hasDisplay()) { // Qt would end the process by a signal
        std::cerr << "zorvobrendle: there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set\n";
        return 1;
    }
    zorvo::FontListAhead fonts;
    const QApplication application(argc, argv);
    fonts.wait();
    QApplication::setApplicationName(QStringLiteral("zorvobrendle"));
    QApplication::setDesktopFileName(QStringLiteral("com.zorvo.TSelector"));
    QApplication::setQuitOnLastWindowClosed(false);

    using namespace zorvo;
    installLinuxPlatform();
    platform().objects = std::make_shared<DBusObjectCreator>(platform().registry);
    platform().service = std::make_shared<DBusObjectService>();
    platform().office = makeLibreOffice();
    platform().help = std::make_shared<LinuxHelpViewer>(
        DosPaths(userDataFolder()), QCoreApplication::applicationDirPath().toStdString() + "/brendle-help");
    // While the office suite works the windows stay painted and the waiting box runs; clicks and keys wait.
    platform().office->setIdleWork(
        [] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); });
    // A page of another process fits into a window of an X server alone.
    if (QGuiApplication::platformName() == QStringLiteral("xcb"))
        platform().pages = std::make_shared<PageProcesses>(DosPaths(userDataFolder()));
    installErrorReporter();
    installSelectionConsumer();
    installQtForms();
    Form::setUnloadListener([] { platform().service->reconsiderEnd(); });

    const bool bServes =
        platform().service->start(automationClasses(), [] { return Form::loadedForms() > 0; });
    if (!bServes) {
        std::cerr << "zorvobrendle: no session bus, or another zorvobrendle serves already\n";
        return 1;
    }
    return QApplication::exec();
}
