#include "pages/keyboardSelection.h"

#include <QGuiApplication>
#include <QWidget>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace zorvo {

namespace {

/// Null where no X server is.
xcb_connection_t* server()
{
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

} // namespace

void takeKeyboard(const QWidget& window)
{
    xcb_connection_t* connection = server();
    if (!connection)
        return;
    xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, static_cast<xcb_window_t>(window.internalWinId()),
                        XCB_CURRENT_TIME);
    xcb_flush(connection);
}

void selectKeys(const QWidget& window, bool bSelected)
{
    xcb_connection_t* connection = server();
    if (!connection)
        return;
    const auto id = static_cast<xcb_window_t>(window.internalWinId());
    const std::unique_ptr<xcb_get_window_attributes_reply_t, decltype(&std::free)> attributes(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, id), nullptr),
        &std::free);
    if (!attributes)
        return;
    constexpr std::uint32_t kKeys = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
    const std::uint32_t nMask =
        bSelected ? attributes->your_event_mask | kKeys : attributes->your_event_mask & ~kKeys;
    xcb_change_window_attributes(connection, id, XCB_CW_EVENT_MASK, &nMask);
    xcb_flush(connection);
}

} // namespace zorvo
