#pragma once

#include <string>

namespace zorvo {

/// One new document from a template: Word makes those of `.DOT` files, Excel all others. `sTypeYear` is the
/// product type, "~" and the edition's year. `sFileName` is a base name or empty; a name that was generated
/// comes back in it. A template that isn't there is told in a box. Other failures are reported, and the call
/// returns all the same.
void ProcessOneDoc(const std::string& sTemplatePath, const std::string& sTypeYear, const std::string& sFolder,
                   std::string& sFileName, bool bShare, bool bSave, const std::string& sProfileData);

/// Tells that a template isn't there.
void tellMissingTemplate(const std::string& sTemplatePath);

} // namespace zorvo
