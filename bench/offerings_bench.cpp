#include "bench/screenColour.h"
#include "catalogue/forms/frmAllProducts.h"
#include "platform/Platform.h"
#include "platform/linux/PageProcess.h"
#include "platform/linux/environmentFolders.h"
#include "platform/linux/linuxPlatform.h"
#include "shell/ReportError.h"
#include "shell/forms/QtShellForms.h"

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
    installLinuxPlatform();
    platform().pages = std::make_shared<PageProcesses>(DosPaths(userDataFolder()));
    installErrorReporter();
    installQtForms();
    QTimer::singleShot(0, &application, [] {
        std::puts("ready");
        std::fflush(stdout);
        endWhenPainted(middleOfPage);
        ShowAllOfferings();
    });
    return QApplication::exec();
}
