#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace zorvo {

/// Told what becomes of the pages of one view, from the event loop. Addresses are as they were given to
/// `Page::navigate`: a page of the machine is "file://" and its backslash path.
class PageListener {
public:
    virtual ~PageListener() = default;

    /// A page has loaded: one that was asked for, or one that a link in a page led to.
    virtual void pageFinished(const std::string& sAddress) = 0;
    /// The address couldn't be reached. Told within ten seconds.
    virtual void pageFailed(const std::string& sAddress) = 0;
    /// A loading has ended with neither: what came was no page.
    virtual void pageStopped() = 0;
    /// The page has the keyboard now, or no longer has.
    virtual void pageFocusChanged(bool bHasFocus) = 0;
    /// The user goes on to the control after the page, or to the one before it.
    virtual void pageLeft(bool bForward) = 0;
    /// The engine has ended by itself; the page object is of no more use. `bEverUp` is false when it never
    /// came up: this machine can't run it.
    virtual void pageGone(bool bEverUp) = 0;
};

/// A page, which comes to be seen within a window of the program. Its end closes the engine.
class Page {
public:
    enum class Enter { first, last, same };

    virtual ~Page() = default;

    /// Fills the window of that handle, which must be there for good. Until then nothing is seen of the page.
    virtual void showIn(std::uintptr_t nWindow) = 0;

    /// Doesn't wait. A page of the machine sees the files of its own folder and no others; what isn't http,
    /// https or a page of the machine fails.
    virtual void navigate(const std::string& sAddress) = 0;
    /// In logical pixels.
    virtual void resize(int nWidth, int nHeight) = 0;
    /// While a box of the program is up the page takes no input.
    virtual void setBlocked(bool bBlocked) = 0;
    /// Gives the page the keyboard, at its first or last link or where it was.
    virtual void takeFocus(Enter enter) = 0;
};

/// A browser engine, in a process of its own that starts with the first page.
class PageEngine {
public:
    virtual ~PageEngine() = default;

    /// Null when the engine isn't there. `listener` lives longer than the page. `bAccessible` asks it to tell
    /// assistive programs what pages hold, which costs time where nobody listens.
    virtual std::unique_ptr<Page> open(PageListener& listener, bool bAccessible) = 0;
};

} // namespace zorvo
