#include "tests/bus/PrivateBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <stdexcept>

namespace zorvo {

namespace {

void writeFile(const QString& path, const QString& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text.toUtf8()) < 0)
        throw std::runtime_error("can't write " + path.toStdString());
}

constexpr const char* kConfiguration =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=%1</listen>
  <auth>EXTERNAL</auth>
  <servicedir>%1/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

PrivateBus::PrivateBus()
    : environment_(QProcessEnvironment::systemEnvironment())
{
    writeConfiguration();
    const std::pair<const char*, const char*> folders[] = {
        {"XDG_DATA_HOME", "data"},  {"XDG_CONFIG_HOME", "config"},           {"XDG_CACHE_HOME", "cache"},
        {"XDG_RUNTIME_DIR", "run"}, {"ZORVOBRENDLE_MACHINE_DIR", "machine"}, {"HOME", "home"},
    };
    for (const auto& [variable, name] : folders) {
        const QString path = folder() + QLatin1Char('/') + QLatin1String(name);
        QDir().mkpath(path);
        environment_.insert(QLatin1String(variable), path);
    }
    QFile::setPermissions(folder() + QStringLiteral("/run"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    environment_.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment_.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));

    daemon_.setProcessEnvironment(environment_);
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                   QStringLiteral("--config-file=") + folder() + QStringLiteral("/bus.conf")});
    daemon_.setReadChannel(QProcess::StandardOutput);
    if (!daemon_.waitForReadyRead(10000))
        throw std::runtime_error("dbus-daemon doesn't start: " + daemon_.errorString().toStdString());
    address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    environment_.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address_);
}

PrivateBus::~PrivateBus()
{
    kill();
}

void PrivateBus::writeConfiguration() const
{
    QDir().mkpath(folder() + QStringLiteral("/services"));
    writeFile(folder() + QStringLiteral("/bus.conf"), QString::fromUtf8(kConfiguration).arg(folder()));
}

void PrivateBus::addService(const QString& busName, const QString& executable)
{
    writeFile(folder() + QStringLiteral("/services/") + busName + QStringLiteral(".service"),
              QStringLiteral("[D-BUS Service]\nName=%1\nExec=%2\n").arg(busName, executable));
    reloadServices();
}

void PrivateBus::removeService(const QString& busName)
{
    QFile::remove(folder() + QStringLiteral("/services/") + busName + QStringLiteral(".service"));
    reloadServices();
}

void PrivateBus::reloadServices() const
{
    const QString name = QStringLiteral("reload");
    {
        const QDBusConnection connection = QDBusConnection::connectToBus(address_, name);
        connection.call(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ReloadConfig")));
    }
    QDBusConnection::disconnectFromBus(name);
}

void PrivateBus::kill()
{
    daemon_.kill();
    daemon_.waitForFinished();
}

} // namespace zorvo
