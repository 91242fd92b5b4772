#include "branding/officeObjects.h"

#include "base/RunTimeError.h"
#include "branding/companyIdentity.h"
#include "platform/ObjectCreator.h"
#include "platform/Office.h"
#include "platform/Platform.h"

namespace zorvo {

namespace {

LateBoundPtr toldTheCompany(LateBoundPtr object)
{
    if (object)
        object->call("SetCompanyID", {GetCompanyID()});
    return object;
}

} // namespace

LateBoundPtr objCreateTSR(const std::string& sProgID)
{
    try {
        return toldTheCompany(platform().objects->createByProgId(sProgID));
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.number(), error.description(), "basBranding.objCreateTSR");
    }
}

LateBoundPtr objGetCOMAddins(OfficeApplication& oApp, const std::string& vKey)
{
    try {
        return toldTheCompany(oApp.comAddIn(vKey));
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.number(), error.description(), "basBranding.objGetCOMAddins");
    }
}

} // namespace zorvo
