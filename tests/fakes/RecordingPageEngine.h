#pragma once

#include "platform/PageEngine.h"

#include <memory>
#include <string>
#include <vector>

namespace zorvo {

/// A browser engine that shows nothing, remembers what it was told, and lets a test say what becomes of it.
class RecordingPageEngine : public PageEngine {
public:
    std::unique_ptr<Page> open(PageListener& pageListener, bool /*bAccessible*/) override
    {
        ++nOpened;
        if (bMissing)
            return nullptr;
        listener = &pageListener;
        return std::make_unique<RecordingPage>(*this);
    }

    /// The addresses asked for, in order.
    std::vector<std::string> navigated;
    /// All that was said to pages, navigations left out: "resize 10 20", "block", "unblock", "focus first".
    std::vector<std::string> told;
    /// The windows that pages were to fill.
    std::vector<std::uintptr_t> windows;
    int nOpened = 0;
    int nOpen = 0;
    /// The engine isn't on this machine.
    bool bMissing = false;
    /// The last view that opened a page.
    PageListener* listener = nullptr;

private:
    class RecordingPage : public Page {
    public:
        explicit RecordingPage(RecordingPageEngine& engine)
            : engine_(engine)
        {
            ++engine_.nOpen;
        }
        ~RecordingPage() override { --engine_.nOpen; }
        RecordingPage(const RecordingPage&) = delete;
        RecordingPage& operator=(const RecordingPage&) = delete;

        void showIn(std::uintptr_t nWindow) override { engine_.windows.push_back(nWindow); }
        void navigate(const std::string& sAddress) override { engine_.navigated.push_back(sAddress); }
        void resize(int nWidth, int nHeight) override
        {
            engine_.told.push_back("resize " + std::to_string(nWidth) + " " + std::to_string(nHeight));
        }
        void setBlocked(bool bBlocked) override { engine_.told.emplace_back(bBlocked ? "block" : "unblock"); }
        void takeFocus(Enter enter) override
        {
            engine_.told.emplace_back(enter == Enter::first  ? "focus first"
                                      : enter == Enter::last ? "focus last"
                                                             : "focus same");
        }

    private:
        RecordingPageEngine& engine_;
    };
};

} // namespace zorvo
