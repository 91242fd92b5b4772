#pragma once

#include <string>

namespace zorvo {

/// The main form as the automation operations and the timer's handler see it.
class MainForm {
public:
    virtual ~MainForm() = default;

    /// The form's mailbox: a request is a number of milliseconds, 0 is at rest.
    virtual int tmEventInterval() const = 0;
    virtual void setTmEventInterval(int nMilliseconds) = 0;

    virtual bool isShown() const = 0;
    virtual void SetWindowTopMost(bool bTop) = 0;
    virtual void unloadForm() = 0;
    virtual std::string caption() const = 0;
};

} // namespace zorvo
