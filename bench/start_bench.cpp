#include "creation/ProcessSelectedDocs.h"
#include "platform/ObjectService.h"
#include "platform/Platform.h"
#include "platform/linux/DBusObjectCreator.h"
#include "platform/linux/DBusObjectService.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/linuxPlatform.h"
#include "shell/ReportError.h"
#include "shell/ShellForms.h"
#include "shell/automationClasses.h"
#include "shell/forms/QtShellForms.h"
#include "shell/shellState.h"
#include "window/Form.h"

#include <QApplication>
#include <QTreeView>

#include <cstdio>
#include <cstdlib>

namespace {

/// Says so and ends the process when a tree view has painted for the first time.
class FirstPaint : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool bTree = watched->parent() && watched->parent()->inherits("QTreeView");
        if (event->type() == QEvent::Paint && bTree && !bSeen_) {
            bSeen_ = true;
            // Behind the paint itself.
            QMetaObject::invokeMethod(
                qApp,
                [] {
                    std::puts("painted");
                    std::fflush(stdout);
                    std::_Exit(0);
                },
                Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool bSeen_ = false;
};

int showBareWindow()
{
    QWidget window;
    auto* tree = new QTreeView(&window);
    window.resize(1060, 700);
    tree->resize(window.size());
    window.showMaximized();
    return QApplication::exec();
}

int showProgram()
{
    using namespace zorvo;
    installLinuxPlatform();
    platform().objects = std::make_shared<DBusObjectCreator>(platform().registry);
    platform().service = std::make_shared<DBusObjectService>();
    platform().office = makeLibreOffice();
    installErrorReporter();
    installSelectionConsumer();
    installQtForms();
    platform().service->start(automationClasses(), [] { return Form::loadedForms() > 0; });
    shellState().forms->showMainForm();
    return QApplication::exec();
}

} // namespace

/// `bench_start bare` or `bench_start program`: prints "painted" after the first paint of a tree and ends.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    FirstPaint firstPaint;
    application.installEventFilter(&firstPaint);
    return argc > 1 && QByteArrayView(argv[1]) == "program" ? showProgram() : showBareWindow();
}
