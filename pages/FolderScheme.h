#pragma once

#include <QHash>
#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

namespace zorvo {

/// Pages of a folder on the machine, under addresses of a scheme of their own: `page://fN/name` is a file in
/// or below the N-th folder that a page was asked for from. So a page reaches its own folder and no other
/// file, whatever stands in it. Names are matched without regard to case where no exact match exists.
class FolderScheme : public QWebEngineUrlSchemeHandler {
    Q_OBJECT

public:
    static constexpr const char* kName = "page";
    /// Once, ahead of the application object.
    static void registerScheme();

    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

    /// The page's address of a local file, whose folder becomes one of ours.
    QUrl pageAddress(const QUrl& fileAddress);
    /// The file address of a page of ours; any other address as it is.
    QUrl fileAddress(const QUrl& address) const;

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    QString folderOf(const QUrl& pageAddress) const;

    QStringList folders_;
};

} // namespace zorvo
