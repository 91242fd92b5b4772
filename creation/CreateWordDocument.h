#pragma once

#include <string>

namespace zorvo {

/// A new document from the template, which comes in upper case. `bSave` saves it in `sFolder` (with a closing
/// backslash) under `sFileName` or, when that is empty, a name that comes back in it. With `bShare` as well
/// it stays hidden and is closed; otherwise it is brought up. A failing call to Word is skipped and the next
/// one runs.
void CreateWordDocument(const std::string& sUpperTemplatePath, const std::string& sFolder,
                        std::string& sFileName, bool bShare, bool bSave, const std::string& sProfileData);

} // namespace zorvo
