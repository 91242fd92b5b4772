#include "platform/linux/office/uno/UnoConnection.h"

#include "platform/linux/office/uno/LocalContext.h"
#include "platform/linux/office/uno/documentLoading.h"
#include "platform/linux/office/uno/documentWindow.h"
#include "platform/linux/office/uno/unoText.h"
#include "platform/linux/office/uno/unoValues.h"

#include <com/sun/star/bridge/XBridgeFactory.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/connection/XConnector.hpp>
#include <com/sun/star/container/XSet.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/loader/XImplementationLoader.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XModifiable.hpp>

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace zorvo {

namespace {

template <typename Interface>
Reference<Interface> localService(const Reference<css::uno::XComponentContext>& context, const char* name)
{
    return Reference<Interface>(context->getServiceManager()->createInstanceWithContext(
                                    rtl::OUString::createFromAscii(name), context),
                                UNO_QUERY_THROW);
}

} // namespace

std::unique_ptr<UnoConnection> UnoConnection::open(const std::string& programFolder, const std::string& pipe)
{
    try {
        const auto context = localContext(programFolder);
        const auto connector =
            localService<css::connection::XConnector>(context, "com.sun.star.connection.Connector");
        const auto connection = connector->connect("pipe,name=" + unoText(pipe));
        const auto factory =
            localService<css::bridge::XBridgeFactory>(context, "com.sun.star.bridge.BridgeFactory");
        // An own bridge and not a resolved address, so that it can be broken off while a call hangs.
        return std::unique_ptr<UnoConnection>(
            new UnoConnection(connection, factory->createBridge("", "urp", connection, nullptr)));
    } catch (const css::connection::NoConnectException&) {
        return nullptr;
    } catch (const css::uno::Exception& e) {
        throw OfficeFailure(OfficeFailure::Kind::lost, plainText(e.Message));
    }
}

UnoConnection::UnoConnection(const Reference<css::connection::XConnection>& connection,
                             const Reference<css::bridge::XBridge>& bridge)
    : connection_(connection)
    , bridge_(bridge)
{
}

void UnoConnection::greet()
{
    guarded([&] {
        context_.set(bridge_->getInstance("StarOffice.ComponentContext"), UNO_QUERY_THROW);
        factory_ = context_->getServiceManager();
        loader_.set(factory_->createInstanceWithContext("com.sun.star.frame.Desktop", context_),
                    UNO_QUERY_THROW);
    });
}

UnoConnection::~UnoConnection()
{
    try {
        bodies_.clear();
        documents_.clear();
        addIns_.clear();
        loader_.clear();
        factory_.clear();
        context_.clear();
        const Reference<css::lang::XComponent> bridge(bridge_, UNO_QUERY);
        if (bridge.is())
            bridge->dispose();
    } catch (const css::uno::Exception&) {
        // The other side has gone first; there is nothing left to let go of.
        bridge_.clear();
    }
}

void UnoConnection::breakOff() noexcept
{
    try {
        connection_->close();
    } catch (const css::uno::Exception&) {
        return; // it is broken already
    }
}

bool UnoConnection::answers() noexcept
{
    try {
        return bridge_->getInstance("StarOffice.ComponentContext").is();
    } catch (const css::uno::Exception&) {
        return false;
    }
}

void UnoConnection::guarded(const std::function<void()>& work)
{
    using Kind = OfficeFailure::Kind;
    try {
        work();
    } catch (const css::lang::DisposedException& e) {
        // Either the document was closed or the whole office has gone: only asking tells.
        throw OfficeFailure(answers() ? Kind::noDocument : Kind::lost, plainText(e.Message));
    } catch (const css::uno::Exception& e) {
        throw OfficeFailure(Kind::refused, plainText(e.Message));
    }
}

const UnoConnection::Model& UnoConnection::document(int nDocument) const
{
    const auto found = documents_.find(nDocument);
    if (found == documents_.end())
        throw OfficeFailure(OfficeFailure::Kind::noDocument, "The document has been closed.");
    return found->second;
}

int UnoConnection::load(const OfficeLoad& request)
{
    guarded([&] {
        Model document;
        if (request.bOpenOnce)
            document = findOpenDocument(loader_, request.sPath);
        documents_[nLast_ + 1] = document.is() ? document : loadDocument(loader_, request);
    });
    return ++nLast_;
}

void UnoConnection::store(int nDocument, const std::string& path, const std::string& filter, bool bMoveThere)
{
    guarded([&] {
        finishBody(nDocument);
        const Reference<css::frame::XStorable> storable(document(nDocument), UNO_QUERY_THROW);
        const NamedValues arguments =
            namedValues({{"FilterName", css::uno::Any(unoText(filter))}, {"Overwrite", css::uno::Any(true)}});
        if (bMoveThere)
            storable->storeAsURL(fileAddress(path), arguments);
        else
            storable->storeToURL(fileAddress(path), arguments);
    });
}

void UnoConnection::storeCopy(int nDocument, const std::string& path, const std::string& filter)
{
    store(nDocument, path, filter, false);
}

void UnoConnection::storeAs(int nDocument, const std::string& path, const std::string& filter)
{
    store(nDocument, path, filter, true);
}

void UnoConnection::close(int nDocument)
{
    guarded([&] { Reference<css::util::XCloseable>(document(nDocument), UNO_QUERY_THROW)->close(false); });
    bodies_.erase(nDocument);
    documents_.erase(nDocument);
}

void UnoConnection::forget(int nDocument)
{
    bodies_.erase(nDocument);
    documents_.erase(nDocument);
}

std::string UnoConnection::path(int nDocument)
{
    rtl::OUString address;
    guarded([&] { address = document(nDocument)->getURL(); });
    return pathOfAddress(address);
}

bool UnoConnection::isModified(int nDocument)
{
    bool bModified = false;
    guarded([&] {
        bModified = Reference<css::util::XModifiable>(document(nDocument), UNO_QUERY_THROW)->isModified();
    });
    return bModified;
}

bool UnoConnection::show(int nDocument)
{
    bool bOnScreen = false;
    guarded([&] {
        finishBody(nDocument);
        bOnScreen = showWindow(document(nDocument));
    });
    return bOnScreen;
}

bool UnoConnection::isShowable(int nDocument)
{
    bool bShowable = false;
    guarded([&] { bShowable = isWindowShowable(document(nDocument)); });
    return bShowable;
}

void UnoConnection::toFront(int nDocument)
{
    guarded([&] { raiseWindow(document(nDocument)); });
}

void UnoConnection::maximize(int nDocument)
{
    guarded([&] { maximizeWindow(document(nDocument)); });
}

void UnoConnection::showNormalView(int nDocument)
{
    guarded([&] { switchToNormalView(document(nDocument)); });
}

void UnoConnection::showPageView(int nDocument)
{
    guarded([&] { switchToPageView(document(nDocument)); });
}

TextBody& UnoConnection::body(int nDocument)
{
    return bodies_.try_emplace(nDocument, document(nDocument)).first->second;
}

void UnoConnection::finishBody(int nDocument)
{
    const auto found = bodies_.find(nDocument);
    if (found != bodies_.end())
        found->second.letWindowFollow();
}

template <typename Result>
Result UnoConnection::askBody(int nDocument, const std::function<Result(TextBody&)>& question)
{
    Result answer{};
    guarded([&] { answer = question(body(nDocument)); });
    return answer;
}

void UnoConnection::insertFile(int nDocument, const std::string& path)
{
    guarded([&] { body(nDocument).insertFile(path); });
}

void UnoConnection::goToStart(int nDocument)
{
    guarded([&] {
        body(nDocument).goToStart();
        finishBody(nDocument);
        moveViewToStart(document(nDocument));
    });
}

int UnoConnection::tableCount(int nDocument)
{
    return askBody<int>(nDocument, [](TextBody& body) { return body.tableCount(); });
}

int UnoConnection::tableAt(int nDocument, int index)
{
    return askBody<int>(nDocument, [index](TextBody& body) { return body.tableAt(index); });
}

std::string UnoConnection::tableText(int nDocument, int nTable)
{
    return askBody<std::string>(nDocument, [nTable](TextBody& body) { return body.tableText(nTable); });
}

void UnoConnection::selectTable(int nDocument, int nTable)
{
    guarded([&] { body(nDocument).selectTable(nTable); });
}

void UnoConnection::removeTable(int nDocument, int nTable)
{
    guarded([&] { body(nDocument).removeTable(nTable); });
}

bool UnoConnection::isWithinTable(int nDocument)
{
    return askBody<bool>(nDocument, [](TextBody& body) { return body.isWithinTable(); });
}

bool UnoConnection::deleteForward(int nDocument)
{
    return askBody<bool>(nDocument, [](TextBody& body) { return body.deleteForward(); });
}

int UnoConnection::addIn(const std::string& name)
{
    AddIn found;
    guarded([&] { found.set(factory_->createInstanceWithContext(unoText(name), context_), UNO_QUERY); });
    if (!found.is())
        return 0;
    addIns_[++nLast_] = found;
    return nLast_;
}

int UnoConnection::addInFrom(const std::string& library, const std::string& name)
{
    using Kind = OfficeFailure::Kind;
    try {
        guarded([&] {
            const Reference<css::loader::XImplementationLoader> loader(
                factory_->createInstanceWithContext("com.sun.star.loader.SharedLibrary", context_),
                UNO_QUERY_THROW);
            const auto component = loader->activate(unoText(name), "", fileAddress(library), {});
            Reference<css::container::XSet>(factory_, UNO_QUERY_THROW)->insert(css::uno::Any(component));
        });
    } catch (const OfficeFailure& failure) { // no such library, or it doesn't have the component
        if (failure.kind() == Kind::lost)
            throw;
        return 0;
    }
    return addIn(name);
}

Value UnoConnection::invoke(int nAddIn, const std::string& member, std::vector<Value>& arguments)
{
    const AddIn addIn = addIns_.at(nAddIn);
    css::uno::Sequence<css::uno::Any> in(static_cast<sal_Int32>(arguments.size()));
    for (sal_Int32 at = 0; at < in.getLength(); ++at)
        in.getArray()[at] =
            unoValue(arguments[static_cast<std::size_t>(at)], [this](int n) { return document(n); });

    Value result;
    guarded([&] { result = invokeMember(addIn, unoText(member), in, arguments); });
    return result;
}

void UnoConnection::forgetAddIn(int nAddIn)
{
    addIns_.erase(nAddIn);
}

} // namespace zorvo
