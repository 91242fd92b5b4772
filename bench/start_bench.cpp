#include "creation/ProcessSelectedDocs.h"
#include "platform/ObjectService.h"
#include "platform/Platform.h"
#include "platform/linux/DBusObjectCreator.h"
#include "platform/linux/DBusObjectService.h"
#include "platform/linux/FontListAhead.h"
#include "platform/linux/LibreOffice.h"
#ifndef ZORVO_WITHOUT_OFFERINGS
#include "platform/linux/PageProcess.h"
#include "platform/linux/environmentFolders.h"
#endif
#include "platform/linux/linuxPlatform.h"
#include "shell/ReportError.h"
#include "shell/ShellForms.h"
#include "shell/automationClasses.h"
#include "shell/forms/QtShellForms.h"
#include "shell/shellState.h"
#include "window/Form.h"

#include <QApplication>
#include <QFile>
#include <QTimer>
#include <QTreeView>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

constexpr int kUntilIdleMs = 1000;

/// The process's share of all memory that it uses, in kB.
int memory()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("Pss:"))
            return line.mid(4).trimmed().split(' ').first().toInt();
    }
    return 0;
}

[[noreturn]] void end()
{
    std::fflush(stdout);
    std::_Exit(0);
}

/// Says so and ends the process when a tree view has painted for the first time; or says what memory it uses
/// a while later.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(bool bMemory)
        : bMemory_(bMemory)
    {
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool bTree = watched->parent() && watched->parent()->inherits("QTreeView");
        if (event->type() == QEvent::Paint && bTree && !bSeen_) {
            bSeen_ = true;
            // Behind the paint itself.
            QMetaObject::invokeMethod(
                qApp,
                [this] {
                    std::puts("painted");
                    if (!bMemory_)
                        end();
                    QTimer::singleShot(kUntilIdleMs, qApp, [] {
                        std::printf("%d\n", memory());
                        end();
                    });
                },
                Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool bMemory_;
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
#ifndef ZORVO_WITHOUT_OFFERINGS
    platform().pages = std::make_shared<PageProcesses>(DosPaths(userDataFolder()));
#endif
    installErrorReporter();
    installSelectionConsumer();
    installQtForms();
    platform().service->start(automationClasses(), [] { return Form::loadedForms() > 0; });
    shellState().forms->showMainForm();
    return QApplication::exec();
}

} // namespace

/// `bench_start bare` or `bench_start program`: prints "painted" after the first paint of a tree and ends.
/// With `memory` behind it prints the memory in use a second later as well.
int main(int argc, char** argv)
{
    const bool bProgram = argc > 1 && QByteArrayView(argv[1]) == "program";
    std::optional<zorvo::FontListAhead> fonts;
    if (bProgram)
        fonts.emplace();
    QApplication application(argc, argv);
    if (fonts)
        fonts->wait();
    QApplication::setQuitOnLastWindowClosed(false);
    FirstPaint firstPaint(argc > 2 && QByteArrayView(argv[2]) == "memory");
    application.installEventFilter(&firstPaint);
    return bProgram ? showProgram() : showBareWindow();
}
