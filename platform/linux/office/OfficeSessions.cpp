#include "platform/linux/office/OfficeSessions.h"

#include "base/RunTimeError.h"
#include "platform/Office.h"
#include "platform/linux/office/OfficeLibrary.h"
#include "platform/linux/office/UserOffice.h"

#include <algorithm>
#include <vector>

namespace zorvo {

namespace {

/// All that live. Never destroyed: the end of the process needs it whatever has gone before.
std::vector<OfficeSessions*>& allSessions()
{
    static auto* const all = new std::vector<OfficeSessions*>;
    return *all;
}

std::shared_ptr<OfficeSession> ifRunning(const std::shared_ptr<OfficeSession>& session)
{
    return session && session->isRunning() ? session : nullptr;
}

} // namespace

OfficeSessions::OfficeSessions()
    : manners_(std::make_shared<OfficeManners>(mannersOfEnvironment()))
{
    allSessions().push_back(this);
}

OfficeSessions::~OfficeSessions()
{
    end();
    std::erase(allSessions(), this);
}

std::shared_ptr<OfficeSession> OfficeSessions::privateSession(const void* user, OfficeDocumentKind kind)
{
    const OfficeInstallation office = findOffice(kind);
    if (bEnded_)
        throw RunTimeError(kOfficeDoesNotAnswer, "The program has parted with the office.");
    if (private_ && (private_->isDead() || privateOffice_->hasCrashed() || isOvergrown()))
        endPrivateSession();
    if (!private_) {
        privateOffice_ = std::make_shared<PrivateOffice>(office);
        private_ = std::make_shared<OfficeSession>(privateOffice_, manners_);
    }
    privateUsers_.insert(user);
    return private_;
}

void OfficeSessions::leavePrivateSession(const void* user)
{
    if (privateUsers_.erase(user) != 0 && privateUsers_.empty())
        endPrivateSession();
}

bool OfficeSessions::isOvergrown()
{
    if (!private_->isRunning() || private_->documents() != 0)
        return false;
    const std::uint64_t nMemory = privateOffice_->memory();
    if (nFirstMemory_ == 0)
        nFirstMemory_ = nMemory;
    return nMemory > nFirstMemory_ + manners_->largestGrowth;
}

void OfficeSessions::endPrivateSession()
{
    if (private_)
        private_->end();
    private_.reset();
    privateOffice_.reset();
    nFirstMemory_ = 0;
}

std::shared_ptr<OfficeSession> OfficeSessions::userSession(OfficeDocumentKind kind)
{
    const OfficeInstallation office = findOffice(kind);
    if (bEnded_)
        throw RunTimeError(kOfficeDoesNotAnswer, "The program has parted with the office.");
    if (!user_ || user_->isDead())
        user_ = std::make_shared<OfficeSession>(std::make_shared<UserOffice>(office), manners_);
    return user_;
}

std::shared_ptr<OfficeSession> OfficeSessions::runningPrivateSession() const
{
    return ifRunning(private_);
}

std::shared_ptr<OfficeSession> OfficeSessions::runningUserSession() const
{
    return ifRunning(user_);
}

void OfficeSessions::end()
{
    bEnded_ = true;
    endPrivateSession();
    if (user_)
        user_->end();
    user_.reset();
}

void endAllOfficeSessions()
{
    for (OfficeSessions* sessions : allSessions())
        sessions->end();
    shutDownOfficeLibrary();
}

} // namespace zorvo
