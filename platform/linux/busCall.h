#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <limits>

/// Calls to other processes on the session bus.
namespace zorvo {

/// As long as it takes: the other side may be waiting for its user.
inline constexpr int kNoTimeOut = std::numeric_limits<int>::max();

/// Sends the call and gives the reply or the error. While the thread waits it goes on serving calls to our
/// own objects, timers and repaints; mouse and keys wait in their queue, since the code that called may be in
/// the middle of anything. A peer that vanishes and the end of our own event loop are errors as well.
QDBusMessage callAndServe(const QDBusConnection& bus, const QDBusMessage& call,
                          int nMilliseconds = kNoTimeOut);

/// To be called before what may run a nested event loop inside an event handler. Events that were posted
/// together with the one being handled don't wake such a loop by themselves: a call to us could wait there
/// for ever.
void wakeNestedLoops();

/// A call to an object; `interface` may be empty.
QDBusMessage methodCall(const QString& service, const QString& path, const QString& interface,
                        const QString& member, const QVariantList& arguments = {});

/// Returns when the bus has taken all that was sent so far, or after a few seconds.
void flushBus(const QDBusConnection& bus);

/// Unique name of the process that has the name now; empty when none has it.
QString ownerOf(const QDBusConnection& bus, const QString& busName);

/// Makes sure that a call to the name has somebody to take it: a process that has it, one that the bus can
/// start, or the program at the native path `executable` (which may be empty), started here and waited for
/// until it has the name. Throws RunTimeError 429 when there is none, or it doesn't come up in time.
void ensureServer(const QDBusConnection& bus, const QString& busName, const QString& executable);

} // namespace zorvo
