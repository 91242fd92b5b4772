#include "window/taskListName.h"

#include <QGuiApplication>
#include <QString>
#include <QWidget>

#include <xcb/xcb.h>

#include <cstdint>

namespace zorvo {

void setTaskListName(QWidget& window, const QString& launcher, const QString& name)
{
    QGuiApplication::setDesktopFileName(launcher);
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection())
        return;
    // Qt has given the window the program's own class and offers no way to another.
    const QByteArray ending(1, '\0');
    const QByteArray wmClass = launcher.toUtf8() + ending + name.toUtf8() + ending;
    xcb_change_property(x11->connection(), XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                        XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(wmClass.size()),
                        wmClass.constData());
    xcb_flush(x11->connection());
}

} // namespace zorvo
