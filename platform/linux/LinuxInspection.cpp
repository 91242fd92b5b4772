#include "platform/linux/LinuxInspection.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "base/programVersion.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "platform/SpecialFolders.h"
#include "platform/linux/RegistryStore.h"
#include "platform/linux/SettingsFile.h"
#include "platform/linux/busCall.h"
#include "platform/linux/environmentFolders.h"
#include "platform/linux/office/OfficeInstallation.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QFileInfo>
#include <QProcess>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <optional>

namespace zorvo {

namespace {

const QString kServiceName = QStringLiteral("com.zorvo.TSelector");

std::string linkTarget(const std::string& link)
{
    char target[PATH_MAX];
    const ssize_t length = readlink(link.c_str(), target, sizeof target);
    return {target, length > 0 ? static_cast<std::size_t>(length) : 0};
}

std::string ownFolder()
{
    const std::string program = linkTarget("/proc/self/exe");
    return program.substr(0, program.rfind('/'));
}

std::string ownVersion()
{
    return std::to_string(kProgramVersion.nMajor) + "." + std::to_string(kProgramVersion.nMinor) + ".0." +
           std::to_string(kProgramVersion.nRevision);
}

Inspection::Program ownProgram(const std::string& sName)
{
    Inspection::Program program{sName, ownVersion(), ownFolder() + "/" + sName};
    if (access(program.sPlace.c_str(), X_OK) != 0)
        program.faults.push_back(
            {"program.missing", "The program " + sName + " isn't there or can't be started", program.sPlace});
    return program;
}

Inspection::Program officeProgram(const std::string& sName, OfficeDocumentKind kind)
{
    Inspection::Program program{sName, {}, {}};
    try {
        const OfficeInstallation office = findOffice(kind);
        program.sVersion = office.sVersion;
        program.sPlace = office.sProgramFolder;
    } catch (const RunTimeError& error) {
        program.faults.push_back({"office.missing", error.description()});
    }
    return program;
}

/// The last word of what a bus daemon says of itself.
std::string versionOfDaemon(const std::string& executable)
{
    constexpr int kPatience = 2000;
    const QFileInfo file(QString::fromStdString(executable));
    if (!file.fileName().startsWith(QStringLiteral("dbus-")))
        return {};
    QProcess daemon;
    daemon.start(file.filePath(), {QStringLiteral("--version")}, QIODevice::ReadOnly);
    if (!daemon.waitForFinished(kPatience)) {
        daemon.kill();
        daemon.waitForFinished(kPatience);
        return {};
    }
    const QString line =
        QString::fromLocal8Bit(daemon.readAllStandardOutput()).section(QLatin1Char('\n'), 0, 0);
    return line.section(QLatin1Char(' '), -1).toStdString();
}

bool hasBusAddress()
{
    const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (address && *address)
        return true;
    return !runtimeFolder().empty() && access((runtimeFolder() + "/bus").c_str(), F_OK) == 0;
}

/// Nothing when there is none, or it can't be reached.
std::optional<QDBusConnection> sessionBus()
{
    if (!hasBusAddress())
        return std::nullopt;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() && bus.interface() ? std::optional(bus) : std::nullopt;
}

bool canBeStarted(const QDBusConnection& bus, const QString& name)
{
    const QDBusReply<QStringList> names = bus.interface()->activatableServiceNames();
    return names.isValid() && names.value().contains(name);
}

std::string whyThereIsNoBus()
{
    if (!hasBusAddress())
        return "There is no session bus: DBUS_SESSION_BUS_ADDRESS isn't set";
    return "The session bus can't be reached: " +
           QDBusConnection::sessionBus().lastError().message().toStdString();
}

Inspection::Program busProgram()
{
    Inspection::Program program{"session bus", {}, {}};
    const auto bus = sessionBus();
    if (!bus) {
        program.faults.push_back({"bus.missing", whyThereIsNoBus()});
        return program;
    }
    const QDBusReply<uint> process = bus->interface()->servicePid(QStringLiteral("org.freedesktop.DBus"));
    if (process.isValid())
        program.sPlace = linkTarget("/proc/" + std::to_string(process.value()) + "/exe");
    program.sVersion = versionOfDaemon(program.sPlace);
    if (ownerOf(*bus, kServiceName).isEmpty() && !canBeStarted(*bus, kServiceName))
        program.faults.push_back({"bus.notActivatable", "The session bus doesn't know how to start " +
                                                            kServiceName.toStdString() +
                                                            ", so that add-ins can't open the program"});
    return program;
}

bool isFolder(const std::string& path)
{
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The folder itself or, while it isn't there, the first one above it that is.
std::string existingPart(std::string path)
{
    struct stat status {};
    while (path.size() > 1 && lstat(path.c_str(), &status) != 0) {
        const auto nSlash = path.rfind('/');
        path.resize(nSlash == 0 ? 1 : nSlash);
    }
    return path;
}

enum class Need { read, write };

/// `bMade` folders come with their first use: that they aren't there is no fault as long as they can be made.
Inspection::Folder folder(const std::string& sName, const std::string& sPath, Need need, bool bMade)
{
    Inspection::Folder result{sName, sPath};
    const auto fault = [&](const char* code, const std::string& text) {
        result.faults.push_back({code, "The " + sName + " folder " + text, sPath});
    };
    struct stat status {};
    result.bThere = stat(sPath.c_str(), &status) == 0;
    const std::string sExisting = existingPart(sPath);
    result.bWritable = isFolder(sExisting) && access(sExisting.c_str(), W_OK | X_OK) == 0;
    if (result.bThere && !S_ISDIR(status.st_mode))
        fault("folder.notAFolder", "is no folder");
    else if (!result.bThere && !bMade)
        fault("folder.missing", "isn't there");
    else if (result.bThere && access(sPath.c_str(), R_OK | X_OK) != 0)
        fault("folder.notReadable", "can't be read");
    else if (need == Need::write && !result.bWritable)
        fault("folder.notWritable", result.bThere ? "can't be written" : "isn't there and can't be made");
    return result;
}

std::string nativeOf(const std::string& sPath)
{
    return sPath.empty() ? sPath : platform().files->toNative(sPath);
}

/// Where the temporary folder is, or would be made.
std::string temporaryFolder()
{
    if (!runtimeFolder().empty())
        return runtimeFolder() + "/zorvobrendle";
    const char* given = std::getenv("TMPDIR");
    const std::string sParent = given && given[0] == '/' ? given : "/tmp";
    return sParent + "/zorvobrendle-" + std::to_string(geteuid());
}

Inspection::Store registryFile(const std::string& sName, const std::string& sFolder, Hive hive)
{
    Inspection::Store store{sName, sFolder + "/registry.db"};
    struct stat status {};
    store.bThere = stat(store.sPath.c_str(), &status) == 0;
    if (!store.bThere && errno != ENOENT && errno != ENOTDIR)
        store.faults.push_back({"registry.damaged", sName + " can't be read", store.sPath});
    try {
        RegistryStore registry(RegistryDatabase::Use::lookAlone);
        registry.subKeys(hive, "Software");
    } catch (const RunTimeError& error) {
        store.faults.push_back(
            {"registry.damaged", sName + " can't be used: " + error.description(), store.sPath});
    }
    return store;
}

Inspection::Store settingsFile()
{
    Inspection::Store store{"settings", configHomeFolder() + "/ZorvoBrendle/settings.ini"};
    store.bThere = access(store.sPath.c_str(), F_OK) == 0;
    try {
        SettingsFile().requireReadable("ZorvoBrendle");
    } catch (const RunTimeError& error) {
        store.faults.push_back({"settings.unreadable", error.description(), store.sPath});
    }
    return store;
}

} // namespace

std::vector<Inspection::Program> LinuxInspection::programs()
{
    return {ownProgram("zorvobrendle"),
            ownProgram("brendle"),
            ownProgram("brendle-help"),
            officeProgram("LibreOffice Writer", OfficeDocumentKind::text),
            officeProgram("LibreOffice Calc", OfficeDocumentKind::spreadsheet),
            busProgram()};
}

std::vector<Inspection::Folder> LinuxInspection::folders()
{
    const std::string sDocuments = nativeOf(platform().folders->documents());
    return {folder("program", nativeOf(platform().folders->program()), Need::read, false),
            folder("documents", sDocuments, Need::write, false),
            folder("support", sDocuments + "/Halvern House/Brendle", Need::write, true),
            folder("settings", configHomeFolder() + "/ZorvoBrendle", Need::write, true),
            folder("user data", userDataFolder(), Need::write, true),
            folder("machine data", machineDataFolder(), Need::read, true),
            folder("temporary", temporaryFolder(), Need::write, true)};
}

std::vector<Inspection::Store> LinuxInspection::stores()
{
    return {registryFile("the user's registry", userDataFolder(), HKEY_CURRENT_USER),
            registryFile("the machine's registry", machineDataFolder(), HKEY_LOCAL_MACHINE), settingsFile()};
}

bool LinuxInspection::canServe(const std::string& busName, const std::string& executable)
{
    const QString name = QString::fromStdString(busName);
    const auto bus = sessionBus();
    if (bus && (!ownerOf(*bus, name).isEmpty() || canBeStarted(*bus, name)))
        return true;
    return !executable.empty() && !isFolder(executable) && access(executable.c_str(), X_OK) == 0;
}

} // namespace zorvo
