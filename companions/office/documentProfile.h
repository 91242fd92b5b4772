#pragma once

#include "companions/profileData.h"

#include <com/sun/star/lang/XComponent.hpp>

/// The profile in a document of the office, text or workbook.
namespace zorvo {

using OfficeDocumentModel = com::sun::star::uno::Reference<com::sun::star::lang::XComponent>;

/// True for something that has document properties.
bool isOfficeDocument(const OfficeDocumentModel& document);

/// Each field becomes a document property of its name, and what shows it is brought up to date.
void stuffProfile(const OfficeDocumentModel& document, const ProfileData& profile);

/// A property that isn't a text.
void setMark(const OfficeDocumentModel& document, const char* name, bool bValue);

/// The fields of a text show what its properties hold now; a workbook's cells of those names do.
void refreshProfile(const OfficeDocumentModel& document);

/// The same for a document that a user may just be looking at: it asks for no save because of it.
void refreshShownProfile(const OfficeDocumentModel& document);

/// Protection of a workbook and its sheets, without a password. One with a password of its own stays.
/// False for a text.
bool protectWorkbook(const OfficeDocumentModel& document, bool bProtect);

} // namespace zorvo
