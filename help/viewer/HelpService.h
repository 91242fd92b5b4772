#pragma once

#include "help/viewer/HelpDesk.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QTimer>
#include <chrono>

namespace zorvo::help {

/// The viewer on the session bus, where programs find it again while it runs: bus name and interface
/// com.zorvo.Help, object /com/zorvo/Help.
class HelpService : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.zorvo.Help")
public:
    struct Waits {
        /// For a first request.
        std::chrono::milliseconds first{5000};
        /// For a further one, once nothing is shown any more.
        std::chrono::milliseconds idle{500};
    };

    /// Ends the application's event loop when nothing is shown and nobody asks.
    HelpService(HelpDesk& desk, QDBusConnection bus, Waits waits);

    /// False when there is no bus or another viewer serves.
    bool start();

public Q_SLOTS:
    // As the port's operations of these names; `command` is the number of the command.
    Q_SCRIPTABLE qulonglong Show(qulonglong owner, const QString& file, int command, uint data);
    Q_SCRIPTABLE void SetTopMost(qulonglong window, bool top);

private:
    void considerEnd();

    HelpDesk& desk_;
    QDBusConnection bus_;
    Waits waits_;
    QTimer end_;
};

/// Asks the viewer that serves on the bus already; false when none does.
bool showElsewhere(const QDBusConnection& bus, const QString& file, int nCommand, uint nData);

} // namespace zorvo::help
