#pragma once

#include "platform/linux/DBusRemoteObject.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <memory>
#include <string>

/// The way from `brendle` to the objects it calls.
namespace zorvo {

/// The session bus. Throws RunTimeError 429 with a text that says what is missing.
QDBusConnection requiredSessionBus();

/// A new object of one of the program's own classes. Where the bus can't start the program by itself, the one
/// beside `brendle` is started. Throws RunTimeError, 429 when there is no server.
std::shared_ptr<DBusRemoteObject> createProgramObject(const std::string& progId);

/// A new object of any class: the program's own, or one that the registry knows.
std::shared_ptr<DBusRemoteObject> createAnyObject(const std::string& progId);

/// Tells when the process that serves an object has ended; listens from its making on.
class ServerEnd {
public:
    explicit ServerEnd(const DBusRemoteObject& object);

    /// Returns when it has ended. Throws RunTimeError 462 when the bus goes first.
    void wait();

private:
    QDBusConnection bus_;
    QEventLoop loop_;
    QDBusServiceWatcher watcher_;
    bool bEnded_ = false;
};

} // namespace zorvo
