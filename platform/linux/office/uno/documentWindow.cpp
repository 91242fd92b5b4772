#include "platform/linux/office/uno/documentWindow.h"

#include <com/sun/star/awt/SystemDependentXWindow.hpp>
#include <com/sun/star/awt/XSystemDependentWindowPeer.hpp>
#include <com/sun/star/awt/XTopWindow2.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/lang/SystemDependent.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>
#include <com/sun/star/view/XViewSettingsSupplier.hpp>

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace zorvo {

namespace {

Reference<css::frame::XFrame> frameOf(const DocumentModel& document)
{
    const Reference<css::frame::XController> controller(document->getCurrentController(),
                                                        css::uno::UNO_SET_THROW);
    return {controller->getFrame(), css::uno::UNO_SET_THROW};
}

/// An office without a screen makes windows too; only the window system knows none of them.
bool isOnScreen(const Reference<css::awt::XWindow>& window)
{
    const Reference<css::awt::XSystemDependentWindowPeer> peer(window, UNO_QUERY);
    if (!peer.is())
        return false;
    css::awt::SystemDependentXWindow handle;
    peer->getWindowHandle(css::uno::Sequence<sal_Int8>(), css::lang::SystemDependent::SYSTEM_XWINDOW) >>=
        handle;
    return handle.WindowHandle != 0;
}

} // namespace

bool isWindowShowable(const DocumentModel& document)
{
    return isOnScreen(frameOf(document)->getContainerWindow());
}

bool showWindow(const DocumentModel& document)
{
    if (!isWindowShowable(document))
        return false;
    frameOf(document)->getContainerWindow()->setVisible(true);
    raiseWindow(document);
    return true;
}

void raiseWindow(const DocumentModel& document)
{
    const Reference<css::awt::XTopWindow> top(frameOf(document)->getContainerWindow(), UNO_QUERY_THROW);
    top->toFront();
}

void maximizeWindow(const DocumentModel& document)
{
    const Reference<css::awt::XTopWindow2> top(frameOf(document)->getContainerWindow(), UNO_QUERY_THROW);
    top->setIsMaximized(true);
}

void switchToNormalView(const DocumentModel& document)
{
    css::util::URL command;
    command.Complete = ".uno:NormalViewMode";
    command.Main = command.Complete;
    command.Protocol = ".uno:";
    command.Path = "NormalViewMode";
    const Reference<css::frame::XDispatchProvider> provider(frameOf(document), UNO_QUERY_THROW);
    const auto dispatch = provider->queryDispatch(command, "", 0);
    if (dispatch.is())
        dispatch->dispatch(command, {});
}

void switchToPageView(const DocumentModel& document)
{
    const Reference<css::view::XViewSettingsSupplier> supplier(document->getCurrentController(), UNO_QUERY);
    if (supplier.is())
        supplier->getViewSettings()->setPropertyValue("ShowOnlineLayout", css::uno::Any(false));
}

void moveViewToStart(const DocumentModel& document)
{
    const Reference<css::text::XTextViewCursorSupplier> supplier(document->getCurrentController(), UNO_QUERY);
    if (supplier.is())
        supplier->getViewCursor()->gotoStart(false);
}

} // namespace zorvo
