#include "platform/linux/office/uno/LocalContext.h"
#include "platform/linux/office/uno/UnoConnection.h"

namespace {

std::unique_ptr<zorvo::OfficeConnection> connectOffice(const std::string& programFolder,
                                                       const std::string& pipe)
{
    return zorvo::UnoConnection::open(programFolder, pipe);
}

} // namespace

/// The one name that the library gives away.
extern "C" __attribute__((visibility("default"))) const zorvo::OfficeConnector* zorvoOfficeConnector()
{
    static const zorvo::OfficeConnector connector = {connectOffice, zorvo::disposeLocalContext};
    return &connector;
}
