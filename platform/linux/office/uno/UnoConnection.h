#pragma once

#include "platform/linux/office/OfficeConnection.h"

#include <com/sun/star/bridge/XBridge.hpp>
#include <com/sun/star/connection/XConnection.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/script/XInvocation.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <functional>
#include <map>
#include <mutex>

namespace zorvo {

/// The documents and add-ins of one running office, over a pipe.
class UnoConnection : public OfficeConnection {
public:
    using Model = com::sun::star::uno::Reference<com::sun::star::frame::XModel>;
    using AddIn = com::sun::star::uno::Reference<com::sun::star::script::XInvocation>;

    /// Null while nobody listens at the pipe.
    static std::unique_ptr<UnoConnection> open(const std::string& programFolder, const std::string& pipe);

    ~UnoConnection() override;
    UnoConnection(const UnoConnection&) = delete;
    UnoConnection& operator=(const UnoConnection&) = delete;

    void greet() override;
    int load(const OfficeLoad& request) override;
    void storeCopy(int nDocument, const std::string& path, const std::string& filter) override;
    void storeAs(int nDocument, const std::string& path, const std::string& filter) override;
    void close(int nDocument) override;
    void forget(int nDocument) override;
    std::string path(int nDocument) override;
    bool isModified(int nDocument) override;
    bool show(int nDocument) override;
    void toFront(int nDocument) override;
    void showNormalView(int nDocument) override;
    int addIn(const std::string& name) override;
    Value invoke(int nAddIn, const std::string& member, std::vector<Value>& arguments) override;
    void forgetAddIn(int nAddIn) override;
    void breakOff() noexcept override;

private:
    UnoConnection(const com::sun::star::uno::Reference<com::sun::star::connection::XConnection>& connection,
                  const com::sun::star::uno::Reference<com::sun::star::bridge::XBridge>& bridge);

    /// Runs a piece of work with the documents' and the office's exceptions told apart.
    void guarded(const std::function<void()>& work);
    bool answers() noexcept;
    const Model& document(int nDocument) const;
    void store(int nDocument, const std::string& path, const std::string& filter, bool bMoveThere);

    com::sun::star::uno::Reference<com::sun::star::connection::XConnection> connection_;
    com::sun::star::uno::Reference<com::sun::star::bridge::XBridge> bridge_;
    com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> context_;
    com::sun::star::uno::Reference<com::sun::star::lang::XMultiComponentFactory> factory_;
    com::sun::star::uno::Reference<com::sun::star::frame::XComponentLoader> loader_;
    std::map<int, Model> documents_;
    std::map<int, AddIn> addIns_;
    int nLast_ = 0;
};

} // namespace zorvo
