#include "window/UiIds.h"

#include <QWidget>

namespace zorvo {

namespace {

bool areIdsWanted()
{
    return qEnvironmentVariable("ZORVOBRENDLE_UI_IDS") == QLatin1String("1");
}

bool hasNameOfItsOwn(const QWidget& widget)
{
    const QString name = widget.objectName();
    return !name.isEmpty() && !name.startsWith(QLatin1String("qt_"));
}

} // namespace

void markUiId(QWidget& widget)
{
    if (areIdsWanted() && hasNameOfItsOwn(widget))
        widget.setAccessibleDescription(QLatin1Char('#') + widget.objectName());
}

void markUiIds(QWidget& root)
{
    if (!areIdsWanted())
        return;
    markUiId(root);
    const auto widgets = root.findChildren<QWidget*>();
    for (QWidget* widget : widgets)
        markUiId(*widget);
}

} // namespace zorvo
