#include "platform/linux/DBusObjectService.h"
#include "tests/bus/ProbeClasses.h"
#include "tests/bus/StandInClasses.h"

#include <QCoreApplication>

/// Serves the test classes under the program's own bus name, by the program's own rules. Exit code 3 when
/// another process serves already.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    zorvo::DBusObjectService service;
    zorvo::ProbeHost host;
    host.endProcess = [&service] { service.endProcess(); };
    host.reconsiderEnd = [&service] { service.reconsiderEnd(); };
    auto classes = zorvo::probeClasses(host);
    for (auto& standIn : zorvo::standInClasses(host))
        classes.push_back(std::move(standIn));
    if (!service.start(std::move(classes), [&host] { return host.bFormLoaded; }))
        return 3;
    return QCoreApplication::exec();
}
