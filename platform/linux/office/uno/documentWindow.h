#pragma once

#include <com/sun/star/frame/XModel.hpp>

namespace zorvo {

using DocumentModel = com::sun::star::uno::Reference<com::sun::star::frame::XModel>;

/// Shows the window of a document that was loaded hidden and brings it to the front. False when the office
/// runs without a screen; the window stays hidden then.
bool showWindow(const DocumentModel& document);
/// Whether there is a screen.
bool isWindowShowable(const DocumentModel& document);
void raiseWindow(const DocumentModel& document);
void maximizeWindow(const DocumentModel& document);
/// A workbook's normal view; nothing where there is no such view.
void switchToNormalView(const DocumentModel& document);
/// A text's pages; nothing where there is no such view.
void switchToPageView(const DocumentModel& document);
/// The cursor that the user sees.
void moveViewToStart(const DocumentModel& document);

} // namespace zorvo
