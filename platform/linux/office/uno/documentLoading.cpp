#include "platform/linux/office/uno/documentLoading.h"

#include "platform/linux/office/uno/unoText.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/util/XCloseable.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace zorvo {

namespace {

using Model = Reference<css::frame::XModel>;

rtl::OUString address(const OfficeLoad& request)
{
    if (!request.sPath.empty())
        return fileAddress(request.sPath);
    return request.kind == OfficeDocumentKind::text ? rtl::OUString("private:factory/swriter")
                                                    : rtl::OUString("private:factory/scalc");
}

/// Links aren't followed: a link to a machine that doesn't answer would hold the load, and nobody could be
/// asked.
NamedValues arguments(const OfficeLoad& request)
{
    const sal_Int16 nMacros = request.bMacrosAsConfigured ? css::document::MacroExecMode::USE_CONFIG
                                                          : css::document::MacroExecMode::NEVER_EXECUTE;
    return namedValues({{"Hidden", Any(true)},
                        {"AsTemplate", Any(request.bAsTemplate)},
                        {"MacroExecutionMode", Any(nMacros)},
                        {"UpdateDocMode", Any(css::document::UpdateDocMode::NO_UPDATE)}});
}

rtl::OUString filterOf(const Model& model)
{
    rtl::OUString filter;
    for (const css::beans::PropertyValue& argument : model->getArgs())
        if (argument.Name == "FilterName")
            argument.Value >>= filter;
    return filter;
}

/// Bytes that no filter knows are opened as plain text.
bool isPlainText(const rtl::OUString& filter)
{
    return filter == "Text" || filter == "Text (encoded)" || filter.startsWith("Text - txt - csv");
}

bool isOfKind(const Model& model, OfficeDocumentKind kind)
{
    const Reference<css::lang::XServiceInfo> info(model, UNO_QUERY_THROW);
    return info->supportsService(kind == OfficeDocumentKind::text
                                     ? rtl::OUString("com.sun.star.text.TextDocument")
                                     : rtl::OUString("com.sun.star.sheet.SpreadsheetDocument"));
}

void check(const Model& model, const OfficeLoad& request)
{
    if (!isOfKind(model, request.kind) || (!request.sPath.empty() && isPlainText(filterOf(model))))
        throw OfficeFailure(OfficeFailure::Kind::refused, "It isn't a document of this kind.");
    // A file without contents opens under its own name, and a save would write over it.
    if (request.bAsTemplate && !model->getURL().isEmpty())
        throw OfficeFailure(OfficeFailure::Kind::refused, "It can't serve as a template.");
}

} // namespace

NamedValues namedValues(std::initializer_list<std::pair<const char*, Any>> values)
{
    NamedValues result(static_cast<sal_Int32>(values.size()));
    css::beans::PropertyValue* next = result.getArray();
    for (const auto& [name, value] : values)
        *next++ = {rtl::OUString::createFromAscii(name), -1, value, css::beans::PropertyState_DIRECT_VALUE};
    return result;
}

Model loadDocument(const Reference<css::frame::XComponentLoader>& loader, const OfficeLoad& request)
{
    const Model model(loader->loadComponentFromURL(address(request), "_blank", 0, arguments(request)),
                      UNO_QUERY);
    if (!model.is())
        throw OfficeFailure(OfficeFailure::Kind::refused,
                            "It is damaged, protected by a password, or no document.");
    try {
        check(model, request);
    } catch (const OfficeFailure&) {
        Reference<css::util::XCloseable>(model, UNO_QUERY_THROW)->close(true);
        throw;
    }
    return model;
}

Model findOpenDocument(const Reference<css::frame::XComponentLoader>& loader, const std::string& path)
{
    const Reference<css::frame::XDesktop> desktop(loader, UNO_QUERY_THROW);
    const auto documents = desktop->getComponents()->createEnumeration();
    while (documents->hasMoreElements()) {
        const Model model(documents->nextElement(), UNO_QUERY);
        if (model.is() && pathOfAddress(model->getURL()) == path)
            return model;
    }
    return {};
}

} // namespace zorvo
