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
    /// `hiddenPlace` is where documents are while the application isn't visible.
    ApplicationCore(std::shared_ptr<OfficeSessions> sessions, OfficeDocumentKind kind,
                    DocumentCore::Place hiddenPlace);
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
    /// Brings the active document to the front; without one there is nothing to bring.
    void raise();
    /// The folder of names that have none; empty: they name nothing. Throws RunTimeError 76 when it isn't
    /// there.
    void setFolder(const std::string& sFolder);
    std::string fullNameOf(const std::string& sFileName) const;
    void quit();

private:
    void open(const DocumentOrigin& origin);
    void letGo();

    std::shared_ptr<OfficeSessions> sessions_;
    OfficeDocumentKind kind_;
    DocumentCore::Place hiddenPlace_;
    std::string sFolder_;
    OfficeAddInList addIns_;
    std::vector<std::shared_ptr<DocumentCore>> documents_; // the last one is active
    /// The user's office as this object knows it: once it hangs, this object asks it for nothing more.
    std::shared_ptr<OfficeSession> screen_;
    bool bVisible_ = false;
    bool bEvents_ = true;
    bool bQuit_ = false;
};

} // namespace zorvo
