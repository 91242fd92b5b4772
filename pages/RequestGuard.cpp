#include "pages/RequestGuard.h"

#include "pages/FolderScheme.h"

#include <QWebEngineUrlRequestInfo>

#include <algorithm>

namespace zorvo {

namespace {

bool isOf(const QUrl& address, std::initializer_list<const char*> schemes)
{
    return std::any_of(schemes.begin(), schemes.end(), [&address](const char* sScheme) {
        return address.scheme() == QString::fromLatin1(sScheme);
    });
}

} // namespace

bool mayLead(const QUrl& from, const QUrl& to)
{
    if (isOf(to, {"http", "https"}))
        return true;
    return isOf(to, {FolderScheme::kName}) && isOf(from, {FolderScheme::kName}) && from.host() == to.host();
}

void RequestGuard::interceptRequest(QWebEngineUrlRequestInfo& info)
{
    // Where the page itself may go is decided ahead of its request.
    const bool bPageItself = info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame;
    const QUrl address = info.requestUrl();
    const bool bMay = mayLead(info.firstPartyUrl(), address) ||
                      isOf(address, {"data", "blob", "ws", "wss"}) ||
                      (bPageItself && isOf(address, {FolderScheme::kName}));
    if (!bMay)
        info.block(true);
}

} // namespace zorvo
