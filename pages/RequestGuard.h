#pragma once

#include <QWebEngineUrlRequestInterceptor>

namespace zorvo {

/// What a page may load beside itself: anything from the web, and of the machine the files of its own folder
/// alone.
class RequestGuard : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;
};

/// A page at `from` may lead to `to`: to the web, and from a page of a folder to that folder.
bool mayLead(const QUrl& from, const QUrl& to);

} // namespace zorvo
