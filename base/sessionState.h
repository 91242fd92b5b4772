#pragma once

#include <string>

namespace zorvo {

/// What the running session knows, read by every floor and written by the shell. One value per process; a
/// test makes it anew with `sessionState() = SessionState()`.
struct SessionState {
    /// The session was opened by a partner's suite that wants the selection back.
    bool bReturnSelection = false;
    /// The selection document; empty at the start of each session.
    std::string sSelectedDocuments;
    /// True while the main form fills itself; commands are ignored meanwhile.
    bool gbLoading = false;

    // The session's copies of the stored settings.
    bool bShowCurrentOnly = true;
    bool bIncludeAllOfferings = false;
    bool bDisplaySplash = true;
    bool bShowViewOnTB = false;
    bool bMenuState = true;

    /// The running company's acronym; empty until set. Read it through `GetCompanyID`.
    std::string gsCompanyID;
};

SessionState& sessionState();

} // namespace zorvo
