#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

namespace zorvo {

/// A session bus of a test's own, in folders of its own: nothing of the user's session is touched. The daemon
/// and all that it starts end with it.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

    const QString& address() const { return address_; }
    /// What a process on this bus gets: the bus's address and XDG and machine folders below a temporary one.
    const QProcessEnvironment& environment() const { return environment_; }
    /// A folder for the test's files.
    QString folder() const { return folder_.path(); }

    /// Lets the bus start `executable` for calls to `busName`.
    void addService(const QString& busName, const QString& executable);
    void removeService(const QString& busName);

    /// Ends the daemon at once, as at the end of a session.
    void kill();

private:
    void writeConfiguration() const;
    void reloadServices() const;

    QTemporaryDir folder_;
    QProcess daemon_;
    QString address_;
    QProcessEnvironment environment_;
};

/// The bus that all tests of the program share: the process's own session bus.
PrivateBus& sharedBus();

} // namespace zorvo
