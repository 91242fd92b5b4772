#pragma once

#include "shell/MainForm.h"
#include "shell/ShellForms.h"
#include "shell/shellState.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zorvo {

/// The shell's windows without any window: what was asked of them is written in `journal`.
class RecordingForms : public ShellForms, public MainForm {
public:
    // The main form.
    int tmEventInterval() const override { return nInterval; }
    void setTmEventInterval(int nMilliseconds) override
    {
        nInterval = nMilliseconds;
        journal.push_back("tmEvent " + std::to_string(nMilliseconds));
    }
    bool isShown() const override { return bShown; }
    void SetWindowTopMost(bool bTop) override { journal.push_back(bTop ? "topmost" : "not topmost"); }
    void unloadForm() override { journal.push_back("unload"); }
    std::string caption() const override { return "Zorvo's Brendle"; }

    // All forms.
    MainForm& mainForm() override
    {
        load();
        return *this;
    }
    void showMainForm() override
    {
        load();
        bShown = true;
        journal.push_back("show main form");
    }
    void showSplash() override
    {
        journal.push_back("show splash");
        load(); // by the splash's busy pointer
        bSplashUp = true;
    }
    void unloadSplash() override
    {
        if (!bSplashUp)
            return;
        bSplashUp = false;
        journal.push_back("unload splash");
        if (splashFailure)
            splashFailure();
    }
    std::string chooseEngagement() override
    {
        journal.push_back("engagement list");
        if (onEngagementList)
            onEngagementList();
        return sEngagement;
    }
    void showAbout() override
    {
        journal.push_back("about");
        if (onAbout)
            onAbout();
    }
    void showHelpContents() override { journal.push_back("help"); }
    void showSearch() override
    {
        journal.push_back("search");
        if (bSearchLoadsMainForm)
            load();
        if (searchFailure)
            searchFailure();
    }
    void processPendingEvents() override
    {
        ++nEventRounds;
        if (onEvents)
            onEvents();
    }

    void load()
    {
        if (shellState().gfrmMain)
            return;
        journal.push_back("load main form");
        shellState().gfrmMain = this;
    }

    std::vector<std::string> journal;
    std::string sEngagement;
    std::function<void()> onEvents;
    std::function<void()> onAbout;
    std::function<void()> onEngagementList;
    std::function<void()> splashFailure;
    std::function<void()> searchFailure;
    int nInterval = 0;
    int nEventRounds = 0;
    bool bShown = false;
    bool bSplashUp = false;
    bool bSearchLoadsMainForm = false;
};

} // namespace zorvo
