#include "help/viewer/uiIds.h"

#include <QWidget>

namespace zorvo::help {

void markUiIds(QWidget& root)
{
    if (qgetenv("ZORVOBRENDLE_UI_IDS") != "1")
        return;
    const auto mark = [](QWidget* widget) {
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")))
            widget->setAccessibleDescription(QLatin1Char('#') + widget->objectName());
    };
    mark(&root);
    for (QWidget* widget : root.findChildren<QWidget*>())
        mark(widget);
}

} // namespace zorvo::help
