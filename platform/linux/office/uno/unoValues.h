#pragma once

#include "platform/Automation.h"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/script/XInvocation.hpp>
#include <functional>

namespace zorvo {

/// `documentOf` gives the document behind a handle. Throws OfficeFailure (badArguments) for another object.
com::sun::star::uno::Any
unoValue(const Value& value,
         const std::function<com::sun::star::uno::Reference<com::sun::star::frame::XModel>(int)>& documentOf);

/// Throws OfficeFailure (badArguments) for what the program has no form for.
Value plainValue(const com::sun::star::uno::Any& value);

/// `results` takes what comes back by reference. Asks for the member first: an unknown one would end the
/// connection.
Value invokeMember(const com::sun::star::uno::Reference<com::sun::star::script::XInvocation>& addIn,
                   const rtl::OUString& member,
                   const com::sun::star::uno::Sequence<com::sun::star::uno::Any>& arguments,
                   std::vector<Value>& results);

} // namespace zorvo
