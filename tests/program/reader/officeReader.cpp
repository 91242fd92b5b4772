#include <com/sun/star/awt/XWindow2.hpp>
#include <com/sun/star/bridge/XBridgeFactory.hpp>
#include <com/sun/star/connection/XConnector.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>

/// officeReader PIPE: what a running office that listens there holds, as lines:
///
///     document
///     address file:///...         (empty while unsaved)
///     modified yes
///     visible yes
///     before                      (the text between the beginning and the user's cursor)
///     paragraph The text of it
///     table first cell|second cell
///
/// A tab or a line end within a text is a blank.
namespace {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

std::string line(const rtl::OUString& text)
{
    const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
    std::string plain(bytes.getStr(), static_cast<std::size_t>(bytes.getLength()));
    for (char& character : plain)
        if (std::strchr("\r\n\t", character) != nullptr && character != '\0')
            character = ' ';
    return plain;
}

Reference<css::frame::XDesktop> connect(const char* pipe)
{
    rtl::Bootstrap::set("URE_BOOTSTRAP", "vnd.sun.star.pathname:" ZORVO_OFFICE_PROGRAM "/fundamentalrc");
    const auto local = cppu::defaultBootstrap_InitialComponentContext();
    const auto services = local->getServiceManager();
    const Reference<css::connection::XConnector> connector(
        services->createInstanceWithContext("com.sun.star.connection.Connector", local), UNO_QUERY_THROW);
    const Reference<css::bridge::XBridgeFactory> factory(
        services->createInstanceWithContext("com.sun.star.bridge.BridgeFactory", local), UNO_QUERY_THROW);
    const auto connection = connector->connect("pipe,name=" + rtl::OUString::createFromAscii(pipe));
    const auto bridge = factory->createBridge("", "urp", connection, nullptr);
    const Reference<css::uno::XComponentContext> context(bridge->getInstance("StarOffice.ComponentContext"),
                                                         UNO_QUERY_THROW);
    return {context->getServiceManager()->createInstanceWithContext("com.sun.star.frame.Desktop", context),
            UNO_QUERY_THROW};
}

bool isVisible(const Reference<css::frame::XModel>& model)
{
    const auto window = model->getCurrentController()->getFrame()->getContainerWindow();
    return Reference<css::awt::XWindow2>(window, UNO_QUERY_THROW)->isVisible();
}

std::string cellsOf(const Reference<css::text::XTextTable>& table)
{
    std::string cells;
    for (const rtl::OUString& name : table->getCellNames()) {
        const Reference<css::text::XTextRange> cell(table->getCellByName(name), UNO_QUERY_THROW);
        cells += (cells.empty() ? "" : "|") + line(cell->getString());
    }
    return cells;
}

std::string textBeforeCursor(const Reference<css::frame::XModel>& model,
                             const Reference<css::text::XText>& text)
{
    const Reference<css::text::XTextViewCursorSupplier> view(model->getCurrentController(), UNO_QUERY_THROW);
    const Reference<css::text::XTextRange> cursor(view->getViewCursor(), UNO_QUERY_THROW);
    try {
        const auto before = text->createTextCursorByRange(cursor->getStart());
        before->gotoStart(true);
        return line(Reference<css::text::XTextRange>(before, UNO_QUERY_THROW)->getString());
    } catch (const css::uno::RuntimeException&) {
        return "(in a table)";
    }
}

void tell(const Reference<css::text::XTextDocument>& document)
{
    const Reference<css::frame::XModel> model(document, UNO_QUERY_THROW);
    const auto text = document->getText();
    std::cout << "document\naddress " << line(model->getURL()) << "\nmodified "
              << (Reference<css::util::XModifiable>(model, UNO_QUERY_THROW)->isModified() ? "yes" : "no")
              << "\nvisible " << (isVisible(model) ? "yes" : "no") << "\n";
    std::cout << "before " << textBeforeCursor(model, text) << "\n";
    const auto blocks =
        Reference<css::container::XEnumerationAccess>(text, UNO_QUERY_THROW)->createEnumeration();
    while (blocks->hasMoreElements()) {
        const auto block = blocks->nextElement();
        const Reference<css::text::XTextTable> table(block, UNO_QUERY);
        if (table.is())
            std::cout << "table " << cellsOf(table) << "\n";
        else
            std::cout << "paragraph "
                      << line(Reference<css::text::XTextRange>(block, UNO_QUERY_THROW)->getString()) << "\n";
    }
}

} // namespace

int main(int argc, char** argv)
{
    int result = 1;
    try {
        const auto desktop = connect(argc > 1 ? argv[1] : "");
        const auto components = desktop->getComponents()->createEnumeration();
        while (components->hasMoreElements()) {
            const Reference<css::text::XTextDocument> document(components->nextElement(), UNO_QUERY);
            if (document.is())
                tell(document);
        }
        result = 0;
    } catch (const css::uno::Exception& e) {
        std::cerr << line(e.Message) << "\n";
    }
    std::cout.flush();
    std::cerr.flush();
    // The office's libraries are left as they are.
    _exit(result);
}
