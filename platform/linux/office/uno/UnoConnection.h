#pragma once

#include "platform/linux/office/OfficeConnection.h"
#include "platform/linux/office/uno/TextBody.h"

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
    bool isShowable(int nDocument) override;
    void toFront(int nDocument) override;
    void maximize(int nDocument) override;
    void showNormalView(int nDocument) override;
    void showPageView(int nDocument) override;
    void insertFile(int nDocument, const std::string& path) override;
    void goToStart(int nDocument) override;
    int tableCount(int nDocument) override;
    int tableAt(int nDocument, int index) override;
    std::string tableText(int nDocument, int nTable) override;
    void selectTable(int nDocument, int nTable) override;
    void removeTable(int nDocument, int nTable) override;
    bool isWithinTable(int nDocument) override;
    bool deleteForward(int nDocument) override;
    int addIn(const std::string& name) override;
    int addInFrom(const std::string& library, const std::string& name) override;
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
    /// Made when it is first needed.
    TextBody& body(int nDocument);
    /// Brings the window up to date that stood still while the body was changed.
    void finishBody(int nDocument);
    template <typename Result>
    Result askBody(int nDocument, const std::function<Result(TextBody&)>& question);
    void store(int nDocument, const std::string& path, const std::string& filter, bool bMoveThere);

    com::sun::star::uno::Reference<com::sun::star::connection::XConnection> connection_;
    com::sun::star::uno::Reference<com::sun::star::bridge::XBridge> bridge_;
    com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> context_;
    com::sun::star::uno::Reference<com::sun::star::lang::XMultiComponentFactory> factory_;
    com::sun::star::uno::Reference<com::sun::star::frame::XComponentLoader> loader_;
    std::map<int, Model> documents_;
    std::map<int, TextBody> bodies_;
    std::map<int, AddIn> addIns_;
    int nLast_ = 0;
};

} // namespace zorvo
