#pragma once

#include "companions/profileDialog.h"
#include "platform/linux/ServedObjects.h"

#include <functional>
#include <string>
#include <vector>

/// Stand-ins for components that other products bring: an add-in's connections, the shared framework object
/// and the class that asks for the location of reference material.
namespace zorvo {

/// The connection to an add-in, for one company.
class AddInConnection : public AutomationObject {
public:
    void SetCompanyID(const std::string& sCompanyID) { sCompanyID_ = sCompanyID; }
    const std::string& companyID() const { return sCompanyID_; }

private:
    std::string sCompanyID_;
};

/// One for all clients, and there as long as one of them holds it. Holding it is its whole use: it has no
/// members.
class ActXManager : public AutomationObject {};

/// Its only operation has no name, just the dispatch id 1.
class ReferenceLocation : public AutomationObject {};

/// What the classes ask the user; each may throw RunTimeError.
struct CompanionDialogs {
    /// Asks for the location of reference material and keeps it.
    std::function<void()> chooseLocation;
    std::function<ProfileAnswer(const ProfileQuestion&)> askProfile;
};

std::vector<ServedClass> companionClasses(const CompanionDialogs& dialogs);

} // namespace zorvo
