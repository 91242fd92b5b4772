#include "platform/linux/office/fileAddress.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/bridge/XBridgeFactory.hpp>
#include <com/sun/star/connection/XConnector.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/document/XDocumentInsertable.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

/// bare_insertion PIPE close: closes all documents of the office that listens there.
/// bare_insertion PIPE plain|held TEMPLATE FILE...: the shortest loop that makes a document of the files;
/// prints the seconds that it took. "held" keeps the window from following.
namespace {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

rtl::OUString textOf(const std::string& text)
{
    return {text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8};
}

Reference<css::frame::XComponentLoader> connect(const std::string& pipe)
{
    rtl::Bootstrap::set("URE_BOOTSTRAP", "vnd.sun.star.pathname:" ZORVO_OFFICE_PROGRAM "/fundamentalrc");
    const auto local = cppu::defaultBootstrap_InitialComponentContext();
    const auto services = local->getServiceManager();
    const Reference<css::connection::XConnector> connector(
        services->createInstanceWithContext("com.sun.star.connection.Connector", local), UNO_QUERY_THROW);
    const Reference<css::bridge::XBridgeFactory> factory(
        services->createInstanceWithContext("com.sun.star.bridge.BridgeFactory", local), UNO_QUERY_THROW);
    const auto bridge =
        factory->createBridge("", "urp", connector->connect("pipe,name=" + textOf(pipe)), nullptr);
    const Reference<css::uno::XComponentContext> context(bridge->getInstance("StarOffice.ComponentContext"),
                                                         UNO_QUERY_THROW);
    return {context->getServiceManager()->createInstanceWithContext("com.sun.star.frame.Desktop", context),
            UNO_QUERY_THROW};
}

void closeAll(const Reference<css::frame::XComponentLoader>& loader)
{
    const Reference<css::frame::XDesktop> desktop(loader, UNO_QUERY_THROW);
    std::vector<Reference<css::util::XCloseable>> documents;
    const auto components = desktop->getComponents()->createEnumeration();
    while (components->hasMoreElements())
        documents.emplace_back(components->nextElement(), css::uno::UNO_QUERY);
    for (const auto& document : documents)
        if (document.is())
            document->close(true);
}

void insertAll(const Reference<css::frame::XComponentLoader>& loader, bool held,
               const std::vector<std::string>& files)
{
    css::uno::Sequence<css::beans::PropertyValue> arguments(2);
    arguments.getArray()[0] = {"Hidden", -1, Any(true), css::beans::PropertyState_DIRECT_VALUE};
    arguments.getArray()[1] = {"AsTemplate", -1, Any(true), css::beans::PropertyState_DIRECT_VALUE};
    const Reference<css::frame::XModel> model(
        loader->loadComponentFromURL(textOf(zorvo::fileAddressOf(files.at(0))), "_blank", 0, arguments),
        UNO_QUERY_THROW);
    const auto cursor =
        Reference<css::text::XTextDocument>(model, UNO_QUERY_THROW)->getText()->createTextCursor();
    cursor->gotoStart(false);
    const Reference<css::document::XDocumentInsertable> place(cursor, UNO_QUERY_THROW);
    if (held)
        model->lockControllers();
    for (std::size_t n = 1; n < files.size(); ++n) {
        place->insertDocumentFromURL(textOf(zorvo::fileAddressOf(files[n])), {});
        cursor->collapseToEnd();
    }
    if (held)
        model->unlockControllers();
    model->getCurrentController()->getFrame()->getContainerWindow()->setVisible(true);
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto loader = connect(arguments.at(0));
    const auto begin = std::chrono::steady_clock::now();
    if (arguments.at(1) == "close")
        closeAll(loader);
    else
        insertAll(loader, arguments.at(1) == "held", {arguments.begin() + 2, arguments.end()});
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    std::printf("%.4f\n", seconds.count());
    std::fflush(stdout);
    // The office's libraries are left as they are.
    _exit(0);
}
