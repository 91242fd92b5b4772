#pragma once

#include "platform/Automation.h"

#include <string>

namespace zorvo {

/// The automation class that clients begin with. It has no state of its own and catches nothing: a failure
/// goes back to the client. It never moves a window from inside a client's call: it leaves a request in the
/// main form's timer, and the timer's handler acts on it after the call has returned.
class ZorvoTreeSelector : public AutomationObject {
public:
    /// Shows the main window, or raises it. The first time a splash may come first, and the call stays until
    /// it goes.
    void ShowTreeDirectly();
    /// Shows the main window for a partner's suite that wants the selection back. Reads no settings, has no
    /// splash.
    void ShowTreeDFS();
    /// Lets the user choose an engagement, and hands the choice over. Returns when the user has chosen.
    void ShowEngagementListDFS();
    void searchSWD();
    void show_aboutDialog();
    void QBK_Help();
    /// Raises a main window that is shown; a hidden one stays hidden, an absent one isn't made.
    void makeTopWindow();
    /// Sets the company, exactly as it came, then ShowTreeDirectly. What is shown already isn't rebranded.
    void ShowTreeForCompany(const std::string& sCompanyID);

private:
    static void CloseIfUnused();
};

} // namespace zorvo
