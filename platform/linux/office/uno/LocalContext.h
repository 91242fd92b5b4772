#pragma once

#include <com/sun/star/uno/XComponentContext.hpp>
#include <string>

namespace zorvo {

/// This process's own component context, made at the first call.
com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>
localContext(const std::string& programFolder);

/// Disposes of it; has to happen before the office libraries' own static objects go.
void disposeLocalContext();

} // namespace zorvo
