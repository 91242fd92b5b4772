#include "base/RunTimeError.h"
#include "companions/companionClasses.h"
#include "companions/profileDialog.h"
#include "companions/referenceLocation.h"
#include "companions/registration.h"
#include "platform/Platform.h"
#include "platform/linux/DBusClassServer.h"
#include "platform/linux/EndOfService.h"
#include "platform/linux/linuxPlatform.h"

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <iostream>

namespace {

using namespace zorvo;

constexpr const char* kChooseLocation = "--choose-location";
constexpr const char* kAskProfile = "--ask-profile";
constexpr const char* kUsage =
    "usage: zorvo-companions [--register | --unregister]\n"
    "\n"
    "Without an argument it registers its classes where they are missing and serves them\n"
    "on the session bus as long as somebody holds an object.\n";
constexpr EndOfService::Waits kWaits{std::chrono::seconds(5), std::chrono::seconds(3)};

enum Exit : int { kDone = 0, kFailed = 1, kWrongUsage = 2 };

/// A dialog is a process of its own: the server has no windows and runs without a display. Gives what it has
/// written.
QByteArray runDialog(const char* argument, const QByteArray& input = {})
{
    QProcess dialog;
    QEventLoop loop;
    QObject::connect(&dialog, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&dialog, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    dialog.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    dialog.start(QCoreApplication::applicationFilePath(), {QLatin1String(argument)});
    dialog.write(input);
    dialog.closeWriteChannel();
    if (dialog.state() != QProcess::NotRunning)
        loop.exec();
    if (dialog.exitStatus() != QProcess::NormalExit || dialog.error() == QProcess::FailedToStart)
        throw RunTimeError(kInvalidCall, "The dialog can't be shown");
    if (dialog.exitCode() != kDone)
        throw RunTimeError(kPathOrFileAccess);
    return dialog.readAllStandardOutput();
}

ProfileAnswer runProfileDialog(const ProfileQuestion& question)
{
    return profileAnswer(runDialog(kAskProfile, toJson(question)));
}

int askProfile(int argc, char** argv)
{
    const QApplication application(argc, argv);
    installLinuxPlatform();
    QFile input;
    QFile output;
    if (!input.open(stdin, QIODevice::ReadOnly) || !output.open(stdout, QIODevice::WriteOnly))
        return kFailed;
    output.write(toJson(zorvo::askProfile(profileQuestion(input.readAll()))));
    return kDone;
}

int chooseLocation(int argc, char** argv)
{
    const QApplication application(argc, argv);
    installLinuxPlatform();
    chooseReferenceLocation(*platform().registry, *platform().files);
    return kDone;
}

int changeRegistration(const std::string& sArgument)
{
    RegistryStore registry;
    if (sArgument == "--register")
        registerCompanions(registry, QCoreApplication::applicationFilePath().toStdString());
    else
        unregisterCompanions(registry);
    return kDone;
}

void registerQuietly()
{
    try {
        RegistryStore registry;
        registerMissingCompanions(registry, QCoreApplication::applicationFilePath().toStdString());
    } catch (const RunTimeError& error) { // an ordinary user's run serves all the same
        std::cerr << "zorvo-companions: not registered: " << error.description() << '\n';
    }
}

int serve()
{
    registerQuietly();
    DBusClassServer server(QDBusConnection::sessionBus(), QLatin1String(kCompanionsBusName),
                           companionClasses({[] { runDialog(kChooseLocation); }, runProfileDialog}),
                           DBusClassServer::Attaching::attachable);
    const EndOfService end(server, {}, kWaits);
    if (!server.start()) {
        std::cerr << "zorvo-companions: there is no session bus, or another one serves already\n";
        return kFailed;
    }
    return QCoreApplication::exec();
}

int run(const std::string& sArgument)
{
    if (sArgument.empty())
        return serve();
    if (sArgument == "--register" || sArgument == "--unregister")
        return changeRegistration(sArgument);
    const bool bHelp = sArgument == "--help";
    (bHelp ? std::cout : std::cerr) << kUsage;
    return bHelp ? kDone : kWrongUsage;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string sArgument = argc == 2 ? argv[1] : argc > 2 ? "-" : "";
    try {
        if (sArgument == kChooseLocation)
            return chooseLocation(argc, argv);
        if (sArgument == kAskProfile)
            return askProfile(argc, argv);
        const QCoreApplication application(argc, argv);
        return run(sArgument);
    } catch (const RunTimeError& error) {
        std::cerr << "zorvo-companions: " << error.description() << '\n';
        return kFailed;
    }
}
