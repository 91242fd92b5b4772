#pragma once

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

/// `chooseLocation` asks the user for the location and keeps it; it may throw RunTimeError.
std::vector<ServedClass> companionClasses(std::function<void()> chooseLocation);

} // namespace zorvo
