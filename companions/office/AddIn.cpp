#include "companions/office/AddIn.h"

#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/reflection/InvocationTargetException.hpp>
#include <com/sun/star/script/CannotConvertException.hpp>
#include <cppuhelper/exc_hlp.hxx>
#include <cppuhelper/supportsservice.hxx>

#include <map>

namespace css = com::sun::star;
using css::uno::Sequence;
using rtl::OUString;

namespace zorvo {

namespace {

constexpr const char* kSharedProperty = "Shared";

/// Members and how many arguments each takes.
const std::map<OUString, sal_Int32>& members()
{
    static const std::map<OUString, sal_Int32> all = {
        {"SetCompanyID", 1},    {"SuppressSaveAs", 0}, {"SetSaveFlag", 0},    {"SetForceShareFlag", 0},
        {"StuffProperties", 2}, {"RefreshFields", 1},  {"ProtectExcelDoc", 2}};
    return all;
}

template <typename Wanted>
Wanted argument(const AddIn::Arguments& arguments, sal_Int32 nIndex)
{
    Wanted value{};
    if (!(arguments[nIndex] >>= value))
        throw css::lang::IllegalArgumentException("an argument is of another type", {},
                                                  static_cast<sal_Int16>(nIndex));
    return value;
}

OfficeDocumentModel documentIn(const AddIn::Arguments& arguments)
{
    OfficeDocumentModel document(arguments[0], css::uno::UNO_QUERY);
    if (!isOfficeDocument(document))
        throw css::lang::IllegalArgumentException("it is no document", {}, 0);
    return document;
}

} // namespace

AddIn::AddIn(const OUString& name)
    : name_(name)
{
}

css::uno::Reference<css::beans::XIntrospectionAccess> AddIn::getIntrospection()
{
    return {};
}

AddIn::Any AddIn::invoke(const OUString& name, const Arguments& arguments,
                         Sequence<sal_Int16>& /*outIndexes*/, Arguments& /*out*/)
{
    const auto member = members().find(name);
    if (member == members().end() || member->second != arguments.getLength())
        throw css::lang::IllegalArgumentException("wrong number of arguments", {}, 0);
    try {
        if (name == "SetCompanyID")
            companyId_ = argument<OUString>(arguments, 0);
        else if (name == "SuppressSaveAs")
            bSaveAsSuppressed_ = true;
        else if (name == "SetSaveFlag")
            bCallerSaves_ = true;
        else if (name == "SetForceShareFlag")
            bShared_ = true;
        else if (name == "StuffProperties")
            stuffProperties(arguments);
        else if (name == "RefreshFields")
            refreshFields(arguments);
        else
            protectExcelDoc(arguments);
    } catch (const css::lang::IllegalArgumentException&) {
        throw;
    } catch (const css::uno::Exception& e) {
        const Any cause = cppu::getCaughtException();
        throw css::reflection::InvocationTargetException(e.Message, *this, cause);
    }
    return {};
}

void AddIn::stuffProperties(const Arguments& arguments)
{
    const OfficeDocumentModel document = documentIn(arguments);
    const rtl::OString text = rtl::OUStringToOString(argument<OUString>(arguments, 1), RTL_TEXTENCODING_UTF8);
    if (bShared_)
        setMark(document, kSharedProperty, true);
    stuffProfile(document, parseProfile({text.getStr(), static_cast<std::size_t>(text.getLength())}));
    bSaveAsSuppressed_ = bCallerSaves_ = bShared_ = false;
}

void AddIn::refreshFields(const Arguments& arguments)
{
    refreshShownProfile(documentIn(arguments));
}

void AddIn::protectExcelDoc(const Arguments& arguments)
{
    if (!protectWorkbook(documentIn(arguments), argument<bool>(arguments, 1)))
        throw css::lang::IllegalArgumentException("it is no workbook", {}, 0);
}

void AddIn::setValue(const OUString& /*name*/, const Any& /*value*/)
{
    // It has no properties.
}

AddIn::Any AddIn::getValue(const OUString& /*name*/)
{
    return {};
}

sal_Bool AddIn::hasMethod(const OUString& name)
{
    return members().contains(name);
}

sal_Bool AddIn::hasProperty(const OUString& /*name*/)
{
    return false;
}

OUString AddIn::getImplementationName()
{
    return name_;
}

sal_Bool AddIn::supportsService(const OUString& name)
{
    return cppu::supportsService(this, name);
}

Sequence<OUString> AddIn::getSupportedServiceNames()
{
    return Sequence<OUString>(&name_, 1);
}

} // namespace zorvo
