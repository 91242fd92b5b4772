#include "creation/addInConnection.h"

#include "branding/officeObjects.h"
#include "creation/officeCall.h"
#include "platform/Office.h"

namespace zorvo {

namespace {

LateBoundPtr connectionOf(const std::shared_ptr<WordApplication>& objWordApp, const char* progID)
{
    LateBoundPtr connection;
    if (objWordApp)
        optionalOfficeCall([&] { connection = objGetCOMAddins(*objWordApp, progID); });
    return connection;
}

} // namespace

LateBoundPtr wordConnection(const std::shared_ptr<WordApplication>& objWordApp)
{
    return connectionOf(objWordApp, kWordAddInProgID);
}

LateBoundPtr excelConnection(const std::shared_ptr<WordApplication>& objWordApp)
{
    return connectionOf(objWordApp, kExcelAddInProgID);
}

} // namespace zorvo
