#pragma once

#include "platform/linux/office/OfficeSessions.h"

#include <memory>
#include <string>

namespace zorvo {

/// Where a document comes from.
struct DocumentOrigin {
    OfficeDocumentKind kind = OfficeDocumentKind::text;
    std::string sFile; // backslash path; empty: a blank document
    bool bAsTemplate = false;
    /// The user's macro settings hold when it is shown. In our own office no macro ever runs.
    bool bMacros = false;
};

/// A document that one of our application objects has opened, of either kind. Paths are backslash paths.
class DocumentCore {
public:
    /// `user` is whose document it is: our own office stays up for it.
    DocumentCore(std::shared_ptr<OfficeSessions> sessions, const void* user);
    ~DocumentCore();
    DocumentCore(const DocumentCore&) = delete;
    DocumentCore& operator=(const DocumentCore&) = delete;

    /// `hidden` is a place in the user's office too: his, but not yet to be seen.
    enum class Place { ownOffice, hidden, screen };
    /// Checks the file and loads it. A blank document in our own office waits for its first use, since most
    /// are shown next.
    void open(const DocumentOrigin& origin, Place place);
    bool isOpen() const;

    /// Takes a document of our own office over into the user's, with all that has become of it.
    void show();
    void raise();
    void maximize();
    void showNormalView();
    void showPageView();

    std::string fullName();
    void saveAs(const std::string& sFileName, const std::string& sFilter);
    /// A document on the screen that has unsaved changes stays open (70); in our own office they are dropped.
    void close();
    void closeWithoutSaving();
    /// A document on the screen stays there; any other goes.
    void letGo();

    struct Loaded {
        std::shared_ptr<OfficeSession> session;
        int nDocument = 0;
    };
    /// For handing it to somebody who may change it.
    Loaded handOver();

private:
    Loaded loadInOwnOffice() const;
    Loaded loadOnScreen(const std::string& native, bool bAsTemplate, bool bShow = true) const;
    /// On the screen, from where it came, where it was saved, or from a copy of its present state.
    Loaded loadAgainOnScreen();
    void take(const Loaded& loaded, Place place);
    void drop();
    /// Makes sure that it is open and loaded.
    void need();
    void storeCopy(const std::string& native, const std::string& sFilter);

    std::shared_ptr<OfficeSessions> sessions_;
    const void* user_;
    DocumentOrigin origin_;
    std::string sNativeFile_;
    Loaded loaded_; // without a session while a blank document waits
    Place place_ = Place::ownOffice;
    std::string sFullName_;
    bool bHandedOver_ = false;
    bool bOpen_ = false;
};

} // namespace zorvo
