#include "window/pendingEvents.h"

#include <QCoreApplication>

namespace zorvo {

void processPendingEvents()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents();
}

} // namespace zorvo
