#pragma once

#include "tree/SelectedDocument.h"

#include <optional>
#include <ostream>
#include <string>

namespace zorvo {

/// What became of one document.
struct DocumentOutcome {
    std::string sTitle = {};
    /// Native paths; the file is empty when none was made.
    std::string sTemplate = {};
    std::string sFile = {};
    bool bCreated = false;
    /// It holds the profile data; nothing when none was given.
    std::optional<bool> bProfile = {};
    /// Why not; one line.
    std::string sReason = {};
};

/// Makes documents in a folder as a batch of the program does, unattended: nothing is shown, and no file is
/// ever written over. Word and Excel end with this object.
class DocumentMaker {
public:
    /// `sFolder` is a backslash path with a closing backslash, `sProfileData` what the add-in takes or empty.
    /// Messages of the program go to `err` as they come.
    DocumentMaker(std::string sFolder, std::string sProfileData, std::ostream& err);
    ~DocumentMaker();
    DocumentMaker(const DocumentMaker&) = delete;
    DocumentMaker& operator=(const DocumentMaker&) = delete;

    /// The document counts as made only when its file is there and is a Word or Excel file, and when no call
    /// to the office failed on the way.
    DocumentOutcome make(const SelectedDocument& document);

private:
    std::string sFolder_;
    std::string sProfileData_;
    std::ostream& err_;
};

} // namespace zorvo
