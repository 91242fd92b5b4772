#pragma once

#include "platform/linux/office/OfficeConnection.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <initializer_list>
#include <utility>

namespace zorvo {

using NamedValues = com::sun::star::uno::Sequence<com::sun::star::beans::PropertyValue>;

NamedValues namedValues(std::initializer_list<std::pair<const char*, com::sun::star::uno::Any>> values);

/// Loads hidden. A file that the office doesn't take for what it should be is closed again and fails as
/// refused: the office gives nothing, or opens it as something else, without a word.
com::sun::star::uno::Reference<com::sun::star::frame::XModel>
loadDocument(const com::sun::star::uno::Reference<com::sun::star::frame::XComponentLoader>& loader,
             const OfficeLoad& request);

/// The document of this office that lies at `path`, or null.
com::sun::star::uno::Reference<com::sun::star::frame::XModel>
findOpenDocument(const com::sun::star::uno::Reference<com::sun::star::frame::XComponentLoader>& loader,
                 const std::string& path);

} // namespace zorvo
