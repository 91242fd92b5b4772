#pragma once

#include "companions/office/documentProfile.h"

#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/script/XInvocation.hpp>
#include <cppuhelper/implbase2.hxx>

namespace zorvo {

/// The add-in's object inside the office, for one company. Its members are called by name:
///
///     SetCompanyID company
///     SuppressSaveAs, SetSaveFlag, SetForceShareFlag       for the next document that is stuffed
///     StuffProperties document, profile text
///     RefreshFields document
///     ProtectExcelDoc workbook, Boolean
class AddIn
    : public cppu::WeakImplHelper2<com::sun::star::script::XInvocation, com::sun::star::lang::XServiceInfo> {
public:
    using Any = com::sun::star::uno::Any;
    using Arguments = com::sun::star::uno::Sequence<Any>;

    /// `name` is its ProgID.
    explicit AddIn(const rtl::OUString& name);

    com::sun::star::uno::Reference<com::sun::star::beans::XIntrospectionAccess>
        SAL_CALL getIntrospection() override;
    Any SAL_CALL invoke(const rtl::OUString& name, const Arguments& arguments,
                        com::sun::star::uno::Sequence<sal_Int16>& outIndexes, Arguments& out) override;
    void SAL_CALL setValue(const rtl::OUString& name, const Any& value) override;
    Any SAL_CALL getValue(const rtl::OUString& name) override;
    sal_Bool SAL_CALL hasMethod(const rtl::OUString& name) override;
    sal_Bool SAL_CALL hasProperty(const rtl::OUString& name) override;

    rtl::OUString SAL_CALL getImplementationName() override;
    sal_Bool SAL_CALL supportsService(const rtl::OUString& name) override;
    com::sun::star::uno::Sequence<rtl::OUString> SAL_CALL getSupportedServiceNames() override;

private:
    void stuffProperties(const Arguments& arguments);
    void refreshFields(const Arguments& arguments);
    void protectExcelDoc(const Arguments& arguments);

    rtl::OUString name_;
    rtl::OUString companyId_;
    /// An own save-as step would ask the user for a name; this add-in has none, and keeps what it was told.
    bool bSaveAsSuppressed_ = false;
    bool bCallerSaves_ = false;
    bool bShared_ = false;
};

} // namespace zorvo
