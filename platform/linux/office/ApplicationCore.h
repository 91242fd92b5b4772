#pragma once

#include "platform/linux/office/DocumentCore.h"
#include "platform/linux/office/OfficeAddInList.h"

#include <memory>
#include <string>
#include <vector>

namespace zorvo {

/// What Word and Excel share: an application object with the documents that were opened through it.
class ApplicationCore {
public:
    ApplicationCore(std::shared_ptr<OfficeSessions> sessions, OfficeDocumentKind kind);
    ~ApplicationCore();
    ApplicationCore(const ApplicationCore&) = delete;
    ApplicationCore& operator=(const ApplicationCore&) = delete;

    /// Throws kOfficeDoesNotAnswer after `quit`.
    void mustRun() const;

    std::string version() const;
    void setVisible(bool bVisible);
    void setEnableEvents(bool bEnable);
    OfficeAddInList& addIns();
    LateBoundPtr comAddIn(const std::string& sProgId);

    void add(const std::string& sTemplate);
    void open(const std::string& sFileName);
    /// Throws RunTimeError 91 when no document is open.
    std::shared_ptr<DocumentCore> active();
    void quit();

private:
    void open(const DocumentOrigin& origin);
    void letGo();

    std::shared_ptr<OfficeSessions> sessions_;
    OfficeDocumentKind kind_;
    OfficeAddInList addIns_;
    std::vector<std::shared_ptr<DocumentCore>> documents_; // the last one is active
    /// The user's office as this object knows it: once it hangs, this object asks it for nothing more.
    std::shared_ptr<OfficeSession> screen_;
    bool bVisible_ = false;
    bool bEvents_ = true;
    bool bQuit_ = false;
};

} // namespace zorvo
