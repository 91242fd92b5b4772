#include "help/viewer/HelpDesk.h"
#include "help/viewer/HelpService.h"
#include "platform/Launcher.h"
#include "platform/linux/FontListAhead.h"
#include "platform/linux/LinuxLauncher.h"
#include "platform/linux/SettingsFile.h"
#include "platform/linux/environmentFolders.h"

#include <QApplication>

#include <iostream>
#include <optional>

namespace {

using namespace zorvo;

constexpr const char* kUsage =
    "usage: brendle-help [--contents | --index | --topic NUMBER] [FILE]\n"
    "\n"
    "Shows a compiled help file. Without a file it waits on the session bus for a program\n"
    "that asks for one.\n";

enum Exit : int { kDone = 0, kFailed = 1, kWrongUsage = 2 };

struct Request {
    QString file;
    int nCommand = HelpViewer::kDisplayContents;
    unsigned nData = 0;
};

/// Nothing for wrong usage.
std::optional<Request> readArguments(const QStringList& arguments)
{
    Request request;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (argument == QLatin1String("--contents")) {
            request.nCommand = HelpViewer::kDisplayContents;
        } else if (argument == QLatin1String("--index")) {
            request.nCommand = HelpViewer::kDisplayIndex;
        } else if (argument == QLatin1String("--topic")) {
            bool bNumber = false;
            request.nCommand = HelpViewer::kContext;
            request.nData = arguments.value(++i).toUInt(&bNumber);
            if (!bNumber)
                return {};
        } else if (argument.startsWith(QLatin1Char('-')) || argument.isEmpty() || !request.file.isEmpty()) {
            return {};
        } else {
            request.file = argument;
        }
    }
    return request;
}

void openWeb(const QString& address)
{
    LinuxLauncher(DosPaths(userDataFolder())).open(address.toStdString(), {}, {}, Launcher::Show::normal);
}

} // namespace

int main(int argc, char** argv)
{
    FontListAhead fonts;
    const QApplication application(argc, argv);
    fonts.wait();
    QApplication::setApplicationName(QStringLiteral("brendle-help"));
    QApplication::setDesktopFileName(QStringLiteral("com.zorvo.Help"));
    QApplication::setQuitOnLastWindowClosed(false);

    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments == QStringList(QStringLiteral("--help"))) {
        std::cout << kUsage;
        return kDone;
    }
    const auto request = readArguments(arguments);
    if (!request) {
        std::cerr << kUsage;
        return kWrongUsage;
    }
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!request->file.isEmpty() &&
        help::showElsewhere(bus, request->file, request->nCommand, request->nData))
        return kDone;

    SettingsFile settings;
    help::HelpDesk desk(QCoreApplication::applicationDirPath() + QStringLiteral("/brendle-help-reader"),
                        openWeb, settings);
    help::HelpService service(desk, bus, {});
    const bool bServes = service.start();
    if (request->file.isEmpty()) {
        if (!bServes) {
            std::cerr << "brendle-help: there is no session bus, or another one serves already\n";
            return kFailed;
        }
    } else {
        // A file that the user names is shown, bus or no bus.
        desk.show(0, request->file, request->nCommand, request->nData, {});
    }
    return QApplication::exec();
}
