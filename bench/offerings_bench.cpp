#include "bench/screenColour.h"
#include "catalogue/forms/frmAllProducts.h"
#include "platform/ObjectService.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "platform/linux/DBusObjectCreator.h"
#include "platform/linux/DBusObjectService.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/PageProcess.h"
#include "platform/linux/environmentFolders.h"
#include "platform/linux/linuxPlatform.h"
#include "shell/ReportError.h"
#include "shell/ShellForms.h"
#include "shell/automationClasses.h"
#include "shell/forms/QtShellForms.h"
#include "shell/shellState.h"
#include "window/Form.h"

#include <QApplication>
#include <QWidget>

namespace {

QPoint middleOfPage()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        if (const auto* page = window->findChild<QWidget*>(QStringLiteral("webZorvoBrendle")))
            return page->mapToGlobal(page->rect().center());
    }
    return {};
}

} // namespace

/// `bench_offerings`: says "ready" when the program stands, opens the offerings form, and says "painted" when
/// its first page is on the screen. All pages must have the colour of the measurement.
int main(int argc, char** argv)
{
    using namespace zorvo;
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    installLinuxPlatform();
    platform().objects = std::make_shared<DBusObjectCreator>(platform().registry);
    platform().service = std::make_shared<DBusObjectService>();
    platform().office = makeLibreOffice();
    platform().pages = std::make_shared<PageProcesses>(DosPaths(userDataFolder()));
    installErrorReporter();
    installQtForms();
    platform().service->start(automationClasses(), [] { return Form::loadedForms() > 0; });
    shellState().forms->showMainForm();
    constexpr int kUntilIdleMs = 1000;
    QTimer::singleShot(kUntilIdleMs, &application, [] {
        std::puts("ready");
        std::fflush(stdout);
        endWhenPainted(middleOfPage);
        ShowAllOfferings();
    });
    return QApplication::exec();
}
