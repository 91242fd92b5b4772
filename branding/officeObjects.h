#pragma once

#include "platform/Automation.h"

#include <string>

/// Add-in objects, told the running company at the moment they are obtained.
namespace zorvo {

class OfficeApplication;

/// A new object of that class. Throws RunTimeError, its source "basBranding.objCreateTSR", when there is none
/// or it takes no company.
LateBoundPtr objCreateTSR(const std::string& sProgID);

/// The add-in's object inside the running application; its failures carry the source
/// "basBranding.objGetCOMAddins".
LateBoundPtr objGetCOMAddins(OfficeApplication& oApp, const std::string& vKey);

} // namespace zorvo
