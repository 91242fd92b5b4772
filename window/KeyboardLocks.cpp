#include "window/KeyboardLocks.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QTimer>

#include <cstdlib>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace zorvo {

namespace {

bool isLockKey(int key)
{
    return key == Qt::Key_CapsLock || key == Qt::Key_NumLock || key == Qt::Key_Insert;
}

/// The modifiers that the X server holds now; none when it isn't what we run on. Qt tells no lock state.
std::optional<unsigned> serverModifiers()
{
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection())
        return {};
    xcb_connection_t* connection = x11->connection();
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> reply(
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, screen->root), nullptr),
        &std::free);
    if (!reply)
        return {};
    return reply->mask;
}

} // namespace

KeyboardLocks::KeyboardLocks(QObject* parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
    refresh();
}

void KeyboardLocks::refresh()
{
    const std::optional<unsigned> modifiers = serverModifiers();
    if (!modifiers)
        return;
    // Num Lock is the second modifier on every X keyboard map in use.
    const bool bCaps = (*modifiers & XCB_MOD_MASK_LOCK) != 0;
    const bool bNum = (*modifiers & XCB_MOD_MASK_2) != 0;
    if (bCaps == bCaps_ && bNum == bNum_)
        return;
    bCaps_ = bCaps;
    bNum_ = bNum;
    Q_EMIT changed();
}

bool KeyboardLocks::eventFilter(QObject* watched, QEvent* event)
{
    const bool bPress = event->type() == QEvent::KeyPress;
    const bool bRelease = event->type() == QEvent::KeyRelease;
    // A key comes to the window first, and then to each widget that may want it.
    if ((bPress || bRelease) && watched->isWindowType()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (isLockKey(key->key()) && bPress && !key->isAutoRepeat())
            take(key->key());
        else if (isLockKey(key->key()))
            refresh();
    } else if (event->type() == QEvent::FocusIn && watched->isWindowType()) {
        // Not at once: the server answers when it has shown the window, which has more to do until then.
        QTimer::singleShot(0, this, &KeyboardLocks::refresh);
    }
    return false;
}

void KeyboardLocks::take(int key)
{
    if (key == Qt::Key_Insert)
        bInsert_ = !bInsert_;
    else if (!serverModifiers() && key == Qt::Key_CapsLock)
        bCaps_ = !bCaps_;
    else if (!serverModifiers())
        bNum_ = !bNum_;
    refresh();
    Q_EMIT changed();
}

} // namespace zorvo
