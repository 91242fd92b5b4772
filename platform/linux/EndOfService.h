#pragma once

#include "platform/linux/DBusClassServer.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>

namespace zorvo {

/// The rule by which a process that serves classes ends: when nobody holds an object, no call is running and
/// no form is loaded.
///
/// A client may be asking for an object in the very moment in which the last one goes. So the name is given
/// up first, what was sent to it before is still served, and only a server that stays idle ends; otherwise it
/// takes the name again.
class EndOfService : public QObject {
    Q_OBJECT
public:
    struct Waits {
        /// For a first client, from the start on.
        std::chrono::milliseconds first;
        /// For a further one, after the last object has gone.
        std::chrono::milliseconds idle;
    };

    /// An empty `isFormLoaded` says no.
    EndOfService(DBusClassServer& server, std::function<bool()> isFormLoaded, Waits waits);

    /// Looks at it once the event loop runs again: the caller may be deep in a call.
    void considerSoon();

private:
    bool mayEnd() const;
    void consider();
    void endWithBus();

    DBusClassServer& server_;
    std::function<bool()> isFormLoaded_;
    Waits waits_;
    QTimer wake_;
    QElapsedTimer sinceStart_;
    bool bConsidering_ = false;
};

} // namespace zorvo
