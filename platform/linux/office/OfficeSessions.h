#pragma once

#include "platform/linux/office/OfficeSession.h"
#include "platform/linux/office/PrivateOffice.h"

#include <memory>
#include <set>
#include <string>

namespace zorvo {

/// The sessions that the applications of one adaptor share: at most one with an office of our own and one
/// with the user's. Each comes up when it is first needed, and again after it has died.
class OfficeSessions {
public:
    OfficeSessions();
    ~OfficeSessions();
    OfficeSessions(const OfficeSessions&) = delete;
    OfficeSessions& operator=(const OfficeSessions&) = delete;

    /// The session with our own office, which stays up until all its `user`s have left it.
    std::shared_ptr<OfficeSession> privateSession(const void* user, OfficeDocumentKind kind);
    void leavePrivateSession(const void* user);
    std::shared_ptr<OfficeSession> userSession(OfficeDocumentKind kind);

    /// The running sessions, or null; starts nothing.
    std::shared_ptr<OfficeSession> runningPrivateSession() const;
    std::shared_ptr<OfficeSession> runningUserSession() const;

    OfficeManners& manners() { return *manners_; }

    /// Parts with all offices for good.
    void end();

private:
    void endPrivateSession();
    /// It holds much more memory than after its first document, and no document is open in it.
    bool isOvergrown();

    std::shared_ptr<OfficeManners> manners_;
    std::shared_ptr<OfficeSession> private_;
    std::shared_ptr<PrivateOffice> privateOffice_;
    std::uint64_t nFirstMemory_ = 0;
    std::set<const void*> privateUsers_;
    std::shared_ptr<OfficeSession> user_;
    bool bEnded_ = false;
};

/// Ends the sessions of all adaptors and lets go of the office's libraries. Runs at the end of the process,
/// before those libraries' own static objects go.
void endAllOfficeSessions();

} // namespace zorvo
