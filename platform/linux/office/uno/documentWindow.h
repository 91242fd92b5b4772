#pragma once

#include <com/sun/star/frame/XModel.hpp>

namespace zorvo {

using DocumentModel = com::sun::star::uno::Reference<com::sun::star::frame::XModel>;

/// Shows the window of a document that was loaded hidden and brings it to the front. False when the office
/// runs without a screen; the window stays hidden then.
bool showWindow(const DocumentModel& document);
void raiseWindow(const DocumentModel& document);
/// A workbook's normal view; nothing where there is no such view.
void switchToNormalView(const DocumentModel& document);

} // namespace zorvo
