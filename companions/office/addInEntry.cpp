// The names under which the office finds what this component holds.

#include "companions/office/AddIn.h"

#include <com/sun/star/lang/XSingleComponentFactory.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/factory.hxx>
#include <uno/lbnames.h>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace css = com::sun::star;
using css::uno::Reference;
using rtl::OUString;

namespace {

constexpr const char* kWordConnection = "ZorvoTSR.Connect";
constexpr const char* kExcelConnection = "ZorvoTSR.ExcelConnect";

Reference<css::uno::XInterface> makeWordConnection(const Reference<css::uno::XComponentContext>& /*context*/)
{
    return static_cast<cppu::OWeakObject*>(new zorvo::AddIn(OUString::createFromAscii(kWordConnection)));
}

Reference<css::uno::XInterface> makeExcelConnection(const Reference<css::uno::XComponentContext>& /*context*/)
{
    return static_cast<cppu::OWeakObject*>(new zorvo::AddIn(OUString::createFromAscii(kExcelConnection)));
}

} // namespace

EXPORTED void component_getImplementationEnvironment(const char** environment, uno_Environment** /*own*/)
{
    *environment = CPPU_CURRENT_LANGUAGE_BINDING_NAME;
}

/// An implementation is named as the class that it is of.
EXPORTED void* component_getFactory(const char* name, void* /*manager*/, void* /*key*/)
{
    const OUString wanted = OUString::createFromAscii(name);
    Reference<css::lang::XSingleComponentFactory> factory;
    if (wanted.equalsAscii(kWordConnection))
        factory = cppu::createSingleComponentFactory(makeWordConnection, wanted,
                                                     css::uno::Sequence<OUString>(&wanted, 1));
    else if (wanted.equalsAscii(kExcelConnection))
        factory = cppu::createSingleComponentFactory(makeExcelConnection, wanted,
                                                     css::uno::Sequence<OUString>(&wanted, 1));
    if (factory.is())
        factory->acquire();
    return factory.get();
}
