#pragma once

#include <string>

namespace zorvo {

class MainForm;

/// The windows that the automation classes bring up. The forms answer it; a test records it.
class ShellForms {
public:
    virtual ~ShellForms() = default;

    /// The main form's default instance: made and loaded, hidden, when it isn't there.
    virtual MainForm& mainForm() = 0;
    virtual void showMainForm() = 0;

    virtual void showSplash() = 0;
    /// Nothing happens when no splash is loaded.
    virtual void unloadSplash() = 0;

    /// Shows a new engagement list modally and gives the user's choice, empty when there is none.
    virtual std::string chooseEngagement() = 0;
    /// Shows a new About box modally.
    virtual void showAbout() = 0;
    virtual void showHelpContents() = 0;
    /// Shows the search form of the example library modally.
    virtual void showSearch() = 0;

    /// Waits for at least one event and handles all that are pending.
    virtual void processPendingEvents() = 0;
};

} // namespace zorvo
