#pragma once

#include "base/XmlDocument.h"

#include <string>

namespace zorvo {

/// One template, as a selection document tells it.
struct SelectedDocument {
    std::string sTitle = {};
    /// Full path of the template.
    std::string sFileName = {};
    /// Product type and edition.
    std::string sType = {};
    std::string sYear = {};
};

inline constexpr const char* kSelectionStart = "<Documents>";
inline constexpr const char* kSelectionEnd = "</Documents>";

/// Appends the `Document` element. Values stand in CDATA sections as they are.
void appendSelectedDocument(std::string& sSelection, const SelectedDocument& document);

/// Title and file of a catalogue's `Document` element. `sTemplatePath` is the product's template folder, with
/// or without a backslash at its end. Throws RunTimeError 91 when the element has no `Name` or `File`.
SelectedDocument selectedDocument(XmlCursor element, const std::string& sTemplatePath,
                                  const std::string& sType, const std::string& sYear);

} // namespace zorvo
