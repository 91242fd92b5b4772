#include "platform/linux/office/uno/LocalContext.h"

#include "platform/linux/office/uno/unoText.h"

#include <com/sun/star/lang/XComponent.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <mutex>
#include <rtl/bootstrap.hxx>

namespace css = com::sun::star;
using css::uno::Reference;

namespace zorvo {

namespace {

struct Local {
    std::mutex mutex;
    Reference<css::uno::XComponentContext> context;
};

/// Never destroyed: its destructor would run after the office libraries' own.
Local& local()
{
    static auto* const instance = new Local;
    return *instance;
}

} // namespace

Reference<css::uno::XComponentContext> localContext(const std::string& programFolder)
{
    const std::lock_guard lock(local().mutex);
    if (!local().context.is()) {
        // Without it the libraries look for their services beside this program.
        rtl::Bootstrap::set("URE_BOOTSTRAP",
                            "vnd.sun.star.pathname:" + unoText(programFolder) + "/fundamentalrc");
        local().context = cppu::defaultBootstrap_InitialComponentContext();
    }
    return local().context;
}

void disposeLocalContext()
{
    const std::lock_guard lock(local().mutex);
    const Reference<css::lang::XComponent> component(local().context, css::uno::UNO_QUERY);
    local().context.clear();
    if (component.is())
        component->dispose();
}

} // namespace zorvo
